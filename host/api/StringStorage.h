#pragma once

#include <maya/MString.h>

#include <string>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// What an MString that is not empty points to.
struct MString::Storage
{
    std::string text;
    std::wstring wide; ///< made on request from `text`
    bool hasWide = false;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE

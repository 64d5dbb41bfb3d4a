#pragma once

#include <maya/MTypes.h>

/// The release a plug-in was built for, as a string in its file. It is a plain definition: only one
/// source of a plug-in may include this header, all others define MNoVersionString before they
/// include MFnPlugin.h.

#define MAYA_API_VERSION_TEXT_OF(number) #number
#define MAYA_API_VERSION_TEXT(number) MAYA_API_VERSION_TEXT_OF(number)

const char* MApiVersion = MAYA_API_VERSION_TEXT(MAYA_API_VERSION);

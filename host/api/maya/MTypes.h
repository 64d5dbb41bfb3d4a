#pragma once

/// Version numbers, number types and the macros that the other headers are written with.

#define MAYA_API_VERSION 20240000
#define MAYA_APP_VERSION 2024

#if defined(_WIN32)
#define OPENMAYA_EXPORT __declspec(dllimport)
#else
#define OPENMAYA_EXPORT __attribute__((visibility("default")))
#endif

#define OPENMAYA_DEPRECATED(version, text) [[deprecated(text)]]

/// Declares a nested enumeration: OPENMAYA_ENUM(Colour, kRed, kGreen);
#define OPENMAYA_ENUM(name, ...) enum name { __VA_ARGS__ }

/// Major releases differ in this name, so that a plug-in built for another one does not load by
/// accident. Sources write the names without it.
#define OPENMAYA_MAJOR_NAMESPACE Autodesk::Maya::OpenMaya20240000
// clang-format off
#define OPENMAYA_MAJOR_NAMESPACE_OPEN namespace Autodesk { namespace Maya { namespace OpenMaya20240000 {
#define OPENMAYA_MAJOR_NAMESPACE_CLOSE } } }
// clang-format on

typedef long long MInt64;
typedef unsigned long long MUint64;

#pragma once

#include <maya/MApiNamespace.h>

class QString;

/// The plug-in's own messages: "[TarnwickEditor2] text" shown by the host, so that they reach every
/// console like any other output. Any thread; off the main one the text appears at the host's next
/// idle moment. Debug is for messages that only developers want to see.
class Logger
{
public:
    static void Info(const MString& text);
    static void Info(const QString& text);
    static void Info(const char* text);

    static void Warning(const MString& text);
    static void Warning(const QString& text);
    static void Warning(const char* text);

    static void Error(const MString& text);
    static void Error(const QString& text);
    static void Error(const char* text);

    /// Info led by "[DEBUG] "; shown only by builds with assertions.
    static void Debug(const QString& text);
};

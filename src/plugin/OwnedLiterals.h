#pragma once

#include <QString>

// Included before everything else in every source of the plug-in, by the compiler's command line.
//
// The toolkit's own QStringLiteral points into the module's file. The toolkit keeps copies of such
// strings beyond the plug-in (font families in its font cache, keys and values in its cache of
// settings files), and they would point nowhere once the host has unloaded the module. Here a
// literal is a string with memory of its own.
#undef QStringLiteral
#define QStringLiteral(text)                                                                       \
    QString(reinterpret_cast<const QChar*>(u"" text), int(sizeof(u"" text) / sizeof(char16_t)) - 1)

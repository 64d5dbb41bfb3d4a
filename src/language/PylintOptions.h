#pragma once

#include <QMetaType>
#include <QString>

/// What the user has chosen for pylint: a copy for the threads that run it, as the options may
/// change at any time on the interface thread.
struct PylintOptions
{
    bool isEnabled = false;
    QString path; ///< of the executable
    QString pythonHomePath;
    QString configPath;
    bool usesMinimalCheckers = true;
    bool showsErrors = false;

    /// Interface thread.
    static PylintOptions FromSettings();
};

Q_DECLARE_METATYPE(PylintOptions)

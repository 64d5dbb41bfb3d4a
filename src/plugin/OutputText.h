#pragma once

#include <QString>

/// What the host printed, as the console shows it.
struct OutputText
{
    QString text;
    bool isEcho = false; ///< a command that was executed, which minimal verbosity leaves out
};

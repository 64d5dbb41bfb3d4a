#pragma once

#include "editor/CodeEditorProperties.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

/// The unsaved text of one editor at one moment, and what it takes to bring the editor back. A
/// plain value, copied between threads.
struct RecoverySnapshot
{
    CodeEditorProperties properties;
    int group = 0; ///< index of the editor's group
    int cursorPosition = 0;
    QDateTime time; ///< when the text was taken
    /// Tells the content of the file that the text was made from; empty when that is not known.
    QByteArray baseFingerprint;
    QString text;
};

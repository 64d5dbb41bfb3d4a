#pragma once

#include "editor/CodeEditorProperties.h"

#include <QString>

/// One open tab as it is stored between sessions: fields parted by ";", the label of buffers only.
struct TabDetails
{
    int group = 0;
    CodeEditorType type = CodeEditorType::Buffer;
    QString path; ///< of a file its absolute path; of a buffer the name of its backing file
    bool isCurrent = false; ///< of its group
    int cursorPosition = 0; ///< UTF-16 offset
    int scrollValue = 0; ///< of the vertical scroll bar
    QString label; ///< empty: the usual one
};

QString FormatTabDetails(const TabDetails& details);

/// False for a record with too few fields, a group that does not exist or an unknown type. A
/// position that is no number counts as 0: better the tab at its top than no tab.
bool ParseTabDetails(const QString& record, TabDetails& details);

#pragma once

#include <QString>

#include <optional>

class QWidget;

/// What becomes of a file that does not stand as others do.
enum class FormatAnswer {
    Keep, ///< its encoding and line ends
    Convert, ///< to what others have
    Cancel,
};

/// While several files are saved: what was answered for all of them.
struct SaveBatch
{
    int files = 1;
    std::optional<FormatAnswer> answer;
    bool isCancelled = false;
};

struct FormatQuestion
{
    QString name; ///< of the file
    QString found; ///< its encoding and line ends
    QString target; ///< the encoding that it would get
    QString warning; ///< what else would be lost; may be empty
    bool canKeep = true; ///< otherwise `found` is the encoding that cannot hold the text
    QString checkBox;
};

/// Asks with the window that asks as parent. `checked` tells whether the box was checked.
FormatAnswer AskAboutFormat(QWidget* parent, const FormatQuestion& question, bool& checked);

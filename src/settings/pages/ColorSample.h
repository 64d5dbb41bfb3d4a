#pragma once

#include "settings/pages/ColorScheme.h"

#include <QVector>

/// Texts that show every colour role at work. Free of widgets.
namespace ColorSample {

enum class Text { Python, Mel, Console };

/// Characters of one look.
struct Piece
{
    QString text;
    QString syntax; ///< key of a role; empty for plain text
    QString ground; ///< key of a role whose colours lie over those; empty for none
};

struct Line
{
    QVector<Piece> pieces;
    QString ground; ///< key of a role over the whole width; empty for none

    QString GetText() const;
    /// Leading blanks, as they may be shown as marks.
    int CountIndent() const;
};

const QVector<Line>& GetLines(Text text);
ColorRole::Surface GetSurface(Text text);
/// The text that shows the role; `current` when that does already.
Text TextWith(const ColorRole& role, Text current);
/// What the column of the line is painted with above all else; plain text behind its end.
QString RoleAt(const Line& line, int column);

} // namespace ColorSample

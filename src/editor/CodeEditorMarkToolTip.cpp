#include "editor/CodeEditorMarkToolTip.h"

#include "window/chrome/Theme.h"

namespace {

constexpr int ICON_SIZE = 16; // design pixels
constexpr int CELL_PADDING = 2;
constexpr int LONGEST_LINE = 90; // characters
constexpr int LONG_TEXT_WIDTH = 480; // design pixels

const char* const ICONS[MARK_SEVERITIES] = {"status_error", "status_warning", "status_info"};

QString Row(const CodeEditorMark& mark, ToolTipRows rows, double pixelRatio)
{
    const int size = Theme::Dp(ICON_SIZE);
    const QString icon = Theme::PicturePath(
        QLatin1String(ICONS[static_cast<int>(mark.severity)]), qRound(size * pixelRatio));
    QString row = QStringLiteral("<tr><td><img src=\"%1\" width=\"%2\" height=\"%2\"></td>")
                      .arg(icon)
                      .arg(size);
    if (rows == ToolTipRows::Numbered) {
        row += QStringLiteral("<td align=\"right\" style=\"color:%1\">%2</td>")
                   .arg(Theme::Color(Theme::Role::Soft).name())
                   .arg(mark.line + 1);
    }
    const QString& message = mark.message.message;
    QString text = message.toHtmlEscaped();
    text.replace(QLatin1Char('\n'), QLatin1String("<br>"));
    // A table is given little room by the toolkit, so that only what is long may be broken.
    row += message.size() > LONGEST_LINE
        ? QStringLiteral("<td width=\"%1\">").arg(Theme::Dp(LONG_TEXT_WIDTH))
        : QStringLiteral("<td style=\"white-space:nowrap\">");
    // Added rather than filled in: the message may hold a place marker of its own.
    return row + text + QLatin1String("</td></tr>");
}

} // namespace

QString MarkToolTip(const QVector<CodeEditorMark>& marks, ToolTipRows rows, double pixelRatio)
{
    if (marks.isEmpty())
        return {};
    QString text = QStringLiteral("<table cellspacing=\"0\" cellpadding=\"%1\">")
                       .arg(Theme::Dp(CELL_PADDING));
    for (const CodeEditorMark& mark : marks.mid(0, MAXIMUM_TOOL_TIP_MARKS))
        text += Row(mark, rows, pixelRatio);
    return text + QLatin1String("</table>");
}

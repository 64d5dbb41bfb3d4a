// Messages, paths and names in tool tips: shown as they stand, whatever tags are in them.

#include "editor/CodeEditorMarkToolTip.h"
#include "fuzz/Fuzz.h"
#include "window/chrome/ToolTipText.h"

#include <QTextDocument>

using fuzz::Expect;

namespace {

/// What both texts have in common however white space is laid out.
QString Visible(const QString& text)
{
    QString visible;
    for (const QChar character : text) {
        if (character > QLatin1Char(' ') && character < QChar(0x7f))
            visible += character;
    }
    return visible;
}

QString Shown(const QString& toolTip)
{
    QTextDocument document;
    if (Qt::mightBeRichText(toolTip))
        document.setHtml(toolTip);
    else
        document.setPlainText(toolTip);
    return Visible(document.toPlainText());
}

} // namespace

TE2_FUZZ_TARGET(ToolTips)
{
    const QString text = input.Text(2000);
    Expect(Shown(ToolTipText(text)) == Visible(text),
        QStringLiteral("shown as it stands: %1 as %2").arg(text, ToolTipText(text)));
    CodeEditorMark mark;
    mark.message.message = text;
    const QString marked = MarkToolTip({mark}, ToolTipRows::Plain, 1.0);
    Expect(Shown(marked) == Visible(text), QStringLiteral("a mark's tool tip: %1").arg(marked));
}

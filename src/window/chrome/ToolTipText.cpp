#include "window/chrome/ToolTipText.h"

#include <QString>
#include <QTextDocument>

namespace {

QString Paragraph(const char* whiteSpace, const QString& text)
{
    return QStringLiteral("<p style=\"white-space:%1\">%2</p>")
        .arg(QLatin1String(whiteSpace), text.toHtmlEscaped());
}

} // namespace

QString ToolTipText(const QString& text)
{
    // What is not taken for rich text must not be escaped: its "&amp;" would be shown as such.
    return Qt::mightBeRichText(text) ? WrappedToolTipText(text) : text;
}

QString WrappedToolTipText(const QString& text)
{
    return Paragraph("pre-wrap", text);
}

QString ToolTipLines(const QString& text)
{
    return Paragraph("pre", text);
}

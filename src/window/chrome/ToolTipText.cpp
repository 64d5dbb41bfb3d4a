#include "window/chrome/ToolTipText.h"

#include <QString>
#include <QTextDocument>

QString ToolTipText(const QString& text)
{
    // What is not taken for rich text must not be escaped: its "&amp;" would be shown as such.
    if (!Qt::mightBeRichText(text))
        return text;
    return QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(text.toHtmlEscaped());
}

#include "views/PlainToolTip.h"

#include <QAbstractItemView>
#include <QToolTip>

void ShowPlainToolTip(const QAbstractItemView& view, const QModelIndex& index,
    const QPoint& globalPosition, const QString& text)
{
    // Never read as rich text.
    const QString shown = text.isEmpty()
        ? text
        : QStringLiteral("<p style=\"white-space:pre\">%1</p>").arg(text.toHtmlEscaped());
    QToolTip::showText(globalPosition, shown, view.viewport(), view.visualRect(index));
}

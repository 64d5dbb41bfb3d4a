#include "views/PlainToolTip.h"

#include "window/chrome/ToolTipText.h"

#include <QAbstractItemView>
#include <QToolTip>

void ShowPlainToolTip(const QAbstractItemView& view, const QModelIndex& index,
    const QPoint& globalPosition, const QString& text)
{
    QToolTip::showText(globalPosition, text.isEmpty() ? text : ToolTipLines(text), view.viewport(),
        view.visualRect(index));
}

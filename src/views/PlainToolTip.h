#pragma once

class QAbstractItemView;
class QModelIndex;
class QPoint;
class QString;

/// Shows the text as it stands at a point of the screen for as long as the pointer stays over the
/// row; an empty one shows nothing. For names and lines that come from files. Interface thread.
void ShowPlainToolTip(const QAbstractItemView& view, const QModelIndex& index,
    const QPoint& globalPosition, const QString& text);

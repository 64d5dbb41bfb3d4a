#pragma once

#include "views/SideBarTree.h"

/// The tree of the outline. Owned by its section.
class OutlineTreeWidget : public SideBarTree
{
    Q_OBJECT

public:
    using SideBarTree::SideBarTree;

    void ClearAll() { clear(); }
    /// What is said instead of rows: one line, and a fainter one of what can be done about it.
    void SetEmptyText(const QString& text, const QString& hint);

Q_SIGNALS:
    void FocusOutClearSelection();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_emptyText;
    QString m_emptyHint;
};

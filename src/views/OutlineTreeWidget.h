#pragma once

#include "views/SideBarTree.h"

/// The tree of the outline. Owned by its section.
class OutlineTreeWidget : public SideBarTree
{
    Q_OBJECT

public:
    using SideBarTree::SideBarTree;

    void ClearAll() { clear(); }

Q_SIGNALS:
    void FocusOutClearSelection();

protected:
    void focusOutEvent(QFocusEvent* event) override;
};

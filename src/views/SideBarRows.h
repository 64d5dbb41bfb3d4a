#pragma once

#include <QPersistentModelIndex>
#include <QRect>

class QEvent;
class QFocusEvent;
class QKeyEvent;
class QMouseEvent;
class QPainter;
class QTreeView;

/// What the trees of the side bar have in common: rows of one height that they paint themselves,
/// elided instead of scrolled sideways, with the whole text as tool tip. A base of the trees beside
/// the toolkit's own; lives as long as the tree.
class SideBarRows
{
public:
    /// What the painter reads of column 0 besides text, icon and tool tip. Far from the user roles
    /// that the views need for themselves.
    enum Role {
        DetailRole = Qt::UserRole + 100, ///< text behind the label, quiet
        ModifiedRole, ///< bool: a dot at the right
        ClosableRole, ///< bool: a cross at the right while hovered or current
        HeadingRole, ///< bool: a quiet title, not a row to choose
        LanguageIconRole, ///< bool: the icon is one of a language, which are smaller
        MarkedRole, ///< bool: on the current row's background though not selected
        AbsentRole, ///< bool: greyed
        CopyRole, ///< what "copy" takes instead of the text
    };

    static int RowHeight();
    /// For trees that paint their rows on their own.
    static void MakeRowsEquallyHigh(QTreeView& view);
    /// Whether a tree takes the key itself, whatever the window has bound to it.
    static bool IsOwnKey(const QKeyEvent& event);

protected:
    /// One row as it is painted.
    struct RowLook
    {
        QModelIndex index;
        QRect row; ///< over the whole width
        int level = 0;
        bool current = false;
        bool hovered = false;
    };

    explicit SideBarRows(QTreeView& view);
    virtual ~SideBarRows() = default;

    /// Once the view has its model.
    void FollowModel();
    virtual void PaintLabel(QPainter& painter, const RowLook& look) const;
    /// Shown as it stands, never as rich text; empty for none.
    virtual QString ToolTipOf(const QModelIndex& index) const;

    // What the view calls first in its handlers; true: that was all
    void DrawRow(QPainter* painter, const QRect& area, const QModelIndex& index) const;
    bool HandleEvent(QEvent* event);
    bool HandleViewportEvent(QEvent* event);
    /// The arrow's own place is wider than what the base class takes for it.
    bool HandleArrowPress(const QMouseEvent& event);
    void NoteFocus(const QFocusEvent& event);

    bool IsAtMark(const QPoint& point) const;
    /// Where the text of a row begins, in pixels.
    static int LabelLeft(const QModelIndex& index);
    /// The row that something dragged would go into; invalid for none.
    void SetDropTarget(const QModelIndex& index);
    /// What hangs at the pointer while rows are dragged.
    QPixmap DragPicture(const QString& label) const;

private:
    RowLook LookOf(const QModelIndex& index, const QRect& row) const;
    void PaintBranch(QPainter& painter, const RowLook& look) const;
    void PaintMark(QPainter& painter, const RowLook& look) const;
    bool IsElided(const QModelIndex& index) const;
    QRect MarkBox(const QRect& row) const;

    QTreeView& m_view;
    QPersistentModelIndex m_dropTarget;
    bool m_focusByKey = false;
};

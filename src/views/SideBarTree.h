#pragma once

#include <QTreeWidget>

/// A tree of the side bar: rows of one height that it paints itself, elided instead of scrolled
/// sideways, with the whole text as tool tip. Owned by its section. While it has the focus, plain
/// keys belong to it and not to the host's shortcuts.
class SideBarTree : public QTreeWidget
{
    Q_OBJECT

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

    explicit SideBarTree(QWidget* parent);

    /// The height of all rows that can be scrolled to, in pixels.
    int GetRowsHeight() const;
    static int RowHeight();

Q_SIGNALS:
    void CloseRequested(QTreeWidgetItem* item);

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

    virtual void PaintLabel(QPainter& painter, const RowLook& look) const;
    /// Shown as it stands, never as rich text; empty for none.
    virtual QString ToolTipOf(const QModelIndex& index) const;

    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    RowLook LookOf(const QModelIndex& index, const QRect& row) const;
    void PaintBranch(QPainter& painter, const RowLook& look) const;
    void PaintMark(QPainter& painter, const RowLook& look) const;
    void CopyItem(const QTreeWidgetItem& item) const;
    bool IsElided(const QModelIndex& index) const;
    QRect MarkBox(const QRect& row) const;
    /// The arrow's own place is wider than what the base class takes for it.
    bool HandleArrowPress(const QPoint& point);

    QPersistentModelIndex m_pressedMark;
    bool m_focusByKey = false;
};

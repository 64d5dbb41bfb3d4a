#pragma once

#include "views/SideBarTree.h"
#include "views/quickhelp/QuickHelpTopic.h"

/// The flags of a command as a table: short name, long name and type of the argument, each in a
/// column of its own. A flag can be dragged into an editor. Owned by the quick help.
class QuickHelpFlags : public SideBarTree
{
    Q_OBJECT

public:
    using Flag = QuickHelpTopic::Flag;

    explicit QuickHelpFlags(QWidget* parent);

    void SetFlags(const QVector<Flag>& flags);
    /// Hides the rows that do not contain the text; how many are left.
    int Filter(const QString& wanted);
    /// Whether a flag has exactly this name, dash or not.
    bool HasFlag(const QString& name) const;
    /// Makes the first row that is shown the current one, unless there is one.
    void SelectFirst();

Q_SIGNALS:
    /// A row was chosen with the mouse or a key.
    void FlagChosen(const QString& longName);
    void HideRequested();

protected:
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QList<QTreeWidgetItem*> items) const override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void PaintLabel(QPainter& painter, const RowLook& look) const override;
    QString ToolTipOf(const QModelIndex& index) const override;

private:
    /// The columns are as wide as what stands in them, within the share of the width they may take.
    void UpdateColumns();

    QFont m_nameFont;
    int m_shortWidth = 0; ///< pixels, of the widest short name
    int m_longWidth = 0;
};

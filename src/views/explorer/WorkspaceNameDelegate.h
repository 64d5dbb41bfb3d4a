#pragma once

#include <QStyledItemDelegate>

#include <functional>

/// The field in a row of the workspace that a name is typed into. A name that cannot be is refused
/// there, with the reason. Owned by the tree; changes nothing itself.
class WorkspaceNameDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Why the row cannot be called so, for people; empty when it can.
    using Check = std::function<QString(const QModelIndex&, const QString&)>;

    WorkspaceNameDelegate(
        Check check, std::function<int(const QModelIndex&)> labelLeft, QObject* parent);

    /// The name that was entered last, once; empty when the typing was given up.
    QString TakeName();

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(
        QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

Q_SIGNALS:
    /// A name was entered that cannot be.
    void Refused(const QModelIndex& index, const QString& name) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Check m_check;
    std::function<int(const QModelIndex&)> m_labelLeft;
    mutable QPersistentModelIndex m_index; ///< of the open field
    mutable QString m_name;
};

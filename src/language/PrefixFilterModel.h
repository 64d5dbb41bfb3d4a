#pragma once

#include <QSortFilterProxyModel>

/// The rows of a completer's item model whose name begins with a prefix: the same rows as the
/// pattern "^(prefix)" leaves, without an expression to run over twenty thousand names. They keep
/// the order of the item model; without regard to case, those that match the case come first.
/// Interface thread only.
class PrefixFilterModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void SetPrefix(const QString& prefix, Qt::CaseSensitivity caseSensitivity);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    QString m_prefix;
};

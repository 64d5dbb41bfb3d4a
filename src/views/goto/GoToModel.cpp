#include "views/goto/GoToModel.h"

namespace {

/// As it is read to somebody who does not see it: the name before its folder.
QString SpokenText(const GoToEntry& entry)
{
    QStringList parts = {entry.text.mid(entry.nameStart)};
    if (entry.nameStart > 0)
        parts.append(entry.text.left(qMax(1, entry.nameStart - 1)));
    for (const QString& part : {entry.detail, entry.shortcut}) {
        if (!part.isEmpty())
            parts.append(part);
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace

void GoToModel::SetRows(const QVector<Row>& rows)
{
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

bool GoToModel::IsChoice(int row) const
{
    return row >= 0 && row < m_rows.size() && !m_rows[row].isNote;
}

int GoToModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

QVariant GoToModel::data(const QModelIndex& index, int role) const
{
    const Row& row = m_rows[index.row()];
    switch (role) {
    case Qt::DisplayRole: return row.entry.text.mid(row.entry.nameStart);
    case Qt::AccessibleTextRole: return SpokenText(row.entry);
    case RowRole: return QVariant::fromValue(row);
    default: return {};
    }
}

Qt::ItemFlags GoToModel::flags(const QModelIndex& index) const
{
    return IsChoice(index.row()) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

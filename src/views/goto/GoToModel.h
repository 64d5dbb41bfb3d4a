#pragma once

#include "views/goto/GoToEntry.h"

#include <QAbstractListModel>
#include <QVector>

/// The rows under the go-to widget's field: entries, and quiet sentences that cannot be chosen.
/// Owned by the widget.
class GoToModel : public QAbstractListModel
{
    Q_OBJECT

public:
    struct Row
    {
        GoToEntry entry;
        QVector<int> hits; ///< places in the entry's text, ascending
        bool isNote = false; ///< a sentence, the entry's text
    };

    enum Role { RowRole = Qt::UserRole };

    using QAbstractListModel::QAbstractListModel;

    void SetRows(const QVector<Row>& rows);
    const QVector<Row>& GetRows() const { return m_rows; }
    bool IsChoice(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QVector<Row> m_rows;
};

Q_DECLARE_METATYPE(GoToModel::Row)

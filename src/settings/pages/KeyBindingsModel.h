#pragma once

#include "settings/KeyBindings.h"

#include <QAbstractTableModel>

/// A copy of the key bindings to work on, with what the keys of each command lead to. Owned by the
/// page that shows it; interface thread.
/// Invariant: row i is the binding with the id i + 1, and no binding has an empty sequence.
class KeyBindingsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { COMMAND, SHORTCUT, MARK, COLUMN_COUNT };
    enum Role {
        IS_CHANGED = Qt::UserRole, ///< from the built-in keys
        IS_LOSING, ///< some of its keys lead to another command
    };
    /// A key that two commands want.
    struct Contest
    {
        int otherId = KeyBindings::None; ///< none when nobody else wants it
        bool isKept = true; ///< by the command that was asked about
    };

    KeyBindingsModel(const QList<KeyBinding>& bindings, QObject* parent);

    const QList<KeyBinding>& GetBindings() const { return m_bindings; }
    const QList<QKeySequence>& GetSequences(int row) const;
    /// Those of all rows.
    QList<QKeySequence> GetAllSequences() const;
    bool IsFixed(int row) const { return m_bindings[row].fixed; }
    bool IsChanged(int row) const;
    /// Who else wants the key.
    Contest FindContest(int row, const QKeySequence& sequence) const;
    /// What is to be known about the row's keys, in whole sentences; empty when each of them leads
    /// to it.
    QString Describe(int row) const;
    /// The command's name in the file and its built-in keys.
    QString DescribeDefault(int row) const;

    /// The row's keys. A fixed row stays as it is.
    void SetSequences(int row, const QList<QKeySequence>& sequences);
    void Clear(int row) { SetSequences(row, {}); }
    void Reset(int row) { SetSequences(row, m_bindings[row].defaultSequences); }
    void ResetAll();
    /// Takes other bindings over; they are the same commands.
    void SetBindings(const QList<KeyBinding>& bindings);
    /// Whose mark says who gets a contested key, -1 for none.
    void SetEditedRow(int row);

    /// Whether label, name or keys contain the text, case ignored.
    bool ContainsText(int row, const QString& text) const;
    /// Whether one of its keys is the sequence, or begins with it or is its beginning.
    bool HasKeys(int row, const QKeySequence& sequence) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// As shown: the strokes of one sequence stand behind each other.
    static QString ShownText(const QKeySequence& sequence);

private:
    QString GetMark(int row) const;
    QString GetAccessibleText(int row, int column) const;
    const QString& LabelOf(int id) const { return m_bindings[id - 1].label; }
    bool IsLosing(int row) const;
    /// The first of its keys that somebody else wants, losing ones first.
    Contest FirstContest(int row) const;
    void OnEdited();

    QList<KeyBinding> m_bindings;
    KeyOwners m_owners;
    int m_editedRow = -1;
};

#include "settings/pages/KeyBindingsModel.h"

#include <QStringList>

#include <algorithm>

namespace {

QList<QKeySequence> WithoutEmpty(const QList<QKeySequence>& sequences)
{
    QList<QKeySequence> kept;
    for (const QKeySequence& sequence : sequences) {
        if (!sequence.isEmpty() && !kept.contains(sequence))
            kept += sequence;
    }
    return kept;
}

bool Overlap(const QKeySequence& left, const QKeySequence& right)
{
    return left.matches(right) != QKeySequence::NoMatch
        || right.matches(left) != QKeySequence::NoMatch;
}

QString TextOf(const QList<QKeySequence>& sequences)
{
    QStringList texts;
    for (const QKeySequence& sequence : sequences)
        texts += KeyBindingsModel::ShownText(sequence);
    return texts.isEmpty() ? KeyBindingsModel::tr("none") : texts.join(QStringLiteral(", "));
}

/// Where text is written such a key is no shortcut.
bool TypesText(const QKeySequence& sequence)
{
    const int key = sequence[0] & ~int(Qt::KeyboardModifierMask);
    const int modifiers = sequence[0] & int(Qt::KeyboardModifierMask);
    return key >= Qt::Key_Space && key < Qt::Key_Escape && (modifiers & ~int(Qt::SHIFT)) == 0;
}

} // namespace

KeyBindingsModel::KeyBindingsModel(const QList<KeyBinding>& bindings, QObject* parent)
    : QAbstractTableModel(parent)
{
    SetBindings(bindings);
}

void KeyBindingsModel::SetBindings(const QList<KeyBinding>& bindings)
{
    beginResetModel();
    m_bindings = bindings;
    for (KeyBinding& binding : m_bindings)
        binding.userSequences = WithoutEmpty(binding.userSequences);
    m_owners = KeyBindings::OwnersOf(m_bindings);
    m_editedRow = -1;
    endResetModel();
}

const QList<QKeySequence>& KeyBindingsModel::GetSequences(int row) const
{
    return m_bindings[row].GetSequencesInForce();
}

QList<QKeySequence> KeyBindingsModel::GetAllSequences() const
{
    QList<QKeySequence> all;
    for (const KeyBinding& binding : m_bindings)
        all += binding.GetSequencesInForce();
    return WithoutEmpty(all);
}

bool KeyBindingsModel::IsChanged(int row) const
{
    return GetSequences(row) != m_bindings[row].defaultSequences;
}

KeyBindingsModel::Contest KeyBindingsModel::FindContest(int row, const QKeySequence& sequence) const
{
    const int id = m_bindings[row].id;
    if (m_owners.IsTakenFrom(id, sequence))
        return {m_owners.OwnerOf(sequence), false};
    for (const KeyBinding& other : m_bindings) {
        const auto& sequences = other.GetSequencesInForce();
        const bool wantsIt = std::any_of(sequences.begin(), sequences.end(),
            [&](const QKeySequence& wanted) { return Overlap(wanted, sequence); });
        if (other.id != id && wantsIt)
            return {other.id, true};
    }
    return {};
}

KeyBindingsModel::Contest KeyBindingsModel::FirstContest(int row) const
{
    Contest first;
    for (const QKeySequence& sequence : GetSequences(row)) {
        const Contest contest = FindContest(row, sequence);
        if (contest.otherId != KeyBindings::None
            && (first.otherId == KeyBindings::None || (first.isKept && !contest.isKept)))
            first = contest;
    }
    return first;
}

bool KeyBindingsModel::IsLosing(int row) const
{
    const auto& sequences = GetSequences(row);
    return std::any_of(sequences.begin(), sequences.end(), [&](const QKeySequence& sequence) {
        return m_owners.IsTakenFrom(m_bindings[row].id, sequence);
    });
}

QString KeyBindingsModel::Describe(int row) const
{
    QStringList sentences;
    for (const QKeySequence& sequence : GetSequences(row)) {
        if (TypesText(sequence))
            sentences += tr("%1 alone goes on typing text in an editor.").arg(ShownText(sequence));
        const Contest contest = FindContest(row, sequence);
        if (contest.otherId == KeyBindings::None)
            continue;
        const QString text = contest.otherId == KeyBindings::Escape
            ? tr("%1 closes widgets and cannot be bound.")
            : contest.isKept ? tr("%1 is also bound to \"%2\", which comes later and loses it.")
                             : tr("%1 is also bound to \"%2\", which comes first and keeps it.");
        // One call: the keys may contain what looks like a place.
        sentences += contest.otherId == KeyBindings::Escape
            ? text.arg(ShownText(sequence))
            : text.arg(ShownText(sequence), LabelOf(contest.otherId));
    }
    return sentences.join(QLatin1Char('\n'));
}

QString KeyBindingsModel::DescribeDefault(int row) const
{
    return tr("%1, built in: %2")
        .arg(m_bindings[row].name, TextOf(m_bindings[row].defaultSequences));
}

void KeyBindingsModel::SetSequences(int row, const QList<QKeySequence>& sequences)
{
    KeyBinding& binding = m_bindings[row];
    const QList<QKeySequence> wanted = WithoutEmpty(sequences);
    if (binding.fixed || binding.userSequences == wanted)
        return;
    binding.userSequences = wanted;
    OnEdited();
}

void KeyBindingsModel::ResetAll()
{
    for (KeyBinding& binding : m_bindings)
        binding.userSequences = binding.defaultSequences;
    OnEdited();
}

void KeyBindingsModel::SetEditedRow(int row)
{
    m_editedRow = row;
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, COLUMN_COUNT - 1));
}

/// Marks of other rows may be others now.
void KeyBindingsModel::OnEdited()
{
    m_owners = KeyBindings::OwnersOf(m_bindings);
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, COLUMN_COUNT - 1));
}

bool KeyBindingsModel::ContainsText(int row, const QString& text) const
{
    const KeyBinding& binding = m_bindings[row];
    return binding.label.contains(text, Qt::CaseInsensitive)
        || binding.name.contains(text, Qt::CaseInsensitive)
        || TextOf(GetSequences(row)).contains(text, Qt::CaseInsensitive);
}

bool KeyBindingsModel::HasKeys(int row, const QKeySequence& sequence) const
{
    const auto& sequences = GetSequences(row);
    return std::any_of(sequences.begin(), sequences.end(),
        [&](const QKeySequence& own) { return Overlap(own, sequence); });
}

int KeyBindingsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_bindings.size();
}

int KeyBindingsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : COLUMN_COUNT;
}

QString KeyBindingsModel::ShownText(const QKeySequence& sequence)
{
    QStringList strokes;
    for (int i = 0; i < sequence.count(); ++i)
        strokes += QKeySequence(sequence[uint(i)]).toString(QKeySequence::NativeText);
    return strokes.join(QLatin1Char(' '));
}

QString KeyBindingsModel::GetMark(int row) const
{
    const Contest contest = FirstContest(row);
    const bool isNamed = contest.otherId != KeyBindings::None
        && (!contest.isKept || row == m_editedRow || IsChanged(row));
    QStringList marks;
    if (IsFixed(row))
        marks += tr("fixed");
    if (isNamed) {
        const QString text = row != m_editedRow ? tr("also %1")
            : contest.isKept                    ? tr("also %1, which loses it")
                                                : tr("also %1, which keeps it");
        marks += text.arg(LabelOf(contest.otherId));
    } else if (IsChanged(row)) {
        marks += tr("changed");
    }
    return marks.join(QStringLiteral(", "));
}

QString KeyBindingsModel::GetAccessibleText(int row, int column) const
{
    switch (column) {
    case COMMAND: {
        const QString mark = GetMark(row);
        const QString text = tr("%1, %2").arg(m_bindings[row].label, TextOf(GetSequences(row)));
        return mark.isEmpty() ? text : tr("%1, %2").arg(text, mark);
    }
    case SHORTCUT: return TextOf(GetSequences(row));
    default: return GetMark(row);
    }
}

QVariant KeyBindingsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const int row = index.row();
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == COMMAND ? m_bindings[row].label
            : index.column() == SHORTCUT ? TextOf(GetSequences(row))
                                         : GetMark(row);
    case Qt::AccessibleTextRole: return GetAccessibleText(row, index.column());
    case IS_CHANGED: return IsChanged(row);
    case IS_LOSING: return IsLosing(row);
    default: return {};
    }
}

QVariant KeyBindingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == COMMAND ? tr("COMMAND") : section == SHORTCUT ? tr("SHORTCUT") : QString();
}

#include "scene/NameIndex.h"

namespace host::scene {

namespace {

/// A name and the number that it ends in.
struct Numbered
{
    QString stem;
    int number = 0; ///< 0 when there is none
    int digits = 0; ///< of a number with leading zeros, else 0

    QString Text() const
    {
        return stem + QStringLiteral("%1").arg(number, digits, 10, QLatin1Char('0'));
    }
    /// "a01" and "a1" count separately.
    QString Family() const
    {
        return digits == 0 ? stem : stem + QLatin1Char('|') + QString::number(digits);
    }
};

Numbered Split(const QString& name)
{
    int start = name.size();
    while (start > 0 && name.at(start - 1).isDigit())
        --start;
    Numbered parts{name.left(start), 0, 0};
    bool fits = false;
    parts.number = name.midRef(start).toInt(&fits);
    // A longer number is just text: there has to be room for counting up.
    constexpr int MOST_DIGITS = 9;
    if (start < name.size() && (!fits || name.size() - start > MOST_DIGITS))
        return {name, 0, 0};
    const int length = name.size() - start;
    parts.digits = length > 1 && name.at(start) == QLatin1Char('0') ? length : 0;
    return parts;
}

bool EndsInNumber(const QString& name)
{
    return !name.isEmpty() && name.at(name.size() - 1).isDigit();
}

} // namespace

void NameIndex::Add(Node& node)
{
    auto& bearers = m_byName[node.m_name];
    if (bearers.isEmpty() && EndsInNumber(node.m_name)) {
        const Numbered parts = Split(node.m_name);
        m_numbers[parts.Family()].Add(parts.number);
    }
    bearers.insert(node.m_serial, &node);
    m_byParent.insert({node.m_parent, node.m_name}, &node);
}

void NameIndex::Remove(Node& node)
{
    auto& bearers = m_byName[node.m_name];
    bearers.remove(node.m_serial);
    if (bearers.isEmpty()) {
        m_byName.remove(node.m_name);
        if (EndsInNumber(node.m_name)) {
            const Numbered parts = Split(node.m_name);
            m_numbers[parts.Family()].Remove(parts.number);
        }
    }
    m_byParent.remove({node.m_parent, node.m_name});
}

QVector<Node*> NameIndex::Find(const QString& name) const
{
    const auto found = m_byName.constFind(name);
    QVector<Node*> nodes;
    if (found != m_byName.constEnd()) {
        for (Node* node : *found)
            nodes += node;
    }
    return nodes;
}

bool NameIndex::IsTaken(const QString& name, const Node* parent, const Node* except) const
{
    const Node* outside = FindChild(nullptr, name);
    if (outside && outside != except)
        return true;
    if (parent) {
        const Node* sibling = FindChild(parent, name);
        return sibling && sibling != except;
    }
    const auto found = m_byName.constFind(name);
    return found != m_byName.constEnd() && !(found->size() == 1 && found->first() == except);
}

QString NameIndex::UniqueName(const QString& wanted, const Node* parent, const Node* except) const
{
    return IsTaken(wanted, parent, except) ? UnusedName(wanted) : wanted;
}

QString NameIndex::UnusedName(const QString& wanted) const
{
    QString name = wanted;
    while (m_byName.contains(name)) {
        Numbered parts = Split(name);
        const auto taken = m_numbers.constFind(parts.Family());
        ++parts.number;
        if (taken != m_numbers.constEnd())
            parts.number = taken->FirstFree(parts.number);
        name = parts.Text();
    }
    return name;
}

QString NameIndex::LegalName(const QString& text)
{
    QStringList parts = text.split(QLatin1Char(':'), Qt::SkipEmptyParts);
    for (QString& part : parts) {
        int start = 0;
        while (start < part.size() && part.at(start).isDigit())
            ++start;
        part.remove(0, start);
        for (QChar& character : part) {
            const bool isPlain = character.unicode() < 128 && character.isLetterOrNumber();
            if (!isPlain)
                character = QLatin1Char('_');
        }
    }
    parts.removeAll(QString());
    return parts.join(QLatin1Char(':'));
}

} // namespace host::scene

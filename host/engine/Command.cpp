#include "engine/Command.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace host {

namespace {

struct TypeRow
{
    const char* word; ///< in flag tables
    const char* helpName; ///< in synopses and in the text of `help`
    ArgumentType type;
};

constexpr TypeRow TYPES[] = {
    {"B", "on|off", ArgumentType::Bool},
    {"int", "Int", ArgumentType::Int},
    {"uint", "UnsignedInt", ArgumentType::Unsigned},
    {"float", "Float", ArgumentType::Float},
    {"str", "String", ArgumentType::String},
    {"script", "Script", ArgumentType::Script},
    {"name", "Name", ArgumentType::Name},
    {"length", "Length", ArgumentType::Length},
    {"angle", "Angle", ArgumentType::Angle},
    {"time", "Time", ArgumentType::Time},
    {"any", "Any", ArgumentType::Any},
};

ArgumentType TypeFromWord(const QString& word, const char* TypeRow::*column)
{
    for (const TypeRow& row : TYPES) {
        if (word == QLatin1String(row.*column))
            return row.type;
    }
    Q_ASSERT_X(false, "TypeFromWord", qPrintable(word));
    return ArgumentType::String;
}

void ReadModes(const QString& letters, Flag& flag)
{
    flag.modes = 0;
    for (const QChar letter : letters) {
        switch (letter.unicode()) {
        case u'c': flag.modes |= Create; break;
        case u'q': flag.modes |= Query; break;
        case u'e': flag.modes |= Edit; break;
        case u'm': flag.multiUse = true; break;
        case u'v': flag.queryTakesArguments = true; break;
        case u'o': flag.valueMayMiss = true; break;
        default: Q_ASSERT_X(false, "ReadModes", qPrintable(letters));
        }
    }
}

Flag ReadFlag(const QString& entry)
{
    const QStringList words = entry.simplified().split(QLatin1Char(' '));
    Q_ASSERT_X(words.size() >= 3, "ReadFlag", qPrintable(entry));
    const QStringList names = words.first().split(QLatin1Char('/'));
    Flag flag;
    flag.longName = names.first();
    flag.shortName = names.last();
    ReadModes(words.last(), flag);
    for (QString word : words.mid(1, words.size() - 2)) {
        if (word == QLatin1String("-"))
            continue;
        if (word.endsWith(QLatin1String("[]"))) {
            flag.takesList = true;
            word.chop(2);
        }
        flag.arguments += TypeFromWord(word, &TypeRow::word);
    }
    return flag;
}

} // namespace

QString ArgumentTypeName(ArgumentType type)
{
    for (const TypeRow& row : TYPES) {
        if (row.type == type)
            return QLatin1String(row.helpName);
    }
    return {};
}

QVector<Flag> ReadFlags(const char* text)
{
    QVector<Flag> flags;
    const QStringList entries
        = QString::fromLatin1(text).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString& entry : entries) {
        if (!entry.trimmed().isEmpty())
            flags += ReadFlag(entry);
    }
    return flags;
}

Objects ReadObjects(const char* synopsis)
{
    Objects objects;
    objects.synopsis = QString::fromLatin1(synopsis);
    static const QRegularExpression word(QStringLiteral("(\\[?)(\\w+)(\\.\\.\\.)?(\\]?)"));
    auto match = word.globalMatch(objects.synopsis);
    while (match.hasNext()) {
        const auto part = match.next();
        objects.types += TypeFromWord(part.captured(2), &TypeRow::helpName);
        if (part.capturedLength(1) == 0)
            ++objects.minimum;
        objects.maximum = part.capturedLength(3) > 0 ? Objects::UNLIMITED : objects.types.size();
    }
    return objects;
}

Command::Command(const CommandRow& row, const char* sharedFlags)
    : handler(row.run)
    , m_name(QString::fromLatin1(row.name))
    , m_resultKind(KindFromName(QString::fromLatin1(row.result)))
    , m_canQuery(QLatin1String(row.modes).contains(QLatin1Char('Q')))
    , m_canEdit(QLatin1String(row.modes).contains(QLatin1Char('E')))
    , m_flagText(row.flags)
    , m_sharedFlagText(sharedFlags)
    , m_read(false)
    , m_objects(ReadObjects(row.objects))
{ }

Command::Command(const QString& name, CommandOrigin origin, CommandHandler run)
    : handler(std::move(run))
    , m_name(name)
    , m_origin(origin)
{ }

bool Command::CanQuery() const
{
    ReadOnce();
    return m_canQuery;
}

bool Command::CanEdit() const
{
    ReadOnce();
    return m_canEdit;
}

void Command::SetDescriber(std::function<void(Command&)> describe)
{
    m_describe = std::move(describe);
    m_read = false;
}

void Command::ReadOnce() const
{
    if (m_read)
        return;
    m_read = true;
    // Only commands that were made changeable get a describer.
    if (const auto describe = std::exchange(m_describe, nullptr))
        describe(const_cast<Command&>(*this));
    else
        ReadRow();
}

void Command::ReadRow() const
{
    m_flags = ReadFlags(m_flagText);
    if (m_sharedFlagText)
        m_flags += ReadFlags(m_sharedFlagText);
    std::sort(m_flags.begin(), m_flags.end(),
        [](const Flag& a, const Flag& b) { return a.longName < b.longName; });
    for (int i = 0; i < m_flags.size(); ++i) {
        m_flagIndex.insert(m_flags[i].longName, i);
        m_flagIndex.insert(m_flags[i].shortName, i);
    }
}

const Objects& Command::GetObjects() const
{
    ReadOnce();
    return m_objects;
}

const QVector<Flag>& Command::GetFlags() const
{
    ReadOnce();
    return m_flags;
}

const Flag* Command::FindFlag(const QString& name) const
{
    ReadOnce();
    const auto found = m_flagIndex.constFind(name);
    return found == m_flagIndex.constEnd() ? nullptr : &m_flags.at(*found);
}

void Command::SetModes(bool canQuery, bool canEdit)
{
    m_canQuery = canQuery;
    m_canEdit = canEdit;
}

void Command::SetObjects(const Objects& objects)
{
    m_objects = objects;
}

void Command::AddFlag(const Flag& flag)
{
    m_flagIndex.insert(flag.longName, m_flags.size());
    m_flagIndex.insert(flag.shortName, m_flags.size());
    m_flags += flag;
}

} // namespace host

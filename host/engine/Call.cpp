#include "engine/Call.h"

#include "engine/Engine.h"
#include "engine/Measures.h"

namespace host {

namespace {

QString TypeText(ArgumentType type)
{
    switch (type) {
    case ArgumentType::Bool: return QStringLiteral("boolean");
    case ArgumentType::Int:
    case ArgumentType::Unsigned: return QStringLiteral("int");
    case ArgumentType::Float: return QStringLiteral("double");
    case ArgumentType::Length: return QStringLiteral("distance");
    case ArgumentType::Angle: return QStringLiteral("angle");
    case ArgumentType::Time: return QStringLiteral("time");
    case ArgumentType::String:
    case ArgumentType::Name: return QStringLiteral("string");
    case ArgumentType::Script: return QStringLiteral("script");
    case ArgumentType::Any: return QStringLiteral("value");
    }
    return {};
}

/// Python's word for what a flag wanted or got.
QString PythonTypeText(ArgumentType type)
{
    switch (type) {
    case ArgumentType::Bool: return QStringLiteral("bool");
    case ArgumentType::Float: return QStringLiteral("float");
    case ArgumentType::String:
    case ArgumentType::Name: return QStringLiteral("str");
    default: return TypeText(type);
    }
}

QString PythonTypeText(const Word& word)
{
    if (word.callable)
        return QStringLiteral("function");
    switch (word.value.GetKind()) {
    case Value::Kind::None: return QStringLiteral("NoneType");
    case Value::Kind::Bool: return QStringLiteral("bool");
    case Value::Kind::Int: return QStringLiteral("int");
    case Value::Kind::Float: return QStringLiteral("float");
    case Value::Kind::String: return QStringLiteral("str");
    default: return QStringLiteral("list");
    }
}

const char* const TRUE_WORDS[] = {"on", "yes", "true", "1"};
const char* const FALSE_WORDS[] = {"off", "no", "false", "0"};

std::optional<bool> ReadBool(const Word& word)
{
    if (word.value.IsNumber())
        return word.value.ToBool();
    const QString text = word.Text();
    for (const char* name : TRUE_WORDS) {
        if (text == QLatin1String(name))
            return true;
    }
    for (const char* name : FALSE_WORDS) {
        if (text == QLatin1String(name))
            return false;
    }
    return std::nullopt;
}

bool IsMeasure(ArgumentType type)
{
    return type == ArgumentType::Length || type == ArgumentType::Angle
        || type == ArgumentType::Time;
}

bool IsNumeric(ArgumentType type)
{
    return type == ArgumentType::Int || type == ArgumentType::Unsigned
        || type == ArgumentType::Float || IsMeasure(type);
}

/// Turns the word into the type wanted; false when it cannot be.
bool Convert(Word& word, ArgumentType type)
{
    if (word.callable)
        return type == ArgumentType::Script;
    if (word.value.IsNone() || word.value.IsArray())
        return false;
    if (type == ArgumentType::Any)
        return true;
    if (type == ArgumentType::Bool) {
        const std::optional<bool> yes = ReadBool(word);
        if (yes)
            word.value = *yes;
        return yes.has_value();
    }
    if (IsMeasure(type) && word.value.IsString()) {
        const Units units = Engine::Exists() ? Engine::Current().units : Units();
        const std::optional<double> number = ReadMeasure(word.Text(), type, units);
        if (number)
            word.value = *number;
        return number.has_value();
    }
    if (!IsNumeric(type)) {
        word.value = word.Text();
        return true;
    }
    bool exact = true;
    const double number = word.value.ToFloat(&exact);
    if (type == ArgumentType::Int || type == ArgumentType::Unsigned)
        word.value = word.value.ToInt();
    else
        word.value = number;
    return exact && (type != ArgumentType::Unsigned || number >= 0);
}

/// The elements of an array as words of their own.
QVector<Word> Spread(const Word& word)
{
    if (!word.value.IsArray() && !word.value.IsNone())
        return {word};
    QVector<Word> words;
    for (int i = 0; i < word.value.Count(); ++i)
        words += Word{word.value.At(i), {}, false, {}};
    return words;
}

/// True for query=True and query="name", false for query=False and query=None.
bool SwitchesOn(const Keyword& keyword)
{
    if (keyword.uses.isEmpty() || keyword.uses.first().isEmpty())
        return true;
    const Word& word = keyword.uses.first().first();
    return word.value.IsString() ? ReadBool(word).value_or(true) : word.value.ToBool();
}

/// The object that query="name" carries besides the mode.
QVector<Word> ObjectsInMode(const Keyword& keyword)
{
    QVector<Word> objects;
    for (const QVector<Word>& use : keyword.uses) {
        for (const Word& word : use) {
            if (word.value.IsString() && !ReadBool(word))
                objects += word;
        }
    }
    return objects;
}

} // namespace

/// Builds a Call step by step. Both front ends feed it flags with their words; the texts of the
/// errors are the only difference between them.
class CallReader
{
public:
    CallReader(const Command& command, Language language)
        : m_command(command)
    {
        m_read.call.m_command = &command;
        m_read.call.m_language = language;
    }

    void FromWords(const QVector<Word>& words);
    void FromKeywords(const QVector<Word>& positional, const QVector<Keyword>& keywords);
    ReadCall Take() { return std::move(m_read); }

private:
    bool Python() const { return m_read.call.m_language == Language::Python; }
    bool Fail(const QString& text, ErrorKind kind = ErrorKind::Runtime);
    bool SetMode(Mode mode);
    const Flag* FindFlag(const QString& name);
    bool WantsArguments(const Flag& flag) const;
    int ArgumentCount(const Flag& flag) const;
    bool AddUse(const Flag& flag, QVector<Word> arguments, const QString& spelling = {});
    bool ReadMelFlag(const QVector<Word>& words, int& position);
    bool ReadPythonFlag(const Keyword& keyword);
    void AddObjects(const QVector<Word>& words);
    void CheckObjects();
    bool ReadModes(const QString& name);

    const Command& m_command;
    ReadCall m_read;
    QHash<int, QString> m_spellings; ///< of objects that are no strings, by index
};

bool CallReader::Fail(const QString& text, ErrorKind kind)
{
    if (!m_read.error)
        m_read.error = Error{text, kind};
    return false;
}

bool CallReader::SetMode(Mode mode)
{
    if (m_read.call.m_mode != Create && m_read.call.m_mode != mode)
        return Fail(QStringLiteral("Cannot edit and query at the same time"));
    m_read.call.m_mode = mode;
    return true;
}

/// True when `name` is the query or edit flag; the mode is set then.
bool CallReader::ReadModes(const QString& name)
{
    if (m_command.CanQuery() && (name == QLatin1String("q") || name == QLatin1String("query")))
        return SetMode(Query) || true;
    if (m_command.CanEdit() && (name == QLatin1String("e") || name == QLatin1String("edit")))
        return SetMode(Edit) || true;
    return false;
}

const Flag* CallReader::FindFlag(const QString& name)
{
    const Flag* flag = m_command.FindFlag(name);
    if (!flag) {
        if (Python())
            Fail(QStringLiteral("Invalid flag '%1'").arg(name), ErrorKind::Type);
        else
            Fail(QStringLiteral("Invalid flag '-%1'").arg(name));
    }
    return flag;
}

bool CallReader::WantsArguments(const Flag& flag) const
{
    // What exists is asked for without a value, with or without the query flag.
    return m_read.call.m_mode != Query || flag.queryTakesArguments;
}

/// A query names only what it asks about.
int CallReader::ArgumentCount(const Flag& flag) const
{
    const bool namesOne = flag.valueMayMiss && m_read.call.m_mode == Query;
    return namesOne ? qMin(1, flag.arguments.size()) : flag.arguments.size();
}

bool CallReader::AddUse(const Flag& flag, QVector<Word> arguments, const QString& spelling)
{
    // Some flags that change things are accepted without the edit flag; none can be queried by
    // chance.
    if (m_read.call.m_mode == Query && !(flag.modes & Query))
        return Fail(QStringLiteral("Flag '-%1' cannot be used in query mode.").arg(flag.longName));
    for (int i = 0; i < arguments.size(); ++i) {
        const ArgumentType type = flag.arguments.value(qMin(i, flag.arguments.size() - 1));
        const QString got = PythonTypeText(arguments[i]);
        if (Convert(arguments[i], type))
            continue;
        if (Python()) {
            return Fail(QStringLiteral("Invalid arguments for flag '%1'.  Expected %2, got %3")
                            .arg(spelling, PythonTypeText(type), got),
                ErrorKind::Type);
        }
        return Fail(QStringLiteral("Flag '-%1' must be passed a %2 argument")
                        .arg(flag.longName, TypeText(type)));
    }
    Call& call = m_read.call;
    int number = call.m_given.indexOf(flag.longName);
    if (number < 0) {
        number = call.m_given.size();
        call.m_given += flag.longName;
        call.m_uses.append(QVector<Call::Use>());
    }
    call.m_uses[number].append(std::move(arguments));
    return true;
}

bool CallReader::ReadMelFlag(const QVector<Word>& words, int& position)
{
    const QString name = words[position++].value.ToText().mid(1);
    if (ReadModes(name))
        return !m_read.error;
    const Flag* flag = FindFlag(name);
    if (!flag)
        return false;
    QVector<Word> arguments;
    if (!WantsArguments(*flag))
        return AddUse(*flag, arguments);
    int wanted = ArgumentCount(*flag);
    while (position < words.size() && !words[position].isFlag
        && (arguments.size() < wanted || flag->takesList)) {
        arguments += flag->takesList ? Spread(words[position]) : QVector<Word>{words[position]};
        const Value& value = words[position++].value;
        // A whole array, be it an empty one, is the whole list; what follows it are objects.
        if (flag->takesList && (value.IsArray() || value.IsNone())) {
            wanted = 0;
            break;
        }
    }
    if (arguments.size() < wanted && flag->queryTakesArguments && m_read.call.m_mode == Query
        && arguments.isEmpty()) {
        wanted = 0; // The name may be left out of such a query.
    }
    const bool isSwitch = flag->arguments.value(0) == ArgumentType::Bool;
    if (arguments.isEmpty() && flag->valueMayMiss && isSwitch)
        wanted = 0;
    if (arguments.size() < wanted) {
        return Fail(QStringLiteral("Flag '-%1' must be passed a %2 argument")
                        .arg(flag->longName, TypeText(flag->arguments.value(arguments.size()))));
    }
    return AddUse(*flag, arguments);
}

void CallReader::FromWords(const QVector<Word>& words)
{
    m_read.call.m_words = words;
    if (m_command.takesRawWords)
        return;
    // The mode decides whether flags take values, so it has to be known before them.
    for (const Word& word : words) {
        if (word.isFlag)
            ReadModes(word.value.ToText().mid(1));
    }
    QVector<Word> objects;
    int position = 0;
    while (position < words.size() && !m_read.error) {
        if (words[position].isFlag)
            ReadMelFlag(words, position);
        else
            objects += words[position++];
    }
    AddObjects(objects);
}

bool CallReader::ReadPythonFlag(const Keyword& keyword)
{
    const Flag* flag = FindFlag(keyword.name);
    if (!flag)
        return false;
    for (const QVector<Word>& use : keyword.uses) {
        // A query says which flag by name=True; only a flag that wants a value reads it.
        const bool plainTrue = use.size() == 1 && use.first().value.GetKind() == Value::Kind::Bool;
        if (flag->arguments.isEmpty() || !WantsArguments(*flag)
            || (m_read.call.m_mode == Query && plainTrue)) {
            if (use.isEmpty() || use.first().callable || use.first().value.IsNone()
                || use.first().value.ToBool() || use.first().value.IsString())
                AddUse(*flag, {});
            continue;
        }
        const int wantedCount = ArgumentCount(*flag);
        if (use.size() < wantedCount || (use.size() > wantedCount && !flag->takesList)) {
            QStringList wanted;
            for (const ArgumentType type : flag->arguments)
                wanted += PythonTypeText(type);
            QString list = wanted.join(QStringLiteral(", "));
            if (wanted.size() > 1)
                list = QStringLiteral("( %1 )").arg(list);
            return Fail(QStringLiteral("Invalid arguments for flag '%1'.  Expected %2, got %3")
                            .arg(keyword.name, list,
                                use.isEmpty() ? QStringLiteral("[]") : PythonTypeText(use.first())),
                ErrorKind::Type);
        }
        if (!AddUse(*flag, use, keyword.name))
            return false;
    }
    return true;
}

void CallReader::FromKeywords(const QVector<Word>& positional, const QVector<Keyword>& keywords)
{
    QVector<Word>& words = m_read.call.m_words;
    QVector<Word> objects = positional;
    for (const Keyword& keyword : keywords) {
        if (SwitchesOn(keyword) && ReadModes(keyword.name))
            objects += ObjectsInMode(keyword);
    }
    for (const Keyword& keyword : keywords) {
        if (m_read.error)
            return;
        const bool isMode
            = (m_command.CanQuery()
                  && (keyword.name == QLatin1String("q") || keyword.name == QLatin1String("query")))
            || (m_command.CanEdit()
                && (keyword.name == QLatin1String("e") || keyword.name == QLatin1String("edit")));
        for (const QVector<Word>& use : keyword.uses) {
            words += Word::FlagNamed(keyword.name);
            const Flag* flag = m_command.FindFlag(keyword.name);
            if (!isMode && (!flag || !flag->arguments.isEmpty()))
                words += use;
        }
        if (!isMode && !m_command.takesRawWords)
            ReadPythonFlag(keyword);
    }
    words = objects + words;
    AddObjects(objects);
}

void CallReader::AddObjects(const QVector<Word>& words)
{
    if (m_read.error)
        return;
    for (const Word& word : words) {
        if (word.value.IsArray()) {
            for (int i = 0; i < word.value.Count(); ++i)
                m_read.call.m_objects += word.value.At(i);
        } else if (word.callable) {
            m_read.call.m_objectCallables.insert(m_read.call.m_objects.size(), word.callable);
            m_read.call.m_objects += Value();
        } else {
            if (!word.spelling.isEmpty())
                m_spellings.insert(m_read.call.m_objects.size(), word.spelling);
            m_read.call.m_objects += word.value;
        }
    }
    if (!m_command.takesRawWords)
        CheckObjects();
}

void CallReader::CheckObjects()
{
    const Objects& wanted = m_command.GetObjects();
    QVector<Value>& objects = m_read.call.m_objects;
    if (wanted.maximum != Objects::UNLIMITED && objects.size() > wanted.maximum) {
        Fail(QStringLiteral("Too many objects or values."));
        return;
    }
    if (m_read.call.m_mode == Create && objects.size() < wanted.minimum) {
        Fail(QStringLiteral("This command requires at least %1 argument(s) to be specified or "
                            "selected; found %2.")
                 .arg(wanted.minimum)
                 .arg(objects.size()));
        return;
    }
    for (int i = 0; i < objects.size() && !wanted.types.isEmpty(); ++i) {
        Word word{objects[i], m_spellings.value(i), false, m_read.call.m_objectCallables.value(i)};
        const ArgumentType type = wanted.types.at(qMin(i, wanted.types.size() - 1));
        if (Convert(word, type))
            objects[i] = word.value;
        else
            Fail(QStringLiteral("Error while parsing arguments."), ErrorKind::Type);
    }
}

const QVector<Call::Use>& Call::UsesOf(const char* flag) const
{
    static const QVector<Use> none;
    const int number = m_given.indexOf(QLatin1String(flag));
    return number < 0 ? none : m_uses.at(number);
}

const Word* Call::FindArgument(const char* flag, int index, int use) const
{
    Q_ASSERT_X(m_command->FindFlag(QLatin1String(flag)), "Call", flag);
    const QVector<Use>& uses = UsesOf(flag);
    const bool exists = use < uses.size() && index < uses.at(use).size();
    return exists ? &uses.at(use).at(index) : nullptr;
}

int Call::UseCount(const char* flag) const
{
    return UsesOf(flag).size();
}

Value Call::Argument(const char* flag, int index, int use) const
{
    const Word* word = FindArgument(flag, index, use);
    return word ? word->value : Value();
}

int Call::Int(const char* flag, int index, int use) const
{
    return Argument(flag, index, use).ToInt();
}

double Call::Float(const char* flag, int index, int use) const
{
    return Argument(flag, index, use).ToFloat();
}

QString Call::Text(const char* flag, int index, int use) const
{
    return Argument(flag, index, use).ToText();
}

bool Call::Bool(const char* flag, int index, int use) const
{
    const Word* word = FindArgument(flag, index, use);
    return word ? word->value.ToBool() : Has(flag);
}

Script Call::GetScript(const char* flag, int index, int use) const
{
    const Word* word = FindArgument(flag, index, use);
    if (!word)
        return {m_language, {}, nullptr};
    return {m_language, word->callable ? QString() : word->value.ToText(), word->callable};
}

QStringList Call::Texts(const char* flag) const
{
    QStringList texts;
    for (const Use& use : UsesOf(flag)) {
        for (const Word& word : use)
            texts += word.value.ToText();
    }
    return texts;
}

QStringList Call::ObjectTexts() const
{
    QStringList texts;
    for (const Value& object : m_objects)
        texts += object.ToText();
    return texts;
}

QString Call::ObjectText(int index) const
{
    return index < m_objects.size() ? m_objects.at(index).ToText() : QString();
}

Script Call::GetObjectScript(int index) const
{
    return {m_language, ObjectText(index), m_objectCallables.value(index)};
}

ReadCall ReadWords(const Command& command, const QVector<Word>& words)
{
    CallReader reader(command, Language::Mel);
    reader.FromWords(words);
    return reader.Take();
}

ReadCall ReadKeywords(
    const Command& command, const QVector<Word>& positional, const QVector<Keyword>& keywords)
{
    CallReader reader(command, Language::Python);
    reader.FromKeywords(positional, keywords);
    return reader.Take();
}

} // namespace host

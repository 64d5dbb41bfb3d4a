#pragma once

#include "engine/Command.h"
#include "engine/Script.h"

namespace host {

/// One word of a command as a script gives it.
struct Word
{
    Value value;
    /// As typed when the value is not a string ("on", "0x10"); empty otherwise.
    QString spelling;
    bool isFlag = false; ///< value is the flag with its "-"
    std::shared_ptr<Callable> callable; ///< Python only; value is None then

    static Word FlagNamed(const QString& name)
    {
        return {QString(QLatin1Char('-') + name), {}, true, {}};
    }
    QString Text() const { return spelling.isEmpty() ? value.ToText() : spelling; }
};

/// A keyword argument as Python gives it: one entry of `uses` per use of the flag.
struct Keyword
{
    QString name;
    QVector<QVector<Word>> uses;
};

/// A checked call of a command: every flag is known, has its arguments, and fits the mode.
class Call
{
public:
    const Command& GetCommand() const { return *m_command; }
    Mode GetMode() const { return m_mode; }
    bool IsQuery() const { return m_mode == Query; }
    bool IsEdit() const { return m_mode == Edit; }
    bool IsCreate() const { return m_mode == Create; }
    /// Who calls: decides what a script given as text is written in.
    Language GetLanguage() const { return m_language; }

    /// Flags by long name. Asking for a name the command does not have is a mistake in our code.
    bool Has(const char* flag) const { return UseCount(flag) > 0; }
    int UseCount(const char* flag) const;
    /// Argument `index` of use `use`, both from 0; None when not given.
    Value Argument(const char* flag, int index = 0, int use = 0) const;
    int Int(const char* flag, int index = 0, int use = 0) const;
    double Float(const char* flag, int index = 0, int use = 0) const;
    QString Text(const char* flag, int index = 0, int use = 0) const;
    /// A Bool argument; a flag without arguments is true when given.
    bool Bool(const char* flag, int index = 0, int use = 0) const;
    Script GetScript(const char* flag, int index = 0, int use = 0) const;
    /// The arguments of all uses, one after the other, as text.
    QStringList Texts(const char* flag) const;
    /// Long names of the flags given, in the order of their first use.
    const QStringList& GivenFlags() const { return m_given; }

    /// What is left after the flags; arrays are spread.
    const QVector<Value>& GetObjects() const { return m_objects; }
    QStringList ObjectTexts() const;
    /// Object `index` as text; "" when not given.
    QString ObjectText(int index = 0) const;
    /// Object `index` as a script; an empty one when not given.
    Script GetObjectScript(int index = 0) const;

    /// Everything after the command's name as it was given (arrays not spread).
    const QVector<Word>& GetWords() const { return m_words; }

private:
    friend class CallReader;

    using Use = QVector<Word>; ///< the arguments of one use of a flag
    const QVector<Use>& UsesOf(const char* flag) const;
    const Word* FindArgument(const char* flag, int index, int use) const;

    const Command* m_command = nullptr;
    Mode m_mode = Create;
    Language m_language = Language::Mel;
    QStringList m_given; ///< long names of flags in the order of their first uses
    QVector<QVector<Use>> m_uses; ///< of each flag in m_given
    QVector<Value> m_objects;
    QHash<int, std::shared_ptr<Callable>> m_objectCallables; ///< by index in m_objects
    QVector<Word> m_words;
};

/// A call, or why the words do not fit the command.
struct ReadCall
{
    Call call;
    std::optional<Error> error;
};

/// Sorts MEL words into flags with their arguments and objects.
ReadCall ReadWords(const Command& command, const QVector<Word>& words);
/// The same for Python's positional and keyword arguments.
ReadCall ReadKeywords(
    const Command& command, const QVector<Word>& positional, const QVector<Keyword>& keywords);

} // namespace host

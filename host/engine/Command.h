#pragma once

#include "engine/Outcome.h"

#include <QHash>

#include <functional>

namespace host {

class Call;

/// What one argument of a flag, or one object of a command, has to be.
enum class ArgumentType {
    Bool,
    Int,
    Unsigned,
    Float,
    String,
    Script,
    Name,
    Length,
    Angle,
    Time,
    Any, ///< of objects only: a number or a text, as it was given
};

/// How a command is called. The numbers are bits, so that a flag can name several.
enum Mode { Create = 1, Query = 2, Edit = 4 };

struct Flag
{
    QString shortName; ///< without the leading "-"
    QString longName;
    QVector<ArgumentType> arguments; ///< none: the flag alone says yes
    int modes = Create; ///< bits of Mode
    bool multiUse = false;
    bool queryTakesArguments = false; ///< the value is given in query mode too
    bool valueMayMiss = false; ///< a switch that MEL may leave without its "on"
    bool takesList = false; ///< the last argument repeats up to the next flag
};

/// What follows the flags. `synopsis` is the text `help` shows, such as "String [String...]".
struct Objects
{
    QString synopsis;
    QVector<ArgumentType> types; ///< one per position; the last repeats when there is no maximum
    int minimum = 0;
    int maximum = 0; ///< UNLIMITED for any number

    static constexpr int UNLIMITED = -1;
};

/// Where a command comes from, as `whatIs` tells it.
enum class CommandOrigin { BuiltIn, PlugIn, RunTime };

using CommandHandler = std::function<Outcome(Call&)>;

/// A row of a command table: one line per command, with everything that parsing, `help`, `melInfo`
/// and the Python front end need.
struct CommandRow
{
    const char* name;
    /// "none", "int", "float", "string", "string[]", "bool", "any": the type a MEL variable takes
    /// when it is made from this command's result.
    const char* result;
    const char* modes; ///< "", "Q", "E" or "QE"
    /// Synopsis of the objects: "" for none, "String", "[String]", "Float Float [String...]". "Any"
    /// leaves numbers numbers.
    const char* objects;
    /// "long/short ARGUMENTS MODES; ..." where ARGUMENTS are any of "-" (none), B, int, uint,
    /// float, str, name, script, length, angle, time, each once per argument ("str[]" for a list),
    /// and MODES is made of c(reate), q(uery), e(dit), m(ay repeat), v(alue is given in query mode
    /// too), o(n is meant where a B is left out).
    const char* flags;
    Outcome (*run)(Call&);
};

/// One entry of the registry. Its flags are read from the row when they are first needed.
class Command
{
public:
    explicit Command(const CommandRow& row, const char* sharedFlags = nullptr);
    Command(const QString& name, CommandOrigin origin, CommandHandler handler);

    const QString& GetName() const { return m_name; }
    CommandOrigin GetOrigin() const { return m_origin; }
    Value::Kind GetResultKind() const { return m_resultKind; }
    bool CanQuery() const;
    bool CanEdit() const;
    const Objects& GetObjects() const;
    /// Sorted by long name; `-edit` and `-query` are not among them.
    const QVector<Flag>& GetFlags() const;
    bool TakesFlags() const { return CanQuery() || CanEdit() || !GetFlags().isEmpty(); }
    /// By short or long name, without "-". Null when there is none.
    const Flag* FindFlag(const QString& name) const;

    /// Name of the plug-in that registered the command; empty for the host's own.
    QString owner;
    /// The handler reads Call::GetWords itself: nothing is checked against flags or objects.
    bool takesRawWords = false;
    /// Offered by the Python front end.
    bool inPython = true;
    CommandHandler handler;

    void SetModes(bool canQuery, bool canEdit);
    void SetObjects(const Objects& objects);
    void AddFlag(const Flag& flag);
    /// Called once, when flags, objects or modes are first asked for, to set them.
    void SetDescriber(std::function<void(Command&)> describe);

private:
    void ReadOnce() const;
    void ReadRow() const;

    QString m_name;
    CommandOrigin m_origin = CommandOrigin::BuiltIn;
    Value::Kind m_resultKind = Value::Kind::None;
    bool m_canQuery = false;
    bool m_canEdit = false;
    const char* m_flagText = nullptr;
    const char* m_sharedFlagText = nullptr;
    mutable bool m_read = true;
    mutable std::function<void(Command&)> m_describe;
    mutable Objects m_objects;
    mutable QVector<Flag> m_flags;
    mutable QHash<QString, int> m_flagIndex;
};

/// Reads the notation of CommandRow::flags. A malformed entry is a mistake in our own tables and
/// stops a debug build.
QVector<Flag> ReadFlags(const char* text);
/// Reads the notation of CommandRow::objects.
Objects ReadObjects(const char* synopsis);
/// The words of the `help` text: "on|off", "Int", "Float", "String" ...
QString ArgumentTypeName(ArgumentType type);

} // namespace host

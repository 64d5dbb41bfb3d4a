#pragma once

#include "engine/Outcome.h"

namespace host {

/// The arguments of a function call. A parameter written "type[]&" in the signature is the caller's
/// own variable; everything else is a converted copy.
class FunctionCall
{
public:
    explicit FunctionCall(const QVector<Value*>& arguments)
        : m_arguments(arguments)
    { }

    int Count() const { return m_arguments.size(); }
    const Value& At(int index) const { return *m_arguments.at(index); }
    Value& Reference(int index) { return *m_arguments.at(index); }
    int Int(int index) const { return At(index).ToInt(); }
    double Float(int index) const { return At(index).ToFloat(); }
    QString Text(int index) const { return At(index).ToText(); }

private:
    const QVector<Value*>& m_arguments;
};

using FunctionHandler = Outcome (*)(FunctionCall&);

/// A row of a function table. `signature` reads like a declaration: "string substring(string, int,
/// int)", "int tokenize(string, any, [string[]&])". Types are those of the language, "number" (int
/// stays int, everything else becomes float) or "any" (taken as it is); optional parameters stand
/// in [ ]; a closing "..." repeats the last one. The result may be "any" or "void".
struct FunctionRow
{
    const char* signature;
    FunctionHandler run;
};

struct Parameter
{
    enum class Conversion { Exact, Number, Any };

    Value::Kind kind = Value::Kind::None;
    Conversion conversion = Conversion::Exact;
    bool reference = false;
};

/// A function of the MEL language.
struct Function
{
    explicit Function(const FunctionRow& row);

    QString name;
    QString signature;
    /// None for "any" and "void".
    Value::Kind resultKind = Value::Kind::None;
    QVector<Parameter> parameters;
    int minimumArguments = 0;
    bool variadic = false;
    FunctionHandler run = nullptr;

    bool Accepts(int argumentCount) const
    {
        return argumentCount >= minimumArguments
            && (variadic || argumentCount <= parameters.size());
    }
    /// The last parameter stands for all further ones of a variadic function.
    const Parameter& ParameterAt(int index) const
    {
        return parameters.at(qMin(index, parameters.size() - 1));
    }
};

} // namespace host

#include "mel/CodeCalls.h"

#include "engine/Engine.h"
#include "mel/CommandEcho.h"
#include "mel/Interpreter.h"
#include "mel/Lexer.h"
#include "mel/Operations.h"

#include <QVarLengthArray>

namespace host::mel {

namespace {

using Kind = Value::Kind;

/// In a call with parentheses a string is a flag when it looks like one.
bool LooksLikeFlag(const Value& value)
{
    if (!value.IsString())
        return false;
    const QString& text = value.Get<QString>();
    if (text.size() < 2 || text.at(0) != QLatin1Char('-') || !Lexer::IsLetter(text.at(1).unicode()))
        return false;
    return std::all_of(
        text.begin() + 1, text.end(), [](QChar c) { return Lexer::IsWordCharacter(c.unicode()); });
}

class CallCode : public ExpressionCode
{
public:
    explicit CallCode(CallSite site)
        : ExpressionCode(site.kind)
        , m_site(std::move(site))
    { }
    Value Evaluate(Frame& frame) const override;
    Value Perform(Frame& frame) const override;
    void Execute(Frame& frame) const override { Perform(frame); }

private:
    Value CallNamed(Frame& frame, bool wanted) const;
    Value CallProcedure(Frame& frame, const Procedure& procedure, bool wanted) const;
    Value CallFunction(Frame& frame, const Function& function) const;
    Value CallCommand(Frame& frame, const std::shared_ptr<const Command>& command) const;
    Value* FindReference(Frame& frame, const ArgumentCode& argument, Kind kind) const;
    Value ConvertArgument(
        Frame& frame, const ArgumentCode& argument, const Parameter& parameter) const;
    Value EvaluateAs(Frame& frame, const ArgumentCode& argument, Kind kind) const;
    void KeepKinds(Frame& frame, const QVector<Value*>& references) const;
    Word MakeWord(Frame& frame, const ArgumentCode& argument, bool readFlags) const;
    [[noreturn]] void RaiseCount(Frame& frame) const;
    const Function* FindFunction(Frame& frame) const;

    const CallSite m_site;
    mutable const Function* m_function = nullptr; ///< functions are never unregistered
};

Value CallCode::Evaluate(Frame& frame) const
{
    const Value value = CallNamed(frame, true);
    return value.GetKind() == GetKind() ? value : Convert(frame.interpreter, value, GetKind());
}

Value CallCode::Perform(Frame& frame) const
{
    const Value value = CallNamed(frame, false);
    return value.IsNone() ? value : Convert(frame.interpreter, value, GetKind());
}

const Function* CallCode::FindFunction(Frame& frame) const
{
    if (!m_function)
        m_function = frame.interpreter.GetEngine().commands.FindFunction(m_site.name);
    return m_function;
}

Value CallCode::CallNamed(Frame& frame, bool wanted) const
{
    frame.line = m_site.line;
    if (m_site.local)
        return CallProcedure(frame, *m_site.local, wanted);
    if (m_site.cell->procedure)
        return CallProcedure(frame, *m_site.cell->procedure, wanted);
    if (const Function* function = FindFunction(frame))
        return CallFunction(frame, *function);
    if (const auto command = frame.interpreter.GetEngine().commands.FindCommand(m_site.name))
        return CallCommand(frame, command);
    frame.interpreter.AutoLoad(m_site.name);
    if (m_site.cell->procedure)
        return CallProcedure(frame, *m_site.cell->procedure, wanted);
    frame.interpreter.Raise(QStringLiteral("Cannot find procedure \"%1\".").arg(m_site.name));
}

void CallCode::RaiseCount(Frame& frame) const
{
    frame.interpreter.Raise(
        QStringLiteral("Wrong number of arguments on call to %1.").arg(m_site.name));
}

/// The caller's own variable when the argument is one of that kind (None: of any kind).
Value* CallCode::FindReference(Frame& frame, const ArgumentCode& argument, Kind kind) const
{
    Value* variable = argument.value->Reference(frame);
    if (!variable)
        return nullptr;
    if (variable->IsNone())
        *variable = Value::Default(kind);
    return kind == Kind::None || variable->GetKind() == kind ? variable : nullptr;
}

/// Where a string is wanted, "on" and its like stay the words they are; numbers are numbers first.
Value CallCode::EvaluateAs(Frame& frame, const ArgumentCode& argument, Kind kind) const
{
    const bool isWord = !argument.spelling.isEmpty() && argument.spelling.at(0).isLetter();
    if (kind == Kind::String && isWord)
        return argument.spelling;
    return Convert(frame.interpreter, argument.value->Evaluate(frame), kind);
}

Value CallCode::CallProcedure(Frame& frame, const Procedure& procedure, bool wanted) const
{
    // A procedure may be redefined while it runs; this call ends with the body it began with.
    const std::shared_ptr<const Procedure> kept = Share(procedure);
    const size_t count = procedure.parameters.size();
    if (m_site.arguments.size() != count)
        RaiseCount(frame);
    QVarLengthArray<Value, 8> slots;
    slots.reserve(static_cast<int>(procedure.slots.size()));
    for (const Value& value : procedure.slots)
        slots.append(value);
    QVarLengthArray<Value*, 8> references(static_cast<int>(count));
    for (size_t i = 0; i < count; ++i) {
        const int index = static_cast<int>(i);
        const Kind kind = procedure.parameters[i];
        const ArgumentCode& argument = m_site.arguments[i];
        references[index] = &slots[index];
        if (ElementKindOf(kind) != kind) {
            if (Value* variable = FindReference(frame, argument, kind)) {
                references[index] = variable;
                continue;
            }
        }
        slots[index] = EvaluateAs(frame, argument, kind);
    }
    const Value result
        = frame.interpreter.CallProcedure(procedure, slots.data(), references.data());
    if (wanted && procedure.resultKind == Kind::None) {
        frame.interpreter.Raise(
            QStringLiteral("Procedure \"%1\" does not return a value.").arg(procedure.name));
    }
    return result;
}

Value CallCode::ConvertArgument(
    Frame& frame, const ArgumentCode& argument, const Parameter& parameter) const
{
    if (parameter.conversion == Parameter::Conversion::Exact)
        return EvaluateAs(frame, argument, parameter.kind);
    const Value value = argument.value->Evaluate(frame);
    if (parameter.conversion == Parameter::Conversion::Number && !value.IsInt())
        return ToFloat(frame.interpreter, value);
    return value;
}

Value CallCode::CallFunction(Frame& frame, const Function& function) const
{
    const int count = static_cast<int>(m_site.arguments.size());
    if (!function.Accepts(count))
        RaiseCount(frame);
    QVarLengthArray<Value, 8> values(count);
    QVector<Value*> pointers(count);
    for (int i = 0; i < count; ++i) {
        const ArgumentCode& argument = m_site.arguments[static_cast<size_t>(i)];
        const Parameter& parameter = function.ParameterAt(i);
        pointers[i]
            = parameter.reference ? FindReference(frame, argument, parameter.kind) : nullptr;
        if (pointers[i])
            continue;
        values[i] = ConvertArgument(frame, argument, parameter);
        pointers[i] = &values[i];
    }
    FunctionCall call(pointers);
    const Outcome outcome = function.run(call);
    KeepKinds(frame, pointers);
    if (!outcome.Ok())
        frame.interpreter.Raise(outcome.GetError());
    return outcome.GetValue().Normalized();
}

/// The rest of the code relies on the kinds of variables, so a function must not change them.
void CallCode::KeepKinds(Frame& frame, const QVector<Value*>& references) const
{
    for (int i = 0; i < references.size(); ++i) {
        const ExpressionCode& argument = *m_site.arguments[static_cast<size_t>(i)].value;
        const bool isVariable = argument.Reference(frame) == references[i];
        if (isVariable && argument.GetKind() != Kind::None
            && references[i]->GetKind() != argument.GetKind())
            *references[i] = Convert(frame.interpreter, *references[i], argument.GetKind());
    }
}

Word CallCode::MakeWord(Frame& frame, const ArgumentCode& argument, bool readFlags) const
{
    Word word;
    word.value = argument.value->Evaluate(frame);
    word.spelling = argument.spelling;
    word.isFlag = argument.isFlag || (readFlags && LooksLikeFlag(word.value));
    return word;
}

Value CallCode::CallCommand(Frame& frame, const std::shared_ptr<const Command>& command) const
{
    Interpreter& interpreter = frame.interpreter;
    QVector<Word> words;
    words.reserve(static_cast<int>(m_site.arguments.size()));
    // In a call with parentheses flags are strings; encodeString("-x") can only mean the text.
    const bool readFlags = !m_site.isCommand && (command->takesRawWords || command->TakesFlags());
    for (const ArgumentCode& argument : m_site.arguments)
        words.append(MakeWord(frame, argument, readFlags));
    frame.line = m_site.line;
    interpreter.CountStep();
    EchoCommand(interpreter.GetEngine(), m_site.name, words);
    const CallScope heard(
        interpreter.GetEngine().callListeners, m_site.name, CallNotice::Kind::Command);
    const Outcome outcome = CommandRegistry::Run(ReadWords(*command, words));
    if (!outcome.Ok())
        interpreter.Raise(outcome.GetError());
    return outcome.GetValue().Normalized();
}

} // namespace

ExpressionCodePointer MakeCall(CallSite site)
{
    return std::make_unique<CallCode>(std::move(site));
}

} // namespace host::mel

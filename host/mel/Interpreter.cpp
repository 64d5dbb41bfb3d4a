#include "mel/Interpreter.h"

#include "engine/Engine.h"
#include "mel/Compiler.h"

#include <QFile>
#include <QScopedValueRollback>
#include <QVarLengthArray>

namespace host::mel {

namespace {

constexpr int STEPS_BETWEEN_POLLS = 500;

std::shared_ptr<const Source> ReadFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    return std::make_shared<Source>(Source::Decode(file.readAll()), path);
}

} // namespace

/// Puts a frame on top while it lives.
class Interpreter::FrameScope
{
public:
    FrameScope(Interpreter& interpreter, Frame& frame)
        : m_interpreter(interpreter)
        , m_previous(interpreter.m_top)
    {
        frame.caller = m_previous;
        m_interpreter.m_top = &frame;
        ++m_interpreter.m_calls;
    }
    ~FrameScope()
    {
        m_interpreter.m_top = m_previous;
        --m_interpreter.m_calls;
    }
    FrameScope(const FrameScope&) = delete;
    FrameScope& operator=(const FrameScope&) = delete;

private:
    Interpreter& m_interpreter;
    Frame* m_previous;
};

Interpreter::Interpreter(Engine& engine, GlobalScope& globals)
    : m_engine(engine)
    , m_globals(globals)
{ }

ScriptResult Interpreter::Run(const QString& text)
{
    return RunFromOutside(&Interpreter::RunInside, text);
}

ScriptResult Interpreter::RunFile(const QString& name)
{
    return RunFromOutside(&Interpreter::RunFileInside, name);
}

ScriptResult Interpreter::RunFromOutside(Inside run, const QString& text)
{
    const ScriptScope running(Language::Mel);
    const QScopedValueRollback<int> shown(m_hidden, 0);
    ScriptResult result;
    try {
        result.value = (this->*run)(text).Normalized();
    } catch (const ScriptError& error) {
        result.failed = true;
        result.errorText = error.text;
        return result;
    }
    const bool nothing = result.value.IsArray() ? result.value.Count() == 0 : result.value.IsNone();
    if (!nothing)
        result.resultText = QLatin1String("") + result.value.ToResultText();
    return result;
}

Value Interpreter::RunInside(const QString& text)
{
    return RunSource(std::make_shared<Source>(text));
}

Value Interpreter::RunFileInside(const QString& name)
{
    const QString path = m_engine.paths.FindScript(name);
    if (path.isEmpty())
        Raise(QStringLiteral("Cannot find file \"%1\" for source statement.").arg(name));
    const std::shared_ptr<const Source> source = ReadFile(path);
    if (!source)
        Raise(QStringLiteral("Cannot read file \"%1\".").arg(path));
    RunSource(source);
    return {};
}

Value Interpreter::RunSource(const std::shared_ptr<const Source>& source)
{
    CheckDepth();
    Compiler compiler(*this, m_engine.commands);
    const Compiler::Result compiled = compiler.Compile(source);
    if (compiled.error)
        RaiseCompileError(*source, *compiled.error);
    return RunModule(*compiled.module);
}

Value Interpreter::RunModule(const Module& module)
{
    QVarLengthArray<Value, 8> slots;
    for (const Value& value : module.slots)
        slots.append(value);
    Frame frame{*this, module.source.get(), nullptr, nullptr, slots.data(), nullptr, 1, {}};
    const FrameScope scope(*this, frame);
    for (size_t i = 0; i < module.statements.size(); ++i) {
        const StatementCode& statement = *module.statements[i];
        if (i + 1 == module.statements.size())
            return statement.RunForValue(frame);
        if (statement.Run(frame) == Flow::Return)
            return frame.result;
    }
    return {};
}

Value Interpreter::CallProcedure(const Procedure& procedure, Value* slots, Value** references)
{
    CheckDepth();
    CountStep();
    Frame frame{*this, procedure.module->source.get(), &procedure, nullptr, slots, references,
        procedure.line, {}};
    const FrameScope scope(*this, frame);
    const CallScope heard(m_engine.callListeners, procedure.name, CallNotice::Kind::Procedure);
    if (procedure.body->Run(frame) != Flow::Return && procedure.resultKind != Value::Kind::None)
        return Value::Default(procedure.resultKind);
    return frame.result;
}

void Interpreter::AutoLoad(const QString& name)
{
    // A file that calls what it should define must not be read again and again.
    if (m_loading.contains(name)
        || m_engine.paths.FindScript(name + QLatin1String(".mel")).isEmpty())
        return;
    m_loading.insert(name);
    try {
        RunFileInside(name + QLatin1String(".mel"));
    } catch (const ScriptError&) {
        m_loading.remove(name);
        throw;
    }
    m_loading.remove(name);
}

int Interpreter::Catch(const ExpressionCode& code, Frame& frame, bool quiet)
{
    const QScopedValueRollback<int> hidden(m_hidden, m_hidden + (quiet ? 1 : 0));
    try {
        code.Perform(frame);
        return 0;
    } catch (const ScriptError&) {
        if (m_engine.interrupt.IsRequested())
            throw;
        return 1;
    }
}

/// The limit on calls is for people; that on the stack also holds when other languages run in
/// between.
void Interpreter::CheckDepth()
{
    const char here = 0;
    if (!m_top)
        m_stackStart = &here;
    const qint64 used = qAbs(m_stackStart - &here);
    if (m_calls >= MAXIMUM_CALLS || used > MAXIMUM_STACK_BYTES) {
        Raise(QStringLiteral("Stack overflow: more than %1 procedure calls inside each other.")
                  .arg(qMin(m_calls, MAXIMUM_CALLS)));
    }
}

void Interpreter::Poll()
{
    m_stepsLeft = STEPS_BETWEEN_POLLS;
    if (m_engine.interrupt.Poll())
        Raise(QStringLiteral("Execution was stopped."));
}

void Interpreter::Raise(const QString& text)
{
    ShowError(text);
    throw ScriptError{text};
}

void Interpreter::Raise(const Error& error)
{
    if (!error.shown)
        ShowError(error.text);
    throw ScriptError{error.text};
}

void Interpreter::ShowError(const QString& text, PlaceLead lead)
{
    m_lastError = text;
    if (m_hidden > 0 && !m_engine.interrupt.IsRequested())
        return;
    m_engine.output.Error(Place(lead) + text);
    if (m_engine.echo.stackTrace && m_top)
        m_engine.output.Write(MessageType::StackTrace, StackTrace());
}

void Interpreter::Warn(const QString& text, PlaceLead lead)
{
    m_engine.output.Warning(Place(lead) + text);
}

/// The offending line goes out first, as a message of its own.
void Interpreter::RaiseCompileError(const Source& source, const CompileError& error)
{
    m_lastError = error.text;
    if (m_hidden > 0)
        throw ScriptError{error.text};
    m_engine.output.Error(source.LineText(source.LineOf(error.offset)));
    m_engine.output.Error(CompilePlace(source, error.offset) + error.text);
    if (m_engine.echo.stackTrace && m_top)
        m_engine.output.Write(MessageType::StackTrace, StackTrace());
    throw ScriptError{error.text};
}

QString Interpreter::Place(PlaceLead lead) const
{
    const bool wanted
        = lead == PlaceLead::Always || (lead == PlaceLead::AsSet && m_engine.echo.lineNumbers);
    if (!wanted || !m_top)
        return {};
    if (m_top->source->IsFile())
        return QStringLiteral("file: %1 line %2: ")
            .arg(m_top->source->Path(), QString::number(m_top->line));
    return QStringLiteral("line %1: ").arg(m_top->line);
}

QString Interpreter::CompilePlace(const Source& source, int offset) const
{
    if (!m_engine.echo.lineNumbers)
        return {};
    const QString position
        = QStringLiteral("%1.%2: ").arg(source.LineOf(offset)).arg(source.ColumnOf(offset));
    return source.IsFile() ? QStringLiteral("\"%1\" line ").arg(source.Path()) + position
                           : QStringLiteral("Line ") + position;
}

/// One line per frame, innermost first.
QString Interpreter::StackTrace() const
{
    QStringList lines{QStringLiteral("Stack trace:")};
    for (const Frame* frame = m_top; frame; frame = frame->caller) {
        const QString name = frame->procedure ? frame->procedure->name : QStringLiteral("<script>");
        const QString file
            = frame->source->IsFile() ? frame->source->Path() + QLatin1Char(' ') : QString();
        lines += QStringLiteral("  %1 (%2line %3)").arg(name, file, QString::number(frame->line));
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace host::mel

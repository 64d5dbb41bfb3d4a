#include "api/ApiAccess.h"
#include "api/CommandRun.h"
#include "api/Conversions.h"
#include "api/PluginCommand.h"
#include "api/StatusDetails.h"
#include "api/ValueReading.h"

#include <maya/MPxCommand.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

using host::Value;
using host::api::CommandRun;
using host::api::Report;
using host::api::ToMString;
using host::api::ToQString;

namespace {

host::IntList ToList(const MIntArray& array)
{
    host::IntList list;
    for (const int element : array)
        list += element;
    return list;
}

host::FloatList ToList(const MDoubleArray& array)
{
    host::FloatList list;
    for (const double element : array)
        list += element;
    return list;
}

/// Outside of a call there is nobody to take a result.
void SetResultValue(const Value& value)
{
    if (CommandRun* run = CommandRun::Current()) {
        run->result = value;
        run->appending = false;
    }
}

template <typename List>
void AppendTo(Value& array, const List& elements)
{
    array.Get<List>() += elements;
}

Value AsFloats(const Value& array)
{
    host::FloatList list;
    for (int i = 0; i < array.Count(); ++i)
        list += array.At(i).ToFloat();
    return list;
}

/// Adds the elements of `added`; the array becomes one of a kind that holds both.
void AppendResultValue(const Value& added)
{
    CommandRun* run = CommandRun::Current();
    if (!run)
        return;
    if (!run->appending || run->result.Count() == 0) {
        run->result = added;
    } else if (run->result.GetKind() == Value::Kind::StringArray
        || added.GetKind() == Value::Kind::StringArray) {
        run->result = Value(run->result.ToTextList() + added.ToTextList());
    } else if (run->result.GetKind() == Value::Kind::FloatArray
        || added.GetKind() == Value::Kind::FloatArray) {
        run->result = AsFloats(run->result);
        AppendTo(run->result, AsFloats(added).Get<host::FloatList>());
    } else {
        AppendTo(run->result, added.Get<host::IntList>());
    }
    run->appending = true;
}

Value CurrentValue()
{
    const CommandRun* run = CommandRun::Current();
    return run ? run->result : Value();
}

template <typename T>
MStatus ReadCurrent(T& target)
{
    return host::api::ReadResult(CurrentValue(), target) ? MS::kSuccess : MS::kFailure;
}

template <typename T>
T CurrentAs(MStatus* status)
{
    T result{};
    Report(status, ReadCurrent(result));
    return result;
}

} // namespace

struct MPxCommand::State
{
    std::shared_ptr<host::api::PluginCommand> command;
    QString text;
    bool historyOn = true;
};

MPxCommand::MPxCommand()
    : m_state(new State)
{ }

MPxCommand::~MPxCommand()
{
    delete m_state;
}

MStatus MPxCommand::doIt(const MArgList&)
{
    return MS::kNotImplemented;
}

MStatus MPxCommand::undoIt()
{
    return MS::kNotImplemented;
}

MStatus MPxCommand::redoIt()
{
    return MS::kNotImplemented;
}

bool MPxCommand::isUndoable() const
{
    return false;
}

bool MPxCommand::hasSyntax() const
{
    return m_state->command && m_state->command->HasSyntax();
}

MSyntax MPxCommand::syntax() const
{
    return m_state->command ? m_state->command->Syntax() : MSyntax();
}

bool MPxCommand::isHistoryOn() const
{
    return m_state->historyOn;
}

MStatus MPxCommand::setHistoryOn(bool state)
{
    m_state->historyOn = state;
    return MS::kSuccess;
}

MString MPxCommand::commandString() const
{
    return ToMString(m_state->text);
}

MStatus MPxCommand::setCommandString(const MString& text)
{
    m_state->text = ToQString(text);
    return MS::kSuccess;
}

MStatus MPxCommand::setUndoable(bool)
{
    // Only isUndoable counts.
    return MS::kNotImplemented;
}

void MPxCommand::displayInfo(const MString& text)
{
    host::api::ShowMessage(host::MessageType::Info, ToQString(text));
}

void MPxCommand::displayWarning(const MString& text, bool)
{
    host::api::ShowMessage(host::MessageType::Warning, ToQString(text));
}

void MPxCommand::displayError(const MString& text, bool)
{
    host::api::ShowMessage(host::MessageType::Error, ToQString(text));
}

void MPxCommand::clearResult()
{
    SetResultValue(Value());
}

void MPxCommand::setResult(unsigned int value)
{
    SetResultValue(static_cast<int>(value));
}

void MPxCommand::setResult(int value)
{
    SetResultValue(value);
}

void MPxCommand::setResult(double value)
{
    SetResultValue(value);
}

void MPxCommand::setResult(bool value)
{
    SetResultValue(value);
}

void MPxCommand::setResult(const char* value)
{
    setResult(MString(value));
}

void MPxCommand::setResult(const MString& value)
{
    SetResultValue(ToQString(value));
}

void MPxCommand::setResult(const MIntArray& value)
{
    SetResultValue(ToList(value));
}

void MPxCommand::setResult(const MDoubleArray& value)
{
    SetResultValue(ToList(value));
}

void MPxCommand::setResult(const MStringArray& value)
{
    SetResultValue(host::api::ToStringList(value));
}

void MPxCommand::appendToResult(int value)
{
    AppendResultValue(host::IntList{value});
}

void MPxCommand::appendToResult(double value)
{
    AppendResultValue(host::FloatList{value});
}

void MPxCommand::appendToResult(bool value)
{
    appendToResult(value ? 1 : 0);
}

void MPxCommand::appendToResult(const char* value)
{
    appendToResult(MString(value));
}

void MPxCommand::appendToResult(const MString& value)
{
    AppendResultValue(host::StringList{ToQString(value)});
}

void MPxCommand::appendToResult(const MStringArray& value)
{
    AppendResultValue(host::api::ToStringList(value));
}

bool MPxCommand::isCurrentResultArray()
{
    return CurrentValue().IsArray();
}

MPxCommand::MResultType MPxCommand::currentResultType()
{
    switch (host::ElementKindOf(CurrentValue().GetKind())) {
    case Value::Kind::Bool:
    case Value::Kind::Int: return kLong;
    case Value::Kind::Float: return kDouble;
    case Value::Kind::String: return kString;
    default: return kNoArg;
    }
}

MStatus MPxCommand::getCurrentResult(int& value)
{
    return ReadCurrent(value);
}

MStatus MPxCommand::getCurrentResult(double& value)
{
    return ReadCurrent(value);
}

MStatus MPxCommand::getCurrentResult(MString& value)
{
    return ReadCurrent(value);
}

MStatus MPxCommand::getCurrentResult(MIntArray& value)
{
    return ReadCurrent(value);
}

MStatus MPxCommand::getCurrentResult(MDoubleArray& value)
{
    return ReadCurrent(value);
}

MStatus MPxCommand::getCurrentResult(MStringArray& value)
{
    return ReadCurrent(value);
}

int MPxCommand::currentIntResult(MStatus* ReturnStatus)
{
    return CurrentAs<int>(ReturnStatus);
}

double MPxCommand::currentDoubleResult(MStatus* ReturnStatus)
{
    return CurrentAs<double>(ReturnStatus);
}

MString MPxCommand::currentStringResult(MStatus* ReturnStatus)
{
    return CurrentAs<MString>(ReturnStatus);
}

const char* MPxCommand::className()
{
    return "MPxCommand";
}

void ApiAccess::Attach(MPxCommand& object, const std::shared_ptr<host::api::PluginCommand>& command,
    const QString& text)
{
    object.m_state->command = command;
    object.m_state->text = text;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE

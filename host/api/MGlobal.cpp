#include "api/ApiAccess.h"
#include "api/CommandRun.h"
#include "api/Conversions.h"
#include "api/Guard.h"
#include "api/Session.h"
#include "api/StatusDetails.h"
#include "api/ValueReading.h"
#include "engine/Engine.h"

#include <maya/MCommandResult.h>
#include <maya/MGlobal.h>

// Running texts, messages and the host's state.

OPENMAYA_MAJOR_NAMESPACE_OPEN

using host::Engine;
using host::Language;
using host::api::Report;
using host::api::Session;
using host::api::ToQString;

namespace {

/// Takes the result and forgets it.
struct NoResult
{
};

bool Deliver(const host::Value&, NoResult&)
{
    return true;
}

bool Deliver(const host::Value& value, MCommandResult& result)
{
    ApiAccess::SetValue(result, value);
    return true;
}

template <typename T>
bool Deliver(const host::Value& value, T& result)
{
    return host::api::ReadResult(value, result);
}

/// Why nothing can be run now; shown, as a failing status alone says little.
MStatus Precondition(Language language)
{
    const host::ScriptLanguage* interpreter = nullptr;
    if (Engine::Exists())
        interpreter = language == Language::Mel ? Engine::Current().mel : Engine::Current().python;
    if (!interpreter) {
        host::api::ShowMessage(
            host::MessageType::Error, QStringLiteral("The interpreter is not running."));
        return MS::kFailure;
    }
    if (!Engine::Current().IsMainThread()) {
        host::api::ShowMessage(host::MessageType::Error,
            QStringLiteral("Scripts can be executed on the main thread only."));
        return DetailedStatus(MS::kFailure, host::api::StatusDetail::WrongThread);
    }
    return MS::kSuccess;
}

template <typename T>
MStatus Execute(Language language, const MString& command, T& result, bool display, bool undo)
{
    if (const MStatus status = Precondition(language); !status)
        return status;
    const host::UndoPause pause(Engine::Current().undoQueue, !undo);
    const host::ScriptResult outcome
        = Engine::Current().Execute(language, ToQString(command), display);
    if (outcome.failed) {
        // Whichever command runs the text has told its reason by it.
        if (host::api::CommandRun* run = host::api::CommandRun::Current())
            run->shownError = outcome.errorText;
        return MS::kFailure;
    }
    return Deliver(outcome.value, result) ? MS::kSuccess : MS::kFailure;
}

MStatus ExecuteOnIdle(Language language, const MString& command, bool display)
{
    if (!Engine::Exists())
        return MS::kFailure;
    Engine::Current().ExecuteOnIdle(language, ToQString(command), display);
    return MS::kSuccess;
}

void Show(host::MessageType type, const MString& text)
{
    host::api::ShowMessage(type, ToQString(text));
}

} // namespace

MGlobal::MMayaState MGlobal::mayaState(MStatus* ReturnStatus)
{
    Report(ReturnStatus, Engine::Exists() ? MS::kSuccess : MS::kFailure);
    return Engine::Exists() && Engine::Current().IsBatch() ? kBatch : kInteractive;
}

MString MGlobal::mayaVersion()
{
    return host::RELEASE;
}

int MGlobal::apiVersion()
{
    return host::API_VERSION;
}

bool MGlobal::isUndoing()
{
    return Engine::Exists() && Engine::Current().undoQueue.IsUndoing();
}

bool MGlobal::isRedoing()
{
    return Engine::Exists() && Engine::Current().undoQueue.IsRedoing();
}

MStatus MGlobal::executeCommand(const MString& command, bool displayEnabled, bool undoEnabled)
{
    NoResult none;
    return Execute(Language::Mel, command, none, displayEnabled, undoEnabled);
}

MStatus MGlobal::executePythonCommand(const MString& command, bool displayEnabled, bool undoEnabled)
{
    NoResult none;
    return Execute(Language::Python, command, none, displayEnabled, undoEnabled);
}

// One definition per type of result.
#define DEFINE_EXECUTE(Function, Which, Result)                                                    \
    MStatus MGlobal::Function(                                                                     \
        const MString& command, Result& result, bool displayEnabled, bool undoEnabled)             \
    {                                                                                              \
        return Execute(Language::Which, command, result, displayEnabled, undoEnabled);             \
    }

DEFINE_EXECUTE(executeCommand, Mel, MCommandResult)
DEFINE_EXECUTE(executeCommand, Mel, int)
DEFINE_EXECUTE(executeCommand, Mel, MIntArray)
DEFINE_EXECUTE(executeCommand, Mel, double)
DEFINE_EXECUTE(executeCommand, Mel, MDoubleArray)
DEFINE_EXECUTE(executeCommand, Mel, MString)
DEFINE_EXECUTE(executeCommand, Mel, MStringArray)
DEFINE_EXECUTE(executePythonCommand, Python, int)
DEFINE_EXECUTE(executePythonCommand, Python, MIntArray)
DEFINE_EXECUTE(executePythonCommand, Python, double)
DEFINE_EXECUTE(executePythonCommand, Python, MDoubleArray)
DEFINE_EXECUTE(executePythonCommand, Python, MString)
DEFINE_EXECUTE(executePythonCommand, Python, MStringArray)

#undef DEFINE_EXECUTE

MString MGlobal::executeCommandStringResult(
    const MString& command, bool displayEnabled, bool undoEnabled, MStatus* ReturnStatus)
{
    MString result;
    Report(ReturnStatus, executeCommand(command, result, displayEnabled, undoEnabled));
    return result;
}

MString MGlobal::executePythonCommandStringResult(
    const MString& command, bool displayEnabled, bool undoEnabled, MStatus* ReturnStatus)
{
    MString result;
    Report(ReturnStatus, executePythonCommand(command, result, displayEnabled, undoEnabled));
    return result;
}

MStatus MGlobal::executeCommandOnIdle(const MString& command, bool displayEnabled)
{
    return ExecuteOnIdle(Language::Mel, command, displayEnabled);
}

MStatus MGlobal::executePythonCommandOnIdle(const MString& command, bool displayEnabled)
{
    return ExecuteOnIdle(Language::Python, command, displayEnabled);
}

MStatus MGlobal::executeTaskOnIdle(
    void (*function)(void*), void* clientData, MIdleTaskPriority priority)
{
    if (!function)
        return MS::kInvalidParameter;
    if (!Engine::Exists())
        return MS::kFailure;
    const std::shared_ptr<host::api::PluginRecord> owner = Session::Current().FindLibrary(
        host::api::Callbacks::LibraryOf(reinterpret_cast<const void*>(function)));
    const auto task = [function, clientData, owner] {
        if (owner && !owner->plugin)
            return; // unloaded in the meantime
        const host::api::PluginScope inPlugin(owner);
        host::api::CallGuarded(QStringLiteral("Idle task"), [&] { function(clientData); });
    };
    Engine::Current().idle.Post(task, static_cast<host::IdlePriority>(priority));
    return MS::kSuccess;
}

MStatus MGlobal::sourceFile(const MString& fileName)
{
    if (const MStatus status = Precondition(Language::Mel); !status)
        return status;
    const host::ScriptScope scope(Language::Mel);
    const host::ScriptResult result = Engine::Current().mel->RunFile(ToQString(fileName));
    return result.failed ? MS::kFailure : MS::kSuccess;
}

void MGlobal::displayInfo(const MString& text)
{
    Show(host::MessageType::Info, text);
}

void MGlobal::displayWarning(const MString& text)
{
    Show(host::MessageType::Warning, text);
}

void MGlobal::displayError(const MString& text)
{
    Show(host::MessageType::Error, text);
}

const char* MGlobal::className()
{
    return "MGlobal";
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE

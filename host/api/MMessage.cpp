#include "api/Callbacks.h"
#include "api/Conversions.h"
#include "api/Guard.h"
#include "api/Session.h"
#include "api/StatusDetails.h"
#include "engine/Engine.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MCommandMessage.h>
#include <maya/MEventMessage.h>

#include <cstdio>
#include <exception>

// The classes that register callbacks: MMessage, MEventMessage and MCommandMessage.

OPENMAYA_MAJOR_NAMESPACE_OPEN

using host::Engine;
using host::Message;
using host::api::Callback;
using host::api::Callbacks;
using host::api::CallbackScope;
using host::api::Report;
using host::api::Session;

namespace {

template <typename Function>
const void* AddressOf(Function function)
{
    return reinterpret_cast<const void*>(function);
}

MCallbackId Refuse(MStatus* status, const MStatus& reason)
{
    Report(status, reason);
    return 0;
}

/// Why a callback cannot be added now.
MStatus Precondition(const void* function)
{
    if (!function)
        return MS::kInvalidParameter;
    if (!Engine::Exists())
        return MS::kFailure;
    if (!Engine::Current().IsMainThread())
        return DetailedStatus(MS::kFailure, host::api::StatusDetail::WrongThread);
    return MS::kSuccess;
}

MCommandMessage::MessageType TypeOf(const Message& message)
{
    return static_cast<MCommandMessage::MessageType>(message.type);
}

unsigned int TypeOf(const host::CallNotice& notice)
{
    return notice.kind == host::CallNotice::Kind::Command ? MCommandMessage::kMELCommand
                                                          : MCommandMessage::kMELProc;
}

const QString COMMAND_CALLBACK = QStringLiteral("Command callback");

/// Calls a function that gets the host's output. An exception cannot be shown in the output, which
/// would only call the function again.
template <typename Function>
void CallOutputFunction(Callback& callback, const Function& function)
{
    const CallbackScope scope(callback);
    if (!scope.MayRun())
        return;
    try {
        function();
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "Unhandled exception in an output callback: %s\n", exception.what());
    } catch (...) {
        std::fputs("Unknown exception in an output callback\n", stderr);
    }
}

MCallbackId KeepListener(const std::shared_ptr<Callback>& callback, int listener, MStatus* status)
{
    Engine& engine = Engine::Current();
    Session::Current().callbacks.Keep(
        callback, [&engine, listener] { engine.output.Remove(listener); });
    Report(status, MS::kSuccess);
    return callback->id;
}

MCallbackId KeepCallListener(
    const std::shared_ptr<Callback>& callback, int listener, MStatus* status)
{
    Engine& engine = Engine::Current();
    Session::Current().callbacks.Keep(
        callback, [&engine, listener] { engine.callListeners.Remove(listener); });
    Report(status, MS::kSuccess);
    return callback->id;
}

} // namespace

MStatus MMessage::removeCallback(MCallbackId id)
{
    return Session::Current().callbacks.Remove(id);
}

MStatus MMessage::removeCallbacks(MCallbackIdArray& ids)
{
    MStatus firstFailure;
    for (const MCallbackId id : ids) {
        const MStatus status = removeCallback(id);
        if (firstFailure && !status)
            firstFailure = status;
    }
    return firstFailure;
}

MCallbackId MMessage::currentCallbackId(MStatus* ReturnStatus)
{
    const MCallbackId id = Callbacks::Current();
    Report(ReturnStatus, id ? MS::kSuccess : MS::kFailure);
    return id;
}

const char* MMessage::className()
{
    return "MMessage";
}

MCallbackId MEventMessage::addEventCallback(
    const MString& event, MMessage::MBasicFunction func, void* clientData, MStatus* ReturnStatus)
{
    if (const MStatus status = Precondition(AddressOf(func)); !status)
        return Refuse(ReturnStatus, status);
    Engine& engine = Engine::Current();
    const QString name = host::api::ToQString(event);
    const auto callback = Session::Current().callbacks.Make(AddressOf(func));
    const int handler = engine.events.Add(name, [callback, func, clientData, name] {
        const CallbackScope scope(*callback);
        if (scope.MayRun())
            host::api::CallGuarded(name, [&] { func(clientData); });
    });
    if (handler == 0)
        return Refuse(ReturnStatus, MS::kUnknownParameter);
    Session::Current().callbacks.Keep(
        callback, [&engine, handler] { engine.events.Remove(handler); });
    Report(ReturnStatus, MS::kSuccess);
    return callback->id;
}

MStatus MEventMessage::getEventNames(MStringArray& names)
{
    names = host::api::ToMStringArray(host::Events::Names());
    return MS::kSuccess;
}

const char* MEventMessage::className()
{
    return "MEventMessage";
}

MCallbackId MCommandMessage::addCommandOutputCallback(
    MMessageFunction func, void* clientData, MStatus* ReturnStatus)
{
    if (const MStatus status = Precondition(AddressOf(func)); !status)
        return Refuse(ReturnStatus, status);
    const auto callback = Session::Current().callbacks.Make(AddressOf(func));
    const int listener = Engine::Current().output.AddListener(
        [callback, func, clientData](const Message& message) {
            CallOutputFunction(*callback,
                [&] { func(host::api::ToMString(message.text), TypeOf(message), clientData); });
        });
    return KeepListener(callback, listener, ReturnStatus);
}

MCallbackId MCommandMessage::addCommandOutputFilterCallback(
    MMessageFilterFunction func, void* clientData, MStatus* ReturnStatus)
{
    if (const MStatus status = Precondition(AddressOf(func)); !status)
        return Refuse(ReturnStatus, status);
    const auto callback = Session::Current().callbacks.Make(AddressOf(func));
    const int listener
        = Engine::Current().output.AddFilter([callback, func, clientData](const Message& message) {
              bool keepBack = false;
              CallOutputFunction(*callback, [&] {
                  func(host::api::ToMString(message.text), TypeOf(message), keepBack, clientData);
              });
              return keepBack;
          });
    return KeepListener(callback, listener, ReturnStatus);
}

MCallbackId MCommandMessage::addCommandCallback(
    MMessage::MStringFunction func, void* clientData, MStatus* ReturnStatus)
{
    if (const MStatus status = Precondition(AddressOf(func)); !status)
        return Refuse(ReturnStatus, status);
    const auto callback = Session::Current().callbacks.Make(AddressOf(func));
    const int listener = Engine::Current().callListeners.AddForCommands(
        [callback, func, clientData](const QString& text) {
            const CallbackScope scope(*callback);
            if (scope.MayRun())
                host::api::CallGuarded(
                    COMMAND_CALLBACK, [&] { func(host::api::ToMString(text), clientData); });
        });
    return KeepCallListener(callback, listener, ReturnStatus);
}

MCallbackId MCommandMessage::addProcCallback(
    MMessage::MStringIntBoolIntFunction func, void* clientData, MStatus* ReturnStatus)
{
    if (const MStatus status = Precondition(AddressOf(func)); !status)
        return Refuse(ReturnStatus, status);
    const auto callback = Session::Current().callbacks.Make(AddressOf(func));
    const int listener = Engine::Current().callListeners.AddForCalls(
        [callback, func, clientData](const host::CallNotice& notice) {
            const CallbackScope scope(*callback);
            if (!scope.MayRun())
                return;
            host::api::CallGuarded(COMMAND_CALLBACK, [&] {
                func(host::api::ToMString(notice.name), notice.number, notice.begins,
                    TypeOf(notice), clientData);
            });
        });
    return KeepCallListener(callback, listener, ReturnStatus);
}

const char* MCommandMessage::className()
{
    return "MCommandMessage";
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE

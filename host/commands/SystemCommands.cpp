#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

#include <QCursor>
#include <QGuiApplication>
#include <QThread>

#include <cstdlib>

namespace host::commands {

namespace {

constexpr int PAUSE_STEP_MS = 20; ///< how often a pause looks for a stop request
constexpr double STANDARD_DPI = 96;

Outcome EvalDeferred(Call& call)
{
    Deferred& deferred = Session::Current().deferred;
    if (call.Has("list"))
        return deferred.Texts();
    const Script script = call.GetObjectScript();
    if (script.IsEmpty())
        return Error{QStringLiteral("evalDeferred needs a script.")};
    const auto place = call.Has("evaluateNext") ? Deferred::Place::Next
        : call.Has("lowestPriority")            ? Deferred::Place::Lowest
                                                : Deferred::Place::Low;
    deferred.Add(script, place);
    return {};
}

Outcome Quit(Call& call)
{
    if (call.Has("abort"))
        std::_Exit(call.Has("exitCode") ? call.Int("exitCode") : EXIT_FAILURE);
    if (!Engine::Current().quit)
        return Error{QStringLiteral("This host cannot be ended by a script.")};
    Engine::Current().quit(call.Int("exitCode"), call.Has("force"));
    return {};
}

Outcome Pause(Call& call)
{
    const double end = Session::Current().Seconds() + call.Int("seconds");
    while (Session::Current().Seconds() < end && !Engine::Current().interrupt.Poll())
        QThread::msleep(PAUSE_STEP_MS);
    return {};
}

Outcome WaitCursor(Call& call)
{
    if (call.IsQuery())
        return Session::Current().waitCursors > 0;
    const bool on = call.Bool("state");
    int& depth = Session::Current().waitCursors;
    if (!on && depth == 0)
        return {};
    depth += on ? 1 : -1;
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return {};
    if (on)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
    return {};
}

/// A picture of the view, for those who want to show what the scene looks like.
Outcome DrawView(const QString& path, const QString& format)
{
    const auto draw = Session::Current().drawView;
    if (!draw)
        return Error{QStringLiteral("There is no view to draw.")};
    if (!draw(path, format))
        return Error{QStringLiteral("Cannot write a picture to \"%1\".").arg(path)};
    return {};
}

Outcome Refresh(Call& call)
{
    if (call.Has("filename"))
        return DrawView(call.Text("filename"), call.Text("fileExtension"));
    bool& suspended = Session::Current().refreshSuspended;
    if (call.Has("suspend"))
        suspended = call.Bool("suspend");
    else if (!suspended)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    return {};
}

Outcome DpiSetting(Call& call)
{
    if (!call.IsQuery()) {
        return Error{
            QStringLiteral("The scale of this host's interface follows the system and cannot be "
                           "set.")};
    }
    const UserInterface* ui = Engine::Current().ui;
    const double scale = ui ? ui->ScaleFactor() : 1.0;
    if (call.Has("mode"))
        return 0;
    return call.Has("systemDpi") ? STANDARD_DPI * scale : scale;
}

Outcome ShowHelp(Call& call)
{
    if (call.IsQuery())
        return call.Has("version") ? QString::fromLatin1(RELEASE) : QString();
    HelpRequest request;
    request.target = call.ObjectText();
    if (call.Has("docs"))
        request.kind = HelpRequest::Kind::Docs;
    else if (call.Has("absolute"))
        request.kind = HelpRequest::Kind::Address;
    else if (call.Has("helpTable"))
        request.kind = HelpRequest::Kind::Table;
    HelpRequests::Current().Add(request);
    return {};
}

Outcome AfterStep(UndoQueue::StepResult result, const QString& word, const QString& event)
{
    if (result == UndoQueue::StepResult::Done)
        Engine::Current().events.Fire(event);
    if (result == UndoQueue::StepResult::Failed)
        return Error{QStringLiteral("The command could not be %1ne.").arg(word)};
    if (result == UndoQueue::StepResult::NothingThere) {
        Engine::Current().output.Warning(
            QStringLiteral("There are no more commands to %1.").arg(word));
    }
    return {};
}

Outcome Undo(Call&)
{
    return AfterStep(
        Engine::Current().undoQueue.Undo(), QStringLiteral("undo"), QStringLiteral("Undo"));
}

Outcome Redo(Call&)
{
    return AfterStep(
        Engine::Current().undoQueue.Redo(), QStringLiteral("redo"), QStringLiteral("Redo"));
}

Outcome FlushUndo(Call&)
{
    Engine::Current().undoQueue.Clear();
    return {};
}

Outcome UndoQuery(const QString& asked)
{
    const UndoQueue& queue = Engine::Current().undoQueue;
    const bool redo = asked.contains(QLatin1String("redo"), Qt::CaseInsensitive);
    const QStringList names = redo ? queue.RedoNames() : queue.UndoNames();
    if (asked == QLatin1String("state") || asked == QLatin1String("stateWithoutFlush"))
        return queue.enabled;
    if (asked.endsWith(QLatin1String("QueueEmpty")))
        return names.isEmpty();
    if (asked.endsWith(QLatin1String("Queue"))) {
        for (const QString& name : names)
            Engine::Current().output.Display(name + QLatin1Char('\n'));
        return {};
    }
    if (asked == QLatin1String("infinity"))
        return queue.GetLength() == 0;
    if (asked == QLatin1String("length"))
        return queue.GetLength();
    return names.value(0);
}

Outcome UndoInfo(Call& call)
{
    if (call.IsQuery())
        return UndoQuery(call.GivenFlags().value(0));
    UndoQueue& queue = Engine::Current().undoQueue;
    if (call.Has("state")) {
        queue.enabled = call.Bool("state");
        if (!queue.enabled)
            queue.Clear();
    }
    if (call.Has("stateWithoutFlush"))
        queue.enabled = call.Bool("stateWithoutFlush");
    if (call.Has("length") && call.Int("length") < 1)
        return Error{QStringLiteral("The undo queue keeps at least one step.")};
    if (call.Has("length"))
        queue.SetLength(call.Int("length"));
    if (call.Has("infinity"))
        queue.SetLength(call.Bool("infinity") ? 0 : UndoQueue::DEFAULT_LENGTH);
    if (call.Has("openChunk"))
        queue.OpenChunk(call.Text("chunkName"));
    if (call.Has("closeChunk"))
        queue.CloseChunk();
    return {};
}

const CommandRow COMMANDS[] = {
    {"evalDeferred", "any", "", "[Script]",
        "evaluateNext/en - c; list/ls - c; lowPriority/low - c; lowestPriority/lp - c",
        EvalDeferred},
    {"quit", "none", "", "", "abort/a - c; exitCode/ec int c; force/f - c", Quit},
    {"pause", "none", "", "", "seconds/sec int c", Pause},
    {"waitCursor", "int", "Q", "", "state/st B cq", WaitCursor},
    {"refresh", "none", "", "",
        "currentView/cv - c; fileExtension/fe str c; filename/fn str c; force/f - c; suspend/su B "
        "c",
        Refresh},
    {"mayaDpiSetting", "any", "Q", "",
        "mode/m int cq; realScaleValue/rsv - q; scaleValue/sv float cq; systemDpi/sd - q",
        DpiSetting},
    {"showHelp", "any", "Q", "[String]",
        "absolute/a - c; docs/d - cq; helpTable/ht - cq; version/v - q", ShowHelp},
    {"undo", "none", "", "", "", Undo},
    {"redo", "none", "", "", "", Redo},
    {"flushUndo", "none", "", "", "", FlushUndo},
    {"undoInfo", "any", "Q", "",
        "chunkName/cn str cq; closeChunk/cck - c; infinity/infinity B cq; length/l int cq;"
        "openChunk/ock - c; printQueue/pq - q; printRedoQueue/prq - q; redoName/rn - q;"
        "redoQueueEmpty/rqe - q; state/st B cq; stateWithoutFlush/swf B cq; undoName/un - q;"
        "undoQueueEmpty/uqe - q",
        UndoInfo},
};

} // namespace

void RegisterSystem(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands

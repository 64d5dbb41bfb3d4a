"""Callbacks of the API: functions that the host calls when something happens.

Every class gives an id, which MMessage.removeCallback takes. A callback gets the client data it
was added with as its last argument.
"""

import itertools
import time

import _maya_host

_UNKNOWN = "(kInvalidParameter): There is no callback with the id %r."


class MMessage:
    """Callbacks by id. A callback that is removed while an event goes round is not called."""

    kDefaultAction = 0
    kDoNotDoAction = 1
    kDoAction = 2

    _identifiers = itertools.count(1)
    _callbacks = {}
    _running = []

    @staticmethod
    def _keep(number, remove, identifier=None):
        if identifier is None:
            identifier = next(MMessage._identifiers)
        MMessage._callbacks[identifier] = number, remove
        return identifier

    @staticmethod
    def _watched(function, identifier):
        """The function, known as the running callback while it is called."""

        def call(*arguments):
            MMessage._running.append(identifier)
            try:
                return function(*arguments)
            finally:
                MMessage._running.pop()

        return call

    @staticmethod
    def _add(register, remove, function):
        """Registers what calls `function` with the host; the id."""
        if not callable(function):
            raise TypeError("A callback has to be a function, not %s" % type(function).__name__)
        identifier = next(MMessage._identifiers)
        number = register(MMessage._watched(function, identifier))
        return MMessage._keep(number, remove, identifier)

    @staticmethod
    def currentCallbackId():
        """Of the callback that runs; 0 outside of callbacks."""
        return MMessage._running[-1] if MMessage._running else 0

    @staticmethod
    def removeCallback(identifier):
        callback = MMessage._callbacks.pop(identifier, None)
        if callback is None:
            raise RuntimeError(_UNKNOWN % (identifier,))
        number, remove = callback
        remove(number)

    @staticmethod
    def removeCallbacks(identifiers):
        for identifier in list(identifiers):
            MMessage.removeCallback(identifier)


class MEventMessage(MMessage):
    """Callbacks for the host's named events."""

    @staticmethod
    def addEventCallback(event, function, clientData=None):
        return MMessage._add(
            lambda call: _maya_host.addEventHandler(event, lambda: call(clientData)),
            _maya_host.removeEventHandler, function)

    @staticmethod
    def getEventNames(names=None):
        found = _maya_host.eventNames()
        if names is not None:
            for name in found:
                names.append(name)
        return found


class MCommandMessage(MMessage):
    """Callbacks for everything the host prints, on the thread that prints it, and for MEL's calls."""

    (kHistory, kDisplay, kInfo, kWarning, kError, kResult, kStackTrace) = range(7)
    kMELProc, kMELCommand = range(2)

    @staticmethod
    def addCommandOutputCallback(function, clientData=None):
        # Other threads print too, and have no place among the running callbacks.
        number = _maya_host.addOutputListener(
            lambda message, kind: function(message, kind, clientData))
        return MMessage._keep(number, _maya_host.removeOutputListener)

    @staticmethod
    def addCommandCallback(function, clientData=None):
        """Gets each command that MEL runs as text, before it does."""
        return MMessage._add(
            lambda call: _maya_host.addCommandListener(lambda text: call(text, clientData)),
            _maya_host.removeCallListener, function)

    @staticmethod
    def addProcCallback(function, clientData=None):
        """Gets the name, number, whether it begins, and kind of each call that MEL makes."""
        return MMessage._add(
            lambda call: _maya_host.addCallListener(
                lambda name, number, begins, kind: call(name, number, begins, kind, clientData)),
            _maya_host.removeCallListener, function)


class MSceneMessage(MMessage):
    """Callbacks for what is done to the scene's file, as far as the host tells it."""

    (kSceneUpdate, kBeforeNew, kAfterNew, kBeforeImport, kAfterImport, kBeforeOpen, kAfterOpen,
     kBeforeFileRead, kAfterFileRead, kAfterSceneReadAndRecordEdits, kBeforeExport, kExportStarted,
     kAfterExport, kBeforeSave, kAfterSave) = range(15)
    kMayaInitialized, kMayaExiting = 100, 101

    _events = {kAfterNew: "NewSceneOpened", kAfterOpen: "SceneOpened", kAfterSave: "SceneSaved",
               kAfterFileRead: "PostSceneRead", kMayaExiting: "quitApplication"}

    @staticmethod
    def addCallback(message, function, clientData=None):
        event = MSceneMessage._events.get(message)
        if event is None:
            raise NotImplementedError(
                "MSceneMessage.addCallback: the host does not tell of message %r" % (message,))
        return MEventMessage.addEventCallback(event, function, clientData)


class MUserEventMessage(MMessage):
    """Events that scripts name and post themselves."""

    _events = {}

    @staticmethod
    def _known(name):
        if name not in MUserEventMessage._events:
            raise RuntimeError("(kInvalidParameter): There is no user event named '%s'." % name)
        return MUserEventMessage._events[name]

    @staticmethod
    def registerUserEvent(name):
        if name in MUserEventMessage._events:
            raise RuntimeError("(kFailure): The user event '%s' exists already." % name)
        MUserEventMessage._events[name] = {}

    @staticmethod
    def isUserEvent(name):
        return name in MUserEventMessage._events

    @staticmethod
    def deregisterUserEvent(name):
        MUserEventMessage._known(name)
        del MUserEventMessage._events[name]

    @staticmethod
    def addUserEventCallback(name, function, clientData=None):
        functions = MUserEventMessage._known(name)
        numbers = itertools.count(max(functions, default=0) + 1)

        def register(call):
            number = next(numbers)
            functions[number] = lambda: call(clientData)
            return number

        return MMessage._add(register, lambda number: functions.pop(number, None), function)

    @staticmethod
    def postUserEvent(name, clientData=None):
        """Calls the callbacks that are registered now, one after the other."""
        functions = MUserEventMessage._known(name)
        for number in sorted(functions):
            if number in functions:
                functions[number]()


class MTimerMessage(MMessage):
    """Callbacks that come again and again while the event loop runs."""

    @staticmethod
    def addTimerCallback(period, function, clientData=None):
        """`period` is in seconds; the function gets the time since its last call and its last
        length, both in seconds."""
        if period < 0:
            raise ValueError("(kInvalidParameter): A period cannot be negative")
        last = time.monotonic()
        length = 0.0

        def tick(call):
            nonlocal last, length
            now = time.monotonic()
            elapsed, last = now - last, now
            call(elapsed, length, clientData)
            length = time.monotonic() - now

        return MMessage._add(
            lambda call: _maya_host.addTimer(period, lambda: tick(call)),
            _maya_host.removeTimer, function)

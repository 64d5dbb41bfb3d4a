"""The classes of the API that scripts use most, behind maya.OpenMaya and maya.OpenMayaUI.

Both forms of the API share them: names and arguments are the same, and where the older form gives
nothing back these give the value.
"""

import itertools

import _maya_host


class MGlobal:
    """Messages, execution and option variables. Messages may come from any thread."""

    kInteractive = 0
    kBatch = 1
    kLibraryApp = 2
    kBaseUIMode = 3

    @staticmethod
    def mayaState():
        return MGlobal.kBatch if _maya_host.isBatch() else MGlobal.kInteractive

    @staticmethod
    def apiVersion():
        return _maya_host.API_VERSION

    @staticmethod
    def mayaVersion():
        return _maya_host.RELEASE

    @staticmethod
    def mayaName():
        return "Maya"

    @staticmethod
    def displayInfo(text):
        _maya_host.show(_maya_host.INFO, text)

    @staticmethod
    def displayWarning(text):
        _maya_host.show(_maya_host.WARNING, text)

    @staticmethod
    def displayError(text):
        _maya_host.show(_maya_host.ERROR, text)

    @staticmethod
    def executeCommand(command, display=False, undo=False):
        return _maya_host.execute(False, command, display)

    @staticmethod
    def executeCommandStringResult(command, display=False, undo=False):
        return _text(_maya_host.execute(False, command, display))

    @staticmethod
    def executeCommandOnIdle(command, display=False):
        _maya_host.executeOnIdle(False, command, display)

    @staticmethod
    def executePythonCommand(command, display=False, undo=False):
        return _maya_host.execute(True, command, display)

    @staticmethod
    def executePythonCommandStringResult(command, display=False, undo=False):
        return _text(_maya_host.execute(True, command, display))

    @staticmethod
    def executePythonCommandOnIdle(command, display=False):
        _maya_host.executeOnIdle(True, command, display)

    @staticmethod
    def optionVarExists(name):
        return _maya_host.optionVar(name) is not None

    @staticmethod
    def optionVarIntValue(name):
        return int(_number(name))

    @staticmethod
    def optionVarDoubleValue(name):
        return float(_number(name))

    @staticmethod
    def optionVarStringValue(name):
        value = _maya_host.optionVar(name)
        return value if isinstance(value, str) else ""

    @staticmethod
    def setOptionVarValue(name, value):
        """True when the variable was there before."""
        existed = MGlobal.optionVarExists(name)
        _maya_host.setOptionVar(name, value)
        return existed

    @staticmethod
    def removeOptionVar(name):
        return _maya_host.setOptionVar(name, None)


def _text(value):
    return "" if value is None else str(value)


def _number(name):
    value = _maya_host.optionVar(name)
    return value if isinstance(value, (int, float)) else 0


class MMessage:
    """Callbacks by id. A callback that is removed while an event goes round is not called."""

    kDefaultAction = 0
    kDoNotDoAction = 1
    kDoAction = 2

    _identifiers = itertools.count(1)
    _callbacks = {}

    @staticmethod
    def _keep(number, remove):
        identifier = next(MMessage._identifiers)
        MMessage._callbacks[identifier] = number, remove
        return identifier

    @staticmethod
    def removeCallback(identifier):
        callback = MMessage._callbacks.pop(identifier, None)
        if callback is None:
            raise RuntimeError("There is no callback with the id %r." % (identifier,))
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
        number = _maya_host.addEventHandler(event, lambda: function(clientData))
        return MMessage._keep(number, _maya_host.removeEventHandler)

    @staticmethod
    def getEventNames(names=None):
        found = _maya_host.eventNames()
        if names is not None:
            names.extend(found)
        return found


class MCommandMessage(MMessage):
    """Callbacks for everything the host prints, on the thread that prints it."""

    kHistory = 0
    kDisplay = 1
    kInfo = 2
    kWarning = 3
    kError = 4
    kResult = 5
    kStackTrace = 6

    @staticmethod
    def addCommandOutputCallback(function, clientData=None):
        number = _maya_host.addOutputListener(
            lambda message, kind: function(message, kind, clientData))
        return MMessage._keep(number, _maya_host.removeOutputListener)


class MQtUtil:
    """Addresses of the host's widgets as numbers, None when there is no such widget."""

    @staticmethod
    def mainWindow():
        return _maya_host.findWidget("mainWindow", "")

    @staticmethod
    def findControl(name, parent=None):
        return _maya_host.findWidget("control", name)

    @staticmethod
    def findLayout(name, parent=None):
        return _maya_host.findWidget("layout", name)

    @staticmethod
    def findWindow(name):
        return _maya_host.findWidget("window", name)

    @staticmethod
    def findMenuItem(name, parent=None):
        return _maya_host.findWidget("menuItem", name)

    @staticmethod
    def getCurrentParent():
        return _maya_host.findWidget("currentParent", "")

    @staticmethod
    def fullName(address):
        return _maya_host.fullName(int(address))

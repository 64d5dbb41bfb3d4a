"""MGlobal: the host as a whole. What concerns the scene is in _selection."""

import _maya_host

from maya._display import Display


class Global(Display):
    """Messages, execution and option variables. Messages may come from any thread."""

    kInteractive = 0
    kBatch = 1
    kLibraryApp = 2
    kBaseUIMode = 3

    @staticmethod
    def mayaState():
        return Global.kBatch if _maya_host.isBatch() else Global.kInteractive

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
    def executeCommandStringResult(command, display=False, undo=False):
        return _text(_maya_host.execute(False, command, display))

    @staticmethod
    def executeCommandOnIdle(command, display=False):
        _maya_host.executeOnIdle(False, command, display)

    @staticmethod
    def executePythonCommandStringResult(command, display=False, undo=False):
        return _text(_maya_host.execute(True, command, display))

    @staticmethod
    def executePythonCommandOnIdle(command, display=False):
        _maya_host.executeOnIdle(True, command, display)

    @staticmethod
    def sourceFile(name):
        """Runs a MEL file: a path, or a name looked for along the script path."""
        _maya_host.execute(False, 'source "%s"' % name.replace("\\", "/").replace('"', '\\"'), False)

    @staticmethod
    def isUndoing():
        return _maya_host.undoState()[0]

    @staticmethod
    def isRedoing():
        return _maya_host.undoState()[1]

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
        existed = Global.optionVarExists(name)
        _maya_host.setOptionVar(name, value)
        return existed

    @staticmethod
    def removeOptionVar(name):
        return _maya_host.setOptionVar(name, None)


class MGlobal(Global):
    @staticmethod
    def executeCommand(command, display=False, undo=False):
        return _maya_host.execute(False, command, display)

    @staticmethod
    def executePythonCommand(command, display=False, undo=False):
        return _maya_host.execute(True, command, display)


class MStatus:
    """The older form's words for how a call went; the calls themselves raise when they fail."""

    (kSuccess, kFailure, kInsufficientMemory, kInvalidParameter, kLicenseFailure,
     kUnknownParameter, kNotImplemented, kNotFound, kEndOfFile) = range(9)


class MCommandResult:
    """Takes the result of a command in the older form."""

    (kInvalid, kInt, kInt64, kIntArray, kInt64Array, kDouble, kDoubleArray, kString, kStringArray,
     kVector, kVectorArray, kMatrix, kMatrixArray) = range(13)

    _scalars = {bool: kInt, int: kInt, float: kDouble, str: kString}
    _lists = {bool: kIntArray, int: kIntArray, float: kDoubleArray, str: kStringArray,
              tuple: kVectorArray}

    def __init__(self):
        self._value = None

    def resultType(self):
        if isinstance(self._value, list):
            return self._lists[type(self._value[0])] if self._value else self.kStringArray
        return self._scalars.get(type(self._value), self.kInvalid)

    def stringResult(self):
        return _text(self._value)

    def getResult(self, target):
        """Fills a list, an array of the API or a pointer of MScriptUtil."""
        values = self._value if isinstance(self._value, list) else [self._value]
        if isinstance(target, list):
            target[:] = values
        elif hasattr(target, "copy"):
            target.copy(values)
        else:
            target.setAll(values)


class OlderMGlobal(Global):
    @staticmethod
    def _execute(python, command, arguments):
        result = None
        if arguments and not isinstance(arguments[0], (bool, int)):
            result, arguments = arguments[0], arguments[1:]
        value = _maya_host.execute(python, command, bool(arguments and arguments[0]))
        if isinstance(result, MCommandResult):
            result._value = value
        elif result is not None:
            taken = MCommandResult()
            taken._value = value
            taken.getResult(result)

    @staticmethod
    def executeCommand(command, *arguments):
        """(command, [place for the result,] display, undo)"""
        OlderMGlobal._execute(False, command, arguments)

    @staticmethod
    def executePythonCommand(command, *arguments):
        OlderMGlobal._execute(True, command, arguments)


def _text(value):
    return "" if value is None else str(value)


def _number(name):
    value = _maya_host.optionVar(name)
    return value if isinstance(value, (int, float)) else 0

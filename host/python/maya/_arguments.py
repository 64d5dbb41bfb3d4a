"""What commands of plug-ins are called with: MArgList, MSyntax, MArgParser and MArgDatabase.

The host itself sorts the words by the syntax, so that a command written in Python sees the same
call as `help` and the commands of compiled plug-ins.
"""

import _maya_host

from maya._units import MAngle, MDistance, MTime

_SHORTEST_LONG_NAME = 4
_LONGEST_SHORT_NAME = 3
_ANY_NUMBER = -1

_QUERY, _EDIT = 2, 4

_FAILURE = "(kFailure): Unexpected Internal Failure"
_INVALID = "(kInvalidParameter): Invalid parameter"


def _bare(flag):
    return flag[1:] if flag.startswith("-") else flag


class MArgList:
    """The words behind a command's name, flags included."""

    kInvalidArgIndex = 0xFFFFFFFF

    def __init__(self, other=None):
        self._words = list(other._words) if other is not None else []

    @classmethod
    def _of(cls, words):
        arguments = cls()
        arguments._words = words
        return arguments

    def __len__(self):
        return len(self._words)

    def _word(self, index):
        if not 0 <= index < len(self._words):
            raise RuntimeError(_FAILURE)
        return self._words[index]

    def _number(self, index, convert):
        value, text, is_flag = self._word(index)
        try:
            return convert(float(value if not isinstance(value, str) else text))
        except (TypeError, ValueError):
            raise RuntimeError(_FAILURE) from None

    def asString(self, index):
        return self._word(index)[1]

    def asInt(self, index):
        return self._number(index, int)

    def asDouble(self, index):
        return self._number(index, float)

    asFloat = asDouble

    def asBool(self, index):
        text = self._word(index)[1].lower()
        if text in ("on", "yes", "true"):
            return True
        return False if text in ("off", "no", "false") else self._number(index, bool)

    def flagIndex(self, short, long=None):
        names = [_bare(name) for name in (short, long) if name]
        for index, (value, text, is_flag) in enumerate(self._words):
            if text.startswith("-") and _bare(text) in names:
                return index
        return self.kInvalidArgIndex

    def addArg(self, value):
        is_flag = isinstance(value, str) and len(value) > 1 and value[0] == "-" and \
            value[1].isalpha()
        self._words.append((value, str(value), is_flag))
        return self


class OlderMArgList(MArgList):
    def length(self):
        return len(self._words)


class _Flag:
    def __init__(self, short, long, types):
        self.short, self.long, self.types = short, long, types
        self.multi_use = False
        self.query_arguments = False


class Syntax:
    """The flags and arguments that a command takes."""

    (kInvalidArgType, kNoArg, kBoolean, kLong, kDouble, kString, kUnsigned, kDistance, kAngle,
     kTime, kSelectionItem, kLastArgType) = range(12)
    kInvalidObjectFormat, kNone, kStringObjects, kSelectionList, kLastObjectFormat = range(5)

    def __init__(self):
        self._flags = []
        self._arguments = []
        self._format = self.kNone
        self._minimum, self._maximum = 0, _ANY_NUMBER
        self._query = self._edit = False
        self._use_selection = False

    def _find(self, name):
        name = _bare(name)
        for flag in self._flags:
            if name in (flag.short, flag.long):
                return flag
        return None

    def _known(self, name):
        flag = self._find(name)
        if flag is None:
            raise RuntimeError(_INVALID)
        return flag

    @classmethod
    def _check_type(cls, kind):
        if not cls.kNoArg < kind < cls.kLastArgType:
            raise RuntimeError(_INVALID)

    def addFlag(self, short, long, *types):
        """Short names have at most 3 letters, long ones at least 4, the "-" not counted."""
        short, long = _bare(short), _bare(long)
        fits = 0 < len(short) <= _LONGEST_SHORT_NAME and len(long) >= _SHORTEST_LONG_NAME
        if not fits or self._find(short) or self._find(long):
            raise RuntimeError(_FAILURE)
        types = types[:types.index(self.kNoArg)] if self.kNoArg in types else types
        for kind in types:
            self._check_type(kind)
        self._flags.append(_Flag(short, long, tuple(types)))

    def makeFlagMultiUse(self, flag):
        self._known(flag).multi_use = True

    def makeFlagQueryWithFullArgs(self, flag, queryArgsAreOptional):
        self._known(flag).query_arguments = True

    def addArg(self, kind):
        self._check_type(kind)
        if self._format != self.kNone:
            raise RuntimeError(_FAILURE)
        self._arguments.append(kind)

    def setObjectType(self, objectFormat, minimumObjects=0, maximumObjects=_ANY_NUMBER):
        if not self.kInvalidObjectFormat < objectFormat < self.kLastObjectFormat:
            raise RuntimeError(_INVALID)
        if objectFormat != self.kNone and self._arguments:
            raise RuntimeError(_FAILURE)
        self._format = objectFormat
        self._minimum, self._maximum = minimumObjects, maximumObjects

    def useSelectionAsDefault(self, use=False):
        self._use_selection = bool(use)

    def _description(self):
        """As the host reads it."""
        flags = [(flag.short, flag.long, flag.types, flag.multi_use, flag.query_arguments)
                 for flag in sorted(self._flags, key=lambda flag: flag.long)]
        # The selection stands for objects that are not given.
        minimum = 0 if self._use_selection else self._minimum
        return (flags, tuple(self._arguments), self._format != self.kNone, minimum,
                self._maximum, self._query, self._edit)


class MSyntax(Syntax):
    @property
    def enableQuery(self):
        return self._query

    @enableQuery.setter
    def enableQuery(self, enable):
        self._query = bool(enable)

    @property
    def enableEdit(self):
        return self._edit

    @enableEdit.setter
    def enableEdit(self, enable):
        self._edit = bool(enable)

    @property
    def minObjects(self):
        return self._minimum

    @minObjects.setter
    def minObjects(self, minimum):
        self._minimum = minimum

    @property
    def maxObjects(self):
        return self._maximum

    @maxObjects.setter
    def maxObjects(self, maximum):
        self._maximum = maximum


class OlderMSyntax(Syntax):
    def enableQuery(self, enable=True):
        self._query = bool(enable)

    def enableEdit(self, enable=True):
        self._edit = bool(enable)

    def canQuery(self):
        return self._query

    def canEdit(self):
        return self._edit

    def setMinObjects(self, minimum):
        self._minimum = minimum

    def setMaxObjects(self, maximum):
        self._maximum = maximum

    def minObjects(self):
        return self._minimum

    def maxObjects(self):
        return self._maximum


class Parser:
    """The words of a call sorted by a syntax. A flag is asked for by either of its names."""

    _list = MArgList

    def __init__(self, syntax, arguments):
        self._syntax = syntax
        self._mode, self._uses, self._objects = _maya_host.readCall(
            syntax._description(), arguments._words)

    def _uses_of(self, flag):
        found = self._syntax._find(flag)
        if found is None:
            raise RuntimeError(_INVALID)
        return [use for use in self._uses if use[0] == found.long]

    def _use(self, flag, index):
        uses = self._uses_of(flag)
        if not 0 <= index < len(uses):
            raise RuntimeError(_FAILURE)
        return uses[index]

    def _flag_argument(self, flag, index, convert):
        arguments = self._use(flag, 0)[1]
        if not 0 <= index < len(arguments):
            raise RuntimeError(_FAILURE)
        return convert(arguments[index])

    def _object(self, index, convert):
        if not 0 <= index < len(self._objects):
            raise RuntimeError(_FAILURE)
        try:
            return convert(self._objects[index])
        except ValueError:
            raise RuntimeError(_FAILURE) from None

    def isFlagSet(self, flag):
        return bool(self._uses_of(flag))

    def numberOfFlagUses(self, flag):
        return len(self._uses_of(flag))

    def flagArgumentBool(self, flag, index):
        return self._flag_argument(flag, index, bool)

    def flagArgumentInt(self, flag, index):
        return self._flag_argument(flag, index, int)

    def flagArgumentDouble(self, flag, index):
        return self._flag_argument(flag, index, float)

    flagArgumentFloat = flagArgumentDouble

    def flagArgumentString(self, flag, index):
        return self._flag_argument(flag, index, str)

    def getFlagArgumentList(self, flag, index):
        return self._list._of([(value, str(value), False) for value in self._use(flag, index)[1]])

    def getFlagArgumentPosition(self, flag, index):
        return self._use(flag, index)[2]

    def commandArgumentBool(self, index):
        return self._object(index, bool)

    def commandArgumentInt(self, index):
        return self._object(index, int)

    def commandArgumentDouble(self, index):
        return self._object(index, float)

    commandArgumentFloat = commandArgumentDouble

    def commandArgumentString(self, index):
        return self._object(index, str)

    def _texts(self):
        return [str(value) for value in self._objects] or self._selection()

    def _selection(self):
        if not self._syntax._use_selection:
            return []
        from maya import cmds
        return cmds.ls(selection=True, long=True)


class MArgParser(Parser):
    @property
    def isQuery(self):
        return self._mode == _QUERY

    @property
    def isEdit(self):
        return self._mode == _EDIT

    @property
    def numberOfFlagsUsed(self):
        return len({use[0] for use in self._uses})

    def getObjectStrings(self):
        return tuple(self._texts())

    def flagArgumentMTime(self, flag, index):
        return MTime(self.flagArgumentDouble(flag, index), MTime.uiUnit())

    def flagArgumentMAngle(self, flag, index):
        return MAngle(self.flagArgumentDouble(flag, index), MAngle.uiUnit())

    def flagArgumentMDistance(self, flag, index):
        return MDistance(self.flagArgumentDouble(flag, index), MDistance.uiUnit())


class MArgDatabase(MArgParser):
    """An MArgParser that knows the scene's objects too."""

    def getObjectList(self):
        from maya._nodes import MSelectionList
        objects = MSelectionList()
        for name in self._texts():
            objects.add(name)
        return objects


class OlderMArgParser(Parser):
    _list = OlderMArgList

    def isQuery(self):
        return self._mode == _QUERY

    def isEdit(self):
        return self._mode == _EDIT

    def numberOfFlagsUsed(self):
        return len({use[0] for use in self._uses})

    def getFlagArgumentList(self, flag, index, arguments):
        arguments._words = super().getFlagArgumentList(flag, index)._words

    def getFlagArgumentPosition(self, flag, index, position):
        position.set(super().getFlagArgumentPosition(flag, index))

    def getObjects(self, objects):
        """Adds the objects to an MSelectionList, or their names to any list."""
        names = self._texts()
        if isinstance(objects, list):
            objects += names
        else:
            for name in names:
                (getattr(objects, "add", None) or objects.append)(name)


class OlderMArgDatabase(OlderMArgParser):
    pass

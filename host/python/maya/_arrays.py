"""The API's arrays: lists of one kind of value."""

from maya._matrices import MMatrix
from maya._tuples import MColor, MFloatPoint, MFloatVector, MPoint, MVector, single


class Array:
    """What both forms of the API share."""

    _element = None

    def __init__(self, source=(), value=None):
        if isinstance(source, int):
            convert = self._convert
            self._values = [convert(self._element() if value is None else value)
                            for _ in range(source)]
        else:
            self._values = [self._convert(element) for element in source]

    @classmethod
    def _convert(cls, value):
        if cls._element is str and not isinstance(value, str):
            raise TypeError("%s holds texts, not %s" % (cls.__name__, type(value).__name__))
        return cls._element(value)

    def _position(self, index):
        if not -len(self._values) <= index < len(self._values):
            raise IndexError("array index out of range")
        return index

    def __len__(self):
        return len(self._values)

    def __iter__(self):
        return iter(self._values)

    def __contains__(self, value):
        return value in self._values

    def __getitem__(self, index):
        if isinstance(index, slice):
            return type(self)(self._values[index])
        return self._values[self._position(index)]

    def __setitem__(self, index, value):
        if isinstance(index, slice):
            self._values[index] = [self._convert(element) for element in value]
        else:
            self._values[self._position(index)] = self._convert(value)

    def __delitem__(self, index):
        del self._values[index]

    def __eq__(self, other):
        return isinstance(other, (Array, list, tuple)) and self._values == list(other)

    __hash__ = None

    def __add__(self, other):
        return type(self)(self._values + list(other))

    def __iadd__(self, other):
        self._values += [self._convert(element) for element in other]
        return self

    def __str__(self):
        return str(self._values)

    def __repr__(self):
        return "maya.api.OpenMaya.%s(%s)" % (type(self).__name__, self._values)

    def append(self, value):
        self._values.append(self._convert(value))

    def insert(self, value, index):
        self._values.insert(index, self._convert(value))

    def remove(self, index):
        del self._values[self._position(index)]

    def clear(self):
        self._values.clear()

    def copy(self, source):
        self._values = [self._convert(value) for value in source]
        return self

    def setLength(self, length):
        missing = length - len(self._values)
        self._values = self._values[:length] + [self._element() for _ in range(missing)]

    sizeIncrement = 1


class OlderArray(Array):
    """The older form counts by a function and sets by another."""

    def length(self):
        return len(self._values)

    def set(self, value, index):
        self[index] = value

    def assign(self, source):
        return self.copy(source)


# A row is the class's name and what it holds.
_KINDS = (
    ("MIntArray", int),
    ("MInt64Array", int),
    ("MUintArray", int),
    ("MUint64Array", int),
    ("MFloatArray", single),
    ("MDoubleArray", float),
    ("MStringArray", str),
    ("MVectorArray", MVector),
    ("MFloatVectorArray", MFloatVector),
    ("MPointArray", MPoint),
    ("MFloatPointArray", MFloatPoint),
    ("MColorArray", MColor),
    ("MMatrixArray", MMatrix),
    ("MCallbackIdArray", int),
)


def _single_or_zero(value=0.0):
    return single(value)


def make(base, **objects):
    """The classes of one form by their names; `objects` are those of the scene's objects."""
    kinds = {}
    for name, element in (*_KINDS, *objects.items()):
        element = _single_or_zero if element is single else element
        kinds[name] = type(name, (base,), {
            "_element": staticmethod(element) if element is _single_or_zero else element,
            "__doc__": "An array of the API: %s." % name})
    return kinds

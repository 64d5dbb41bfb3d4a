"""MScriptUtil: how scripts of the older form hand out places for results."""


class Pointer:
    """A place that holds one or more values."""

    def __init__(self, values, convert):
        self._convert = convert
        self._values = [convert(value) for value in values]

    def get(self, index=0):
        return self._values[index]

    def set(self, value, index=0):
        self._values[index] = self._convert(value)

    def setAll(self, values):
        for index, value in enumerate(values):
            self.set(value, index)

    def __len__(self):
        return len(self._values)

    def __iter__(self):
        return iter(self._values)


class RowPointer(Pointer):
    """A row of a matrix: what is set there is set in the matrix."""

    def __init__(self, values):
        self._convert = float
        self._values = values


def _character(value):
    return value if isinstance(value, str) else chr(value)


# What the names of the functions call a type, and what makes a value of it.
_TYPES = {"Bool": bool, "Char": _character, "Uchar": int, "Short": int, "Int": int, "Uint": int,
          "Float": float, "Double": float}


class MScriptUtil:
    """Makes places for numbers (createFrom..., as...Ptr) and reads and writes them."""

    def __init__(self):
        self._values = []

    def createFromDouble(self, *values):
        self._values = [float(value) for value in values]

    def createFromInt(self, *values):
        self._values = [int(value) for value in values]

    def createFromList(self, values, count):
        if len(values) < count:
            raise ValueError("The list holds %d values, not %d" % (len(values), count))
        self._values = list(values[:count])

    @staticmethod
    def createMatrixFromList(values, matrix):
        if len(values) != 16:
            raise ValueError("A matrix needs 16 numbers, got %d" % len(values))
        for index, value in enumerate(values):
            matrix.setElement(index // 4, index % 4, value)
        return True

    @staticmethod
    def createIntArrayFromList(values, array):
        array.copy(values)

    @staticmethod
    def createFloatArrayFromList(values, array):
        array.copy(values)


def _add_type(name, convert):
    def as_pointer(self):
        pointer = Pointer(self._values or [0], convert)
        self._values = pointer
        return pointer

    def as_value(self):
        return convert(list(self._values)[0] if len(self._values) else 0)

    def get(pointer):
        return convert(pointer.get())

    def set_value(pointer, value):
        pointer.set(value)

    def get_item(pointer, index):
        return convert(pointer.get(index))

    def set_item(pointer, index, value):
        pointer.set(value, index)

    for function_name, function in (("as%s" % name, as_value), ("as%sPtr" % name, as_pointer)):
        setattr(MScriptUtil, function_name, function)
    for function_name, function in (
            ("get%s" % name, get), ("set%s" % name, set_value),
            ("get%sArrayItem" % name, get_item), ("set%sArray" % name, set_item)):
        setattr(MScriptUtil, function_name, staticmethod(function))


for _name, _convert in _TYPES.items():
    _add_type(_name, _convert)

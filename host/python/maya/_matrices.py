"""Matrices of the API: four rows of four numbers, for vectors that are rows."""

from maya._tuples import TOLERANCE, close, single

_SIZE = range(4)


def _determinant(rows):
    """Of a square of any size, along its first row."""
    if len(rows) == 1:
        return rows[0][0]
    return sum((-1) ** column * rows[0][column] * _determinant(_minor(rows, 0, column))
               for column in range(len(rows)))


def _minor(rows, row, column):
    return [line[:column] + line[column + 1:] for i, line in enumerate(rows) if i != row]


class MMatrix:
    """A value. Elements are read and written in one row of 16."""

    kTolerance = TOLERANCE
    _number = float

    def __init__(self, values=None):
        if values is None:
            values = [float(row == column) for row in _SIZE for column in _SIZE]
        elif isinstance(values, MMatrix):
            values = values._flat()
        values = list(values)
        if len(values) == 4:
            values = [value for row in values for value in row]
        if len(values) != 16:
            raise ValueError("A matrix needs 16 numbers, got %d" % len(values))
        number = type(self)._number
        self._rows = [[number(value) for value in values[row * 4:row * 4 + 4]] for row in _SIZE]

    def _flat(self):
        return [value for row in self._rows for value in row]

    def _like(self, rows):
        return type(self)(value for row in rows for value in row)

    def __len__(self):
        return 16

    def __iter__(self):
        return iter(self._flat())

    def __getitem__(self, index):
        return self._flat()[index]

    def __setitem__(self, index, value):
        self._rows[range(16)[index] // 4][range(16)[index] % 4] = type(self)._number(value)

    def __call__(self, row, column):
        return self.getElement(row, column)

    def getElement(self, row, column):
        return self._rows[row][column]

    def setElement(self, row, column, value):
        self._rows[row][column] = type(self)._number(value)

    def __eq__(self, other):
        return isinstance(other, MMatrix) and self._rows == other._rows

    __hash__ = None

    def __str__(self):
        return "(%s)" % ", ".join(
            "(%s)" % ", ".join("%g" % value for value in row) for row in self._rows)

    def __repr__(self):
        return "maya.api.OpenMaya.%s(%s)" % (type(self).__name__, self)

    def __add__(self, other):
        return type(self)(a + b for a, b in zip(self._flat(), other._flat()))

    def __sub__(self, other):
        return type(self)(a - b for a, b in zip(self._flat(), other._flat()))

    def __mul__(self, other):
        if isinstance(other, (int, float)):
            return type(self)(value * other for value in self._flat())
        if not isinstance(other, MMatrix):
            return NotImplemented
        columns = list(zip(*other._rows))
        return self._like([sum(a * b for a, b in zip(row, column)) for column in columns]
                          for row in self._rows)

    def __rmul__(self, number):
        return self * number if isinstance(number, (int, float)) else NotImplemented

    def transpose(self):
        return self._like(zip(*self._rows))

    def det4x4(self):
        return _determinant(self._rows)

    def det3x3(self):
        return _determinant([row[:3] for row in self._rows[:3]])

    def adjoint(self):
        return self._like([(-1) ** (row + column) * _determinant(_minor(self._rows, column, row))
                           for column in _SIZE] for row in _SIZE)

    def inverse(self):
        """The matrix itself when it has none, as isSingular tells."""
        determinant = self.det4x4()
        if determinant == 0.0:
            return type(self)(self)
        return self.adjoint() * (1.0 / determinant)

    def isSingular(self):
        return abs(self.det4x4()) <= TOLERANCE

    def homogenize(self):
        return self._like([value / (self._rows[3][3] or 1.0) for value in row]
                          for row in self._rows)

    def isEquivalent(self, other, tolerance=TOLERANCE):
        return close(self._flat(), other._flat(), tolerance)

    def setToIdentity(self):
        self._rows = type(self)()._rows
        return self

    def setToProduct(self, left, right):
        self._rows = (left * right)._rows
        return self


class MFloatMatrix(MMatrix):
    _number = single


for _kind in (MMatrix, MFloatMatrix):
    _kind.identity = _kind.kIdentity = _kind()

"""Vectors, points and colours of the API: values that both of its forms share.

Vectors are rows: a vector times a matrix is the vector moved by it.
"""

import math
import struct

TOLERANCE = 1.0e-10


def single(value):
    """The number as four bytes hold it."""
    return struct.unpack("f", struct.pack("f", value))[0]


def close(left, right, tolerance):
    return all(abs(a - b) <= tolerance for a, b in zip(left, right))


class Components:
    """Numbers with names. Setting one converts it, so that no text gets in."""

    _names = ()
    _defaults = ()
    _number = float

    def __init__(self, *values):
        if len(values) == 1 and not isinstance(values[0], (int, float)):
            values = tuple(values[0])
        if len(values) > len(self._names):
            raise TypeError("%s takes at most %d numbers, got %d"
                            % (type(self).__name__, len(self._names), len(values)))
        for name, value in zip(self._names, values + self._defaults[len(values):]):
            setattr(self, name, value)

    def __setattr__(self, name, value):
        if name not in self._names:
            raise AttributeError("%r object has no attribute %r" % (type(self).__name__, name))
        object.__setattr__(self, name, type(self)._number(value))

    def __len__(self):
        return len(self._names)

    def __iter__(self):
        return iter([getattr(self, name) for name in self._names])

    def __getitem__(self, index):
        return list(self)[index]

    def __setitem__(self, index, value):
        setattr(self, self._names[index], value)

    def __call__(self, index):
        return self[index]

    def __eq__(self, other):
        return isinstance(other, Components) and list(self) == list(other)

    __hash__ = None

    def __str__(self):
        return "(%s)" % ", ".join("%g" % value for value in self)

    def __repr__(self):
        return "maya.api.OpenMaya.%s%s" % (type(self).__name__, self)

    def isEquivalent(self, other, tolerance=TOLERANCE):
        return close(self, other, tolerance)


class MVector(Components):
    """A direction with a length."""

    kXaxis, kYaxis, kZaxis, kWaxis = range(4)
    kTolerance = TOLERANCE

    _names = ("x", "y", "z")
    _defaults = (0.0, 0.0, 0.0)

    def __init__(self, *values):
        if len(values) == 1 and isinstance(values[0], (MVector, MPoint)):
            values = tuple(values[0])[:3]
        super().__init__(*values)

    def _like(self, values):
        return type(self)(*values)

    def __add__(self, other):
        if not isinstance(other, MVector):
            return NotImplemented
        return self._like(a + b for a, b in zip(self, other))

    def __sub__(self, other):
        if not isinstance(other, MVector):
            return NotImplemented
        return self._like(a - b for a, b in zip(self, other))

    def __neg__(self):
        return self._like(-value for value in self)

    def __mul__(self, other):
        """The dot product of two vectors; else scaled by a number or moved by a matrix."""
        if isinstance(other, MVector):
            return sum(a * b for a, b in zip(self, other))
        if isinstance(other, (int, float)):
            return self._like(value * other for value in self)
        rows = getattr(other, "_rows", None)
        if rows is None:
            return NotImplemented
        return self._like(sum(value * rows[i][column] for i, value in enumerate(self))
                          for column in range(3))

    def __rmul__(self, number):
        if not isinstance(number, (int, float)):
            return NotImplemented
        return self * number

    def __truediv__(self, number):
        return self._like(value / number for value in self)

    def __xor__(self, other):
        return self._like((self.y * other.z - self.z * other.y,
                           self.z * other.x - self.x * other.z,
                           self.x * other.y - self.y * other.x))

    def length(self):
        return math.sqrt(sum(value * value for value in self))

    def normal(self):
        length = self.length()
        return self / length if length > 0 else self._like(self)

    def normalize(self):
        self.x, self.y, self.z = self.normal()
        return self

    def angle(self, other):
        """In radians."""
        lengths = self.length() * other.length()
        return math.acos(max(-1.0, min(1.0, self * other / lengths))) if lengths > 0 else 0.0

    def isParallel(self, other, tolerance=TOLERANCE):
        return 1.0 - abs(self.normal() * other.normal()) <= tolerance

    def rotateTo(self, other):
        from maya._rotations import MQuaternion
        return MQuaternion(self, other)

    def rotateBy(self, rotation, angle=None):
        """By a quaternion or euler rotation, or about an axis number by an angle."""
        from maya._rotations import MQuaternion
        if angle is not None:
            axis = MVector()
            axis[rotation] = 1.0
            rotation = MQuaternion(angle, axis)
        return self * rotation.asMatrix()

    def transformAsNormal(self, matrix):
        return self * matrix.inverse().transpose()


class MPoint(Components):
    """A place; `w` is 1 unless it was projected."""

    kTolerance = TOLERANCE

    _names = ("x", "y", "z", "w")
    _defaults = (0.0, 0.0, 0.0, 1.0)

    def __add__(self, vector):
        if not isinstance(vector, MVector):
            return NotImplemented
        return type(self)(self.x + vector.x, self.y + vector.y, self.z + vector.z, self.w)

    def __sub__(self, other):
        """The way from another point, or the point moved back by a vector."""
        if isinstance(other, MVector):
            return self + -other
        if not isinstance(other, MPoint):
            return NotImplemented
        return self._vector(self.x - other.x, self.y - other.y, self.z - other.z)

    def __mul__(self, other):
        if isinstance(other, (int, float)):
            return type(self)(self.x * other, self.y * other, self.z * other, self.w)
        rows = getattr(other, "_rows", None)
        if rows is None:
            return NotImplemented
        return type(self)(*(sum(value * rows[i][column] for i, value in enumerate(self))
                            for column in range(4)))

    __rmul__ = __mul__

    def __truediv__(self, number):
        return self * (1.0 / number)

    def distanceTo(self, other):
        return (self - other).length()

    def cartesianize(self):
        """Makes `w` 1 and keeps the place."""
        if self.w not in (0.0, 1.0):
            self.x, self.y, self.z, self.w = (value / self.w for value in self)
        return self

    def rationalize(self):
        if self.w not in (0.0, 1.0):
            self.x, self.y, self.z = self.x / self.w, self.y / self.w, self.z / self.w
        return self

    def homogenize(self):
        self.x, self.y, self.z = self.x * self.w, self.y * self.w, self.z * self.w
        return self


class MFloatVector(MVector):
    _number = single


class MFloatPoint(MPoint):
    _number = single


MPoint._vector = MVector
MFloatPoint._vector = MFloatVector


class MColor(Components):
    """Red, green, blue and opacity, from 0 to 1 as a rule."""

    kRGB, kHSV, kCMY, kCMYK = range(4)

    _names = ("r", "g", "b", "a")
    _defaults = (0.0, 0.0, 0.0, 1.0)
    _number = single

    def _with(self, values):
        return type(self)(*values, self.a)

    def __add__(self, other):
        return self._with(a + b for a, b in zip(list(self)[:3], other))

    def __sub__(self, other):
        return self._with(a - b for a, b in zip(list(self)[:3], other))

    def __mul__(self, other):
        if isinstance(other, MColor):
            return self._with(a * b for a, b in zip(list(self)[:3], other))
        return self._with(value * other for value in list(self)[:3])

    __rmul__ = __mul__

    def __truediv__(self, number):
        return self * (1.0 / number)


def _add_axes():
    for letter, numbers in (("x", (1, 0, 0)), ("y", (0, 1, 0)), ("z", (0, 0, 1))):
        negative = tuple(-number for number in numbers)
        for kind in (MVector, MFloatVector):
            setattr(kind, letter + "Axis", kind(numbers))
            setattr(kind, letter + "NegAxis", kind(negative))
            setattr(kind, "k%saxisVector" % letter.upper(), kind(numbers))
            setattr(kind, "k%snegAxisVector" % letter.upper(), kind(negative))
    for kind in (MVector, MFloatVector):
        kind.zero = kind.kZeroVector = kind()
        kind.one = kind.kOneVector = kind(1, 1, 1)
    for kind in (MPoint, MFloatPoint):
        kind.origin = kind.kOrigin = kind()


_add_axes()

"""Rotations and transformations of the API. Angles are in radians."""

import math

from maya._matrices import MMatrix
from maya._tuples import TOLERANCE, Components, MPoint, MVector, close

# The three axes in the order in which they turn, by MEulerRotation.k...
_ORDERS = ("xyz", "yzx", "zxy", "xzy", "yxz", "zyx")

# What a pitch of a quarter turn may differ by before the other two angles are one.
_GIMBAL = 1.0 - 1.0e-12


def _turn(axis, angle):
    """The rotation about one axis, by its number, as rows."""
    first, second = (axis + 1) % 3, (axis + 2) % 3
    matrix = MMatrix()
    matrix.setElement(first, first, math.cos(angle))
    matrix.setElement(first, second, math.sin(angle))
    matrix.setElement(second, first, -math.sin(angle))
    matrix.setElement(second, second, math.cos(angle))
    return matrix


def _angles(matrix, order):
    """The angles about x, y and z that make the matrix when they turn in the order."""
    first, second, third = ("xyz".index(letter) for letter in _ORDERS[order])
    sign = 1.0 if (second - first) % 3 == 1 else -1.0
    rows = matrix._rows
    sine = max(-1.0, min(1.0, -sign * rows[first][third]))
    angles = [0.0, 0.0, 0.0]
    angles[second] = math.asin(sine)
    if abs(sine) < _GIMBAL:
        angles[first] = math.atan2(sign * rows[second][third], rows[third][third])
        angles[third] = math.atan2(sign * rows[first][second], rows[first][first])
    else:
        angles[first] = math.atan2(-sign * rows[third][second], rows[second][second])
    return angles


class MEulerRotation(Components):
    """Three angles and the order in which they turn."""

    kXYZ, kYZX, kZXY, kXZY, kYXZ, kZYX = range(6)
    kTolerance = TOLERANCE

    _names = ("x", "y", "z", "order")
    _defaults = (0.0, 0.0, 0.0, 0)
    _matrix = MMatrix

    def __init__(self, *values, order=None):
        if values and not isinstance(values[0], (int, float)):
            values = tuple(values[0])[:4] + values[1:]
        if order is not None:
            values = values[:3] + (0.0,) * (3 - len(values)) + (order,)
        super().__init__(*values)

    def __setattr__(self, name, value):
        if name != "order":
            super().__setattr__(name, value)
        elif value not in range(len(_ORDERS)):
            raise ValueError("%r is no rotation order" % (value,))
        else:
            object.__setattr__(self, name, int(value))

    def __len__(self):
        return 3

    def __getitem__(self, index):
        return list(self)[:3][index]

    def __str__(self):
        return "(%g, %g, %g, k%s)" % (self.x, self.y, self.z, _ORDERS[self.order].upper())

    def _like(self, angles):
        return type(self)(*angles, self.order)

    def __add__(self, other):
        return self._like(a + b for a, b in zip(self[:], other[:]))

    def __sub__(self, other):
        return self._like(a - b for a, b in zip(self[:], other[:]))

    def __neg__(self):
        return self._like(-angle for angle in self[:])

    def __mul__(self, other):
        """Scaled by a number, or followed by another rotation."""
        if isinstance(other, (int, float)):
            return self._like(angle * other for angle in self[:])
        return type(self).decompose(self.asMatrix() * other.asMatrix(), self.order)

    @classmethod
    def decompose(cls, matrix, order):
        return cls(*_angles(MTransformationMatrix(matrix)._rotation, order), order)

    def asMatrix(self):
        matrix = MMatrix()
        for letter in _ORDERS[self.order]:
            matrix = matrix * _turn("xyz".index(letter), getattr(self, letter))
        return self._matrix(matrix)

    def asQuaternion(self):
        quaternion = MQuaternion()
        for letter in _ORDERS[self.order]:
            axis = MVector()
            setattr(axis, letter, 1.0)
            quaternion = quaternion * MQuaternion(getattr(self, letter), axis)
        return quaternion

    def asVector(self):
        return MVector(self.x, self.y, self.z)

    def reorder(self, order):
        return type(self).decompose(self.asMatrix(), order)

    def reorderIt(self, order):
        self.x, self.y, self.z, self.order = self.reorder(order)
        return self

    def inverse(self):
        return type(self).decompose(self.asMatrix().transpose(), self.order)

    def incrementalRotateBy(self, axis, angle):
        turned = self.asMatrix() * MQuaternion(angle, axis).asMatrix()
        self.x, self.y, self.z, _ = type(self).decompose(turned, self.order)
        return self

    def isZero(self, tolerance=TOLERANCE):
        return close(self[:], (0.0, 0.0, 0.0), tolerance)

    def isEquivalent(self, other, tolerance=TOLERANCE):
        return self.order == other.order and close(self[:], other[:], tolerance)


class MQuaternion(Components):
    """A rotation as four numbers. A product turns by its left side first."""

    kTolerance = TOLERANCE

    _names = ("x", "y", "z", "w")
    _defaults = (0.0, 0.0, 0.0, 1.0)
    _matrix = MMatrix

    def __init__(self, *values):
        if len(values) == 2 and isinstance(values[0], MVector):
            values = self._between(*values)
        elif len(values) == 2 and isinstance(values[1], MVector):
            values = self._about(values[1], values[0])
        elif len(values) == 2 and isinstance(values[0], (list, tuple)):
            values = self._about(MVector(values[0]), values[1])
        super().__init__(*values)

    @staticmethod
    def _about(axis, angle):
        sine = math.sin(angle / 2.0)
        return tuple(value * sine for value in axis.normal()) + (math.cos(angle / 2.0),)

    @staticmethod
    def _between(start, end):
        start, end = start.normal(), end.normal()
        if start * end < -1.0 + TOLERANCE:
            across = start ^ (MVector(1, 0, 0) if abs(start.x) < 0.9 else MVector(0, 1, 0))
            return MQuaternion._about(across, math.pi)
        return tuple(MQuaternion(*(start ^ end), 1.0 + start * end).normal())

    def __mul__(self, other):
        if isinstance(other, (int, float)):
            return type(self)(*(value * other for value in self))
        a, b = other, self
        return type(self)(a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y,
                          a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
                          a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w,
                          a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z)

    def __rmul__(self, number):
        return self * number

    def __add__(self, other):
        return type(self)(*(a + b for a, b in zip(self, other)))

    def __sub__(self, other):
        return type(self)(*(a - b for a, b in zip(self, other)))

    def __neg__(self):
        return self * -1

    def _set(self, values):
        self.x, self.y, self.z, self.w = values
        return self

    def normal(self):
        length = math.sqrt(sum(value * value for value in self))
        return type(self)(*(value / length for value in self)) if length else type(self)(*self)

    def normalizeIt(self):
        return self._set(self.normal())

    def conjugate(self):
        return type(self)(-self.x, -self.y, -self.z, self.w)

    def conjugateIt(self):
        return self._set(self.conjugate())

    def inverse(self):
        square = sum(value * value for value in self) or 1.0
        return self.conjugate() * (1.0 / square)

    def invertIt(self):
        return self._set(self.inverse())

    def negateIt(self):
        return self._set(-self)

    def asMatrix(self):
        x, y, z, w = self.normal()
        return self._matrix((
            1 - 2 * (y * y + z * z), 2 * (x * y + z * w), 2 * (x * z - y * w), 0,
            2 * (x * y - z * w), 1 - 2 * (x * x + z * z), 2 * (y * z + x * w), 0,
            2 * (x * z + y * w), 2 * (y * z - x * w), 1 - 2 * (x * x + y * y), 0,
            0, 0, 0, 1))

    def asEulerRotation(self):
        return MEulerRotation.decompose(self.asMatrix(), MEulerRotation.kXYZ)

    def asAxisAngle(self):
        """The axis and the angle about it."""
        x, y, z, w = self.normal()
        axis = MVector(x, y, z)
        angle = 2.0 * math.atan2(axis.length(), w)
        return (axis.normal() if axis.length() > 0 else MVector(0, 0, 1)), angle

    def setToXAxis(self, angle):
        return self._set(self._about(MVector(1, 0, 0), angle))

    def setToYAxis(self, angle):
        return self._set(self._about(MVector(0, 1, 0), angle))

    def setToZAxis(self, angle):
        return self._set(self._about(MVector(0, 0, 1), angle))

    @classmethod
    def slerp(cls, start, end, amount):
        """On the shorter way from one rotation to the other."""
        dot = sum(a * b for a, b in zip(start, end))
        if dot < 0:
            end, dot = -end, -dot
        angle = math.acos(min(1.0, dot))
        if angle < TOLERANCE:
            return cls(*start)
        left = math.sin((1.0 - amount) * angle) / math.sin(angle)
        right = math.sin(amount * angle) / math.sin(angle)
        return cls(*(a * left + b * right for a, b in zip(start, end)))


MEulerRotation.identity = MEulerRotation.kIdentity = MEulerRotation()
MQuaternion.identity = MQuaternion.kIdentity = MQuaternion()


class MTransformationMatrix:
    """Scale, shear, rotation and translation, in this order. Pivots are not kept."""

    kInvalid, kXYZ, kYZX, kZXY, kXZY, kYXZ, kZYX = range(7)

    _matrix = MMatrix

    def __init__(self, source=None):
        if isinstance(source, MTransformationMatrix):
            source = source.asMatrix()
        self._take(MMatrix(source))
        self._order = MEulerRotation.kXYZ

    def _take(self, matrix):
        """Splits into parts; what makes a mirror of it is in the scale."""
        rows = [MVector(row[:3]) for row in matrix._rows[:3]]
        self._translation = MVector(matrix._rows[3][:3])
        x = rows[0].normal()
        xy = x * rows[1]
        y = rows[1] - x * xy
        scaleY, y = y.length(), y.normal()
        xz, yz = x * rows[2], y * rows[2]
        z = rows[2] - x * xz - y * yz
        scaleZ, z = z.length(), z.normal()
        self._scale = [rows[0].length(), scaleY, scaleZ]
        self._shear = [part / size if size else 0.0
                       for part, size in ((xy, scaleY), (xz, scaleZ), (yz, scaleZ))]
        if (x ^ y) * z < 0:
            self._scale = [-size for size in self._scale]
            x, y, z = -x, -y, -z
        self._rotation = MMatrix([*x, 0, *y, 0, *z, 0, 0, 0, 0, 1])

    def asScaleMatrix(self):
        x, y, z = self._scale
        xy, xz, yz = self._shear
        return self._matrix([x, 0, 0, 0, xy * y, y, 0, 0, xz * z, yz * z, z, 0, 0, 0, 0, 1])

    def asRotateMatrix(self):
        return self._matrix(self._rotation)

    def asMatrix(self):
        matrix = MMatrix(MMatrix(self.asScaleMatrix()) * self._rotation)
        for column, value in enumerate(self._translation):
            matrix.setElement(3, column, value)
        return self._matrix(matrix)

    def asMatrixInverse(self):
        return self.asMatrix().inverse()

    def translation(self, space=None):
        return MVector(self._translation)

    def setTranslation(self, vector, space=None):
        self._translation = MVector(vector)
        return self

    def translateBy(self, vector, space=None):
        self._translation = self._translation + vector
        return self

    def _euler(self):
        return MEulerRotation.decompose(self._rotation, self._order)

    def rotation(self, asQuaternion=False):
        return self._euler().asQuaternion() if asQuaternion else self._euler()

    def rotationOrder(self):
        return self._order + 1

    def setRotation(self, rotation):
        self._rotation = MMatrix(rotation.asMatrix())
        self._order = getattr(rotation, "order", self._order)
        return self

    def rotateBy(self, rotation, space=None):
        self._rotation = self._rotation * MMatrix(rotation.asMatrix())
        return self

    def reorderRotation(self, order):
        self._order = order - 1
        return self

    def scale(self, space=None):
        return list(self._scale)

    def setScale(self, scale, space=None):
        self._scale = [float(value) for value in scale]
        return self

    def scaleBy(self, scale, space=None):
        self._scale = [a * b for a, b in zip(self._scale, scale)]
        return self

    def shear(self, space=None):
        return list(self._shear)

    def setShear(self, shear, space=None):
        self._shear = [float(value) for value in shear]
        return self

    def isEquivalent(self, other, tolerance=TOLERANCE):
        return self.asMatrix().isEquivalent(other.asMatrix(), tolerance)


MTransformationMatrix.identity = MTransformationMatrix.kIdentity = MTransformationMatrix()

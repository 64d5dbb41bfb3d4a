"""Times, angles and lengths of the API, with the units that they are said in.

The classes here are those of the newer form; the older form has value() and unit() as functions.
"""

import math

from maya import cmds


def _interface_unit(flag, names, default):
    """What the scripts' own units are set to."""
    query = getattr(cmds, "currentUnit", None)
    return names.get(query(query=True, **{flag: True}), default) if query else default


class _Measure:
    """A number in a unit. Subclasses say how many base units each unit has."""

    kInvalid = 0
    _sizes = {}
    _default = 0

    def __init__(self, value=0.0, unit=None):
        if isinstance(value, _Measure):
            value, unit = value._value, value._unit
        self._unit = type(self)._checked(self._default if unit is None else unit)
        self._value = float(value)

    @classmethod
    def _checked(cls, unit):
        if unit not in cls._sizes:
            raise ValueError("(kInvalidParameter): %r is no unit of %s" % (unit, cls.__name__))
        return unit

    def asUnits(self, unit):
        return self._value * self._sizes[self._unit] / self._sizes[self._checked(unit)]

    def _base(self):
        return self._value * self._sizes[self._unit]

    def _same(self, other):
        return other.asUnits(self._unit) if isinstance(other, _Measure) else float(other)

    def _like(self, value):
        return type(self)(value, self._unit)

    def __add__(self, other):
        return self._like(self._value + self._same(other))

    def __sub__(self, other):
        return self._like(self._value - self._same(other))

    def __mul__(self, number):
        return self._like(self._value * number)

    __rmul__ = __mul__

    def __truediv__(self, number):
        return self._like(self._value / number)

    def __eq__(self, other):
        return isinstance(other, _Measure) and math.isclose(
            self._base(), other._base(), rel_tol=1e-12, abs_tol=1e-12)

    def __lt__(self, other):
        return self != other and self._base() < other._base()

    def __gt__(self, other):
        return other < self

    def __le__(self, other):
        return not other < self

    def __ge__(self, other):
        return not self < other

    __hash__ = None

    def __repr__(self):
        return "maya.api.OpenMaya.%s(%g, %d)" % (type(self).__name__, self._value, self._unit)


class _Values:
    """value and unit as the newer form has them."""

    @property
    def value(self):
        return self._value

    @value.setter
    def value(self, value):
        self._value = float(value)

    @property
    def unit(self):
        return self._unit

    @unit.setter
    def unit(self, unit):
        self._value, self._unit = self.asUnits(unit), unit


class _Functions:
    """value and unit as the older form has them."""

    def value(self):
        return self._value

    def unit(self):
        return self._unit

    def setValue(self, value):
        self._value = float(value)

    def setUnit(self, unit):
        self._value, self._unit = self.asUnits(unit), unit


class _Time(_Measure):
    """The base unit is the second."""

    (kHours, kMinutes, kSeconds, kMilliseconds, kGames, kFilm, kPALFrame, kNTSCFrame, kShowScan,
     kPALField, kNTSCField) = range(1, 12)

    _sizes = {kHours: 3600.0, kMinutes: 60.0, kSeconds: 1.0, kMilliseconds: 0.001}
    _sizes.update((unit, 1.0 / rate) for unit, rate in (
        (kGames, 15), (kFilm, 24), (kPALFrame, 25), (kNTSCFrame, 30), (kShowScan, 48),
        (kPALField, 50), (kNTSCField, 60)))
    _default = kFilm

    @classmethod
    def uiUnit(cls):
        return _interface_unit("time", {
            "hour": cls.kHours, "min": cls.kMinutes, "sec": cls.kSeconds,
            "millisec": cls.kMilliseconds, "game": cls.kGames, "film": cls.kFilm,
            "pal": cls.kPALFrame, "ntsc": cls.kNTSCFrame, "show": cls.kShowScan,
            "palf": cls.kPALField, "ntscf": cls.kNTSCField}, cls.kFilm)


class _Angle(_Measure):
    """The base unit is the radian."""

    kRadians, kDegrees, kAngMinutes, kAngSeconds = range(1, 5)

    _sizes = {kRadians: 1.0, kDegrees: math.pi / 180, kAngMinutes: math.pi / 180 / 60,
              kAngSeconds: math.pi / 180 / 3600}
    _default = kRadians

    def asRadians(self):
        return self.asUnits(self.kRadians)

    def asDegrees(self):
        return self.asUnits(self.kDegrees)

    def asAngMinutes(self):
        return self.asUnits(self.kAngMinutes)

    def asAngSeconds(self):
        return self.asUnits(self.kAngSeconds)

    @classmethod
    def internalUnit(cls):
        return cls.kRadians

    @classmethod
    def uiUnit(cls):
        return _interface_unit("angle", {"deg": cls.kDegrees, "rad": cls.kRadians}, cls.kDegrees)

    @classmethod
    def internalToUI(cls, value):
        return cls(value).asUnits(cls.uiUnit())

    @classmethod
    def uiToInternal(cls, value):
        return cls(value, cls.uiUnit()).asRadians()


class _Distance(_Measure):
    """The base unit is the centimetre."""

    (kInches, kFeet, kYards, kMiles, kMillimeters, kCentimeters, kKilometers,
     kMeters) = range(1, 9)

    _sizes = {kInches: 2.54, kFeet: 30.48, kYards: 91.44, kMiles: 160934.4, kMillimeters: 0.1,
              kCentimeters: 1.0, kKilometers: 100000.0, kMeters: 100.0}
    _default = kCentimeters

    def asInches(self):
        return self.asUnits(self.kInches)

    def asFeet(self):
        return self.asUnits(self.kFeet)

    def asYards(self):
        return self.asUnits(self.kYards)

    def asMiles(self):
        return self.asUnits(self.kMiles)

    def asMillimeters(self):
        return self.asUnits(self.kMillimeters)

    def asCentimeters(self):
        return self.asUnits(self.kCentimeters)

    def asKilometers(self):
        return self.asUnits(self.kKilometers)

    def asMeters(self):
        return self.asUnits(self.kMeters)

    @classmethod
    def internalUnit(cls):
        return cls.kCentimeters

    @classmethod
    def uiUnit(cls):
        return _interface_unit("linear", {
            "in": cls.kInches, "ft": cls.kFeet, "yd": cls.kYards, "mi": cls.kMiles,
            "mm": cls.kMillimeters, "cm": cls.kCentimeters, "km": cls.kKilometers,
            "m": cls.kMeters}, cls.kCentimeters)

    @classmethod
    def internalToUI(cls, value):
        return cls(value).asUnits(cls.uiUnit())

    @classmethod
    def uiToInternal(cls, value):
        return cls(value, cls.uiUnit()).asCentimeters()


def _make(form):
    """The three classes with value and unit in a form: _Values or _Functions."""
    return [type("M" + base.__name__[1:], (form, base), {"__doc__": base.__doc__})
            for base in (_Time, _Angle, _Distance)]


MTime, MAngle, MDistance = _make(_Values)
OlderMTime, OlderMAngle, OlderMDistance = _make(_Functions)

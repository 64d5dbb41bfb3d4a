"""MPlug: one attribute of one node, and what flows into and out of it.

Angles, lengths and times are handed over in the host's own units (radians, centimetres, seconds'
frames of film), while the scripts' commands use the units that are set.
"""

from maya import cmds
from maya._nodes import MObject, SelectionList, unique_id
from maya._units import MAngle, MDistance, MTime

_NO_OBJECT = "(kInvalidParameter): Object does not exist"


def _shortest(part):
    """Without the compounds above it, as long as no element has to be named."""
    above, dot, leaf = part.rpartition(".")
    return part if "[" in above else leaf


def _split(name):
    node, _, part = name.partition(".")
    return MObject._of(unique_id(node)), part


class Plug:
    """Known by its node and the attribute's path, such as "translate.translateX"."""

    def __init__(self, target=None, attribute=None):
        if isinstance(target, Plug):
            target, attribute = target._node, target._part
        self._node = MObject(target)
        part = attribute if isinstance(attribute, str) else getattr(attribute, "_part", "")
        self._part = _shortest(part)

    @classmethod
    def _named(cls, name):
        return cls(*_split(name))

    def _full(self):
        if self._node.isNull():
            raise RuntimeError(_NO_OBJECT)
        return "%s.%s" % (self._node._name(), self._part)

    def _leaf(self):
        """The attribute's name alone, which attributeQuery wants."""
        return self._part.split(".")[-1].split("[")[0]

    def _asked(self, **flags):
        return cmds.attributeQuery(self._leaf(), node=self._node._name(), **flags)

    def isNull_(self):
        return self._node.isNull() or not self._part

    def name(self):
        return self._full()

    __str__ = name

    def node(self):
        return MObject(self._node)

    def attribute(self):
        return MObject._of(self._node._id, self._leaf())

    def partialName(self, includeNodeName=False, includeNonMandatoryIndices=False,
                    includeInstancedIndices=False, useAlias=False, useFullAttributePath=False,
                    useLongNames=False):
        part = self._part if useFullAttributePath else self._part.split(".")[-1]
        if not useLongNames:
            part = ".".join(self._short(piece) for piece in part.split("."))
        return "%s.%s" % (self._node._name(), part) if includeNodeName else part

    def _short(self, piece):
        name, bracket, index = piece.partition("[")
        return cmds.attributeQuery(name, node=self._node._name(), shortName=True) + bracket + index

    # Values

    def _type(self):
        return cmds.getAttr(self._full(), type=True)

    def _value(self):
        return cmds.getAttr(self._full())

    def _number(self):
        value = self._value()
        if not isinstance(value, (bool, int, float)):
            raise RuntimeError("(kFailure): %s holds no number" % self._full())
        kind = self._type()
        if kind == "doubleAngle":
            return MAngle(value, MAngle.uiUnit()).asRadians()
        if kind == "doubleLinear":
            return MDistance(value, MDistance.uiUnit()).asCentimeters()
        return value

    def asDouble(self):
        return float(self._number())

    asFloat = asDouble

    def asInt(self):
        return int(self._number())

    asShort = asInt
    asChar = asInt

    def asBool(self):
        return bool(self._number())

    def asString(self):
        value = self._value()
        return value if isinstance(value, str) else ""

    def _set(self, value):
        kind = self._type()
        if kind == "doubleAngle":
            value = MAngle(value).asUnits(MAngle.uiUnit())
        elif kind == "doubleLinear":
            value = MDistance(value).asUnits(MDistance.uiUnit())
        cmds.setAttr(self._full(), value)

    def setDouble(self, value):
        self._set(float(value))

    setFloat = setDouble

    def setInt(self, value):
        self._set(int(value))

    setShort = setInt
    setChar = setInt

    def setBool(self, value):
        self._set(bool(value))

    def setString(self, value):
        cmds.setAttr(self._full(), value, type="string")

    def setMAngle(self, angle):
        self._set(angle.asRadians())

    def setMDistance(self, distance):
        self._set(distance.asCentimeters())

    def setMTime(self, time):
        cmds.setAttr(self._full(), time.asUnits(MTime.uiUnit()))

    # Elements and children

    def _sub(self, part):
        return type(self)(self._node, part)

    def elementByLogicalIndex(self, index):
        return self._sub("%s[%d]" % (self._part, index))

    def _indices(self):
        return cmds.getAttr(self._full(), multiIndices=True) or []

    def elementByPhysicalIndex(self, index):
        indices = self._indices()
        if not 0 <= index < len(indices):
            raise RuntimeError("(kInvalidParameter): Index out of range")
        return self.elementByLogicalIndex(indices[index])

    def numElements(self):
        return len(self._indices())

    def evaluateNumElements(self):
        return self.numElements()

    def _children(self):
        return self._asked(listChildren=True) or []

    def numChildren(self):
        return len(self._children())

    def child(self, index):
        """By place, or by the attribute itself."""
        if isinstance(index, MObject):
            return self._sub("%s.%s" % (self._part, index._part))
        children = self._children()
        if not 0 <= index < len(children):
            raise RuntimeError("(kInvalidParameter): Index out of range")
        return self._sub("%s.%s" % (self._part, children[index]))

    def parent(self):
        above, dot, _ = self._part.rpartition(".")
        if not dot:
            names = self._asked(listParent=True)
            if not names:
                raise RuntimeError("(kFailure): %s has no parent" % self._full())
            above = names[0]
        return self._sub(above)

    def array(self):
        return self._sub(self._part.rpartition("[")[0])

    def logicalIndex(self):
        return int(self._part.rpartition("[")[2].rstrip("]"))

    # Connections

    def _linked(self, source, destination):
        """The attributes on the other side, or both ways."""
        return cmds.listConnections(self._full(), source=source, destination=destination,
                                    plugs=True, skipConversionNodes=False) or []

    def source(self):
        names = self._linked(True, False)
        return type(self)._named(names[0]) if names else type(self)()

    def destinations(self):
        return [type(self)._named(name) for name in self._linked(False, True)]

    def connectedTo(self, asDst, asSrc):
        return [type(self)._named(name) for name in
                (self._linked(True, False) if asDst else [])
                + (self._linked(False, True) if asSrc else [])]

    def __eq__(self, other):
        return isinstance(other, Plug) and self._same() == other._same()

    def _same(self):
        if self.isNull_():
            return None
        return self._node._id, self.partialName(useFullAttributePath=False, useLongNames=True)

    def __hash__(self):
        return hash(self._same())


# What is asked of a plug, and how the answer is found.
def _state(flag):
    return lambda self: bool(cmds.getAttr(self._full(), **{flag: True}))


FACTS = {
    "isNull": Plug.isNull_,
    "isArray": lambda self: not self._part.endswith("]") and bool(self._asked(multi=True)),
    "isElement": lambda self: self._part.endswith("]"),
    "isCompound": lambda self: bool(self._children()),
    "isChild": lambda self: "." in self._part or bool(self._asked(listParent=True)),
    "isConnected": lambda self: bool(self._linked(True, True)),
    "isDestination": lambda self: bool(self._linked(True, False)),
    "isSource": lambda self: bool(self._linked(False, True)),
    "isKeyable": _state("keyable"),
    "isLocked": _state("lock"),
    "isChannelBox": _state("channelBox"),
    "isDynamic": lambda self: self._leaf() in (
        cmds.listAttr(self._node._name(), userDefined=True) or []),
}


class MPlug(Plug):
    def asMAngle(self):
        return MAngle(self.asDouble())

    def asMDistance(self):
        return MDistance(self.asDouble())

    def asMTime(self):
        return MTime(self.asDouble(), MTime.uiUnit())


def _setter(flag):
    return lambda self, value: cmds.setAttr(self._full(), **{flag: bool(value)})


SETTERS = {"isKeyable": _setter("keyable"), "isLocked": _setter("lock"),
           "isChannelBox": _setter("channelBox")}

for _name, _get in FACTS.items():
    setattr(MPlug, _name, property(_get, SETTERS.get(_name)))

SelectionList._plug = MPlug

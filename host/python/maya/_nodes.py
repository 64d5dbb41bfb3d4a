"""The scene's objects as the API hands them out: MObject, MDagPath, MSelectionList and others.

An object is known by its node's unique id, so that it outlives renaming and reparenting. What one
form of the API has as functions with places for results the other returns: the classes here are
those of the newer form, _nodes_older.py has the differences.
"""

import re

from maya import cmds
from maya import _functions
from maya._functions import MFn
from maya._matrices import MMatrix

_NO_OBJECT = "(kInvalidParameter): Object does not exist"
_WRONG = "(kInvalidParameter): Object is incompatible with this method"
_OUTSIDE = "(kInvalidParameter): Index out of range"

_COMPONENTS = {"vtx": "MeshVertComponent", "e": "MeshEdgeComponent", "f": "MeshPolygonComponent"}


def unique_id(name):
    """Of the one node with that name."""
    ids = cmds.ls(name, uuid=True)
    if not ids:
        raise RuntimeError(_NO_OBJECT)
    if len(ids) > 1:
        raise RuntimeError("(kInvalidParameter): More than one object matches name: %s" % name)
    return ids[0]


class _KindName(str):
    """A text to read in the newer form; the older one calls for it, and both share their objects."""

    def __call__(self):
        return str(self)


class MObject:
    """A handle to a node, one of its attributes or some of its components."""

    def __init__(self, other=None):
        self._id = other._id if other is not None else None
        self._part = other._part if other is not None else ""

    @classmethod
    def _of(cls, identifier, part=""):
        made = cls()
        made._id, made._part = identifier, part
        return made

    @classmethod
    def _named(cls, name):
        return cls._of(unique_id(name))

    def _exists(self):
        return self._id is not None and bool(cmds.ls(self._id))

    def _name(self):
        """The shortest name that means the node alone."""
        names = cmds.ls(self._id) if self._id else []
        if not names:
            raise RuntimeError(_NO_OBJECT)
        return names[0]

    def _long_name(self):
        self._name()
        return cmds.ls(self._id, long=True)[0]

    def _type(self):
        return cmds.nodeType(self._name())

    def _component(self):
        return _COMPONENTS.get(self._part.split("[")[0]) if "[" in self._part else None

    def isNull(self):
        return self._id is None

    def apiType(self):
        if self._id is None:
            return MFn.kInvalid
        if self._component():
            return getattr(MFn, "k" + self._component())
        return MFn.kAttribute if self._part else _functions.kind_of_type(self._type())

    @property
    def apiTypeStr(self):
        return _KindName(_functions.name_of(self.apiType()))

    def hasFn(self, kind):
        if self._id is None:
            return kind == MFn.kInvalid
        if self._component():
            return _functions.component_is(self._component(), kind)
        if self._part:
            return kind in (MFn.kBase, MFn.kAttribute)
        return _functions.type_is(self._type(), kind)

    def __eq__(self, other):
        return isinstance(other, MObject) and (self._id, self._part) == (other._id, other._part)

    def __hash__(self):
        return hash((self._id, self._part))


MObject.kNullObj = MObject()


class MObjectHandle:
    """Tells whether an object is still there."""

    def __init__(self, target=None):
        self._object = MObject(target)

    def object(self):
        return self._object if self._object._exists() else MObject()

    def isAlive(self):
        return self._object._exists()

    isValid = isAlive

    def hashCode(self):
        return hash(self._object) & 0xFFFFFFFF

    def __eq__(self, other):
        return isinstance(other, MObjectHandle) and self._object == other._object

    def __hash__(self):
        return hash(self._object)


class MUuid:
    """A node's unique id."""

    def __init__(self, text=""):
        self._text = str(text).upper()

    def asString(self):
        return self._text

    __str__ = asString

    def valid(self):
        return re.fullmatch(r"[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}", self._text) is not None

    def __eq__(self, other):
        return isinstance(other, MUuid) and self._text == other._text

    def __hash__(self):
        return hash(self._text)

    def __repr__(self):
        return "maya.api.OpenMaya.MUuid(%r)" % self._text


class MSpace:
    kInvalid, kTransform, kPreTransform, kPostTransform, kWorld, kLast = range(6)
    kObject = kPreTransform


def is_shown_in_hierarchy(target):
    return _functions.type_is(target._type(), MFn.kDagNode)


class MDagPath:
    """The place of a node in the hierarchy. Instances are not told apart."""

    def __init__(self, other=None):
        self._object = MObject(other._object) if other is not None else MObject()

    @classmethod
    def _at(cls, target):
        if not is_shown_in_hierarchy(target):
            raise RuntimeError(_WRONG)
        path = cls()
        path._object = MObject._of(target._id)
        return path

    @classmethod
    def getAPathTo(cls, target):
        return cls._at(target)

    getPath = getAPathTo

    def _relatives(self, **flags):
        return cmds.listRelatives(self._object._name(), fullPath=True, **flags) or []

    def isValid(self):
        return self._object._exists()

    def node(self):
        return MObject(self._object)

    def apiType(self):
        return self._object.apiType()

    def hasFn(self, kind):
        return self._object.hasFn(kind)

    def fullPathName(self):
        return self._object._long_name() if self.isValid() else ""

    def partialPathName(self):
        return self._object._name() if self.isValid() else ""

    def __str__(self):
        return self.partialPathName()

    def length(self):
        return self.fullPathName().count("|")

    def pop(self, count=1):
        """Goes up to a parent."""
        names = self.fullPathName().split("|")
        if not 0 <= count < len(names):
            raise RuntimeError(_OUTSIDE)
        above = "|".join(names[:len(names) - count])
        self._object = MObject._named(above) if above else MObject()
        return self

    def push(self, child):
        if MObject._of(child._id) not in [MObject._named(name)
                                          for name in self._relatives(children=True)]:
            raise RuntimeError(_WRONG)
        self._object = MObject._of(child._id)
        return self

    def childCount(self):
        return len(self._relatives(children=True))

    def child(self, index):
        children = self._relatives(children=True)
        if not 0 <= index < len(children):
            raise RuntimeError(_OUTSIDE)
        return MObject._named(children[index])

    def transform(self):
        """The node itself, or the transform that the shape is below."""
        if self.hasFn(MFn.kTransform):
            return self.node()
        return MObject._named(self.fullPathName().rpartition("|")[0])

    def numberOfShapesDirectlyBelow(self):
        return len(self._relatives(shapes=True))

    def extendToShape(self, index=0):
        """Stays where it is when it is at a shape already."""
        if self.hasFn(MFn.kShape):
            return self
        shapes = self._relatives(shapes=True)
        if not 0 <= index < len(shapes):
            raise RuntimeError(_OUTSIDE)
        self._object = MObject._named(shapes[index])
        return self

    def isVisible(self):
        names = self.fullPathName().split("|")
        above = ["|".join(names[:count]) for count in range(2, len(names) + 1)]
        return all(cmds.getAttr(name + ".visibility") for name in above)

    def isTemplated(self):
        return bool(cmds.getAttr(self.fullPathName() + ".template"))

    def isInstanced(self):
        return False

    def instanceNumber(self):
        return 0

    def inclusiveMatrix(self):
        return MMatrix(cmds.getAttr(self.fullPathName() + ".worldMatrix[0]"))

    def exclusiveMatrix(self):
        return MMatrix(cmds.getAttr(self.fullPathName() + ".parentMatrix[0]"))

    def inclusiveMatrixInverse(self):
        return self.inclusiveMatrix().inverse()

    def exclusiveMatrixInverse(self):
        return self.exclusiveMatrix().inverse()

    def __eq__(self, other):
        return isinstance(other, MDagPath) and self._object == other._object

    def __hash__(self):
        return hash(self._object)


class Item:
    """One entry of a selection: a node, or with a part of it an attribute or components."""

    def __init__(self, target, part=""):
        self.target = MObject._of(target._id)
        self.part = part

    @classmethod
    def of(cls, thing):
        if isinstance(thing, MDagPath):
            return cls(thing._object)
        if isinstance(thing, MObject):
            return cls(thing, thing._part)
        if isinstance(thing, tuple) and len(thing) == 2 and isinstance(thing[0], MDagPath):
            return cls(thing[0]._object, thing[1]._part)
        if hasattr(thing, "_part"):
            return cls(thing._node, thing._part)
        raise TypeError("A selection cannot hold %s" % type(thing).__name__)

    @classmethod
    def named(cls, text):
        """All that a name or pattern means."""
        node, dot, part = text.partition(".")
        if part and not cmds.objExists(text):
            raise RuntimeError(_NO_OBJECT)
        ids = cmds.ls(node, uuid=True)
        if not ids:
            raise RuntimeError(_NO_OBJECT)
        return [cls(MObject._of(identifier), part) for identifier in ids]

    def is_component(self):
        return MObject._of(self.target._id, self.part)._component() is not None

    def text(self):
        return self.target._name() + ("." + self.part if self.part else "")

    def __eq__(self, other):
        return (self.target, self.part) == (other.target, other.part)


class SelectionList:
    """Objects in an order, each once."""

    kMergeNormal, kXORWithList, kRemoveFromList = range(3)

    _path = MDagPath

    def __init__(self, other=None):
        self._items = list(other._items) if other is not None else []

    def _put(self, item):
        if item not in self._items:
            self._items.append(item)

    def add(self, thing, mergeWithExisting=False):
        """A name or pattern, an object, a path or an attribute."""
        for item in Item.named(thing) if isinstance(thing, str) else [Item.of(thing)]:
            self._put(item)
        return self

    def _item(self, index):
        if not 0 <= index < len(self._items):
            raise IndexError("index out of range")
        return self._items[index]

    def length(self):
        return len(self._items)

    def isEmpty(self):
        return not self._items

    def clear(self):
        self._items.clear()
        return self

    def remove(self, index):
        self._items.remove(self._item(index))
        return self

    def replace(self, index, thing):
        self._items[self._items.index(self._item(index))] = Item.of(thing)
        return self

    def hasItem(self, thing):
        return Item.of(thing) in self._items

    def toggle(self, thing, component=None):
        item = Item.of(thing)
        if item in self._items:
            self._items.remove(item)
        else:
            self._items.append(item)
        return self

    def merge(self, other, strategy=kMergeNormal):
        for item in other._items:
            if item not in self._items and strategy != self.kRemoveFromList:
                self._items.append(item)
            elif item in self._items and strategy != self.kMergeNormal:
                self._items.remove(item)
        return self

    def _texts(self, index=None):
        items = self._items if index is None else [self._item(index)]
        return [item.text() for item in items]

    def _path_at(self, index):
        item = self._item(index)
        if not is_shown_in_hierarchy(item.target):
            raise TypeError("item is not a DAG path")
        return self._path._at(item.target)

    def _component_at(self, index):
        item = self._item(index)
        component = MObject._of(item.target._id, item.part) if item.is_component() else MObject()
        return self._path_at(index), component

    def _plug_at(self, index):
        item = self._item(index)
        if not item.part or item.is_component():
            raise TypeError("item is not a plug")
        return self._plug(item.target, item.part)


class MSelectionList(SelectionList):
    def __len__(self):
        return len(self._items)

    def copy(self, other):
        self._items = list(other._items)
        return self

    def getSelectionStrings(self, index=None):
        return tuple(self._texts(index))

    def getDagPath(self, index):
        return self._path_at(index)

    def getDependNode(self, index):
        return MObject(self._item(index).target)

    def getComponent(self, index):
        return self._component_at(index)

    def getPlug(self, index):
        return self._plug_at(index)

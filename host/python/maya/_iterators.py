"""What steps through the scene's nodes, its hierarchy and selection lists.

The classes are those of the newer form of the API, _nodes_older.py has the differences.
"""

from collections import deque

from maya import cmds
from maya._functions import MFn
from maya._nodes import MDagPath, MObject, is_shown_in_hierarchy


class NodeIterator:
    """Steps through nodes; what is deleted meanwhile is left out."""

    def __init__(self, objects):
        self._objects = objects
        self._index = 0
        self._skip()

    def _skip(self):
        while self._index < len(self._objects) and not self._objects[self._index]._exists():
            self._index += 1

    def isDone(self):
        return self._index >= len(self._objects)

    def _current(self):
        if self.isDone():
            raise ValueError("The iterator is at its end")
        return self._objects[self._index]

    def next(self):
        self._index += 1
        self._skip()

    def __iter__(self):
        return self

    def __next__(self):
        if self.isDone():
            raise StopIteration
        current = self._current()
        self.next()
        return current


def _objects_of(names, kind):
    objects = [MObject._of(identifier) for identifier in names]
    return objects if kind == MFn.kInvalid else [one for one in objects if one.hasFn(kind)]


class MItDependencyNodes(NodeIterator):
    """All nodes of a kind; of every kind when none is given."""

    def __init__(self, kind=MFn.kInvalid):
        super().__init__(_objects_of(cmds.ls(uuid=True), kind))

    def reset(self, kind=MFn.kInvalid):
        self.__init__(kind)

    def thisNode(self):
        return MObject(self._current())

    item = thisNode


class DagIterator:
    """Steps through the hierarchy, from the top or a node on."""

    kInvalid, kDepthFirst, kBreadthFirst = range(3)

    _path = MDagPath

    def __init__(self, traversal=kDepthFirst, kind=MFn.kInvalid):
        self.reset(None, traversal, kind)

    def reset(self, start=None, traversal=kDepthFirst, kind=MFn.kInvalid):
        self._kind, self._traversal = kind, traversal
        if start is None:
            roots = [(name, 1) for name in cmds.ls(assemblies=True, long=True)]
        else:
            roots = [(start._object._long_name() if isinstance(start, MDagPath)
                      else start._long_name(), 0)]
        self._waiting = deque(roots)
        self._pruned = False
        self._find()

    def _find(self):
        """Leaves the next node that is wanted in front of those that wait."""
        while self._waiting and self._kind != MFn.kInvalid and \
                not self._at_front().hasFn(self._kind):
            self._advance(True)

    def _at_front(self):
        return MObject._named(self._waiting[0][0])

    def _advance(self, into_children):
        name, depth = self._waiting.popleft()
        if not into_children:
            return
        children = [(child, depth + 1)
                    for child in cmds.listRelatives(name, children=True, fullPath=True) or []]
        if self._traversal == self.kBreadthFirst:
            self._waiting.extend(children)
        else:
            self._waiting.extendleft(reversed(children))

    def isDone(self):
        return not self._waiting

    def _front(self):
        if not self._waiting:
            raise ValueError("The iterator is at its end")
        return self._at_front()

    def next(self):
        self._front()
        self._advance(not self._pruned)
        self._pruned = False
        self._find()

    def prune(self):
        """The next step leaves out what is below the current node."""
        self._pruned = True

    def currentItem(self):
        return self._front()

    def depth(self):
        return self._waiting[0][1]

    def fullPathName(self):
        return self._front()._long_name()

    def partialPathName(self):
        return self._front()._name()

    def _path_of_current(self):
        return self._path._at(self._front())


class MItDag(DagIterator):
    def getPath(self):
        return self._path_of_current()


class SelectionIterator:
    """Steps through a selection list, or those entries of it that are of a kind."""

    kUnknownItem, kDagSelectionItem, kAnimSelectionItem, kDNselectionItem, \
        kPlugSelectionItem = -1, 0, 1, 2, 3

    def __init__(self, selection, kind=MFn.kInvalid):
        self._list = type(selection)(selection)
        self.setFilter(kind)

    def setFilter(self, kind):
        items = self._list._items
        self._places = [index for index, item in enumerate(items)
                        if kind == MFn.kInvalid or item.target.hasFn(kind)
                        or (item.is_component()
                            and MObject._of(item.target._id, item.part).hasFn(kind))]
        self._index = 0

    def reset(self):
        self._index = 0

    def isDone(self):
        return self._index >= len(self._places)

    def next(self):
        self._index += 1

    def _place(self):
        if self.isDone():
            raise ValueError("The iterator is at its end")
        return self._places[self._index]

    def itemType(self):
        item = self._list._item(self._place())
        if item.part and not item.is_component():
            return self.kPlugSelectionItem
        shown = is_shown_in_hierarchy(item.target)
        return self.kDagSelectionItem if shown else self.kDNselectionItem

    def hasComponents(self):
        return self._list._item(self._place()).is_component()


class MItSelectionList(SelectionIterator):
    def getDagPath(self):
        return self._list._path_at(self._place())

    def getDependNode(self):
        return MObject(self._list._item(self._place()).target)

    def getComponent(self):
        return self._list._component_at(self._place())

    def getPlug(self):
        return self._list._plug_at(self._place())

    def getStrings(self):
        return tuple(self._list._texts(self._place()))

"""The scene's objects in the API's older form: results come through what the caller hands in."""

from maya._iterators import DagIterator, SelectionIterator
from maya._matrices import MMatrix
from maya._node_functions import DagNode, DependencyNode, Transform
from maya._nodes import MDagPath, MObject, MSpace, SelectionList
from maya._plugs import FACTS, SETTERS, Plug
from maya._pointers import RowPointer
from maya._rotations import MEulerRotation, MQuaternion, MTransformationMatrix
from maya._units import OlderMAngle, OlderMDistance, OlderMTime


class OlderMMatrix(MMatrix):
    """A row is a place for its four numbers."""

    def __getitem__(self, row):
        return RowPointer(self._rows[row])

    def get(self, rows):
        for index, row in enumerate(self._rows):
            rows[index][:] = row


class OlderMEulerRotation(MEulerRotation):
    _matrix = OlderMMatrix


class OlderMQuaternion(MQuaternion):
    _matrix = OlderMMatrix


class OlderMTransformationMatrix(MTransformationMatrix):
    _matrix = OlderMMatrix

    getTranslation = MTransformationMatrix.translation

    def rotation(self):
        return OlderMQuaternion(self._euler().asQuaternion())

    def eulerRotation(self):
        return OlderMEulerRotation(self._euler())

    def rotateTo(self, rotation):
        return self.setRotation(rotation)

    def getScale(self, pointer, space=None):
        pointer.setAll(self._scale)

    def setScale(self, pointer, space=None):
        return super().setScale(list(pointer)[:3])

    def getShear(self, pointer, space=None):
        pointer.setAll(self._shear)

    def setShear(self, pointer, space=None):
        return super().setShear(list(pointer)[:3])


class OlderMDagPath(MDagPath):
    @staticmethod
    def getAPathTo(target, path=None):
        found = OlderMDagPath._at(target)
        if path is None:
            return found
        path._object = found._object
        return None

    def getPath(self, path):
        path._object = MObject(self._object)

    def set(self, other):
        self._object = MObject(other._object)

    def numberOfShapesDirectlyBelow(self, count=None):
        number = super().numberOfShapesDirectlyBelow()
        if count is None:
            return number
        count.set(number)
        return None

    def extendToShapeDirectlyBelow(self, index):
        self.extendToShape(index)

    def inclusiveMatrix(self):
        return OlderMMatrix(super().inclusiveMatrix())

    def exclusiveMatrix(self):
        return OlderMMatrix(super().exclusiveMatrix())


def _take_path(target, found):
    target._object = MObject(found._object)


def _take_object(target, found):
    target._id, target._part = found._id, found._part


def _take_plug(target, found):
    target._node, target._part = found._node, found._part


def _append_all(target, values):
    target.clear()
    for value in values:
        target.append(value)


class OlderMPlug(Plug):
    def asMAngle(self):
        return OlderMAngle(self.asDouble())

    def asMDistance(self):
        return OlderMDistance(self.asDouble())

    def asMTime(self):
        return OlderMTime(self.asDouble(), OlderMTime.uiUnit())

    def connectedTo(self, plugs, asDst, asSrc):
        found = super().connectedTo(asDst, asSrc)
        _append_all(plugs, found)
        return bool(found)

    def destinations(self, plugs):
        found = super().destinations()
        _append_all(plugs, found)
        return bool(found)

    def setKeyable(self, keyable):
        SETTERS["isKeyable"](self, keyable)

    def setLocked(self, locked):
        SETTERS["isLocked"](self, locked)

    def setChannelBox(self, shown):
        SETTERS["isChannelBox"](self, shown)


for _name, _fact in FACTS.items():
    setattr(OlderMPlug, _name, _fact)


class OlderMSelectionList(SelectionList):
    _path = OlderMDagPath
    _plug = OlderMPlug

    def add(self, thing, component=None, mergeWithExisting=False):
        if isinstance(component, MObject) and not component.isNull():
            thing = (thing, component)
        super().add(thing)

    def getSelectionStrings(self, *arguments):
        """([index,] place for the texts)"""
        _append_all(arguments[-1], self._texts(*arguments[:-1]))

    def getDagPath(self, index, path, component=None):
        found, part = self._component_at(index)
        _take_path(path, found)
        if component is not None:
            _take_object(component, part)

    def getDependNode(self, index, target):
        _take_object(target, self._item(index).target)

    def getPlug(self, index, plug):
        _take_plug(plug, self._plug_at(index))


class OlderMItDag(DagIterator):
    _path = OlderMDagPath

    def getPath(self, path):
        _take_path(path, self._path_of_current())

    item = DagIterator.currentItem


class OlderMItSelectionList(SelectionIterator):
    def getDagPath(self, path, component=None):
        self._list.getDagPath(self._place(), path, component)

    def getDependNode(self, target):
        self._list.getDependNode(self._place(), target)

    def getPlug(self, plug):
        self._list.getPlug(self._place(), plug)

    def getStrings(self, texts):
        _append_all(texts, self._list._texts(self._place()))


class OlderMFnDependencyNode(DependencyNode):
    _path = OlderMDagPath
    _plug = OlderMPlug

    typeName = DependencyNode._type_name
    isLocked = DependencyNode._is_locked
    setLocked = DependencyNode._set_locked

    def isFromReferencedFile(self):
        return False

    def findPlug(self, attribute, wantNetworkedPlug=True):
        return self._plug_named(attribute)


class OlderMFnDagNode(DagNode, OlderMFnDependencyNode):
    isIntermediateObject = DagNode._is_intermediate
    setIntermediateObject = DagNode._set_intermediate

    def getPath(self, path):
        _take_path(path, self._path_here())

    def dagPath(self):
        return self._path_here()

    def transformationMatrix(self):
        return OlderMMatrix(super().transformationMatrix())


class OlderMFnTransform(Transform, OlderMFnDagNode):
    def getTranslation(self, space=MSpace.kTransform):
        return self._translation(space)

    translation = getTranslation

    def getRotation(self, rotation, space=MSpace.kTransform):
        euler = self._euler(space)
        source = euler if isinstance(rotation, MEulerRotation) else euler.asQuaternion()
        for name in source._names:
            setattr(rotation, name, getattr(source, name))

    def rotation(self, space=MSpace.kTransform):
        return OlderMQuaternion(self._euler(space).asQuaternion())

    def getScale(self, pointer):
        pointer.setAll(self._scale())

    def setScale(self, pointer):
        super().setScale(list(pointer)[:3])

    def getShear(self, pointer):
        pointer.setAll(self._shear())

    def setShear(self, pointer):
        super().setShear(list(pointer)[:3])

    def transformation(self):
        return OlderMTransformationMatrix(super().transformation())

"""The function sets for nodes: MFnDependencyNode, MFnDagNode, MFnTransform and MFnSet's like."""

from maya import cmds
from maya._functions import MFn
from maya._matrices import MMatrix
from maya._nodes import MDagPath, MObject, MSpace, MUuid
from maya._plugs import MPlug
from maya._rotations import MEulerRotation, MTransformationMatrix
from maya._tuples import MVector
from maya._units import MAngle

_WRONG = "(kInvalidParameter): Object is incompatible with this method"


class FunctionSet:
    """What can be done with the object that it is attached to."""

    _kind = MFn.kBase
    _path = MDagPath
    _plug = MPlug

    def __init__(self, target=None):
        self._object = MObject()
        if target is not None:
            self.setObject(target)

    def setObject(self, target):
        target = target._object if isinstance(target, MDagPath) else target
        if not isinstance(target, MObject):
            raise TypeError("A function set needs an object, not %s" % type(target).__name__)
        if target._part or not target.hasFn(self._kind):
            raise (ValueError if target.isNull() else RuntimeError)(_WRONG)
        self._object = MObject(target)
        return self

    def object(self):
        return MObject(self._object)

    def hasObj(self, thing):
        return thing.hasFn(self._kind) if isinstance(thing, MObject) else \
            self._object.hasFn(thing)

    def type(self):
        return self._kind

    def _name(self):
        return self._object._name()

    def _numbers(self, attribute):
        return list(cmds.getAttr("%s.%s" % (self._name(), attribute))[0])

    def _set_numbers(self, attribute, numbers):
        cmds.setAttr("%s.%s" % (self._name(), attribute), *numbers)


class DependencyNode(FunctionSet):
    _kind = MFn.kDependencyNode

    def create(self, node_type, name=None):
        """Makes a node and attaches to it."""
        flags = {"name": name} if name else {}
        made = cmds.createNode(node_type, skipSelect=True, **flags)
        self._object = MObject._named(made)
        return self.object()

    def name(self):
        return self._name().rpartition("|")[2]

    def absoluteName(self):
        name = self.name()
        return name if name.startswith(":") else ":" + name

    def uniqueName(self):
        return self._name()

    def hasUniqueName(self):
        return "|" not in self._name()

    def setName(self, name):
        cmds.rename(self._name(), name)
        return self.name()

    def uuid(self):
        return MUuid(self._object._id)

    def _type_name(self):
        return self._object._type()

    def hasAttribute(self, name):
        return bool(cmds.attributeQuery(name, node=self._name(), exists=True))

    def attributeCount(self):
        return len(cmds.listAttr(self._name()) or [])

    def attribute(self, name):
        """By name, or by its place among all attributes."""
        if isinstance(name, int):
            name = cmds.listAttr(self._name())[name]
        if not self.hasAttribute(name):
            return MObject()
        return MObject._of(self._object._id,
                           cmds.attributeQuery(name, node=self._name(), longName=True))

    def _plug_named(self, name):
        if isinstance(name, MObject):
            name = name._part
        if not cmds.objExists("%s.%s" % (self._name(), name)):
            raise RuntimeError("(kInvalidParameter): Object does not exist")
        first, dot, rest = name.partition(".")
        first, bracket, index = first.partition("[")
        long = cmds.attributeQuery(first, node=self._name(), longName=True)
        return self._plug(self._object, long + bracket + index + dot + rest)

    def userNode(self):
        return None

    def _is_locked(self):
        locked = cmds.lockNode(self._name(), query=True, lock=True)
        return bool(locked[0] if isinstance(locked, list) else locked)

    def _set_locked(self, locked):
        cmds.lockNode(self._name(), lock=bool(locked))


class MFnDependencyNode(DependencyNode):
    typeName = property(DependencyNode._type_name)
    isLocked = property(DependencyNode._is_locked, DependencyNode._set_locked)
    isFromReferencedFile = property(lambda self: False)
    isDefaultNode = property(
        lambda self: self._name() in (cmds.ls(defaultNodes=True) or []))

    def findPlug(self, attribute, wantNetworkedPlug):
        return self._plug_named(attribute)


class DagNode:
    """What nodes of the hierarchy add, in both forms."""

    _kind = MFn.kDagNode

    def create(self, node_type, name=None, parent=None):
        flags = {"name": name} if name else {}
        if parent is not None and not parent.isNull():
            flags["parent"] = parent._long_name()
        made = cmds.createNode(node_type, skipSelect=True, **flags)
        created = MObject._named(made)
        # A shape without a parent gets a transform, which is what stands for both.
        if parent is None and not created.hasFn(MFn.kTransform):
            created = MDagPath._at(created).transform()
            self._object = MObject._named(made)
            return created
        self._object = created
        return self.object()

    def fullPathName(self):
        return self._object._long_name()

    def partialPathName(self):
        return self._name()

    def _children(self):
        return cmds.listRelatives(self._name(), children=True, fullPath=True) or []

    def childCount(self):
        return len(self._children())

    def child(self, index):
        children = self._children()
        if not 0 <= index < len(children):
            raise RuntimeError("(kInvalidParameter): Index out of range")
        return MObject._named(children[index])

    def parentCount(self):
        return 1

    def parent(self, index):
        """Above the outermost nodes there is an object that stands for none."""
        above = cmds.listRelatives(self._name(), parent=True, fullPath=True)
        if index != 0:
            raise RuntimeError("(kInvalidParameter): Index out of range")
        return MObject._named(above[0]) if above else MObject()

    def addChild(self, child):
        cmds.parent(child._long_name(), self._object._long_name())

    def hasParent(self, target):
        return MObject._of(target._id) == self.parent(0)

    def hasChild(self, target):
        return self._object == DagNode._above(target)

    @staticmethod
    def _above(target):
        above = cmds.listRelatives(target._name(), parent=True, fullPath=True)
        return MObject._named(above[0]) if above else MObject()

    def isParentOf(self, target):
        return self.hasChild(target)

    def isChildOf(self, target):
        return self.hasParent(target)

    def isInstanced(self, indirect=True):
        return False

    def transformationMatrix(self):
        return MMatrix(cmds.getAttr(self._name() + ".matrix"))

    def duplicate(self, instance=False, instanceLeaf=False):
        if instance or instanceLeaf:
            raise NotImplementedError("MFnDagNode.duplicate: the host has no instances")
        return MObject._named(cmds.duplicate(self._name())[0])

    def _path_here(self):
        return self._path._at(self._object)

    def _is_intermediate(self):
        return bool(cmds.getAttr(self._name() + ".intermediateObject"))

    def _set_intermediate(self, intermediate):
        cmds.setAttr(self._name() + ".intermediateObject", bool(intermediate))


class MFnDagNode(DagNode, MFnDependencyNode):
    isIntermediateObject = property(DagNode._is_intermediate, DagNode._set_intermediate)

    def getPath(self):
        return self._path_here()

    def dagPath(self):
        return self._path_here()


class Transform:
    """What transforms add. Angles are radians; spaces are those of MSpace."""

    _kind = MFn.kTransform

    def create(self, parent=None):
        return DagNode.create(self, "transform", None, parent)

    def _order(self):
        return cmds.getAttr(self._name() + ".rotateOrder")

    def _translation(self, space):
        world = space == MSpace.kWorld
        return MVector(cmds.xform(self._name(), query=True, translation=True, worldSpace=world))

    def setTranslation(self, vector, space=MSpace.kTransform):
        cmds.xform(self._name(), translation=tuple(vector)[:3],
                   worldSpace=space == MSpace.kWorld)
        return self

    def translateBy(self, vector, space=MSpace.kTransform):
        return self.setTranslation(self._translation(space) + vector, space)

    def _euler(self, space=MSpace.kTransform):
        if space == MSpace.kWorld:
            path = MDagPath._at(self._object)
            return MEulerRotation.decompose(path.inclusiveMatrix(), self._order())
        angles = [MAngle(angle, MAngle.uiUnit()).asRadians()
                  for angle in self._numbers("rotate")]
        return MEulerRotation(*angles, self._order())

    def setRotation(self, rotation, space=MSpace.kTransform):
        matrix = rotation.asMatrix()
        if space == MSpace.kWorld:
            above = MDagPath._at(self._object).exclusiveMatrix()
            matrix = MTransformationMatrix(above).asRotateMatrix().transpose()
            matrix = rotation.asMatrix() * matrix
        same = isinstance(rotation, MEulerRotation) and rotation.order == self._order() \
            and space != MSpace.kWorld
        euler = rotation if same else MEulerRotation.decompose(matrix, self._order())
        self._set_numbers("rotate", [MAngle(angle).asUnits(MAngle.uiUnit())
                                     for angle in euler[:]])
        return self

    def rotateBy(self, rotation, space=MSpace.kTransform):
        turned = self._euler(space).asMatrix() * rotation.asMatrix()
        return self.setRotation(MEulerRotation.decompose(turned, self._order()), space)

    def _scale(self):
        return self._numbers("scale")

    def setScale(self, scale):
        self._set_numbers("scale", [float(value) for value in scale])
        return self

    def scaleBy(self, scale):
        return self.setScale([a * b for a, b in zip(self._scale(), scale)])

    def _shear(self):
        return self._numbers("shear")

    def setShear(self, shear):
        self._set_numbers("shear", [float(value) for value in shear])
        return self

    def rotationOrder(self):
        return self._order() + 1

    def transformation(self):
        matrix = MTransformationMatrix()
        matrix.setScale(self._scale()).setShear(self._shear()).setRotation(self._euler())
        return matrix.setTranslation(self._translation(MSpace.kTransform))

    def setTransformation(self, matrix):
        matrix = MTransformationMatrix(matrix)
        self.setTranslation(matrix.translation()).setRotation(matrix.rotation())
        return self.setScale(matrix.scale()).setShear(matrix.shear())


class MFnTransform(Transform, MFnDagNode):
    def translation(self, space):
        return self._translation(space)

    def rotation(self, space=MSpace.kTransform, asQuaternion=False):
        euler = self._euler(space)
        return euler.asQuaternion() if asQuaternion else euler

    def scale(self):
        return self._scale()

    def shear(self):
        return self._shear()



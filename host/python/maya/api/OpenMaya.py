"""The API's newer form: results are returned, and arrays are lists.

What the host does not offer is missing, and asking for it is an AttributeError.
"""

from maya import _arrays
from maya._arguments import MArgDatabase, MArgList, MArgParser, MSyntax
from maya._functions import MFn
from maya._iterators import MItDag, MItDependencyNodes, MItSelectionList
from maya._matrices import MFloatMatrix, MMatrix
from maya._messages import (MCommandMessage, MEventMessage, MMessage, MSceneMessage,
                            MTimerMessage, MUserEventMessage)
from maya._node_functions import MFnDagNode, MFnDependencyNode, MFnTransform
from maya._node_messages import MNodeMessage
from maya._nodes import MDagPath, MObject, MObjectHandle, MSelectionList, MSpace, MUuid
from maya._plugins import MFnPlugin, MPxCommand
from maya._plugs import MPlug
from maya._rotations import MEulerRotation, MQuaternion, MTransformationMatrix
from maya._selection import MGlobal
from maya._tuples import MColor, MFloatPoint, MFloatVector, MPoint, MVector
from maya._units import MAngle, MDistance, MTime

globals().update(_arrays.make(
    _arrays.Array, MObjectArray=MObject, MDagPathArray=MDagPath, MPlugArray=MPlug))


def maya_useNewAPI():
    """Plug-ins have this name to say which form they use; the host only reads it."""

"""The API's older form: results often come through places that the caller hands out.

What the host does not offer is missing, and asking for it is an AttributeError.
"""

from maya import _arrays
from maya._arguments import OlderMArgDatabase as MArgDatabase
from maya._arguments import OlderMArgList as MArgList
from maya._arguments import OlderMArgParser as MArgParser
from maya._arguments import OlderMSyntax as MSyntax
from maya._functions import MFn
from maya._global import MCommandResult, MStatus
from maya._iterators import MItDependencyNodes
from maya._matrices import MFloatMatrix
from maya._messages import (MCommandMessage, MEventMessage, MMessage, MSceneMessage,
                            MTimerMessage, MUserEventMessage)
from maya._node_messages import MNodeMessage
from maya._nodes import MObject, MObjectHandle, MSpace, MUuid
from maya._nodes_older import OlderMDagPath as MDagPath
from maya._nodes_older import OlderMEulerRotation as MEulerRotation
from maya._nodes_older import OlderMFnDagNode as MFnDagNode
from maya._nodes_older import OlderMFnDependencyNode as MFnDependencyNode
from maya._nodes_older import OlderMFnTransform as MFnTransform
from maya._nodes_older import OlderMItDag as MItDag
from maya._nodes_older import OlderMItSelectionList as MItSelectionList
from maya._nodes_older import OlderMMatrix as MMatrix
from maya._nodes_older import OlderMPlug as MPlug
from maya._nodes_older import OlderMQuaternion as MQuaternion
from maya._nodes_older import OlderMSelectionList as MSelectionList
from maya._nodes_older import OlderMTransformationMatrix as MTransformationMatrix
from maya._pointers import MScriptUtil
from maya._selection import OlderMGlobal as MGlobal
from maya._tuples import MColor, MFloatPoint, MFloatVector, MPoint, MVector
from maya._units import OlderMAngle as MAngle
from maya._units import OlderMDistance as MDistance
from maya._units import OlderMTime as MTime

globals().update(_arrays.make(
    _arrays.OlderArray, MObjectArray=MObject, MDagPathArray=MDagPath, MPlugArray=MPlug))

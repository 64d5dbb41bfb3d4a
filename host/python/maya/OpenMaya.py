"""The API's older form: results often come through places that the caller hands out.

What the host does not offer is missing, and asking for it is an AttributeError.
"""

from maya import _arrays
from maya._arguments import OlderMArgDatabase as MArgDatabase
from maya._arguments import OlderMArgList as MArgList
from maya._arguments import OlderMArgParser as MArgParser
from maya._arguments import OlderMSyntax as MSyntax
from maya._global import MCommandResult
from maya._global import OlderMGlobal as MGlobal
from maya._matrices import MFloatMatrix, MMatrix
from maya._messages import (MCommandMessage, MEventMessage, MMessage, MSceneMessage,
                            MTimerMessage, MUserEventMessage)
from maya._pointers import MScriptUtil
from maya._rotations import MEulerRotation, MQuaternion, MTransformationMatrix
from maya._tuples import MColor, MFloatPoint, MFloatVector, MPoint, MVector
from maya._units import OlderMAngle as MAngle
from maya._units import OlderMDistance as MDistance
from maya._units import OlderMTime as MTime

globals().update(_arrays.make(_arrays.OlderArray))

"""The API's newer form: results are returned, and arrays are lists.

What the host does not offer is missing, and asking for it is an AttributeError.
"""

from maya import _arrays
from maya._arguments import MArgDatabase, MArgList, MArgParser, MSyntax
from maya._global import MGlobal
from maya._matrices import MFloatMatrix, MMatrix
from maya._messages import (MCommandMessage, MEventMessage, MMessage, MSceneMessage,
                            MTimerMessage, MUserEventMessage)
from maya._plugins import MFnPlugin, MPxCommand
from maya._rotations import MEulerRotation, MQuaternion, MTransformationMatrix
from maya._tuples import MColor, MFloatPoint, MFloatVector, MPoint, MVector
from maya._units import MAngle, MDistance, MTime

globals().update(_arrays.make(_arrays.Array))


def maya_useNewAPI():
    """Plug-ins have this name to say which form they use; the host only reads it."""

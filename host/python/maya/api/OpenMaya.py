"""The same classes as maya.OpenMaya, under the name of the API's second form.

What needs a scene is missing, and asking for it is an AttributeError.
"""

from maya._api import MCommandMessage, MEventMessage, MGlobal, MMessage


def maya_useNewAPI():
    """Plug-ins have this name to say which form they use; the host only reads it."""

"""The API's classes that scripts without a scene use.

What needs a scene is missing, and asking for it is an AttributeError.
"""

from maya._api import MCommandMessage, MEventMessage, MGlobal, MMessage

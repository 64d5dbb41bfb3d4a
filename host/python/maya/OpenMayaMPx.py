"""Classes to derive plug-ins from, in the API's older form. Commands are all that can be added."""

from maya._plugins import MPxCommand, asMPxPtr
from maya._plugins import OlderMFnPlugin as MFnPlugin

# Written for the newer form, but does not say so.
import maya.api.OpenMaya as om


def initializePlugin(plugin):
    om.MFnPlugin(plugin)


def uninitializePlugin(plugin):
    pass

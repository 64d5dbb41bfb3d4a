import maya.api.OpenMaya as om


def maya_useNewAPI():
    pass


def initializePlugin(plugin):
    om.MFnPlugin(plugin).registerCommand("pyNever", om.MPxCommand)
    raise RuntimeError("no start today")


def uninitializePlugin(plugin):
    raise RuntimeError("never called")

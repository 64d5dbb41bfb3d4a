"""A plug-in in the older form: a command that reads its words itself, and one that unloads itself."""

import maya.OpenMayaMPx as OpenMayaMPx
from maya import cmds


class Words(OpenMayaMPx.MPxCommand):
    def __init__(self):
        OpenMayaMPx.MPxCommand.__init__(self)

    def doIt(self, arguments):
        words = [arguments.asString(i) for i in range(arguments.length())]
        OpenMayaMPx.MPxCommand.setResult("|".join(words))
        if words == ["leave"]:
            cmds.unloadPlugin("older", force=True)


def creator():
    return OpenMayaMPx.asMPxPtr(Words())


def initializePlugin(plugin):
    function_set = OpenMayaMPx.MFnPlugin(plugin, "Nobody", "0.1", "Any")
    function_set.registerCommand("pyWords", creator)
    function_set.registerCommand("pyForgotten", Words)


def uninitializePlugin(plugin):
    OpenMayaMPx.MFnPlugin(plugin).deregisterCommand("pyWords")

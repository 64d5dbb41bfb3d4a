"""The part of MGlobal that is about what is selected in the scene."""

from maya import cmds
from maya._global import MGlobal as PlainMGlobal
from maya._global import OlderMGlobal as OlderPlainMGlobal
from maya._nodes import MSelectionList
from maya._tuples import MVector
from maya._units import MTime

_CHANGES = ({"replace": True}, {"toggle": True}, {"add": True}, {"deselect": True},
            {"addFirst": True})


class Selection:
    kReplaceList, kXORWithList, kAddToList, kRemoveFromList, kAddToHeadOfList = range(5)

    @staticmethod
    def clearSelectionList():
        cmds.select(clear=True)

    @staticmethod
    def selectByName(name, listAdjustment=kAddToList):
        cmds.select(name, **_CHANGES[listAdjustment])

    @staticmethod
    def unselectByName(name):
        cmds.select(name, deselect=True)

    @staticmethod
    def setActiveSelectionList(objects, listAdjustment=kReplaceList):
        names = objects._texts()
        if names:
            cmds.select(names, noExpand=True, **_CHANGES[listAdjustment])
        elif listAdjustment == Selection.kReplaceList:
            cmds.select(clear=True)

    @staticmethod
    def select(thing, listAdjustment=kAddToList):
        one = MSelectionList()
        one.add(thing)
        Selection.setActiveSelectionList(one, listAdjustment)

    @staticmethod
    def unselect(thing):
        Selection.select(thing, Selection.kRemoveFromList)

    @staticmethod
    def upAxis():
        return MVector.kZaxisVector if Selection.isZAxisUp() else MVector.kYaxisVector

    @staticmethod
    def isYAxisUp():
        return not Selection.isZAxisUp()

    @staticmethod
    def isZAxisUp():
        return cmds.upAxis(query=True, axis=True) == "z"

    @staticmethod
    def viewFrame(time):
        if hasattr(time, "asUnits"):
            time = time.asUnits(MTime.uiUnit())
        cmds.currentTime(time, edit=True)


def _fill(objects, names):
    objects.clear()
    for name in names:
        objects.add(name)
    return objects


def _selected():
    return cmds.ls(selection=True, long=True)


class MGlobal(Selection, PlainMGlobal):
    @staticmethod
    def getActiveSelectionList(orderedSelectionIfAvailable=False):
        return _fill(MSelectionList(), _selected())

    @staticmethod
    def getSelectionListByName(name):
        return _fill(MSelectionList(), [name])


class OlderMGlobal(Selection, OlderPlainMGlobal):
    @staticmethod
    def getActiveSelectionList(objects, orderedSelectionIfAvailable=False):
        _fill(objects, _selected())

    @staticmethod
    def getSelectionListByName(name, objects):
        objects.add(name)

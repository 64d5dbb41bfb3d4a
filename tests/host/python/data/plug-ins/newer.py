"""A plug-in in the newer form: flags of every kind, query, edit and undo."""

import maya.api.OpenMaya as om


def maya_useNewAPI():
    pass


class Counter(om.MPxCommand):
    value = 0

    @staticmethod
    def creator():
        return Counter()

    @staticmethod
    def syntax_of():
        syntax = om.MSyntax()
        syntax.addFlag("-b", "-byAmount", om.MSyntax.kLong)
        syntax.addFlag("-l", "-label", om.MSyntax.kString)
        syntax.makeFlagMultiUse("-label")
        syntax.addFlag("-sz", "-size", om.MSyntax.kDouble, om.MSyntax.kDouble)
        syntax.addFlag("-bad", "-badLuck")
        syntax.setObjectType(om.MSyntax.kStringObjects, 0, 2)
        syntax.enableQuery = True
        return syntax

    def doIt(self, arguments):
        database = om.MArgDatabase(self.syntax(), arguments)
        if database.isQuery:
            self.setResult(Counter.value)
            return
        if database.isFlagSet("badLuck"):
            self.displayError("out of luck")
            raise RuntimeError("no luck")
        if database.isFlagSet("-label"):
            for use in range(database.numberOfFlagUses("-l")):
                self.appendToResult(database.getFlagArgumentList("label", use).asString(0))
            return
        if database.isFlagSet("-size"):
            self.setResult([database.flagArgumentDouble("-size", i) for i in (0, 1)])
            return
        if not database.isFlagSet("b"):
            self.setResult(" ".join(database.getObjectStrings()))
            return
        self.amount = database.flagArgumentInt("-byAmount", 0)
        self.redoIt()

    def redoIt(self):
        Counter.value += self.amount
        self.setResult(Counter.value)

    def undoIt(self):
        Counter.value -= self.amount

    def isUndoable(self):
        return hasattr(self, "amount")


def initializePlugin(plugin):
    om.MFnPlugin(plugin, "A. N. Author", "1.5").registerCommand(
        "pyCounter", Counter.creator, Counter.syntax_of)


def uninitializePlugin(plugin):
    om.MFnPlugin(plugin).deregisterCommand("pyCounter")

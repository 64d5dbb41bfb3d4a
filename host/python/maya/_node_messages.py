"""MNodeMessage: callbacks for single nodes, as far as the scripts' own jobs tell of them.

They come when the host is idle again after the change.
"""

from maya import cmds
from maya._messages import MMessage
from maya._nodes import MObject


def _end_job(number):
    # A job may have ended with its node.
    if cmds.scriptJob(exists=number):
        cmds.scriptJob(kill=number, force=True)


class MNodeMessage(MMessage):
    @staticmethod
    def _add_job(flag, node, function):
        return MMessage._add(
            lambda call: cmds.scriptJob(**{flag: [node._name(), call]}), _end_job, function)

    @staticmethod
    def addNameChangedCallback(node, function, clientData=None):
        """The function gets the node, its name before, and the client data."""
        node = MObject(node)
        names = [node._name()]

        def renamed():
            names.append(node._name())
            function(node, names.pop(0), clientData)

        return MNodeMessage._add_job("nodeNameChanged", node, renamed)

    @staticmethod
    def addNodeDestroyedCallback(node, function, clientData=None):
        """The function gets the client data."""
        return MNodeMessage._add_job("nodeDeleted", node, lambda: function(clientData))

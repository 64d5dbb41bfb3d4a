"""MQtUtil: the host's widgets as addresses, which bindings of the toolkit turn into objects."""

import _maya_host


class MQtUtil:
    """Addresses of the host's widgets as numbers, None when there is no such widget."""

    @staticmethod
    def mainWindow():
        return _maya_host.findWidget("mainWindow", "")

    @staticmethod
    def findControl(name, parent=None):
        return _maya_host.findWidget("control", name)

    @staticmethod
    def findLayout(name, parent=None):
        return _maya_host.findWidget("layout", name)

    @staticmethod
    def findWindow(name):
        return _maya_host.findWidget("window", name)

    @staticmethod
    def findMenuItem(name, parent=None):
        return _maya_host.findWidget("menuItem", name)

    @staticmethod
    def getCurrentParent():
        return _maya_host.findWidget("currentParent", "")

    @staticmethod
    def fullName(address):
        return _maya_host.fullName(int(address))

    @staticmethod
    def dpiScale(size):
        scaled = size * _maya_host.scaleFactor()
        return round(scaled) if isinstance(size, int) else scaled

    @staticmethod
    def addWidgetToMayaLayout(control, layout):
        """Puts a widget under the host's management; both are addresses. Its full name."""
        return _maya_host.addWidget(int(control), int(layout))

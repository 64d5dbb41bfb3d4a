"""What shows messages; they may come from any thread."""

import _maya_host


class Display:
    @staticmethod
    def displayInfo(text):
        _maya_host.show(_maya_host.INFO, text)

    @staticmethod
    def displayWarning(text, showLineNumber=False):
        _maya_host.show(_maya_host.WARNING, text)

    @staticmethod
    def displayError(text, showLineNumber=False):
        _maya_host.show(_maya_host.ERROR, text)

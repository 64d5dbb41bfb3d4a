"""Plug-ins written in Python: loading and unloading them, MFnPlugin and MPxCommand.

A plug-in says by a function maya_useNewAPI() that it is written for the API's newer form
(maya.api.OpenMaya); without it gets the older one's objects (maya.OpenMayaMPx).
"""

import importlib.util
import os
import sys

import _maya_host

from maya._arguments import MArgList, MSyntax, OlderMArgList, OlderMSyntax
from maya._display import Display

_NO_OBJECT = "(kFailure): Object does not exist"
_TAKEN = "(kInvalidParameter): Object already exists"


class _Record:
    """A plug-in that is loaded, or being so."""

    def __init__(self, path, module):
        self.path = path
        self.module = module
        self.running = 0
        self.creation_procedure = self.deletion_procedure = ""
        self.menu_items = []
        self.newer = callable(getattr(module, "maya_useNewAPI", None))

    def handle(self):
        return (PluginObject if self.newer else OlderPluginObject)(self.path)


_records = {}


class PluginObject:
    """The handle of a plug-in that its entry points get."""

    def __init__(self, path=None):
        self._path = path

    def isNull(self):
        return self._path is None

    def __eq__(self, other):
        return isinstance(other, PluginObject) and self._path == other._path

    def __hash__(self):
        return hash(self._path)


class OlderPluginObject(PluginObject):
    pass


# Commands


class _Run:
    """One call of a command: its result and the command's own text."""

    def __init__(self, record, syntax):
        self.record = record
        self.syntax = syntax
        self.result = None
        self.appending = False


_runs = []


def _plain(value):
    return value if value is None or isinstance(value, (bool, int, float, str)) else list(value)


class MPxCommand(Display):
    """Base of the commands that plug-ins add; one object per call."""

    kLong, kDouble, kString, kNoArg = range(4)
    kNoResult = kNoArg

    _syntax = None
    _text = ""
    _history = True

    def __init__(self):
        pass

    def doIt(self, arguments):
        raise NotImplementedError("%s has no doIt" % type(self).__name__)

    def undoIt(self):
        raise NotImplementedError("%s has no undoIt" % type(self).__name__)

    def redoIt(self):
        raise NotImplementedError("%s has no redoIt" % type(self).__name__)

    def isUndoable(self):
        return False

    def hasSyntax(self):
        return self._syntax is not None

    def syntax(self):
        return self._syntax

    def commandString(self):
        return self._text

    def setCommandString(self, text):
        self._text = text

    def isHistoryOn(self):
        return self._history

    def setHistoryOn(self, on):
        self._history = bool(on)

    @staticmethod
    def clearResult():
        MPxCommand.setResult(None)

    @staticmethod
    def setResult(value):
        """A number, a text, or a list of either. Outside of a call nobody takes it."""
        if _runs:
            _runs[-1].result, _runs[-1].appending = _plain(value), False

    @staticmethod
    def appendToResult(value):
        """Makes the result a list; what setResult put there is lost."""
        if not _runs:
            return
        run, value = _runs[-1], _plain(value)
        values = value if isinstance(value, list) else [value]
        run.result = (run.result if run.appending else []) + values
        if any(isinstance(element, str) for element in run.result):
            run.result = [str(element) for element in run.result]
        run.appending = True

    @staticmethod
    def currentResult():
        return _runs[-1].result if _runs else None

    @staticmethod
    def isCurrentResultArray():
        return bool(_runs) and isinstance(_runs[-1].result, list)


class _OwnedCommand:
    """What asMPxPtr makes: a command that the host owns."""

    def __init__(self, command):
        self.command = command


def asMPxPtr(command):
    """Hands a command over to the host; creators of the older form return this."""
    return _OwnedCommand(command)


def _created(creator, newer):
    made = creator()
    if not newer:
        if not isinstance(made, _OwnedCommand):
            raise TypeError("The creator has to return OpenMayaMPx.asMPxPtr(command), not %s"
                            % type(made).__name__)
        made = made.command
    if not isinstance(made, MPxCommand):
        raise TypeError("The creator has to return an MPxCommand, not %s" % type(made).__name__)
    return made


class _Command:
    """A command as a plug-in registered it."""

    def __init__(self, record, creator, create_syntax):
        self._record = record
        self._creator = creator
        self._create_syntax = create_syntax
        self._syntax = None

    def describe(self):
        """Called when the syntax is first needed, then the object is kept."""
        if self._syntax is None:
            self._syntax = self._create_syntax()
        return self._syntax._description()

    def _guarded(self, function, *arguments):
        """Runs the plug-in's code, which must not be unloaded meanwhile."""
        self._record.running += 1
        try:
            return function(*arguments)
        finally:
            self._record.running -= 1

    def run(self, words, text):
        newer = self._record.newer
        run = _Run(self._record, self._syntax)
        _runs.append(run)
        try:
            command = self._guarded(_created, self._creator, newer)
            command._syntax, command._text = self._syntax, text
            self._guarded(command.doIt, (MArgList if newer else OlderMArgList)._of(words))
            undoable = self._guarded(command.isUndoable)
        finally:
            _runs.pop()
        if not undoable:
            return run.result, None, None, text
        return (run.result, lambda: self._guarded(command.undoIt),
                lambda: self._guarded(command.redoIt), command._text)


# MFnPlugin


class MFnPlugin:
    """Registers and removes what a plug-in offers. Made on the handle that the entry points get."""

    _handle = PluginObject
    _syntax = MSyntax

    def __init__(self, handle=None, vendor="Unknown", version="Unknown", apiVersion="Any"):
        if not isinstance(handle, self._handle) or \
                isinstance(handle, OlderPluginObject) != (self._handle is OlderPluginObject):
            raise TypeError("MFnPlugin needs the object that the entry point got (and a plug-in "
                            "for maya.api needs a function maya_useNewAPI)")
        self._path = handle._path
        # The exit point makes another one, usually without these.
        for name, text in (("vendor", vendor), ("version", version), ("apiVersion", apiVersion)):
            if self._detail(name) in ("Unknown", "Any"):
                _maya_host.setPluginDetail(self._path, name, text)

    def _detail(self, name):
        return _maya_host.pluginDetails(self._path)[name]

    def _record(self):
        if self._path not in _records:
            raise RuntimeError(_NO_OBJECT)
        return _records[self._path]

    def object(self):
        return self._handle(self._path)

    def name(self):
        return self._detail("name")

    def vendor(self):
        return self._detail("vendor")

    def version(self):
        return self._detail("version")

    def apiVersion(self):
        return self._detail("apiVersion")

    def loadPath(self):
        return os.path.dirname(self._path)

    def setName(self, name, allowRename=True):
        """Only before commands are registered, which carry the name already."""
        details = _maya_host.pluginDetails(self._path)
        if not name or details["commands"]:
            raise RuntimeError("(kInvalidParameter): Invalid parameter")
        free, number = name, 0
        while _maya_host.pluginPath(free) not in (None, self._path):
            if not allowRename:
                raise RuntimeError(_TAKEN)
            number += 1
            free = "%s%d" % (name, number)
        _maya_host.setPluginDetail(self._path, "name", free)

    def setVersion(self, version):
        _maya_host.setPluginDetail(self._path, "version", version)

    def registerCommand(self, name, creator, createSyntax=None):
        if not name.isidentifier():
            raise RuntimeError("(kInvalidParameter): %r is no name of a command" % name)
        command = _Command(self._record(), creator, createSyntax)
        if not _maya_host.registerCommand(
                self._path, name, command.run, createSyntax and command.describe):
            _maya_host.show(_maya_host.WARNING, "The command %s exists already." % name)
            raise RuntimeError(_TAKEN)

    def deregisterCommand(self, name):
        if not _maya_host.unregisterCommand(self._path, name):
            raise RuntimeError(_NO_OBJECT)

    def registerUI(self, creationProc, deletionProc, creationBatchProc="", deletionBatchProc=""):
        """Names of MEL procedures that run after loading and before unloading."""
        record = self._record()
        batch = _maya_host.isBatch()
        record.creation_procedure = creationBatchProc if batch else creationProc
        record.deletion_procedure = deletionBatchProc if batch else deletionProc

    def addMenuItem(self, label, parent, command, parameters, needOptionBox=False,
                    optionBoxFunction=None):
        """Adds an entry that runs a MEL command; the names of what was made."""
        made = [self._make_item("-label %s" % _quoted(label), parent,
                                ("%s %s" % (command, parameters)).strip())]
        if needOptionBox:
            made.append(self._make_item("-optionBox true", parent, optionBoxFunction or command))
        self._record().menu_items += made
        return made

    @staticmethod
    def _make_item(flags, parent, command):
        from maya import mel
        return mel.eval("menuItem %s -parent %s -command %s"
                        % (flags, _quoted(parent), _quoted(command)))

    def removeMenuItem(self, names):
        record = self._record()
        for name in list(names):
            _delete_item(name)
            if name in record.menu_items:
                record.menu_items.remove(name)

    @classmethod
    def findPlugin(cls, name):
        path = _maya_host.pluginPath(name)
        return cls._handle(path) if path in _records else cls._handle()

    @staticmethod
    def isNodeRegistered(name):
        return False


class OlderMFnPlugin(MFnPlugin):
    _handle = OlderPluginObject
    _syntax = OlderMSyntax


def _quoted(text):
    return '"%s"' % text.replace("\\", "\\\\").replace('"', '\\"')


def _delete_item(name):
    from maya import mel
    mel.eval("if (`menuItem -exists %s`) deleteUI -menuItem %s" % (_quoted(name), _quoted(name)))


# Called by the host: what is returned is what went wrong, None when nothing did.


def _show_exception():
    _maya_host.showException(*sys.exc_info())


def _import(path, name):
    spec = importlib.util.spec_from_file_location(name, path)
    module = importlib.util.module_from_spec(spec)
    # No plug-in's name may hide a module that scripts import.
    if name not in sys.modules:
        sys.modules[name] = module
    spec.loader.exec_module(module)
    return module


def _run_procedure(name):
    if name:
        from maya import mel
        mel.eval(name + "()")


def load(path, name):
    # What stands in a cache may be older than the file by less than a second.
    sys.dont_write_bytecode, kept = True, sys.dont_write_bytecode
    try:
        module = _import(path, name)
    except BaseException:
        _show_exception()
        return "Unable to dynamically load : %s\n%s" % (path, sys.exc_info()[1])
    finally:
        sys.dont_write_bytecode = kept
    for entry in ("initializePlugin", "uninitializePlugin"):
        if not callable(getattr(module, entry, None)):
            return "No %s() or %s2() function (%s)" % (entry, entry, name)
    record = _records[path] = _Record(path, module)
    try:
        _enter(record, module.initializePlugin)
        _run_procedure(record.creation_procedure)
    except BaseException:
        _show_exception()
        return "initializePlugin function failed (%s)" % name
    return None


def _enter(record, function):
    record.running += 1
    try:
        function(record.handle())
    finally:
        record.running -= 1


def forced_obstacle(path, name):
    """Why not even force helps to unload it now."""
    return "its code is running" if _records[path].running else None


def obstacle(path, name):
    if not _records[path].running and _maya_host.hasUndoSteps(path):
        return "its commands can still be undone"
    return forced_obstacle(path, name)


def unload(path, name):
    record = _records[path]
    try:
        _run_procedure(record.deletion_procedure)
        _enter(record, record.module.uninitializePlugin)
    except BaseException:
        _show_exception()
        return "uninitializePlugin function failed (%s)" % name
    left = list(_maya_host.pluginDetails(path)["commands"])
    for command in left:
        _maya_host.show(_maya_host.WARNING, 'Plug-in, "%s", left behind the command %s; removed.'
                        % (name, command))
    return None


def forget(path, name):
    """Drops what is left of a plug-in that was unloaded or did not start."""
    _maya_host.removeUndoSteps(path)
    for command in list(_maya_host.pluginDetails(path)["commands"]):
        _maya_host.unregisterCommand(path, command)
    record = _records.pop(path, None)
    for item in record.menu_items if record else ():
        _delete_item(item)
    module = sys.modules.get(name)
    if module is not None and getattr(module, "__file__", None) == path:
        del sys.modules[name]

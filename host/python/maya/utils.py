"""Work for the main thread, and the texts that the script window shows.

formatGuiException and formatGuiResult are called by the host for every uncaught exception and
every result; replacing them changes what is shown. The versions with an underscore stay as they
are.
"""

import functools
import logging
import os
import sys
import traceback

import _maya_host
from _maya_host import executeDeferred
from _maya_host import executeInMainThread as executeInMainThreadWithResult
from _maya_host import processIdleEvents


def runOnMainThread(function):
    """Decorator: calls from any thread run on the main one, and wait for the result."""

    @functools.wraps(function)
    def wrapper(*arguments, **keywords):
        return executeInMainThreadWithResult(function, *arguments, **keywords)

    return wrapper


def _message(value):
    if isinstance(value, SyntaxError):
        return str(value.msg)
    if isinstance(value, SystemExit):
        code = "" if value.code is None else " with %r" % (value.code,)
        return "The script asked to exit%s; the host goes on." % code
    try:
        return str(value)
    except Exception:
        return "<the exception has no text>"


def _place(value, trace):
    """File and line of the innermost frame, or of the syntax error itself."""
    if isinstance(value, SyntaxError) and value.filename and value.lineno:
        return value.filename, value.lineno
    place = None
    while trace is not None:
        name = trace.tb_frame.f_code.co_filename
        # No place that anybody could look at.
        if place is None or not name.startswith("<frozen "):
            place = name, trace.tb_lineno
        trace = trace.tb_next
    return place


def _formatGuiException(exceptionType, exceptionObject, traceBack, detail=2):
    message = _message(exceptionObject)
    name = exceptionType.__name__
    if detail >= 2:
        lines = traceback.format_exception(exceptionType, exceptionObject, traceBack)
        text = (message or name) + "\n" + "".join(lines)
        return text.rstrip("\n").replace("\n", "\n# ")
    parts = [name]
    place = _place(exceptionObject, traceBack) if detail == 1 else None
    if place:
        parts.append("file %s line %d" % place)
    if message:
        parts.append(message)
    if place and message:
        return "%s: %s: %s" % tuple(parts)
    return ": ".join(parts)


def formatGuiException(exceptionType, exceptionObject, traceBack, detail=2):
    """Text of an uncaught exception. Detail 0: class and message; 1: with file and line; 2: the
    message and the whole traceback."""
    return _formatGuiException(exceptionType, exceptionObject, traceBack, detail)


def _formatGuiResult(obj):
    return obj if isinstance(obj, str) else repr(obj)


def formatGuiResult(obj):
    """Text of a result line."""
    return _formatGuiResult(obj)


class MayaGuiLogHandler(logging.Handler):
    """Shows what is logged as the host's messages: errors, warnings and information."""

    def emit(self, record):
        kind = _maya_host.INFO
        if record.levelno > logging.WARNING:
            kind = _maya_host.ERROR
        elif record.levelno > logging.INFO:
            kind = _maya_host.WARNING
        try:
            _maya_host.show(kind, self.format(record))
        except Exception:
            self.handleError(record)


def guiLogHandler():
    """A new handler that logs to the script window."""
    handler = MayaGuiLogHandler()
    handler.setFormatter(logging.Formatter(
        os.environ.get("MAYA_GUI_LOGGER_FORMAT", "%(name)s : %(message)s")))
    return handler


def shellLogHandler():
    """A new handler that logs to the terminal the host was started from."""
    handler = logging.StreamHandler(sys.__stdout__)
    handler.setFormatter(logging.Formatter(
        os.environ.get("MAYA_SHELL_LOGGER_FORMAT", "%(name)s : %(levelname)s : %(message)s")))
    return handler

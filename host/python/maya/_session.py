"""What the host calls when Python starts and ends."""

import logging
import sys
import threading
import _maya_host

# Seconds that threads get to finish when the host is closed.
THREAD_LIMIT = 2.0


def _on_thread_exception(arguments):
    if arguments.exc_type is not SystemExit:
        _maya_host.showException(
            arguments.exc_type, arguments.exc_value, arguments.exc_traceback)


def _on_unraisable(problem):
    what = problem.err_msg or "Exception ignored in"
    _maya_host.show(_maya_host.WARNING, "%s: %r" % (what, problem.object))
    _maya_host.showException(problem.exc_type, problem.exc_value, problem.exc_traceback)


def _log_to_the_host():
    from maya import utils
    logger = logging.getLogger()
    logger.addHandler(utils.guiLogHandler())
    logger.setLevel(logging.INFO)


def start():
    sys.excepthook = _maya_host.showException
    sys.unraisablehook = _on_unraisable
    threading.excepthook = _on_thread_exception
    _log_to_the_host()


def _threads_to_wait_for():
    main = threading.main_thread()
    return [thread for thread in threading.enumerate()
            if not thread.daemon and thread is not main]


def _wait_for_threads():
    # Pools of workers end their threads in these.
    for call in reversed(threading._threading_atexits):
        call()
    threads = _threads_to_wait_for()
    while threads:
        for thread in threads:
            thread.join()
        threads = _threads_to_wait_for()


def stop():
    """Waits for the threads that are not daemons, but not for ever: the host has to close."""
    helper = threading.Thread(target=_wait_for_threads, daemon=True)
    helper.start()
    helper.join(THREAD_LIMIT)
    if not helper.is_alive():
        return
    names = ", ".join(thread.name for thread in _threads_to_wait_for())
    _maya_host.show(_maya_host.WARNING, "Python threads that did not end were left: " + names)
    # The interpreter itself would wait for them without a limit.
    threading._shutdown = lambda: None

"""Random clicks shall harm nothing: the program may read everything but write in one folder only.
Enforced by the kernel (Landlock), for the program and whatever it starts."""

import ctypes
import os

CREATE_RULESET, ADD_RULE, RESTRICT_SELF = 444, 445, 446
RULE_PATH_BENEATH = 1
PR_SET_NO_NEW_PRIVS = 38
OLDEST_USEFUL_ABI = 2  # before, files could not be moved to other folders at all

WRITE_FILE = 1 << 1
CHANGE_FOLDER = sum(1 << bit for bit in range(4, 13))  # make and remove whatever there is
MOVE_BETWEEN_FOLDERS = 1 << 13
TRUNCATE = 1 << 14  # of the third ABI

_kernel = ctypes.CDLL(None, use_errno=True)


class PathRule(ctypes.Structure):
    _pack_ = 1
    _fields_ = [("allowed", ctypes.c_uint64), ("folder", ctypes.c_int32)]


def _abi():
    return _kernel.syscall(CREATE_RULESET, None, ctypes.c_size_t(0), 1)


def is_possible():
    return _abi() >= OLDEST_USEFUL_ABI


def _allow(ruleset, folder, access):
    descriptor = os.open(folder, os.O_PATH | os.O_CLOEXEC)
    rule = PathRule(access, descriptor)
    if _kernel.syscall(ADD_RULE, ruleset, RULE_PATH_BENEATH, ctypes.byref(rule), 0) != 0:
        raise OSError(ctypes.get_errno(), "cannot allow " + folder)
    os.close(descriptor)


def confine_to(folder):
    """For the calling process and its children, for good."""
    access = WRITE_FILE | CHANGE_FOLDER | MOVE_BETWEEN_FOLDERS
    if _abi() > OLDEST_USEFUL_ABI:
        access |= TRUNCATE
    handled = ctypes.c_uint64(access)
    ruleset = _kernel.syscall(CREATE_RULESET, ctypes.byref(handled), ctypes.c_size_t(8), 0)
    if ruleset < 0:
        raise OSError(ctypes.get_errno(), "cannot confine the program")
    for allowed in (folder, "/dev"):
        _allow(ruleset, allowed, access)
    _kernel.prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0)
    if _kernel.syscall(RESTRICT_SELF, ruleset, 0) != 0:
        raise OSError(ctypes.get_errno(), "cannot confine the program")
    os.close(ruleset)

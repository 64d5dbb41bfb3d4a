"""The editor's commands and the keys they are given: those without one get a key for the soak."""

import os
import re

from .hands import keys_of

SOURCE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "src", "settings",
                      "KeyBindings.cpp")
ROW = re.compile(r'\{K::(\w+),\s+"([^"]*)",\s+"(\w+)",\s+"([^"]*)",\s+(?:QKeySequence::(\w+)|NO_STANDARD),')
STANDARD = {"New": "Ctrl+N", "Open": "Ctrl+O", "Save": "Ctrl+S", "Undo": "Ctrl+Z",
            "Redo": "Ctrl+Shift+Z", "Cut": "Ctrl+X", "Copy": "Ctrl+C", "Paste": "Ctrl+V",
            "SelectAll": "Ctrl+A"}
# Ctrl+Alt with a function key is the system's.
SPARE = [f"{modifiers}+F{number}" for modifiers in ("Ctrl", "Ctrl+Shift", "Alt+Shift", "Ctrl+Alt+Shift")
         for number in range(5, 13)]


def _rows():
    with open(SOURCE, encoding="utf-8") as source:
        rows = ROW.findall(source.read())
    if len(rows) < 60:
        raise SystemExit("soak: the table of keys is written differently now: " + SOURCE)
    return rows


def _bind():
    """Names to key sequences, and those of them that the soak adds."""
    bound, added, spare = {}, {}, list(SPARE)
    for _, _, name, sequences, standard in _rows():
        keys = sequences.split("|") if sequences else [STANDARD[standard]] if standard else []
        if not keys:
            added[name] = spare.pop(0)
            keys = [added[name]]
        bound[name] = keys
    return bound, added


COMMANDS, ADDED = _bind()


def key(name):
    """As xdotool writes it."""
    return keys_of(COMMANDS[name][0])


def all_keys():
    return [(name, keys_of(sequence)) for name, sequences in COMMANDS.items()
            for sequence in sequences]


def write(folder):
    with open(os.path.join(folder, "tarnwickEditor2_bindings.ini"), "w", encoding="utf-8") as file:
        file.write("[user_bindings]\n")
        for name, sequence in ADDED.items():
            file.write(f"{name}={sequence}\n")

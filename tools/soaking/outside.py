"""Files: opened, saved and closed in the editor, and changed, moved and removed behind its back."""

import os
import random
import shutil
import time

from . import words
from .actions import action
from .bindings import key
from .program import patience

FILES_AT_MOST = 120
SAVE_S = 2


def fill_project(project):
    rng = random.Random(7)
    for name in ("tools/layout.mel", "tools/scatter.py", "tools/rig/part.py", "tools/rig/limb.mel",
                 "tools/notes.txt", "tools/long.py"):
        write(os.path.join(project, name), content(rng, name, 3000 if "long" in name else 40))


def write(path, text):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


def content(rng, name, count):
    return words.lines(rng, "mel" if name.endswith(".mel") else "python", count)


def _files(s):
    return [os.path.join(folder, name) for folder, _, names in os.walk(s.project) for name in names]


def _stamp(path):
    try:
        state = os.stat(path)
        return state.st_mtime_ns, state.st_size
    except OSError:
        return None


def open_file(s, path):
    s.focus_editor()
    s.hands.keys(key("gotoFile"))
    if not s.wait(lambda seen: seen.focus["name"] == "m_field", 1):
        return False
    s.hands.text(path)
    s.hands.keys("Return")
    label = os.path.basename(path)
    return s.wait(lambda seen: any(label in tab for tabs in seen.labels() for tab in tabs), 2)


@action("open a file", 10)
def open_some_file(s):
    files = _files(s)
    if not files:
        fill_project(s.project)
        files = _files(s)
    path = s.rng.choice(files)
    s.note("    " + path)
    if open_file(s, path):
        s.count("files opened")


@action("save", 10)
def save(s):
    files = _files(s)
    if not files:
        return
    path = s.rng.choice(files)
    if not open_file(s, path):
        return
    before = _stamp(path)
    s.hands.keys("ctrl+End", "Return")
    s.hands.text("# " + s.rng.choice(words.PYTHON_NAMES))
    s.hands.keys("Escape", key("save"))
    end = time.monotonic() + SAVE_S * patience()
    while time.monotonic() < end:
        if s.look().modal:
            s.settle()
        if _stamp(path) not in (before, None):
            s.count("files saved")
            return
        time.sleep(0.05)
    s.note(f"    not saved: {path}")


@action("close", 7)
def close(s):
    s.focus_editor()
    for _ in range(s.rng.randint(1, 3)):
        s.hands.keys(key("closeFile"))
        s.settle()


@action("change files from outside", 10)
def change_outside(s):
    for _ in range(s.rng.randint(1, 6)):
        _change_one(s)
    if s.rng.random() < 0.5:  # the editor looks when it gets the focus back
        sight = s.look()
        if sight.host():
            s.run_command_line("about -product")
            s.settle()
            s.focus_editor()


def _change_one(s):
    files = _files(s)
    kind = s.rng.choice(("write", "write", "append", "remove", "rename", "lock", "new", "new", "folder"))
    path = s.rng.choice(files) if files else None
    s.note(f"    {kind} {path}")
    try:
        if kind == "new" and len(files) < FILES_AT_MOST or not path:
            name = f"tools/new/n{s.rng.randrange(60)}.{s.rng.choice(('py', 'mel', 'txt'))}"
            write(os.path.join(s.project, name), content(s.rng, name, s.rng.randint(0, 60)))
        elif kind == "write":
            write(path, content(s.rng, path, s.rng.randint(0, 80)))
        elif kind == "append":
            with open(path, "ab") as file:
                file.write(s.rng.choice((b"more\n", b"\xff\xfe\x00", b"crlf\r\n", "\u00e4\n".encode())))
        elif kind == "remove":
            os.remove(path)
        elif kind == "rename":
            os.rename(path, path + ".moved" if len(path) < 300 else s.project + "/tools/back.py")
        elif kind == "lock":
            os.chmod(path, s.rng.choice((0o444, 0o644, 0o600)))
        elif kind == "folder":
            shutil.rmtree(os.path.join(s.project, "tools", "new"), ignore_errors=True)
        s.count("files changed from outside")
    except OSError as error:
        s.note(f"    {error}")

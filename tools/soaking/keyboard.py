"""Typing, moving about in texts, completion and every command that has a key."""

from . import words
from .actions import action
from .bindings import all_keys, key

MOVES = ["Left", "Right", "Up", "Down", "Home", "End", "ctrl+Left", "ctrl+Right", "ctrl+Home",
         "ctrl+End", "Prior", "Next", "shift+Left", "shift+Right", "shift+Up", "shift+Down",
         "shift+End", "shift+Home", "ctrl+shift+Right", "ctrl+shift+End", "shift+Next"]
EDITS = ["BackSpace", "Delete", "ctrl+BackSpace", "ctrl+Delete", "Return", "Tab", "shift+Tab",
         "ctrl+z", "ctrl+shift+z", "ctrl+d", "ctrl+c", "ctrl+x", "ctrl+v", "ctrl+a", "Insert"]
# Pressed like any other, but not by the dozen: each opens something that wants to be answered.
RARE = {"openFile", "saveAs", "openWorkspace", "saveWorkspaceAs", "addFolderToWorkspace",
        "sourceScript", "saveScriptToShelf", "closeAllFiles", "preferences", "commandReference"}


def _type(s, text):
    before = s.focus_editor()
    length = sum(editor["length"] for editor in before.editors)
    s.hands.text(text)
    after = s.blink()
    if sum(editor["length"] for editor in after.editors) != length:
        s.count("texts changed by typing")


@action("type Python", 14)
def type_python(s):
    _type(s, words.lines(s.rng, "python", s.rng.randint(1, 4)))


@action("type MEL", 10)
def type_mel(s):
    _type(s, words.lines(s.rng, "mel", s.rng.randint(1, 4)))


@action("type anything", 8)
def type_anything(s):
    text = words.junk(s.rng, s.rng.randint(5, 120))
    if s.rng.random() < 0.1:
        text += words.UNUSUAL
    _type(s, text)


@action("move and edit", 14)
def move_and_edit(s):
    s.focus_editor()
    keys = [s.rng.choice(MOVES if s.rng.random() < 0.7 else EDITS) for _ in range(s.rng.randint(5, 40))]
    s.note("    " + " ".join(keys))
    s.hands.keys(*keys)


@action("select and surround", 4)
def select_and_surround(s):
    s.focus_editor()
    s.hands.keys(*["shift+" + s.rng.choice(("Down", "Right", "End"))] * s.rng.randint(1, 5))
    s.hands.text(s.rng.choice("([{\"'`#"))
    s.hands.keys(*[s.rng.choice(("Tab", "shift+Tab", "ctrl+slash", "ctrl+z", "alt+Up", "alt+Down"))] * 2)


@action("complete", 10)
def complete(s):
    s.hands.keys(*["ctrl+shift+n" if s.rng.random() < 0.1 else "Escape"])
    s.focus_editor()
    s.hands.keys("ctrl+End", "Return")
    s.hands.text(s.rng.choice(words.COMPLETIONS[s.rng.choice(("python", "mel"))]))
    if s.rng.random() < 0.5:
        s.hands.keys("ctrl+space")
    lists = s.wait(lambda seen: [view for view in seen.views if "omplet" in view["class"] + view["name"]
                                 or view["window"] != seen.editor_window()], 0.5)
    if lists:
        s.count("completions shown")
    moves = [s.rng.choice(("Down", "Up", "Next", "Prior", "BackSpace", "a"))
             for _ in range(s.rng.randint(0, 6))]
    s.hands.keys(*moves, s.rng.choice(("Tab", "Return", "Escape", "space", "Left", "parenleft")))


@action("press commands", 20)
def press_commands(s):
    s.focus_editor()
    chosen = [s.rng.choice(all_keys()) for _ in range(s.rng.randint(1, 5))]
    for name, sequence in chosen:
        if name in RARE and s.rng.random() < 0.6:
            continue
        s.note(f"    {name} {sequence}")
        s.counts["command " + name] += 1
        s.hands.keys(sequence)
        s.settle()


@action("type into whatever has the focus", 3)
def type_blindly(s):
    keys = [s.rng.choice(MOVES + ["Tab", "shift+Tab", "space", "Return", "Escape", "Menu", "a", "n", "1"])
            for _ in range(s.rng.randint(3, 15))]
    s.note("    " + " ".join(keys))
    s.hands.keys(*keys)


@action("zoom", 2)
def zoom(s):
    s.focus_editor()
    s.hands.keys(*[key(s.rng.choice(("increaseFontSize", "decreaseFontSize")))] * s.rng.randint(1, 6),
                 key("resetFontSize"))

"""The side bar's pages, finding, the field that goes somewhere, and the preferences."""

import os

from . import words
from .actions import action
from .bindings import key
from .session import BLINK_S
from .sight import middle, somewhere

SEARCH_S = 3
PREFERENCE_PAGES = 10  # all but the last one, which holds the keys that the soak presses


@action("switch the side bar", 5)
def switch_view(s):
    s.focus_editor()
    for _ in range(s.rng.randint(1, 3)):
        s.hands.keys(key(s.rng.choice(("explorer", "findInFiles", "quickHelp", "toggleSideBar"))))
    button = s.look().button(s.rng.choice(("explorerButton", "searchButton", "quickHelpButton")))
    if button:
        s.hands.click(middle(button["place"]))
    s.count("side bar switched")


@action("search in files", 8)
def search_files(s):
    s.focus_editor()
    s.hands.keys(key(s.rng.choice(("findInFiles", "findInFiles", "replaceInFiles"))), "ctrl+a")
    text = s.rng.choice(words.SEARCHED)
    s.note(f"    {text!r}")
    s.hands.text(text)
    if s.rng.random() < 0.3:
        s.hands.keys(*["Tab"] * s.rng.randint(1, 6), s.rng.choice(("space", "a")))
    s.hands.keys("Return")
    shown = s.wait(lambda seen: (seen.view("m_results") or {}).get("rows") and seen, SEARCH_S / 2)
    if not shown:
        return
    s.count("searches with results")
    kind = s.rng.random()
    if kind < 0.5:
        s.hands.keys(*[key(s.rng.choice(("findInFilesNext", "findInFilesPrevious")))]
                     * s.rng.randint(1, 6))
        s.count("results visited")
    elif kind < 0.8:
        s.hands.click(somewhere(s.rng, shown.view("m_results")["place"]), times=s.rng.choice((1, 2)))
        s.hands.keys(*[s.rng.choice(("Down", "Up", "Left", "Right", "Return", "Delete"))] * 4)
    else:
        s.hands.keys(key("replaceAll"))


@action("find in the text", 10)
def find(s):
    s.focus_editor()
    s.hands.keys(key(s.rng.choice(("find", "replace"))), "ctrl+a")
    s.hands.text(s.rng.choice(words.SEARCHED))
    for _ in range(s.rng.randint(1, 8)):
        s.hands.keys(s.rng.choice(("Return", "shift+Return", "F3", "shift+F3", "Tab", "space", "Up",
                                   "Down", "ctrl+F3", key("replaceNext"))))
    if s.rng.random() < 0.2:
        s.hands.keys(key("replaceAll"))
    buttons = [button for button in s.look().buttons if button["class"] == "FlatButton"]
    if buttons and s.rng.random() < 0.6:
        s.hands.click(middle(s.rng.choice(buttons)["place"]))
    s.count("find bars used")
    if s.rng.random() < 0.7:
        s.hands.keys("Escape", "Escape")


@action("go somewhere", 10)
def go_to(s):
    s.focus_editor()
    s.hands.keys(key(s.rng.choice(("gotoFile", "gotoSymbolInFile", "gotoLine"))))
    if s.wait(lambda seen: seen.focus["name"] == "m_field", 0.6):
        s.count("go-to fields opened")
    text = s.rng.choice(("m", "part", "notes:3", "@b", ":12", ":+5", ">toggle", ">out", "?", "12:4", "zzz",
                         os.path.join(s.project, "tools", "layout.mel"), ">about", "@", "@:", ">line"))
    s.hands.text(text)
    s.hands.keys(*[s.rng.choice(("Down", "Up", "Next", "BackSpace"))] * s.rng.randint(0, 5))
    s.hands.keys(s.rng.choice(("Return", "Return", "Escape", "Tab")))


@action("quick help", 5)
def quick_help(s):
    s.focus_editor()
    s.hands.keys(key("quickHelp"), "ctrl+a")
    s.hands.text(s.rng.choice(words.HELPED))
    s.hands.keys("Return")
    if s.wait(lambda seen: (seen.view("m_quickHelpFlags") or {}).get("rows"), 0.6):
        s.count("quick help shown")
    s.hands.keys(*[s.rng.choice(("Down", "Up", "Return", "a", "BackSpace"))] * s.rng.randint(0, 5), "Escape")


@action("use the explorer", 8)
def use_explorer(s):
    s.focus_editor()
    s.hands.keys(key("explorer"))
    tree = s.wait(lambda seen: seen.view("m_workspaceTree"), 0.8)
    if not tree:
        return
    s.hands.click(somewhere(s.rng, tree["place"]), times=s.rng.choice((1, 1, 2)))
    s.count("workspace tree used")
    for _ in range(s.rng.randint(1, 10)):
        s.hands.keys(s.rng.choice(("Down", "Down", "Up", "Left", "Right", "Right", "Return", "space", "Home")))
    kind = s.rng.random()
    if kind < 0.15:
        s.hands.keys("F2")
        s.hands.text(s.rng.choice(("renamed.py", "rig", "b.mel", "a/b.py", "")))
        s.hands.keys(s.rng.choice(("Return", "Escape")))
    elif kind < 0.3:
        s.hands.keys("Menu", "Down", s.rng.choice(("Return", "Down")), "Return")
        s.hands.text(s.rng.choice(("new.py", "deep/er/new.mel", "x")))
        s.hands.keys(s.rng.choice(("Return", "Escape")))
    elif kind < 0.4:
        s.hands.keys("Delete")
    elif kind < 0.5:
        s.hands.drag(somewhere(s.rng, tree["place"]), somewhere(s.rng, tree["place"]))


@action("use the outline and the open editors", 4)
def use_lists(s):
    sight = s.look()
    views = [view for view in sight.views
             if view["name"] in ("m_outlineTree", "m_openEditorsTree") and view["rows"]]
    if not views:
        s.hands.keys(key("explorer"))
        return
    s.hands.click(somewhere(s.rng, s.rng.choice(views)["place"]), times=s.rng.choice((1, 2)))
    s.hands.keys(*[s.rng.choice(("Down", "Up", "Left", "Right", "Return"))] * s.rng.randint(1, 5))
    s.count("outline and open editors used")


def open_preferences(s):
    s.focus_editor()
    s.hands.keys(key("preferences"))
    return s.wait(lambda seen: seen.modal and seen.modal["name"] == "m_preferencesDialog" and seen, 2)


def _poke(s, dialog):
    """Somewhere in the dialog, but not on what closes it."""
    sight = s.look()
    areas = [area for area in s.areas() if area["window"] == dialog["window"]
             and area["place"][2] > 1 and area["place"][3] > 1]
    left_alone = [button["place"] for button in sight.buttons_in(dialog["window"])
                  if button["text"].replace("&", "") in ("OK", "Apply", "Cancel")]
    left_alone += [each["place"] for each in (sight.view("m_pageList"), sight.field("m_search")) if each]
    if not areas:
        return
    point = somewhere(s.rng, s.rng.choice(areas)["place"])
    if not any(x <= point[0] < x + w and y <= point[1] < y + h for x, y, w, h in left_alone):
        s.hands.click(point)
        s.hands.keys(*s.rng.choice((["Down"], ["Up", "Up"], ["a"], ["space"], ["BackSpace"], ["Tab"], [])))


@action("change preferences", 5)
def change_preferences(s):
    sight = open_preferences(s)
    if not sight:
        return
    s.count("preferences opened")
    dialog = sight.modal
    page = s.rng.randrange(PREFERENCE_PAGES)
    s.changed_preferences.add(page)
    _show_page(s, sight, page)
    for _ in range(s.rng.randint(1, 6)):
        sight = s.look()
        if not sight.modal:
            return
        if sight.modal["window"] != dialog["window"] or sight.popup:
            s.hands.keys("Escape")
        else:
            _poke(s, dialog)
    close_preferences(s, s.rng.choice(("Cancel", "Cancel", "OK", "Apply", "Restore Defaults")))


def close_preferences(s, button_text):
    for text in (button_text, "Cancel"):
        sight = s.blink()
        button = sight.button(text)
        if sight.modal and button and button["enabled"]:
            s.hands.click(middle(button["place"]))
            if text in ("OK", "Apply"):
                s.count("preferences applied")


def _show_page(s, sight, page):
    """The pages are known by their places in the list."""
    x, y, width, _ = sight.view("m_pageList")["place"]
    s.hands.click((x + width // 2, y + 12))
    s.hands.keys("Home", *["Down"] * page)


def restore_preferences(s):
    """Every page that was touched as a first start has it."""
    sight = open_preferences(s)
    if not sight:
        return
    for page in s.changed_preferences:
        _show_page(s, sight, page)
        button = s.blink().button("Restore Defaults")
        if button and button["enabled"]:
            s.hands.click(middle(button["place"]))
            _confirm(s)
    s.changed_preferences.clear()
    button = s.blink().button("OK")
    if button:
        s.hands.click(middle(button["place"]))
        _confirm(s)


def _confirm(s):
    sight = s.blink()
    yes = sight.modal and sight.modal["class"] == "QMessageBox" and sight.button("Yes")
    if yes:
        s.hands.click(middle(yes["place"]))

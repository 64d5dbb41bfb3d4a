"""Executing: scripts that print, warn, raise, use threads, and endless ones that Escape stops."""

import subprocess
import time

from . import words
from .actions import action
from .bindings import key
from .program import patience
from .session import BLINK_S

TABS_AT_MOST = 14
OUTPUT_LIMIT_S = 6
ENDLESS_S = 0.5


def set_clipboard(text):
    subprocess.run(["xclip", "-selection", "clipboard", "-i"], input=text, text=True, timeout=20,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)


def write_script(s, language, script):
    """Into a fresh buffer of its own."""
    sight = s.focus_editor()
    if sight.tab_count() > TABS_AT_MOST:
        for _ in range(5):
            s.hands.keys(key("closeFile"))
            s.settle()
        s.focus_editor()
    s.hands.keys(key("newPythonBuffer" if language == "python" else "newMelBuffer"))
    s.wait(lambda seen: any(text["focus"] and not text["length"] for text in seen.editors))
    if s.rng.random() < 0.3 and "\n" not in script:
        s.hands.text(script)
        s.hands.keys("Escape")
    else:
        set_clipboard(script)
        s.hands.keys("ctrl+v")
    return s.wait(lambda seen: any(text["focus"] and text["length"] for text in seen.editors))


@action("execute", 16)
def execute(s):
    language = s.rng.choice(("python", "mel"))
    s.number += 1
    script = words.script(s.rng, language, s.number)
    s.note(f"    {language}: {script!r}")
    if not write_script(s, language, script):
        s.count("scripts that did not arrive")
        return
    s.hands.keys(key(s.rng.choice(("execute", "executeAll"))))
    marker = f"soak {s.number}"
    s.count("scripts executed")
    if s.wait(lambda seen: seen.console and marker in seen.console["recent"], OUTPUT_LIMIT_S):
        s.count("scripts whose output was seen")


@action("execute a line or a selection", 5)
def execute_part(s):
    s.number += 1
    marker = f"soak {s.number}"
    if not write_script(s, "python", f"x = 1\nprint('{marker}')\ny = (x,"):
        return
    s.hands.keys("Up", "Home")
    if s.rng.random() < 0.5:
        s.hands.keys("shift+End", key("execute"))
    else:
        s.hands.keys(key("executeLine"))
    if s.wait(lambda seen: seen.console and marker in seen.console["recent"], OUTPUT_LIMIT_S):
        s.count("lines and selections whose output was seen")


@action("stop an endless loop", 3)
def stop_endless(s):
    language = s.rng.choice(("python", "mel"))
    script = s.rng.choice(words.ENDLESS[language])
    s.note(f"    {language}: {script!r}")
    if not write_script(s, language, script):
        return
    s.hands.keys(key("execute"))
    time.sleep(ENDLESS_S * patience())
    s.hands.keys("Escape")
    s.hands.keys("Escape")
    s.number += 1
    marker = f"soak {s.number}"
    # Whether the interface listens again is what counts: another script has to run.
    if not write_script(s, "python", f"print('{marker}')"):
        s.hands.keys("Escape")
        return
    s.hands.keys(key("execute"))
    if s.wait(lambda seen: seen.console and marker in seen.console["recent"], OUTPUT_LIMIT_S):
        s.count("endless loops stopped")


@action("host's command line", 3)
def command_line(s):
    s.run_command_line(s.rng.choice(["print \"hello\\n\"", "about -v", "nonsense", "warning \"line\"",
                                     "tarnwickEditor2", "int $x = 1"]))
    time.sleep(BLINK_S)


@action("print and copy from the console", 4)
def use_console(s):
    sight = s.look()
    if not sight.console:
        s.hands.keys(key("toggleOutput"))
        return
    s.activate(sight.console["window"])
    x, y, width, height = sight.console["place"]
    point = (x + s.rng.randrange(max(1, width)), y + s.rng.randrange(max(1, height)))
    s.hands.click(point, times=s.rng.choice((1, 2, 3)))
    s.hands.wheel(point, s.rng.choice((-9, -3, 3, 9)), s.rng.choice((None, None, "ctrl")))
    s.hands.keys(*s.rng.choice((["ctrl+a", "ctrl+c"], ["ctrl+f"], ["ctrl+End"], ["shift+Prior", "ctrl+c"],
                                ["F3", "F3"], ["ctrl+Home"], ["shift+F3"])))
    if s.rng.random() < 0.3:
        s.hands.text(s.rng.choice(("soak", "line 1", "(")))
        s.hands.keys("Return", "Return", "Escape")
    if s.rng.random() < 0.2:
        s.hands.keys(key("clearOutput"))

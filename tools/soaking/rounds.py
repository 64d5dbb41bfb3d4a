"""Rounds of random actions, the state that each returns to, and what the memory says then."""

import statistics
import time

from . import keyboard, mouse, outside, running, views  # noqa: F401 (they fill the table of actions)
from .actions import choose
from .bindings import key
from .program import Failure, patience
from .sight import middle

QUIET_S = 1.2  # after the last change of a text, until what follows it is through
LIMIT_MB = 5.0
MEGABYTE = 1024.0 * 1024.0
LEVEL_ROUNDS = 3  # a level is the median of so many rounds


class Rounds:
    def __init__(self, session, seconds, warm_up_s):
        self.session = session
        self.seconds = seconds
        self.warm_up_s = warm_up_s
        self.rows = []
        self.started = time.monotonic()

    def elapsed(self):
        return time.monotonic() - self.started

    def run(self, total_s):
        while self.elapsed() < total_s:
            self._run_actions(min(self.seconds, max(1.0, total_s - self.elapsed())))
            return_to_base(self.session)
            self._measure()

    def _run_actions(self, seconds):
        s = self.session
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            chosen = choose(s.rng)
            s.note(chosen.name)
            s.counts["action " + chosen.name] += 1
            chosen.run(s)
            s.settle()
            s.show_editor()

    def _measure(self):
        s = self.session
        time.sleep(QUIET_S * patience())
        memory = s.program.ask("memory")
        row = {"end": self.elapsed(), "warm": self.elapsed() < self.warm_up_s,
               "live": memory["live"] / MEGABYTE, "resident": memory["resident"] / MEGABYTE,
               "python": memory["python"], "widgets": memory["widgets"], "objects": memory["objects"],
               "tabs": s.look().tab_count()}
        self.rows.append(row)
        s.note("round " + format_row(len(self.rows), row))
        print(format_row(len(self.rows), row), flush=True)

    def growth(self):
        """Of the live heap since warm-up in MB; None while there are too few rounds to tell."""
        warm = [row["live"] for row in self.rows if row["warm"]][-LEVEL_ROUNDS:]
        after = [row["live"] for row in self.rows if not row["warm"]][-LEVEL_ROUNDS:]
        if not warm or not after:
            return None
        return statistics.median(after) - statistics.median(warm)

    def judge(self):
        growth = self.growth()
        if growth is not None and growth > LIMIT_MB:
            raise Failure("leak", f"the live heap grew by {growth:.1f} MB since warm-up")


HEADER = "round    time  phase    live MB  resident MB  Python blocks  widgets  objects  tabs"


def format_row(number, row):
    return (f"{number:5}  {int(row['end']) // 60:3}:{int(row['end']) % 60:02}  "
            f"{'warm-up' if row['warm'] else 'counts':7}  {row['live']:7.2f}  {row['resident']:11.1f}  "
            f"{row['python']:13}  {row['widgets']:7}  {row['objects']:7}  {row['tabs']:4}")


# The state that rounds end in

def return_to_base(s):
    """One empty editor, an empty console and no results, without questions left open."""
    s.note("back to base")
    s.hands.let_go()
    s.hands.keys("Escape", "Escape", "Escape")
    s.settle()
    close_windows(s)
    s.show_editor()
    if s.changed_preferences:
        views.restore_preferences(s)
        s.settle()
    clear_views(s)
    close_tabs(s)
    s.run_command_line("hostAction clearHistory")
    s.focus_editor()
    s.hands.keys(key("resetFontSize"), key("clearOutput"), key("explorer"))
    s.settle()


def close_windows(s):
    """Those that are neither the host's nor the editor's, and menus that were torn off."""
    for _ in range(6):
        sight = s.look()
        kept = {window["window"] for window in (sight.host(), sight.window("host::ui::FloatingWindow"))
                if window}
        others = [window for window in sight.windows if window["window"] not in kept
                  and window["type"] in (1, 3)]
        others += [menu for menu in sight.menus if menu["class"] == "QTornOffMenu"]
        if not others:
            return
        for window in others:
            s.note(f"    closing {window['class']}")
            s.hands.close(window, s.manager)
        s.settle()


def clear_views(s):
    s.focus_editor()
    s.hands.keys(key("findInFiles"), "ctrl+a", "BackSpace", "Return", "Escape")
    s.focus_editor()
    s.hands.keys(key("quickHelp"), "ctrl+a", "BackSpace", "Return", "Escape")
    s.settle()


def close_tabs(s):
    """Without keeping anything."""
    for _ in range(20):
        s.focus_editor()
        s.hands.keys(key("closeAllFiles"))
        sight = s.wait(lambda seen: (seen.modal or not seen.tab_count()) and seen, 1)
        if not sight:
            s.hands.keys(key("closeFile"))
            sight = s.blink()
        for _ in range(60):
            if not sight or not sight.modal:
                break
            wanted = "No" if sight.modal["title"] != "Delete" else "Yes"
            button = next((button for button in sight.buttons_in(sight.modal["window"])
                           if button["text"].replace("&", "") == wanted), None)
            if button:
                s.hands.click(middle(button["place"]))
            else:
                s.settle()
            sight = s.blink()
        if s.wait(lambda seen: not seen.tab_count(), 1):
            s.hands.keys(key("newPythonBuffer"))
            s.wait(lambda seen: seen.editors)
            return
    raise Failure("stuck", f"tabs do not close: {s.look().labels()}")

"""Keys and clicks on the display, gathered and sent by few calls of xdotool."""

import subprocess

KEY_DELAY_MS = 4
DRAG_STEPS = 8
DRAG_PAUSE_S = "0.012"

SIGNS = {
    " ": "space", "\n": "Return", "\t": "Tab", "!": "exclam", '"': "quotedbl", "#": "numbersign",
    "$": "dollar", "%": "percent", "&": "ampersand", "'": "apostrophe", "(": "parenleft",
    ")": "parenright", "*": "asterisk", "+": "plus", ",": "comma", "-": "minus", ".": "period",
    "/": "slash", ":": "colon", ";": "semicolon", "<": "less", "=": "equal", ">": "greater",
    "?": "question", "@": "at", "[": "bracketleft", "\\": "backslash", "]": "bracketright",
    "^": "asciicircum", "_": "underscore", "`": "grave", "{": "braceleft", "|": "bar",
    "}": "braceright", "~": "asciitilde",
}
NAMES = {"pgdown": "Next", "pgup": "Prior", "return": "Return", "enter": "KP_Enter", "esc": "Escape",
         "up": "Up", "down": "Down", "tab": "Tab"}


def key_of(sign):
    """The key that makes a character."""
    if sign in SIGNS:
        return SIGNS[sign]
    return sign if sign.isascii() else f"U{ord(sign):04X}"


def keys_of(sequence):
    """`Ctrl+Shift+PgDown` as xdotool writes it."""
    *modifiers, last = sequence.replace("++", "+plus").split("+")
    if len(last) == 1:
        last = key_of(last.lower())
    return "+".join([modifier.lower() for modifier in modifiers] + [NAMES.get(last.lower(), last)])


class Hands:
    def keys(self, *names, delay=KEY_DELAY_MS):
        for start in range(0, len(names), 200):
            self._do("key", "--delay", delay, *names[start:start + 200])

    def text(self, text, delay=KEY_DELAY_MS):
        self.keys(*map(key_of, text), delay=delay)

    def move(self, point):
        self._do("mousemove", *point)

    def click(self, point, button=1, times=1, modifier=None):
        hold = ["keydown", modifier] if modifier else []
        release = ["keyup", modifier] if modifier else []
        self._do("mousemove", *point, *hold, "click", "--repeat", times, "--delay", 30, button,
                 *release)

    def wheel(self, point, steps, modifier=None):
        self.click(point, 5 if steps > 0 else 4, abs(steps), modifier)

    def drag(self, start, end, button=1):
        command = ["mousemove", *start, "mousedown", button]
        for step in range(1, DRAG_STEPS + 1):
            x, y = (a + (b - a) * step // DRAG_STEPS for a, b in zip(start, end))
            command += ["mousemove", x, y, "sleep", DRAG_PAUSE_S]
        self._do(*command, "mouseup", button)

    def press_and_leave(self, start, end):
        """A drag that Escape ends."""
        self._do("mousemove", *start, "mousedown", 1, "sleep", DRAG_PAUSE_S, "mousemove", *end,
                 "sleep", DRAG_PAUSE_S, "mousemove", end[0] + 3, end[1] + 3, "sleep", DRAG_PAUSE_S,
                 "key", "Escape", "mouseup", 1)

    def let_go(self):
        self._do("mouseup", 1, "mouseup", 2, "mouseup", 3, "keyup", "ctrl", "keyup", "shift",
                 "keyup", "alt")

    def resize(self, window, width, height):
        self._do("windowsize", window, width, height)

    def move_window(self, window, x, y):
        self._do("windowmove", window, x, y)

    def activate(self, window, manager):
        if manager:
            self._do("windowactivate", window)
        else:
            self._do("windowraise", window, "windowfocus", window)

    def close(self, window, manager):
        """By the window manager, as its button does; without one by Escape."""
        self._do("windowraise", window["window"])
        if manager:
            x, y, width, height = window["place"]
            self._do("keydown", "super", "keydown", "ctrl", "mousemove", x + width // 2, y + height // 2,
                     "click", 2, "keyup", "ctrl", "keyup", "super")
        else:
            self._do("windowfocus", window["window"], "key", "Escape")

    @staticmethod
    def _do(*command):
        # A window that went away meanwhile is no fault of anybody.
        subprocess.run(["xdotool", *map(str, command)], stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=False, timeout=120)

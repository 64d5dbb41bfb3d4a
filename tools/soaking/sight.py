"""What the probe saw, and how to find something in it."""

FORBIDDEN_ENTRIES = ("quit", "exit", "command line")


def middle(place):
    x, y, width, height = place
    return x + width // 2, y + height // 2


def somewhere(rng, place, margin=1):
    x, y, width, height = place
    return (x + rng.randrange(min(margin, width - 1), max(width - margin, margin + 1)),
            y + rng.randrange(min(margin, height - 1), max(height - margin, margin + 1)))


class Sight:
    def __init__(self, seen):
        self.seen = seen
        self.windows = seen["windows"]
        self.menus = seen["menus"]
        self.handles = seen["handles"]
        self.buttons = seen["buttons"]
        self.fields = seen["fields"]
        self.views = seen["views"]
        self.modal = seen.get("modal")
        self.popup = seen.get("popup")
        self.focus = seen.get("focus", {"class": "", "name": "", "window": ""})
        self.editors = [text for text in seen["texts"] if text["class"] == "CodeEditor"]
        self.console = next((text for text in seen["texts"] if text["class"] == "OutputTextEdit"), None)
        self.bars = sorted((bar for bar in seen["bars"] if bar["class"] == "CodeEditorGroupTabBar"),
                           key=lambda bar: bar["place"])

    def labels(self):
        """Of the tabs, group by group, as they stand."""
        return [[tab["text"] for tab in bar["tabs"]] for bar in self.bars]

    def tab_count(self):
        return sum(map(len, self.labels()))

    def window(self, kind):
        return next((window for window in self.windows if window["class"] == kind), None)

    def host(self):
        return self.window("host::ui::HostWindow")

    def editor_window(self):
        """The window that the editor is in; None when it is closed."""
        areas = [*self.editors, *self.bars, self.console, self.button("explorerButton"),
                 self.button("m_position")]
        return next((area["window"] for area in areas if area), None)

    def field(self, name):
        return next((field for field in self.fields if field["name"] == name), None)

    def view(self, name):
        return next((view for view in self.views if view["name"] == name), None)

    def button(self, name):
        """By its name or what is written on it."""
        return next((button for button in self.buttons
                     if name in (button["name"], button["text"].replace("&", ""))), None)

    def buttons_in(self, window):
        return [button for button in self.buttons if button["window"] == window and button["enabled"]]

    def entries(self):
        """What may be chosen of the menus that are open."""
        return [entry for menu in self.menus for entry in menu["entries"]
                if entry["enabled"] and entry["place"][2] > 0 and entry["place"][3] > 0
                and not any(word in entry["text"].replace("&", "").lower()
                            for word in FORBIDDEN_ENTRIES)]

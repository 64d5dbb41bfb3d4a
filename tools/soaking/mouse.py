"""Clicks, drags and wheels on whatever is there, tabs, splitters and windows among it."""

from .actions import action
from .sight import middle, somewhere

# Clicks that end the host or hide what the soak needs.
LEFT_ALONE = {"QMenuBar", "closeButton"}
SCREEN = (1600, 1000)
LOWEST = 930  # the host's command line stays free below


def _anything(s):
    areas = [area for area in s.areas() if area["class"] not in LEFT_ALONE
             and area["name"] not in LEFT_ALONE and area["place"][2] > 1 and area["place"][3] > 1]
    area = s.rng.choice(areas)
    s.note(f"    on {area['class']} {area['name']}")
    return somewhere(s.rng, area["place"])


@action("click anywhere", 14)
def click_anywhere(s):
    s.hands.click(_anything(s), button=s.rng.choice((1, 1, 1, 2)), times=s.rng.choice((1, 1, 2, 3)),
                  modifier=s.rng.choice((None, None, None, "shift", "ctrl")))


@action("drag anywhere", 6)
def drag_anywhere(s):
    s.hands.drag(_anything(s), _anything(s))


@action("begin to drag a tab and leave it", 2)
def leave_drag(s):
    """Of tabs only: Qt itself loses its way when the dragging of text is left by Escape."""
    tabs = [tab for bar in s.look().bars for tab in bar["tabs"] if tab["place"][2] > 4]
    if tabs:
        s.hands.press_and_leave(middle(s.rng.choice(tabs)["place"]), _anything(s))


@action("turn the wheel", 4)
def turn_wheel(s):
    s.hands.wheel(_anything(s), s.rng.choice((-8, -2, 2, 8)), s.rng.choice((None, None, "ctrl", "shift")))


@action("context menu", 8)
def context_menu(s):
    s.hands.click(_anything(s), button=3)
    if s.wait(lambda seen: seen.popup, 0.4):
        s.count("context menus opened")


@action("menu bar", 5)
def menu_bar(s):
    bars = [area for area in s.areas() if area["class"] == "QMenuBar" and area["place"][2] > 1]
    if not bars:
        return
    x, y, width, height = s.rng.choice(bars)["place"]
    s.hands.click((x + s.rng.randrange(min(420, width)), y + height // 2))
    if s.wait(lambda seen: seen.popup, 0.4):
        s.count("menus opened")


@action("hover", 3)
def hover(s):
    s.hands.move(_anything(s))
    s.blink()


@action("click a tab", 5)
def click_tab(s):
    tabs = [tab for bar in s.look().bars for tab in bar["tabs"] if tab["place"][2] > 4]
    if tabs:
        s.hands.click(middle(s.rng.choice(tabs)["place"]), button=s.rng.choice((1, 1, 1, 1, 2)),
                      times=s.rng.choice((1, 1, 1, 2)))


@action("drag a tab", 14)
def drag_tab(s):
    sight = s.look()
    tabs = [tab for bar in sight.bars for tab in bar["tabs"] if tab["place"][2] > 4]
    if not tabs:
        return
    places = [editor["place"] for editor in sight.editors]
    kind = s.rng.random()
    if kind < 0.35 or not places:
        target = somewhere(s.rng, s.rng.choice(sight.bars)["place"])
    elif kind < 0.8:
        x, y, width, height = s.rng.choice(places)
        target = s.rng.choice(((x + 8, y + height // 2), (x + width - 16, y + height // 2),
                               (x + width // 2, y + 8), (x + width // 2, y + height - 16),
                               (x + width // 2, y + height // 2)))
    else:
        target = _anything(s)
    before = sight.labels()
    s.hands.drag(middle(s.rng.choice(tabs)["place"]), target)
    if s.wait(lambda seen: seen.labels() != before, 0.5):
        s.count("tabs moved")


@action("drag a splitter", 6)
def drag_splitter(s):
    handles = s.look().handles
    if not handles:
        return
    handle = s.rng.choice(handles)
    x, y = middle(handle["place"])
    if s.rng.random() < 0.2:
        s.hands.click((x, y), times=2)
    else:
        s.hands.drag((x, y), (max(1, x + s.rng.randint(-300, 300)), max(1, y + s.rng.randint(-300, 300))))
    s.count("splitters dragged")


@action("resize the window", 5)
def resize(s):
    sight = s.look()
    window = sight.editor_window()
    host = sight.host()
    if not window or not host:
        return
    if window == host["window"]:
        s.hands.resize(window, s.rng.randint(700, SCREEN[0]), SCREEN[1] - 22)
    else:
        width, height = s.rng.randint(200, 1500), s.rng.randint(120, LOWEST - 60)
        s.hands.resize(window, width, height)
        s.hands.move_window(window, s.rng.randint(0, max(1, SCREEN[0] - width)),
                            s.rng.randint(30, max(31, LOWEST - height)))
    s.count("windows resized")


@action("float or dock the panel", 3)
def float_or_dock(s):
    sight = s.look()
    before = sight.editor_window()
    way = s.rng.random()
    bars = [bar for bar in sight.seen["bars"] if bar["class"] == "host::ui::DockTabBar"]
    panel = next((tab for bar in bars for tab in bar["tabs"] if "Tarnwick" in tab["text"]
                  or "Editor" in tab["text"]), None)
    floating = sight.window("host::ui::FloatingWindow")
    if panel and way < 0.7:
        s.hands.drag(middle(panel["place"]), (700 + s.rng.randint(-200, 200), 420))
    elif floating and way < 0.5:
        x, y, width, _ = floating["place"]
        s.hands.click((x + width // 3, y + 12), times=2)
    elif floating:
        x, y, width, _ = floating["place"]
        target = s.rng.choice(((30, 500), (1570, 500), (800, 130), (800, 900)))
        s.hands.drag((x + width // 3, y + 12), target)
    else:
        s.run_command_line("hostAction toggleFloating")
    if s.wait(lambda seen: seen.editor_window() not in (None, before), 1):
        s.count("panels floated or docked")

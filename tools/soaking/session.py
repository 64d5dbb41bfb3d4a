"""One run against one program: looks, waits, answers what the program asks, and keeps the books."""

import collections
import os
import time

from .hands import Hands
from .program import ANSWER_LIMIT_S, Failure, NoAnswer, patience
from .sight import Sight, middle, somewhere

BLINK_S = 0.04  # between sending input and looking what came of it
ANSWERS = 14  # questions in a row, after which they are no answerable ones


class Session:
    def __init__(self, program, rng, report, manager):
        self.program = program
        self.rng = rng
        self.hands = Hands()
        self.work = program.work
        self.project = os.path.join(program.work, "project")
        self.manager = manager  # a window manager runs
        self.counts = collections.Counter()
        self.number = 0  # of the last script that was executed
        self.changed_preferences = set()  # numbers of the dialog's pages
        self._log = open(os.path.join(report, "actions.log"), "a", encoding="utf-8")

    # Books

    def note(self, text):
        print(f"{time.strftime('%H:%M:%S')}.{int(time.time() * 1000) % 1000:03d} {text}",
              file=self._log, flush=True)

    def count(self, what, number=1):
        self.counts[what] += number
        self.note(f"    = {what}")

    # Seeing

    def look(self):
        return Sight(self._ask("look"))

    def areas(self):
        return self._ask("areas")["areas"]

    def _ask(self, request):
        try:
            return self.program.ask(request, ANSWER_LIMIT_S / 2 * patience())
        except NoAnswer:
            self.note("    no answer yet: Escape")
            self.hands.keys("Escape")
        try:
            return self.program.ask(request)
        except NoAnswer:
            raise Failure("hang", f"no answer to \"{request}\" for more than {ANSWER_LIMIT_S} s, "
                          f"load {os.getloadavg()[0]:.1f}") from None

    def wait(self, condition, seconds=3.0):
        """What the condition makes of a sight once it is something, or None after that time."""
        end = time.monotonic() + seconds * min(patience(), 3.0)
        while True:
            found = condition(self.look())
            if found or time.monotonic() > end:
                return found or None
            time.sleep(BLINK_S)

    def blink(self):
        time.sleep(BLINK_S)
        return self.look()

    # Answering

    def settle(self):
        """Until no menu is open and no dialog asks anything; returns what is seen then."""
        for attempt in range(ANSWERS):
            sight = self.blink()
            if sight.popup:
                self._leave_popup(sight, attempt)
            elif sight.modal:
                self._answer(sight, attempt)
            else:
                return sight
        raise Failure("stuck", f"does not go away: {sight.popup or sight.modal}")

    def _leave_popup(self, sight, attempt):
        entries = sight.entries()
        if entries and attempt < 4 and self.rng.random() < 0.3:
            entry = self.rng.choice(entries)
            self.note(f"    menu entry {entry['text']!r}")
            self.hands.click(middle(entry["place"]))
            self.count("menu entries chosen")
        else:
            self.hands.keys("Escape")

    def _answer(self, sight, attempt):
        dialog = sight.modal
        self.note(f"    dialog {dialog['class']} {dialog['title']!r}")
        self.activate(dialog["window"])
        if attempt >= ANSWERS // 2 or dialog["name"] == "m_preferencesDialog":
            self.hands.keys("Escape")
        elif dialog["class"] == "QFileDialog":
            self._answer_file_dialog()
        else:
            self._answer_dialog(sight, dialog)
        self.count("dialogs answered")

    def _answer_file_dialog(self):
        if not self.program.confined or self.rng.random() < 0.5:
            self.hands.keys("Escape")
            return
        name = self.rng.choice(["chosen.py", "chosen.mel", "tools", "tools/rig/part.py", "no/such/file"])
        self.hands.keys("ctrl+a")
        self.hands.text(os.path.join(self.project, name))
        self.hands.keys("Return")

    def _answer_dialog(self, sight, dialog):
        buttons = sight.buttons_in(dialog["window"])
        choice = self.rng.random()
        if choice < 0.25 or not buttons:
            self.hands.keys("Escape")
        elif choice < 0.4:
            self.hands.text(self.rng.choice(["soak", "a b", "name_2", ""]))
            self.hands.keys("Return")
        else:
            button = self.rng.choice(buttons)
            self.note(f"    button {button['text']!r}")
            self.hands.click(middle(button["place"]))

    # Going somewhere

    def activate(self, window):
        """Brings the window to the front and gives it the keys, if another one has them."""
        active = next((each for each in self.look().windows if each["active"]), None)
        if window and (not active or active["window"] != window):
            self.hands.activate(window, self.manager)
            self.wait(lambda seen: any(each["active"] and each["window"] == window
                                       for each in seen.windows), 0.5)

    def focus_editor(self):
        """Clicks into an editor; what is seen before."""
        sight = self.show_editor()
        editor = self.rng.choice(sight.editors)
        self.activate(editor["window"])
        x, y, width, height = editor["place"]
        self.hands.click(somewhere(self.rng, [x + width // 4, y, max(2, width // 2), max(2, height // 2)]))
        return sight

    def show_editor(self):
        """Has an editor be seen, whatever became of the panel and its parts."""
        remedies = [self._open_editor, self._make_buffer, self._enlarge_editor, self._toggle_editor,
                    self._reset_splitters, self._toggle_editor, self._make_buffer]
        sight = self.look()
        for remedy in [None, *remedies]:
            if remedy:
                remedy(sight)
                sight = self.settle()
                if not sight.editors:
                    sight = self.wait(lambda seen: seen.editors and seen, 0.5) or self.look()
            if any(editor["place"][2] > 8 and editor["place"][3] > 8 for editor in sight.editors):
                return sight
        raise Failure("stuck", "the editor does not come up")

    def _open_editor(self, sight):
        if not sight.editor_window():
            self.run_command_line("tarnwickEditor2")
            self.count("editor opened again")

    def _make_buffer(self, sight):
        self.click_into_editor_window(sight)
        self.hands.keys("ctrl+shift+n")

    def _enlarge_editor(self, sight):
        floating = sight.window("host::ui::FloatingWindow")
        if floating:
            self.hands.resize(floating["window"], 1000, 720)
            self.hands.move_window(floating["window"], 300, 140)

    def _toggle_editor(self, sight):
        self.click_into_editor_window(sight)
        self.hands.keys("ctrl+k")

    def _reset_splitters(self, sight):
        for handle in sight.handles:
            self.hands.click(middle(handle["place"]), times=2)

    def click_into_editor_window(self, sight):
        """Where the hint is when there is no editor."""
        self.activate(sight.editor_window())
        bar = next((area for area in (*sight.bars, sight.console) if area), None)
        if bar:
            x, y, width, height = bar["place"]
            self.hands.click((x + width // 2, y + height + 40 if sight.bars else y + height // 2))

    def run_command_line(self, command):
        """MEL in the host's command line."""
        sight = self.look()
        field = sight.field("commandLineField")
        if not field:
            raise Failure("stuck", "the host's command line is not there")
        self.activate(field["window"])
        language = sight.button("commandLineLanguage")
        if language and language["text"] != "MEL":
            self.hands.click(middle(language["place"]))
        self.hands.click(middle(field["place"]))
        self.hands.keys("ctrl+a")
        self.hands.text(command)
        self.hands.keys("Return")

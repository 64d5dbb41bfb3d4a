"""The host under test: started in a folder of its own, asked through the probe plug-in, listened to
on standard error, and looked into with gdb when something is wrong."""

import glob
import json
import os
import re
import resource
import select
import shutil
import signal
import subprocess
import threading
import time

from . import confinement

ANSWER_LIMIT_S = 10
START_LIMIT_S = 60
LAST_WORDS_S = 2  # how long the rest of a report is waited for
HEARD = "soak: warnings are heard"

# What may stand on standard error without being a fault.
EXPECTED = [re.compile(pattern) for pattern in (
    re.escape(HEARD),
    # Qt looked for the window under the pointer while the window manager took its frame away.
    r"qt\.qpa\.xcb: QXcbConnection: XCB error: 3 \(BadWindow\), .* \(TranslateCoords\)",
)]


class Failure(Exception):
    """What the soak looks for. `kind` is crash, hang, warning, leak, quit or stuck."""

    def __init__(self, kind, text):
        super().__init__(text)
        self.kind = kind


class NoAnswer(Exception):
    """The event loop did not come to the request in time."""


MOST_PATIENCE = 8.0


def patience():
    """How much longer everything may take on a busy machine."""
    return min(MOST_PATIENCE, max(1.0, os.getloadavg()[0] / (os.cpu_count() or 1)))


class Program:
    def __init__(self, build, work, report, scale):
        self.build = os.path.abspath(build)
        self.work = work
        self.report = report
        self.scale = scale
        self.sanitized = _is_sanitized(os.path.join(self.build, "bin", "tarnwick-host"))
        self.confined = confinement.is_possible()
        self.process = None
        self._unexpected = []
        self._heard = threading.Event()

    # Starting and ending

    def start(self):
        requests, self._requests = os.pipe()
        self._answers, answers = os.pipe()
        self._rest = b""
        self._owed = 0
        self.process = subprocess.Popen(
            [os.path.join(self.build, "bin", "tarnwick-host"), "-prefs",
             os.path.join(self.work, "prefs"), "-scale", str(self.scale)],
            cwd=self.work, env=self._environment(requests, answers), pass_fds=[requests, answers],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
            preexec_fn=self._prepare_child, start_new_session=True)
        os.close(requests)
        os.close(answers)
        threading.Thread(target=self._listen, daemon=True).start()
        if not self._heard.wait(START_LIMIT_S * patience()):
            self.check()
            raise Failure("hang", "the host did not load the probe")

    def _environment(self, requests, answers):
        home = os.path.join(self.work, "home")
        folders = {"HOME": home, "TMPDIR": os.path.join(self.work, "tmp"),
                   "XDG_RUNTIME_DIR": os.path.join(self.work, "run")}
        for folder in folders.values():
            os.makedirs(folder, mode=0o700, exist_ok=True)
        plug_ins = [os.path.join(self.build, "plug-ins"),
                    os.path.join(self.build, "test-plugins", "soak")]
        passed_on = {name: os.environ[name] for name in ("LD_LIBRARY_PATH",) if name in os.environ}
        return folders | passed_on | {
            "DISPLAY": os.environ["DISPLAY"], "LC_ALL": "C.UTF-8", "USER": "soak",
            "PATH": os.path.join(self.work, "bin") + ":/usr/bin:/bin",
            "MAYA_PLUG_IN_PATH": ":".join(plug_ins), "QT_LOGGING_TO_CONSOLE": "1",
            "TE2_SOAK_PROBE": f"{requests},{answers}",
            # The soak judges memory by its course; what is left at the end is for the tests.
            "ASAN_OPTIONS": "detect_leaks=0", "UBSAN_OPTIONS": "print_stacktrace=1"}

    def _prepare_child(self):
        resource.setrlimit(resource.RLIMIT_CORE, (resource.RLIM_INFINITY,) * 2)
        if self.confined:
            confinement.confine_to(self.work)

    def end(self):
        if self.process and self.process.poll() is None:
            self.process.terminate()
            try:
                self.process.wait(ANSWER_LIMIT_S)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()

    # Asking

    def ask(self, request, limit=None):
        """The probe's answer; raises NoAnswer when there is none in time, and what check raises."""
        try:
            os.write(self._requests, request.encode() + b"\n")
        except BrokenPipeError:
            self._explain_end()
        self._owed += 1
        end = time.monotonic() + (limit or ANSWER_LIMIT_S * patience())
        while True:
            line = self._read_line(end, request)
            self._owed -= 1
            if not self._owed:  # the others answer requests that were given up
                return json.loads(line)

    def _read_line(self, end, request):
        while b"\n" not in self._rest:
            left = end - time.monotonic()
            if left <= 0:
                raise NoAnswer(request)
            if select.select([self._answers], [], [], min(left, 0.2))[0]:
                received = os.read(self._answers, 1 << 16)
                if not received:
                    self._explain_end()
                self._rest += received
            else:
                self.check()
        line, _, self._rest = self._rest.partition(b"\n")
        return line

    def check(self):
        if self._unexpected:
            time.sleep(LAST_WORDS_S)
            kind = "crash" if "Sanitizer" in "".join(self._unexpected) else "warning"
            raise Failure(kind, "on standard error:\n    " + "\n    ".join(self._unexpected[:60]))
        if self.process.poll() is not None:
            self._explain_end()

    def _explain_end(self):
        try:
            code = self.process.wait(ANSWER_LIMIT_S * patience())
        except subprocess.TimeoutExpired:
            raise Failure("hang", "the host closed its pipes and lives on") from None
        time.sleep(LAST_WORDS_S)
        words = "".join("\n    " + line for line in self._unexpected[:60])
        if code == 0:
            raise Failure("quit", "the host ended by itself, as if asked to" + words)
        name = signal.Signals(-code).name if code < 0 else f"exit code {code}"
        raise Failure("crash", f"the host died: {name}{words}")

    def _listen(self):
        with open(os.path.join(self.report, "stderr.log"), "a", encoding="utf-8") as log:
            for line in self.process.stderr:
                text = line.decode("utf-8", "replace").rstrip("\n")
                print(time.strftime("%H:%M:%S"), text, file=log, flush=True)
                if text == HEARD:
                    self._heard.set()
                elif not any(pattern.match(text) for pattern in EXPECTED):
                    self._unexpected.append(text)

    # Looking into it

    def back_trace(self):
        """Of the living process, or of the core it left; says why when there is none."""
        if not shutil.which("gdb"):
            return "gdb is not installed: no back trace"
        program = os.path.join(self.build, "bin", "tarnwick-host")
        if self.process.poll() is None:
            target = ["-p", str(self.process.pid)]
        else:
            cores = glob.glob(os.path.join(self.work, "core*"))
            if not cores:
                return "the system keeps no core files in the working folder: no back trace"
            target = [program, max(cores, key=os.path.getmtime)]
        done = subprocess.run(
            ["gdb", "-batch", "-nx", "-ex", "set print frame-arguments none", "-ex", "bt 250",
             "-ex", "thread apply all bt 60", *target],
            capture_output=True, text=True, errors="replace", timeout=180)
        return done.stdout + done.stderr


def _is_sanitized(program):
    linked = subprocess.run(["ldd", program], capture_output=True, text=True).stdout
    return "libasan" in linked

"""A display of its own, real keys and clicks: what the tools share that drive the program."""

import os
import re
import subprocess
import time

SCREEN = "1600x1000x24"
TIMEOUT_S = 60


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout.strip()


def wait_for(what, condition):
    end = time.monotonic() + TIMEOUT_S
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.05)
    raise SystemExit("gave up waiting for " + what)


def start_display():
    """The server picks a free number."""
    reader, writer = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writer), "-screen", "0", SCREEN, "-dpi", "96", "-nolisten",
         "tcp", "-noreset"],
        pass_fds=[writer], stderr=subprocess.DEVNULL)
    os.close(writer)
    with os.fdopen(reader) as numbers:
        os.environ["DISPLAY"] = ":" + numbers.readline().strip()
    return server


def start_host(build, preferences, *arguments):
    os.environ["MAYA_PLUG_IN_PATH"] = os.path.join(build, "plug-ins")
    program = os.path.join(build, "bin", "tarnwick-host")
    return subprocess.Popen([program, "-prefs", preferences, *arguments])


def find_windows(name):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", name],
                           capture_output=True, text=True)
    return found.stdout.split()


def geometry(window):
    text = run("xdotool", "getwindowgeometry", "--shell", window)
    return {key: int(value) for key, value in re.findall(r"(\w+)=(-?\d+)", text)}


def click(window, x, y):
    run("xdotool", "mousemove", "--window", window, str(x), str(y), "click", "1")


def press(*keys):
    run("xdotool", "key", "--clearmodifiers", *keys)


def clipboard():
    return subprocess.run(["xclip", "-selection", "clipboard", "-o"],
                          capture_output=True, text=True).stdout


def picture(path):
    run("import", "-window", "root", path)

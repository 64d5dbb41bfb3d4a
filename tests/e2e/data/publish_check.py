"""Checks a folder of assets before publishing: several threads, a child process, JSON."""

import json
import os
import queue
import subprocess
import sys
import tempfile
import threading

ASSETS = {
    "crate": {"polygons": 120, "textures": ["wood.png"]},
    "lamp": {"polygons": 840, "textures": ["metal.png", "glass.png"]},
    "rope": {"polygons": 64, "textures": []},
}


def write_assets(folder):
    for name, asset in ASSETS.items():
        with open(os.path.join(folder, name + ".json"), "w") as stream:
            json.dump(asset, stream, indent=2, sort_keys=True)


class Checker(threading.Thread):
    """Takes files from a queue until it is empty and reports on each."""

    def __init__(self, jobs, results):
        super().__init__()
        self.jobs = jobs
        self.results = results

    def run(self):
        while True:
            try:
                path = self.jobs.get_nowait()
            except queue.Empty:
                return
            with open(path) as stream:
                asset = json.load(stream)
            name = os.path.splitext(os.path.basename(path))[0]
            # One write, so that the lines of several threads stay whole.
            print("checked %s\n" % name, end="")
            self.results[name] = asset["polygons"] + len(asset["textures"])


def child_version():
    code = "import json, sys; print(json.dumps(list(sys.version_info[:2])))"
    done = subprocess.run(["/usr/bin/python3", "-c", code], capture_output=True, text=True, check=True)
    return json.loads(done.stdout)


def main():
    results = {}
    with tempfile.TemporaryDirectory() as folder:
        write_assets(folder)
        jobs = queue.Queue()
        for entry in sorted(os.listdir(folder)):
            jobs.put(os.path.join(folder, entry))
        workers = [Checker(jobs, results) for _ in range(3)]
        for worker in workers:
            worker.start()
        for worker in workers:
            worker.join()
    print("child python %s, same as here: %s"
          % (".".join(map(str, child_version())), child_version() == list(sys.version_info[:2])))
    for name in sorted(results):
        print("{:<6} {:>5}".format(name, results[name]))
    print("total %d" % sum(results.values()))


main()

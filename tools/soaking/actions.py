"""The table of what may be done: the modules that follow add their rows to it."""

import collections

Action = collections.namedtuple("Action", "name weight run")
ACTIONS = []


def action(name, weight):
    def add(run):
        ACTIONS.append(Action(name, weight, run))
        return run
    return add


def choose(rng):
    return rng.choices(ACTIONS, [each.weight for each in ACTIONS])[0]


def keep_only(beginnings):
    """Actions whose names begin with one of these; all of them for None."""
    if beginnings:
        ACTIONS[:] = [each for each in ACTIONS if each.name.startswith(tuple(beginnings))]
    if not ACTIONS:
        raise SystemExit("soak: no action begins so")

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

"""Scatters copies of the selected mesh."""
import math
import random

from maya import cmds


class ScatterSettings(object):
    """What the tool was asked for."""

    def __init__(self, count=40, radius=4.0):
        self.count = count
        self.radius = radius

    @classmethod
    def from_selection(cls):
        """One instance for each selected vertex."""
        chosen = cmds.ls(selection=True, flatten=True)
        radius = cls().radius
        count = len(chosen) or cls().count
        return cls(count, radius)

    @staticmethod
    def clamp(value, low, high):
        return max(low, min(high, value))


class Scatter(object):
    """Places instances inside a disc, golden angle apart."""

    def __init__(self, source, settings):
        self.source = source
        self.settings = settings
        self.radius = 4.0

    def points(self):
        turn = math.pi * (3.0 - math.sqrt(5.0))
        spread = self.radius / math.sqrt(self.settings.count)
        for index in range(self.settings.count):
            reach = spread * math.sqrt(index)
            if reach > self.radius:
                break
            yield (reach * math.cos(index * turn), 0.0,
                   reach * math.sin(index * turn))

    def build(self, name="scatter_grp"):
        # TODO keep the old group when it already exists
        group = cmds.group(empty=True, name=name)
        for index, point in enumerate(self.points()):
            copy = cmds.instance(self.source)[0]
            cmds.xform(copy, translation=point, worldSpace=True)
            cmds.rotate(0, rnadom.uniform(0, 360), 0, copy)
            cmds.parent(copy, group)
        return group


def main():
    """Scatters the first selected mesh."""
    chosen = cmds.ls(selection=True, transforms=True)
    if not chosen:
        cmds.warning("Select a mesh to scatter.")
        return None
    settings = ScatterSettings.from_selection()
    scatter = Scatter(chosen[0], settings)
    random.seed(settings.count)
    return scatter.build()


if __name__ == "__main__":
    main()

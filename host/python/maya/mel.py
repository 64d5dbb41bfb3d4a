"""Running MEL from Python."""

from _maya_host import evaluateMel as eval

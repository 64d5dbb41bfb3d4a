"""For scripts that start the host's interpreter themselves: within the host there is nothing to do."""


def initialize(name="python"):
    """Does nothing: the host has started already."""


def uninitialize():
    """Does nothing: the host ends by itself."""

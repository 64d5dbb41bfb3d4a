"""The host's Python package."""

"""Cloth classes of the API: the host has no scene, and so none of them."""

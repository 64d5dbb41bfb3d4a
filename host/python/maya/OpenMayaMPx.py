"""Classes to derive plug-ins from: the host loads compiled plug-ins only, and so has none."""

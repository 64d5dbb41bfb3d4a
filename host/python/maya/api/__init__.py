"""The second form of the API's Python modules."""

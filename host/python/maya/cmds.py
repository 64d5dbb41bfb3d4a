"""The host's commands as functions: objects as positional arguments, flags as keywords.

The names are looked up when they are asked for, because plug-ins and run-time commands come and
go. The look-up is a built-in function, so that tracebacks end at the line of the script.
"""

from _maya_host import commandNames as __dir__
from _maya_host import findCommand as __getattr__

class TarnwickEditorHelpers:
    """What Tarnwick Editor 2 asks the interpreter, and the snapshot of loaded modules.

    The plug-in runs this text in the console's own namespace: modules are imported inside the
    methods, so that no name appears there which the user did not import.
    """

    module_names = None

    @classmethod
    def list_keywords(cls):
        import keyword

        names = list(keyword.kwlist)
        names.extend(name for name in ("True", "False", "None") if name not in names)
        return names

    @classmethod
    def list_builtins(cls):
        import builtins

        return dir(builtins)

    @classmethod
    def python_version(cls):
        import sys

        version = sys.version_info
        return "{0}.{1}.{2}".format(version.major, version.minor, version.micro)

    @classmethod
    def get_python_path_str(cls):
        import os
        import sys

        return os.pathsep.join(str(entry) for entry in sys.path)

    @classmethod
    def print_python_path(cls):
        import sys

        print("\nsys.path:")
        for entry in sys.path:
            print(entry)

    @classmethod
    def print_python_environ(cls):
        import os

        print("\nos.environ")
        for name in sorted(os.environ):
            print("{0}: {1}".format(name, os.environ[name]))

    @classmethod
    def print_maya_env_var_paths(cls, env_var):
        import os

        import maya.mel

        value = maya.mel.eval('getenv "{0}"'.format(env_var))
        print("\n{0}:".format(env_var))
        for path in value.split(os.pathsep):
            print(path)

    @classmethod
    def update_modules(cls):
        """Takes the modules loaded now as the ones to keep."""
        import sys

        cls.module_names = list(sys.modules)

    @classmethod
    def revert_modules(cls):
        """Unloads what was imported since, so that the next import reads it from disk."""
        import sys

        if cls.module_names is None:
            return
        kept = set(cls.module_names)
        for name in list(sys.modules):
            if name not in kept:
                del sys.modules[name]

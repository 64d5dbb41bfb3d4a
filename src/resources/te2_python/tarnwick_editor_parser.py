# Under a name that nobody takes for an import of their own: the plug-in runs this text in the
# console's namespace. Everything else is imported where it is used.
import ast as _tarnwick_ast


class TarnwickEditorParser(_tarnwick_ast.NodeVisitor):
    """Says what names mean in a source that is being edited.

    The source is read, never run. Names are followed through its assignments, classes and imports
    into the host's live modules and objects; those are looked at without reading their attributes,
    so that no property runs and nothing is called. Only what an import statement of the source
    names is imported.
    """

    # Argument that marks the cursor's place, and the definitions that carry it there.
    CURSOR_MARKER = "__tarnwick_lctr_qnht__"
    INTERNAL_NAMES = ("__tedefloc__", "__teclsloc__")

    HOST_MODULES = (
        "maya.cmds",
        "maya.mel",
        "maya.OpenMaya",
        "maya.OpenMayaAnim",
        "maya.OpenMayaCloth",
        "maya.OpenMayaFX",
        "maya.OpenMayaMPx",
        "maya.OpenMayaRender",
        "maya.OpenMayaUI",
    )

    # Names may be assigned in a circle.
    MAXIMUM_DEPTH = 25

    # What a name stands for: one of the classes below, an expression of the source that is
    # followed when somebody asks, or None for what cannot be known.

    class Scope(object):
        """A module, class or function of the source."""

        def __init__(self, kind, bases=()):
            self.kind = kind
            self.bases = list(bases)
            self.names = {}
            self.members = {}  # of a class: what its functions assign through self and cls
            self.star_modules = []

    class Import(object):
        """A name that an import binds: a module, or something inside it."""

        def __init__(self, modules, inside=None):
            # The name stands for the first one; the others are loaded because it may lead there.
            self.modules = modules
            self.inside = inside

    class Annotated(object):
        """A name of which only the type is said."""

        def __init__(self, annotation):
            self.annotation = annotation

    class Instance(object):
        """An object of a class, which is a Scope or a type of the host."""

        def __init__(self, of):
            self.of = of

    class Live(object):
        """An object of the host's interpreter."""

        def __init__(self, value):
            self.value = value

    def __init__(self):
        self._clear()

    def _clear(self):
        self._module = self.Scope("module")
        self._stack = [self._module]
        self._cursor = None

    # What the plug-in calls

    @classmethod
    def initialize(cls):
        """Loads the host's modules once, so that their attributes can be listed."""
        import importlib

        for name in cls.HOST_MODULES:
            try:
                importlib.import_module(name)
            except ImportError:
                pass  # Not every release has all of them.

    @classmethod
    def exec_statement(cls, statement):
        """1 when the statement runs, 0 when it raises."""
        try:
            exec(statement, {"__name__": "__main__"})
        except (Exception, SystemExit):
            return 0
        return 1

    @classmethod
    def syntax_check(cls, source):
        """Nothing for a source that compiles, else the error's message and line."""
        try:
            cls._compiled(source)
        except SyntaxError as error:
            return [error.msg, str(error.lineno or 1)]
        except (ValueError, OverflowError, RecursionError, MemoryError) as error:
            return [str(error) or type(error).__name__, "1"]
        return []

    def parse_source(self, source, obj=None, keywords=False, builtins=False):
        """What `obj` offers behind a dot; without `obj` what the source defines."""
        try:
            self._clear()
            self.visit(self._tree(source))
            if obj:
                names = self._attributes(self._resolve(obj.split(".")))
            else:
                names = self._defined(keywords, builtins)
            return self._sorted(names)
        except Exception:
            return []

    # Parsing

    @classmethod
    def _compiled(cls, source, flags=0):
        import warnings

        with warnings.catch_warnings():
            warnings.simplefilter("ignore")
            return compile(source, "<source>", "exec", flags, True)

    @classmethod
    def _tree(cls, source):
        try:
            return cls._compiled(source, _tarnwick_ast.PyCF_ONLY_AST)
        except (SyntaxError, ValueError):
            pass
        lines = source.splitlines()
        try:
            kept = [line for line in lines if cls._may_be_complete(line.strip())]
            return cls._compiled("\n".join(kept), _tarnwick_ast.PyCF_ONLY_AST)
        except (SyntaxError, ValueError):
            pass
        imports = [line for line in lines if cls._is_complete_import(line)]
        return cls._compiled("\n".join(imports), _tarnwick_ast.PyCF_ONLY_AST)

    @staticmethod
    def _may_be_complete(line):
        return bool(line) and (line[0].isalpha() or line[0] == "_") and not line.endswith(".")

    @classmethod
    def _is_complete_import(cls, line):
        if not line.startswith(("import", "from")):
            return False
        try:
            cls._compiled(line)
        except (SyntaxError, ValueError):
            return False
        return True

    # Visiting definitions

    def visit_ClassDef(self, node):
        scope = self.Scope("class", node.bases)
        self._define(node.name, scope)
        self._visit_inside(scope, node.body)

    def visit_FunctionDef(self, node):
        scope = self.Scope("function")
        self._define(node.name, scope)
        for argument in self._arguments(node.args):
            if argument.arg == self.CURSOR_MARKER:
                self._cursor = list(self._stack)
            scope.names[argument.arg] = (
                self.Annotated(argument.annotation) if argument.annotation else None
            )
        for decorator in node.decorator_list:
            self.visit(decorator)
        self._visit_inside(scope, node.body)

    visit_AsyncFunctionDef = visit_FunctionDef

    @staticmethod
    def _arguments(arguments):
        found = list(getattr(arguments, "posonlyargs", []))
        found += arguments.args + arguments.kwonlyargs
        return found + [each for each in (arguments.vararg, arguments.kwarg) if each]

    def _visit_inside(self, scope, statements):
        self._stack.append(scope)
        for statement in statements:
            self.visit(statement)
        self._stack.pop()

    def visit_Import(self, node):
        for alias in node.names:
            if alias.asname:
                self._define(alias.asname, self.Import([alias.name]))
                continue
            # "import a.b" binds a, and so does "import a.c" after it.
            head = alias.name.split(".")[0]
            known = self._stack[-1].names.get(head)
            before = known.modules if isinstance(known, self.Import) else []
            self._define(head, self.Import([head] + before + [alias.name]))

    def visit_ImportFrom(self, node):
        if node.level or not node.module:
            for alias in node.names:
                if alias.name != "*":
                    self._define(alias.asname or alias.name, None)
            return
        for alias in node.names:
            if alias.name == "*":
                self._stack[-1].star_modules.append(node.module)
            else:
                self._define(alias.asname or alias.name, self.Import([node.module], alias.name))

    def visit_Assign(self, node):
        for target in node.targets:
            self._assign(target, node.value)

    def visit_AnnAssign(self, node):
        self._assign(node.target, node.value or self.Annotated(node.annotation))

    def visit_For(self, node):
        self._assign(node.target, None)
        self.generic_visit(node)

    visit_AsyncFor = visit_For

    def visit_withitem(self, node):
        if node.optional_vars:
            self._assign(node.optional_vars, None)

    def visit_ExceptHandler(self, node):
        if node.name:
            self._define(node.name, None)
        self.generic_visit(node)

    def visit_Expr(self, node):
        pass  # Defines nothing.

    def _assign(self, target, value):
        kind = type(target).__name__
        if kind == "Name":
            self._define(target.id, value)
        elif kind == "Attribute":
            self._assign_member(target, value)
        elif kind == "Starred":
            self._assign(target.value, None)
        elif kind in ("Tuple", "List"):
            parts = getattr(value, "elts", [])
            paired = len(parts) == len(target.elts)
            for i, element in enumerate(target.elts):
                self._assign(element, parts[i] if paired else None)

    def _assign_member(self, target, value):
        owner = getattr(target.value, "id", "")
        scope = self._innermost_class(self._stack)
        if owner in ("self", "cls") and scope:
            self._store(scope.members, target.attr, value)

    def _define(self, name, value):
        self._store(self._stack[-1].names, name, value)

    @staticmethod
    def _store(names, name, value):
        # "x = None" somewhere does not hide what x holds at other times.
        is_none = type(value).__name__ == "Constant" and value.value is None
        if not is_none or name not in names:
            names[name] = value

    @staticmethod
    def _innermost_class(scopes):
        for scope in reversed(scopes):
            if scope.kind == "class":
                return scope
        return None

    # Resolving names

    def _resolve(self, parts):
        head = parts[0]
        if head in ("self", "cls"):
            scope = self._innermost_class(self._cursor or [])
            value = self.Instance(scope) if scope and head == "self" else scope
        else:
            value = self._look_up(head, 0)
        for name in parts[1:]:
            value = self._member(value, name, 0)
        return value

    def _look_up(self, name, depth):
        scopes = self._cursor or [self._module]
        for scope in reversed(scopes):
            # A class's names are not seen from inside its functions.
            if name in scope.names and (scope.kind != "class" or scope is scopes[-1]):
                return self._followed(scope.names[name], depth)
        for module in self._module.star_modules:
            found = self._member(self._imported(module), name, depth)
            if found is not None:
                return found
        return self._host_name(name)

    def _host_name(self, name):
        import builtins
        import sys

        for namespace in (vars(sys.modules["__main__"]), vars(builtins)):
            if name in namespace:
                return self.Live(namespace[name])
        return None

    def _followed(self, value, depth):
        """Follows an expression or import to a Scope, Instance or Live object."""
        if depth > self.MAXIMUM_DEPTH:
            return None
        if value is None or isinstance(value, (self.Scope, self.Instance, self.Live)):
            return value
        if isinstance(value, self.Import):
            return self._bound(value)
        if isinstance(value, self.Annotated):
            return self._instance(self._followed(value.annotation, depth + 1))
        follow = getattr(self, "_follow_" + type(value).__name__, None)
        return follow(value, depth + 1) if follow else self._literal(value)

    def _follow_Name(self, node, depth):
        return self._look_up(node.id, depth)

    def _follow_Attribute(self, node, depth):
        return self._member(self._followed(node.value, depth), node.attr, depth)

    def _follow_Call(self, node, depth):
        return self._instance(self._followed(node.func, depth))

    def _follow_Constant(self, node, depth):
        return self.Instance(type(node.value))

    def _literal(self, node):
        kinds = {
            "List": list, "ListComp": list, "Tuple": tuple, "Dict": dict, "DictComp": dict,
            "Set": set, "SetComp": set, "JoinedStr": str,
        }
        kind = kinds.get(type(node).__name__)
        return self.Instance(kind) if kind else None

    def _instance(self, value):
        """What calling a class gives; what a function gives is not known."""
        if isinstance(value, self.Scope) and value.kind == "class":
            return self.Instance(value)
        if isinstance(value, self.Live) and isinstance(value.value, type):
            return self.Instance(value.value)
        return None

    def _bound(self, binding):
        loaded = [self._imported(name) for name in binding.modules]
        if binding.inside is None:
            return loaded[0]
        found = self._member(loaded[0], binding.inside, 0)
        return found or self._imported(binding.modules[0] + "." + binding.inside)

    def _imported(self, name):
        import importlib
        import sys

        if name not in sys.modules:
            try:
                importlib.import_module(name)
            except (Exception, SystemExit):
                return None
        module = sys.modules.get(name)
        return self.Live(module) if module is not None else None

    def _member(self, value, name, depth):
        if isinstance(value, self.Instance):
            return self._class_member(value.of, name, depth)
        if isinstance(value, self.Scope):
            return self._class_member(value, name, depth)
        if isinstance(value, self.Live):
            return self._live_member(value.value, name)
        return None

    def _class_member(self, owner, name, depth):
        if depth > self.MAXIMUM_DEPTH:
            return None
        if not isinstance(owner, self.Scope):
            return self._live_member(owner, name)
        if owner.kind != "class":
            return None
        for names in (owner.members, owner.names):
            if name in names:
                return self._followed(names[name], depth + 1)
        for base in owner.bases:
            found = self._member(self._followed(base, depth + 1), name, depth + 1)
            if found is not None:
                return found
        return None

    def _live_member(self, owner, name):
        import inspect
        import types

        if isinstance(owner, types.ModuleType):
            return self.Live(vars(owner)[name]) if name in vars(owner) else None
        try:
            value = inspect.getattr_static(owner, name)
        except AttributeError:
            return None
        if isinstance(value, (staticmethod, classmethod)):
            value = value.__func__
        # What a descriptor would answer cannot be known without running it.
        is_descriptor = hasattr(type(value), "__get__") and not isinstance(value, type)
        return None if is_descriptor else self.Live(value)

    # Listing names

    def _defined(self, keywords, builtins):
        import builtins as builtins_module
        import keyword
        import sys

        names = list(self._module.names)
        for module in self._module.star_modules:
            # Typing a letter is no reason to import.
            if module in sys.modules:
                names += self._public(sys.modules[module])
        if keywords:
            names += list(keyword.kwlist) + ["True", "False", "None"]
        if builtins:
            names += dir(builtins_module)
        return names

    @staticmethod
    def _public(module):
        names = getattr(module, "__all__", None)
        return list(names) if names else [name for name in dir(module) if name[0] != "_"]

    def _attributes(self, value, depth=0):
        if value is None or depth > self.MAXIMUM_DEPTH:
            return []
        if isinstance(value, self.Live):
            return self._live_attributes(value.value)
        owner = value.of if isinstance(value, self.Instance) else value
        if not isinstance(owner, self.Scope):
            return self._without_functions(dir(owner))
        if owner.kind != "class":
            return []
        names = list(owner.names) + list(owner.members)
        for base in owner.bases:
            names += self._attributes(self._followed(base, depth + 1), depth + 1)
        return names + dir(object)

    def _live_attributes(self, value):
        import types

        if isinstance(value, (type, types.ModuleType)):
            return self._without_functions(dir(value))
        # An object's own answer would be code of the user's.
        return self._without_functions(object.__dir__(value))

    @staticmethod
    def _without_functions(names):
        return [] if "__call__" in names else list(names)

    def _sorted(self, names):
        wanted = set(names).difference(self.INTERNAL_NAMES)
        wanted.discard(self.CURSOR_MARKER)
        return sorted(wanted, key=lambda name: (name.startswith("_"), name.lower(), name))

# Under a name that nobody takes for an import of their own: the plug-in runs this text in the
# console's namespace.
import ast as _tarnwick_ast


class TarnwickEditorParser(_tarnwick_ast.NodeVisitor):
    """Says what names mean in a source that is being edited.

    The source is read, never run. Names are followed through its assignments, classes and imports
    into the host's live modules and objects; those are looked at without reading their attributes,
    so that no property runs and nothing is called. Only what an import statement of the source
    names is imported.
    """

    # Inside the class, out of sight of the console.
    import bisect
    import builtins
    import importlib
    import inspect
    import keyword
    import sys
    import types
    import warnings

    # Argument that marks the cursor's place, and the definitions that carry it there.
    CURSOR_MARKER = "__tarnwick_lctr_qnht__"
    CURSOR_FUNCTION = "__tedefloc__"
    INTERNAL_NAMES = (CURSOR_MARKER, CURSOR_FUNCTION, "__teclsloc__")

    HOST_MODULES = (
        "maya.cmds", "maya.mel", "maya.OpenMaya", "maya.OpenMayaAnim", "maya.OpenMayaCloth",
        "maya.OpenMayaFX", "maya.OpenMayaMPx", "maya.OpenMayaRender", "maya.OpenMayaUI",
    )

    # Methods whose first argument is the class without a decorator that says so.
    METHODS_OF_THE_CLASS = ("__new__", "__init_subclass__", "__class_getitem__")

    LITERALS = {
        "List": list, "ListComp": list, "Tuple": tuple, "Dict": dict, "DictComp": dict,
        "Set": set, "SetComp": set, "JoinedStr": str,
    }

    # What a name stands for is a Scope, an Instance, a Live object, or None for what cannot be
    # known. A Binding gives one of these when somebody asks.

    class Scope:
        """A module, class or function of the source."""

        def __init__(self, kind, parent=None):
            self.kind = kind
            self.parent = parent
            self.names = {}
            self.global_names = set()
            self.members = {}  # of a class: what its functions assign through self and cls
            self.bases = []  # of a class
            self.returns = None  # of a function: what calling it gives

    class Instance:
        """An object of a class, which is a Scope or a type of the host."""

        def __init__(self, of):
            self.of = of

    class Live:
        """An object of the host's interpreter."""

        def __init__(self, value):
            self.value = value

    class Binding:
        """A name's value as the source says it, followed once."""

        def __init__(self, follow, *arguments):
            self.follow = follow
            self.arguments = arguments
            self.is_followed = False
            self.meaning = None

    class ImportBinding(Binding):
        """A name that import statements bind; with several, the last that succeeds counts."""

    def __init__(self):
        self._clear()

    def _clear(self):
        self._module = self._scope = self.Scope("module")
        self._star_modules = []
        self._lines_to_search = []
        self._cursor = None

    # What the plug-in calls

    @classmethod
    def initialize(cls):
        """Loads the host's modules once, so that their attributes can be listed."""
        for name in cls.HOST_MODULES:
            try:
                cls.importlib.import_module(name)
            except Exception:
                pass  # Not every release has all of them, or can load them everywhere.

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
            self._read(source.replace("\r\n", "\n").replace("\r", "\n"))
            if obj:
                names = self._attributes(self._resolve(obj.split(".")))
                # What can be called is a function, of which nobody wants the attributes.
                return [] if "__call__" in names else self._sorted(names)
            return self._sorted(self._defined(keywords, builtins))
        except Exception:
            return []

    # Parsing

    @classmethod
    def _compiled(cls, source, flags=0):
        with cls.warnings.catch_warnings():
            cls.warnings.simplefilter("ignore")
            return compile(source, "<source>", "exec", flags, True)

    def _read(self, source):
        lines = source.split("\n")
        for is_kept in (lambda line: True, self._may_be_complete, self._is_complete_import):
            kept = [line for line in lines if is_kept(line)]
            try:
                tree = self._compiled("\n".join(kept), _tarnwick_ast.PyCF_ONLY_AST)
            except (SyntaxError, ValueError):
                continue
            self._lines_to_search = [
                number for number, line in enumerate(kept, 1)
                if ":=" in line or self.CURSOR_MARKER in line
            ]
            return self._visit_all(tree.body)

    @staticmethod
    def _may_be_complete(line):
        line = line.strip()
        return (line[:1].isalpha() or line[:1] == "_") and not line.endswith(".")

    @classmethod
    def _is_complete_import(cls, line):
        return line.startswith(("import", "from")) and not cls.syntax_check(line)

    # Visiting definitions. Statements nest as deep as the language lets them be indented;
    # expressions may nest deeper, and are gone through without recursion.

    def _visit_all(self, statements):
        for statement in statements:
            self.visit(statement)

    def _visit_inside(self, scope, statements):
        outer, self._scope = self._scope, scope
        self._visit_all(statements)
        self._scope = outer

    def generic_visit(self, node):
        """What stands inside any statement, and the parts it is made of."""
        for child in _tarnwick_ast.iter_child_nodes(node):
            if isinstance(child, _tarnwick_ast.expr):
                self._search(child)
            else:
                self.visit(child)

    def _search(self, *nodes):
        """Finds what stands inside expressions: names that are bound there, and the cursor."""
        for node in nodes:
            if node is None or not self._is_worth_searching(node):
                continue
            for each in _tarnwick_ast.walk(node):
                if isinstance(each, _tarnwick_ast.NamedExpr):
                    self._assign(each.target, each.value)
                elif self.CURSOR_MARKER in (getattr(each, "id", ""), getattr(each, "arg", "")):
                    self._cursor = self._scope

    def _is_worth_searching(self, node):
        lines = self._lines_to_search
        first = self.bisect.bisect_left(lines, node.lineno)
        return first < len(lines) and lines[first] <= node.end_lineno

    def visit_ClassDef(self, node):
        self._search(*node.decorator_list, *node.bases)
        scope = self.Scope("class", self._scope)
        scope.bases = [self._expression(base) for base in node.bases]
        self._define(node.name, scope)
        self._visit_inside(scope, node.body)

    def visit_FunctionDef(self, node):
        self._search(*node.decorator_list, *node.args.defaults, *node.args.kw_defaults)
        scope = self.Scope("function", self._scope)
        if isinstance(node, _tarnwick_ast.FunctionDef):
            scope.returns = self._annotation(node.returns)
        decorators = {self._last_name(each) for each in node.decorator_list}
        self._define_function(node.name, scope, decorators)
        self._define_arguments(node, scope, decorators)
        self._visit_inside(scope, node.body)

    visit_AsyncFunctionDef = visit_FunctionDef

    @staticmethod
    def _last_name(node):
        """Of "a.b.c" or a call of it: c."""
        node = getattr(node, "func", node)
        return getattr(node, "id", getattr(node, "attr", ""))

    def _define_function(self, name, scope, decorators):
        if any(decorator.endswith("property") for decorator in decorators):
            self._define(name, scope.returns)
        elif not decorators & {"setter", "getter", "deleter"}:
            self._define(name, scope)

    def _define_arguments(self, node, scope, decorators):
        arguments = node.args.posonlyargs + node.args.args
        for argument in arguments + node.args.kwonlyargs:
            scope.names[argument.arg] = self._annotation(argument.annotation)
        for argument, kind in ((node.args.vararg, tuple), (node.args.kwarg, dict)):
            if argument:
                scope.names[argument.arg] = self.Instance(kind)
        if self.CURSOR_MARKER in scope.names:
            # The function that was put there for the marker's sake has nothing to say.
            self._cursor = self._scope if node.name == self.CURSOR_FUNCTION else scope
        if arguments and self._scope.kind == "class" and "staticmethod" not in decorators:
            is_class = "classmethod" in decorators or node.name in self.METHODS_OF_THE_CLASS
            scope.names[arguments[0].arg] = self._scope if is_class else self.Instance(self._scope)

    def visit_Import(self, node):
        for alias in node.names:
            if alias.asname:
                self._define_import(alias.asname, [alias.name])
            else:
                # "import a.b" binds a, from where b can be reached.
                head = alias.name.split(".")[0]
                self._define_import(head, [head, alias.name])

    def visit_ImportFrom(self, node):
        is_relative = node.level or not node.module
        for alias in node.names:
            if alias.name == "*":
                if not is_relative:
                    self._star_modules.append(node.module)
            elif is_relative:
                # Relative to a package that an edited text does not tell.
                self._define(alias.asname or alias.name, None)
            else:
                self._define_import(alias.asname or alias.name, [node.module], alias.name)

    def _define_import(self, name, modules, inside=None):
        before = self._scope.names.get(name)
        before = before if isinstance(before, self.ImportBinding) else None
        self._define(name, self.ImportBinding(self._follow_import, modules, inside, before))

    def visit_Assign(self, node):
        self._search(node.value)
        for target in node.targets:
            self._assign(target, node.value)

    def visit_AnnAssign(self, node):
        self._search(node.value)
        self._store(*self._place(node.target), self._annotation(node.annotation, node.value))

    def visit_AugAssign(self, node):
        self._search(node.value)
        names, name = self._place(node.target)
        names.setdefault(name, None)

    def visit_Global(self, node):
        self._scope.global_names.update(node.names)

    def visit_If(self, node):
        # Each "elif" is a statement inside the one before.
        alternative = [node]
        while len(alternative) == 1 and isinstance(alternative[0], _tarnwick_ast.If):
            node = alternative[0]
            self._search(node.test)
            self._visit_all(node.body)
            alternative = node.orelse
        self._visit_all(alternative)

    def visit_For(self, node):
        self._assign(node.target, None)
        self.generic_visit(node)

    visit_AsyncFor = visit_For

    def visit_withitem(self, node):
        if node.optional_vars:
            self._assign(node.optional_vars, None)
        self._search(node.context_expr)

    def visit_ExceptHandler(self, node):
        if node.name:
            self._define(node.name, None)
        self.generic_visit(node)

    def visit_match_case(self, node):
        for each in _tarnwick_ast.walk(node.pattern):
            name = getattr(each, "rest", None) or getattr(each, "name", None)
            if name:
                self._define(name, None)
        self._search(node.guard)
        self._visit_all(node.body)

    # Storing what names are bound to

    def _assign(self, target, value):
        if isinstance(target, _tarnwick_ast.Starred):
            self._assign(target.value, None)
        elif isinstance(target, (_tarnwick_ast.Tuple, _tarnwick_ast.List)):
            values = getattr(value, "elts", [])
            starred = any(isinstance(each, _tarnwick_ast.Starred) for each in target.elts + values)
            paired = len(values) == len(target.elts) and not starred
            for i, element in enumerate(target.elts):
                self._assign(element, values[i] if paired else None)
        else:
            self._store(*self._place(target), self._expression(value))

    def _place(self, target):
        """Where a target's name is kept, and the name; an element of a list has none."""
        if isinstance(target, _tarnwick_ast.Name):
            return self._names_for(target.id), target.id
        if isinstance(target, _tarnwick_ast.Attribute):
            scope = self._class_around(self._scope)
            if scope and getattr(target.value, "id", "") in ("self", "cls"):
                return scope.members, target.attr
        return {}, ""

    def _names_for(self, name):
        return (self._module if name in self._scope.global_names else self._scope).names

    def _define(self, name, value):
        self._store(self._names_for(name), name, value)

    def _store(self, names, name, value):
        # "x = None" somewhere does not hide what x holds at other times.
        node = value.arguments[0] if isinstance(value, self.Binding) else value
        if name not in names or not self._is_none(node):
            names[name] = value

    @staticmethod
    def _is_none(node):
        return isinstance(node, _tarnwick_ast.Constant) and node.value is None

    @staticmethod
    def _class_around(scope):
        while scope and scope.kind != "class":
            scope = scope.parent
        return scope

    def _expression(self, node):
        return self.Binding(self._follow, node, self._scope) if node else None

    def _annotation(self, node, value=None):
        return self.Binding(self._follow_annotated, node, value, self._scope) if node else None

    # Resolving names

    def _resolve(self, parts):
        scope = self._cursor or self._module
        around = self._class_around(self._cursor)
        if around and parts[0] in ("self", "cls"):
            value = self.Instance(around) if parts[0] == "self" else around
        else:
            value = self._look_up(parts[0], scope)
        for name in parts[1:]:
            value = self._member(value, name)
        return value

    def _look_up(self, name, scope):
        first = scope
        while scope:
            # A class's names are not seen from inside its functions.
            if name in scope.names and (scope.kind != "class" or scope is first):
                return self._meaning(scope.names[name])
            scope = scope.parent
        for module in self._star_modules:
            found = self._member(self._imported(module), name)
            if found is not None:
                return found
        for module in (self.sys.modules["__main__"], self.builtins):
            if name in vars(module):
                return self.Live(vars(module)[name])
        return None

    def _meaning(self, value):
        if not isinstance(value, self.Binding):
            return value
        if not value.is_followed:
            # Until it is known a binding means nothing, which ends circles.
            value.is_followed = True
            value.meaning = value.follow(*value.arguments)
        return value.meaning

    def _follow(self, node, scope):
        follow = getattr(self, "_follow_" + type(node).__name__, None)
        if follow:
            return follow(node, scope)
        literal = self.LITERALS.get(type(node).__name__)
        return self.Instance(literal) if literal else None

    def _follow_Name(self, node, scope):
        return self._look_up(node.id, scope)

    def _follow_Attribute(self, node, scope):
        return self._member(self._follow(node.value, scope), node.attr)

    def _follow_Call(self, node, scope):
        return self._called(self._follow(node.func, scope))

    def _follow_Constant(self, node, scope):
        return self.Instance(type(node.value))

    def _follow_NamedExpr(self, node, scope):
        return self._follow(node.value, scope)

    def _follow_IfExp(self, node, scope):
        return self._first_known([node.body, node.orelse], scope)

    def _follow_BoolOp(self, node, scope):
        return self._first_known(node.values, scope)

    def _first_known(self, nodes, scope):
        for node in nodes:
            found = None if self._is_none(node) else self._follow(node, scope)
            if found is not None:
                return found
        return None

    def _follow_annotated(self, annotation, value, scope):
        found = self._called(self._annotated_class(annotation, scope))
        return self._follow(value, scope) if found is None and value else found

    def _annotated_class(self, node, scope):
        if isinstance(node, _tarnwick_ast.Constant) and isinstance(node.value, str):
            node = self._quoted(node.value)
        if isinstance(node, _tarnwick_ast.Subscript):
            is_optional = self._last_name(node.value) == "Optional"
            return self._annotated_class(node.slice if is_optional else node.value, scope)
        if isinstance(node, _tarnwick_ast.BinOp):
            side = node.right if self._is_none(node.left) else node.left
            return self._annotated_class(side, scope)
        return self._follow(node, scope)

    @staticmethod
    def _quoted(text):
        try:
            return _tarnwick_ast.parse(text.strip(), mode="eval").body
        except (SyntaxError, ValueError):
            return None

    def _called(self, value):
        """What calling a value gives."""
        if isinstance(value, self.Scope):
            return self.Instance(value) if value.kind == "class" else self._meaning(value.returns)
        if isinstance(value, self.Live) and self._is_live(value.value, type):
            return self.Instance(value.value)
        return None

    def _follow_import(self, modules, inside, before):
        # First those before, as each may load another module below the same name.
        earlier = self._meaning(before)
        loaded = [self._imported(name) for name in modules]
        found = loaded[0]
        if inside is not None:
            found = self._member(found, inside) or self._imported(modules[0] + "." + inside)
        return found or earlier

    def _imported(self, name):
        if name not in self.sys.modules:
            try:
                self.importlib.import_module(name)
            except (Exception, SystemExit):
                return None
        module = self.sys.modules.get(name)
        return self.Live(module) if module is not None else None

    def _member(self, value, name):
        if isinstance(value, self.Live):
            return self._live_member(value.value, name)
        for owner in self._classes(value):
            if not isinstance(owner, self.Scope):
                found = self._live_member(owner, name)
                if found is not None:
                    return found
                continue
            for names in (owner.members, owner.names):
                if name in names:
                    return self._meaning(names[name])
        return None

    def _classes(self, value):
        """The class of an object, or the class itself, and all it derives from."""
        found = {}
        waiting = [value.of if isinstance(value, self.Instance) else value]
        while waiting:
            owner = waiting.pop()
            if id(owner) in found:
                continue
            if isinstance(owner, self.Scope) and owner.kind == "class":
                bases = [self._meaning(base) for base in reversed(owner.bases)]
                waiting += [getattr(base, "value", base) for base in bases]
            elif not self._is_live(owner, type):
                continue
            found[id(owner)] = owner
        return list(found.values())

    def _live_member(self, owner, name):
        if self._is_live(owner, self.types.ModuleType):
            names = self._own_names(owner)
            return self.Live(names[name]) if name in names else None
        try:
            value = self.inspect.getattr_static(owner, name)
        except AttributeError:
            return None
        # What a descriptor would answer cannot be known without running it.
        is_descriptor = hasattr(type(value), "__get__") and not self._is_live(value, type)
        return None if is_descriptor else self.Live(value)

    # Listing names

    def _defined(self, keywords, builtins):
        names = list(self._module.names)
        for module in self._star_modules:
            # Typing a letter is no reason to import.
            if self.sys.modules.get(module) is not None:
                names += self._public(self.sys.modules[module])
        if keywords:
            names += self.keyword.kwlist + ["True", "False", "None"]
        if builtins:
            names += dir(self.builtins)
        return names

    def _public(self, module):
        named = self._own_names(module).get("__all__")
        if isinstance(named, (list, tuple)):
            return list(named)
        return [name for name in self._listed(module) if not str(name).startswith("_")]

    def _attributes(self, value):
        if isinstance(value, self.Live):
            return self._listed(value.value)
        classes = self._classes(value)
        names = dir(object) if classes else []
        for owner in classes:
            if isinstance(owner, self.Scope):
                names += list(owner.names) + list(owner.members)
            else:
                names += self._listed(owner)
        return names

    def _listed(self, value):
        if self._is_live(value, self.types.ModuleType):
            try:
                return dir(value)
            except Exception:
                return list(self._own_names(value))
        if self._is_live(value, type):
            return type.__dir__(value)
        # An object's own answer would be code of the user's.
        return type.__dir__(type(value)) + list(self._own_names(value))

    @staticmethod
    def _is_live(value, kind):
        # An object may say of itself what class it has, which would be code of the user's.
        return issubclass(type(value), kind)

    @staticmethod
    def _own_names(value):
        try:
            return object.__getattribute__(value, "__dict__")
        except AttributeError:
            return {}

    def _sorted(self, names):
        # A namespace that a program filled may hold keys that are no names.
        wanted = {name for name in names if isinstance(name, str)}
        wanted.difference_update(self.INTERNAL_NAMES)
        return sorted(wanted, key=lambda name: (name.startswith("_"), name.lower(), name))

class TarnwickEditorInspector(TarnwickEditorParser):  # noqa: F821 - runs behind that one's text
    """Says what is known of a name that stands in a source, for the quick help.

    Names are followed as for completion, but nothing is imported for it. What they stand for is
    looked at without calling anything: no property, no object's own way to print or to describe
    itself, so that a question can have no effect.
    """

    import os
    import re

    LONGEST_VALUE = 40  # characters of a default that are shown

    PLAIN_TYPES = (int, float, complex, bool, str, bytes, type(None), type(Ellipsis))

    class Words:
        """What a signature is to print in place of an object."""

        def __init__(self, text):
            self.text = text

        def __repr__(self):
            return self.text

    def __init__(self):
        super().__init__()
        self._line = 0

    def describe(self, source, name, line=0):
        """Kind, signature, first paragraph of the documentation, file, its line, and the module.

        Nothing for a name that stands for nothing known. `line` counts from 1: where the name
        stands in the source, 0 for nowhere.
        """
        try:
            self._clear()
            self._line = line
            self._read(source.replace("\r\n", "\n").replace("\r", "\n"))
            parts = name.split(".")
            value = self._resolve(parts) or self._loaded(parts)
            return [str(each) for each in self._described(value, parts[-1])]
        except Exception:
            return []

    # Reading the source

    def visit_ClassDef(self, node):
        super().visit_ClassDef(node)
        self._remember(node)

    def visit_FunctionDef(self, node):
        super().visit_FunctionDef(node)
        self._remember(node)

    visit_AsyncFunctionDef = visit_FunctionDef

    def _remember(self, node):
        scope = self._names_for(node.name).get(node.name)
        if not isinstance(scope, self.Scope):
            return
        scope.node = node
        # What stands inside was visited before.
        if not self._cursor and node.lineno <= self._line <= node.end_lineno:
            self._cursor = scope

    # Finding what is meant

    def _imported(self, name):
        module = self.sys.modules.get(name)
        return self.Live(module) if module is not None else None

    def _loaded(self, parts):
        """A name that begins with that of a loaded module, imported or not."""
        for count in range(len(parts), 0, -1):
            value = self._imported(".".join(parts[:count]))
            if value:
                for name in parts[count:]:
                    value = self._member(value, name)
                return value
        return None

    def _live_member(self, owner, name):
        found = super()._live_member(owner, name)
        if found is not None or self._is_live(owner, self.types.ModuleType):
            return found
        try:
            value = self.inspect.getattr_static(owner, name)
        except AttributeError:
            return None
        return self.Live(self._bare(value))

    @staticmethod
    def _bare(value):
        return value.__func__ if type(value) in (staticmethod, classmethod) else value

    # Describing it

    def _described(self, value, name):
        if isinstance(value, self.Instance):
            described = self._described(self._class_of(value), name)
            return ["instance"] + described[1:] if described else []
        if isinstance(value, self.Scope):
            return self._described_scope(value, name)
        return self._described_live(value.value, name) if isinstance(value, self.Live) else []

    def _class_of(self, value):
        return value.of if isinstance(value.of, self.Scope) else self.Live(value.of)

    def _described_scope(self, scope, name):
        node = getattr(scope, "node", None)
        if not node:
            return []
        signature = self._written_arguments(scope, node)
        text = _tarnwick_ast.get_docstring(node)  # noqa: F821
        return [scope.kind, node.name + signature, self._first_paragraph(text), "", node.lineno, ""]

    def _written_arguments(self, scope, node):
        unparse = _tarnwick_ast.unparse  # noqa: F821
        if scope.kind == "function":
            returns = " -> " + unparse(node.returns) if node.returns else ""
            return "(" + unparse(node.args) + ")" + returns
        maker = getattr(scope.names.get("__init__"), "node", None)
        if not maker:
            return "()" if not node.bases else "(...)"
        arguments = maker.args
        del (arguments.posonlyargs or arguments.args)[:1]
        return "(" + unparse(arguments) + ")"

    def _described_live(self, value, name):
        if self._is_live(value, self.types.ModuleType):
            names = self._own_names(value)
            own_name = names.get("__name__")
            own_name = own_name if type(own_name) is str else name
            return ["module", own_name, self._documentation(value), self._file_of(value), 0,
                    own_name]
        if self._is_live(value, type):
            module = self._module_of(value)
            return ["class", type.__dict__["__name__"].__get__(value) + self._class_signature(value),
                    self._documentation(value), self._file_of(self.sys.modules.get(module)), 0,
                    module]
        if type(value) is property:
            return self._described_property(value, name)
        # What keeps the results of a function stands for that function.
        wrapped = self._own_names(value).get("__wrapped__")
        if self._is_function(value) or type(wrapped) is self.types.FunctionType:
            return self._described_function(value if self._is_function(value) else wrapped)
        described = self._described_live(type(value), name)
        return ["instance"] + described[1:]

    def _described_property(self, value, name):
        getter = self._unwrapped(value.fget)
        text = value.__doc__ if type(value.__doc__) is str else ""
        described = self._described_function(getter) if self._is_function(getter) else [""] * 6
        return ["property", name, self._first_paragraph(text)] + described[3:]

    def _is_function(self, value):
        return type(value) in (
            self.types.FunctionType, self.types.MethodType, self.types.BuiltinFunctionType,
            self.types.MethodDescriptorType, self.types.WrapperDescriptorType,
            self.types.MethodWrapperType, self.types.ClassMethodDescriptorType)

    def _described_function(self, value):
        value = value.__func__ if type(value) is self.types.MethodType else value
        inner = self._unwrapped(value)
        code = inner.__code__ if type(inner) is self.types.FunctionType else None
        module = value.__module__ if hasattr(value, "__module__") else ""
        module = module if type(module) is str else ""
        path = self._existing(code.co_filename) if code else ""
        line = code.co_firstlineno if code else 0
        # The interpreter's own modules carry no paths in their functions.
        return ["function", value.__name__ + self._signature(inner), self._documentation(value),
                path or self._file_of(self.sys.modules.get(module)), line, module]

    def _unwrapped(self, value):
        """The function behind decorators, as long as they are plain functions."""
        seen = []
        while type(value) is self.types.FunctionType and value not in seen:
            seen.append(value)
            inner = value.__dict__.get("__wrapped__")
            if type(inner) is not self.types.FunctionType:
                break
            value = inner
        return value

    def _signature(self, function, skipped=0):
        try:
            signature = self.inspect.signature(function, follow_wrapped=False)
        except (ValueError, TypeError):
            return "(...)"
        parameters = [
            parameter.replace(default=self._shown_default(parameter.default),
                              annotation=self._shown_annotation(parameter.annotation))
            for parameter in list(signature.parameters.values())[skipped:]
        ]
        returns = self._shown_annotation(signature.return_annotation)
        if skipped:
            returns = self.inspect.Signature.empty
        return str(self.inspect.Signature(
            parameters, return_annotation=returns, __validate_parameters__=False))

    def _class_signature(self, owner):
        makers = [self.inspect.getattr_static(owner, name) for name in ("__init__", "__new__")]
        if makers == [vars(object)["__init__"], vars(object)["__new__"]]:
            return "()"
        for name in ("__init__", "__new__"):
            maker = self._bare(self.inspect.getattr_static(owner, name, None))
            if type(maker) is self.types.FunctionType:
                return self._signature(maker, 1)
        # A class of the interpreter's own; asking any other would ask its programmer's code.
        is_built_in = not type.__dict__["__flags__"].__get__(owner) & (1 << 9)
        return self._signature(owner) if is_built_in and type(owner) is type else "(...)"

    def _shown_default(self, value):
        if value is self.inspect.Parameter.empty:
            return value
        return self.Words(self._shown_value(value))

    def _shown_value(self, value):
        if type(value) in (tuple, list) and all(type(each) in self.PLAIN_TYPES for each in value):
            text = repr(value)
        elif type(value) in self.PLAIN_TYPES:
            text = repr(value)
        elif type(value) in (dict, set, frozenset) and not value:
            text = repr(value)
        elif self._is_live(value, type):
            text = type.__dict__["__name__"].__get__(value)
        elif self._is_function(value):
            text = value.__name__
        else:
            return "..."
        return text if len(text) <= self.LONGEST_VALUE else "..."

    def _shown_annotation(self, value):
        if value is self.inspect.Parameter.empty:
            return value
        if type(value) is str:
            return self.Words(value)
        if self._own_names(type(value)).get("__module__") in ("typing", "types"):
            return self.Words(repr(value).replace("typing.", ""))
        return self.Words("None" if value is None else self._shown_value(value))

    def _documentation(self, value):
        owners = type.__dict__["__mro__"].__get__(value) if self._is_live(value, type) else [value]
        for owner in owners:
            if owner is object and value is not object:
                break
            text = self._own_names(owner).get("__doc__")
            if text is None and (self._is_function(owner) or type(owner) is type):
                text = owner.__doc__
            if type(text) is str and text.strip():
                return self._first_paragraph(text)
        return ""

    def _first_paragraph(self, text):
        if not text:
            return ""
        paragraph = self.re.split(r"\n[ \t]*\n", self.inspect.cleandoc(text).strip())[0]
        return " ".join(paragraph.split())

    def _module_of(self, owner):
        name = self._own_names(owner).get("__module__", "builtins")
        return name if type(name) is str else ""

    def _file_of(self, module):
        path = self._own_names(module).get("__file__") if module is not None else None
        return self._existing(path)

    def _existing(self, path):
        is_path = type(path) is str and self.os.path.isabs(path) and self.os.path.isfile(path)
        return path if is_path else ""

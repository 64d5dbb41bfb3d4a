"""Running MEL from Python, and Python's functions from MEL."""

from _maya_host import evaluateMel as eval

_TYPES = ("int", "float", "string", "int[]", "float[]", "string[]")

# MEL that makes Python's text of a value; an array is put together by a loop.
_TEXTS = {
    "int": "({0})",
    "float": "({0})",
    "string": '("\\"" + encodeString({0}) + "\\"")',
}


def _argument(number, kind):
    """Statements that make the variable $tN hold the argument's text."""
    if not kind.endswith("[]"):
        return ["string $t%d = %s;" % (number, _TEXTS[kind].format("$a%d" % number))]
    element = kind[:-2]
    return ['string $t%d = "[";' % number, "%s $e%d;" % (element, number),
            'for ($e%d in $a%d) $t%d += %s + ",";'
            % (number, number, number, _TEXTS[element].format("$e%d" % number)),
            '$t%d += "]";' % number]


def _checked(kind):
    if kind not in _TYPES:
        raise ValueError("%r is no type of a MEL procedure" % (kind,))
    return kind


def createMelWrapper(function, retType="", types=(), returnCmd=False):
    """Makes a global MEL procedure that calls a function of a module: it has the function's name,
    arguments of `types` (MEL's words for them; all strings when left out) and the result
    `retType`. With `returnCmd` the procedure's text is given back instead."""
    name = function.__name__
    if not name.isidentifier():
        raise ValueError("The function needs a name, not %r" % name)
    kinds = list(types) or ["string"] * function.__code__.co_argcount
    kinds = [_checked(kind) for kind in kinds]
    parameters = ", ".join(
        "%s $a%d%s" % (kind.rstrip("[]"), number, "[]" if kind.endswith("[]") else "")
        for number, kind in enumerate(kinds))
    texts = ' + "," + '.join("$t%d" % number for number in range(len(kinds))) or '""'
    body = [line for number, kind in enumerate(kinds) for line in _argument(number, kind)]
    call = 'python("__import__(\'%s\', fromlist=[\'%s\']).%s(" + %s + ")")' % (
        function.__module__, name, name, texts)
    body.append("return %s;" % call if retType else call + ";")
    head = "global proc %s %s(%s)" % (retType and _checked(retType), name, parameters)
    text = "%s\n{\n    %s\n}\n" % (" ".join(head.split()), "\n    ".join(body))
    if returnCmd:
        return text
    eval(text)
    return None

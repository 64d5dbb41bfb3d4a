"""What is typed and executed. Nothing here can delete, start or end anything; what the editor's
completion may make of it is kept in bounds by the program's confinement."""

PYTHON_NAMES = ["mesh", "joints", "layer_name", "count", "offset", "rig", "Camera", "frame_range"]
MEL_NAMES = ["$mesh", "$joints", "$layerName", "$count", "$offset", "$rig"]

PYTHON_LINES = [
    "import math", "from maya import cmds", "import os.path as path", "{0} = [1, 2, 3]",
    "{0} = {{'a': 1, \"b\": [2, (3, 4)]}}", "print({0!r}, {1!r})", "def {0}({1}, *rest, **options):",
    "class {0}(object):", "return {0}", "for {0} in range(12):", "if {0} and not {1}:", "else:",
    "try:", "except ValueError as {0}:", "with open({0!r}) as {1}:", "\"\"\"Text of {0}", "\"\"\"",
    "# TODO {0}", "{0} = lambda {1}: {1} * 2", "cmds.about(version=True)", "@property", "pass",
    "{0}.append(f'{{{1}}} of {{len({0})}}')", "raise ValueError('{0}')", "{0} = (((1, 2), [3]), {{4}})",
    "async def {0}():", "'unfinished {0}", "{0} = b'\\x00\\n' + r'\\d+'", "global {0}", "del {0}",
    "{0}: int = 0x1F + 1_000", "assert {0}, {1}", "nonlocal {1}", "yield {0}", "x = ]){0}(["]

MEL_LINES = [
    "int {0} = 12;", "string {0}[] = {{\"a\", \"b\"}};", "float {0} = 1.5e3;", "vector {0} = <<1, 2, 3>>;",
    "global proc string build(string {0}, int {1}[])", "{{", "}}", "proc helper()", "if ({0} == {1})",
    "else", "for ({0} = 0; {0} < 3; ++{0})", "for ({0} in {1})", "switch ({0}) {{ case 1: break; }}",
    "print (\"{0}\" + {1} + \"\\n\");", "string {0} = `about -version`;", "about -product;",
    "// TODO {0}", "/* {0}", "*/", "eval(\"int {0}\");", "warning \"{0}\";", "global string {0};",
    "window -title \"soak\" ;", "optionVar -q \"soak\";", "{0} += {1} * 2;", "print (\"unfinished",
    "size({0});", "stringArrayToString({1}, \" \");", "startsWith \"abc\" \"a\";", "matrix {0}[2][2];"]

# Executed whole. %d is a number by which the output is found again.
PYTHON_SCRIPTS = [
    "print('soak %d')",
    "import math\nfor i in range(40):\n    print(i, math.sqrt(i))\nprint('soak %d')",
    "from maya import cmds\ncmds.warning('careful')\nprint('soak %d')",
    "from maya import cmds\nprint(cmds.about(version=True))\nprint('soak %d')",
    "import sys\nsys.stderr.write('to stderr\\n')\nsys.stdout.write('in ' + 'pieces ')\nprint('soak %d')",
    "for i in range(4000):\n    print('a long list of lines, number', i)\nprint('soak %d')",
    "print('x' * 20000)\nprint('soak %d')",
    "class Rig:\n    def __init__(self):\n        self.parts = ['p'] * 5\nrig = Rig()\nprint('soak %d')",
    "print('\\u00e4\\u4e2d\\U0001f40d\\u202e\\t|')\nprint('soak %d')",
    "import maya.mel\nprint(maya.mel.eval('size(\"four\")'))\nprint('soak %d')",
    "import threading\ndef work(n):\n    for i in range(60):\n        print('thread', n, i)\n"
    "threads = [threading.Thread(target=work, args=(n,)) for n in range(3)]\n"
    "for t in threads:\n    t.start()\nfor t in threads:\n    t.join()\nprint('soak %d')",
    "import threading, time\ndef late():\n    time.sleep(0.3)\n    print('late words')\n"
    "threading.Thread(target=late).start()\nprint('soak %d')",
    "import maya.utils\nmaya.utils.executeDeferred(lambda: print('deferred'))\nprint('soak %d')",
    "print('soak %d')\nraise RuntimeError('on purpose')",
    "print('soak %d')\ndef a(n):\n    return a(n + 1)\na(0)",
    "print('soak %d')\nimport no_such_module",
]
MEL_SCRIPTS = [
    "print \"soak %d\\n\";",
    "for ($i = 0; $i < 60; ++$i) print ($i + \" \" + sqrt($i) + \"\\n\"); print \"soak %d\\n\";",
    "warning \"careful\"; print \"soak %d\\n\";",
    "string $v = `about -version`; print ($v + \"\\n\"); print \"soak %d\\n\";",
    "proc int twice(int $n) { return $n * 2; } print (twice(21) + \"\\n\"); print \"soak %d\\n\";",
    "python(\"print('from python')\"); print \"soak %d\\n\";",
    "for ($i = 0; $i < 2000; ++$i) print (\"line \" + $i + \"\\n\"); print \"soak %d\\n\";",
    "int $a[]; for ($i = 0; $i < 500; ++$i) $a[$i] = $i * $i; print \"soak %d\\n\";",
    "evalDeferred(\"print \\\"deferred\\\\n\\\"\"); print \"soak %d\\n\";",
    "print \"soak %d\\n\"; error \"on purpose\";",
    "print \"soak %d\\n\"; noSuchCommand -x 1;",
    "print \"soak %d\\n\"; proc int deep(int $n) { return deep($n + 1); } deep(0);",
]
ENDLESS = {"python": ["while True:\n    pass", "import time\nwhile True:\n    time.sleep(0.01)",
                      "i = 0\nwhile True:\n    i += 1\n    if i % 50000 == 0:\n        print(i)"],
           "mel": ["while (true) {}", "int $n = 0; while (true) { ++$n; }"]}

JUNK = "()[]{}\"'`#/*\\;:,.<>=+-%&|^~!?@$_ abcdefghijklmnopqrstuvwxyzABCDEFGHIJ0123456789\n\t "
UNUSUAL = "\u00e4\u00df\u00e9\u4e2d\u20ac\u03a9"

COMPLETIONS = {"python": ["cmds.", "cmds.a", "import o", "pri", "ran", "os.pa", "mesh.", "'text'.", "Val"],
               "mel": ["wind", "about -", "text", "$", "print", "butto", "for", "optionVar -"]}
SEARCHED = ["mesh", "print", "def ", "[a-z]+_name", "(", "\\w+", "count", "nowhere at all", "i", "TODO"]
HELPED = ["button", "about", "os.path", "print", "window", "math.sqrt", "nothing", "str.join"]
PATHS = ["*.py", "tools", "*.mel, *.txt", "", "rig*"]


def names(rng, language):
    pool = PYTHON_NAMES if language == "python" else MEL_NAMES
    return rng.choice(pool), rng.choice(pool)


def line(rng, language):
    lines = PYTHON_LINES if language == "python" else MEL_LINES
    return rng.choice(lines).format(*names(rng, language))


def lines(rng, language, count):
    return "\n".join("    " * rng.choice((0, 0, 0, 1, 2)) + line(rng, language)
                     for _ in range(count)) + "\n"


def script(rng, language, number):
    return rng.choice(PYTHON_SCRIPTS if language == "python" else MEL_SCRIPTS) % number


def junk(rng, length):
    return "".join(rng.choice(JUNK) for _ in range(length))

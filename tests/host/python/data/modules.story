== Logging goes to the script window
import logging; logging.getLogger("tool").info("a"); logging.warning("b"); logging.error("c"); logging.debug("d") >> Info: tool : a | Warning: root : b | Error: root : c
type(utils.shellLogHandler()).__name__ => StreamHandler

== Functions become procedures of MEL
def join(texts, number, end): return "-".join(texts) + str(number) + end
mel.createMelWrapper(join, retType="string", types=["string[]", "int", "string"])
mel: join({"a", "say \"b\""}, 4, "!\\") => a-say "b"4!\
print(mel.createMelWrapper(join, types=["int"], returnCmd=True)) >> Display: global proc join(int $a0)\n{\n    string $t0 = ($a0);\n    python("__import__('__main__', fromlist=['join']).join(" + $t0 + ")");\n}
mel.createMelWrapper(join, retType="matrix") => error: 'matrix' is no type of a MEL procedure

== MEL's values arrive as Python's
mel.eval("$v = <<1, 2, 3>>"), mel.eval("$f = {0.5}"), mel.eval("$i = 3"), mel.eval("int $n[]; $n = $n") => ([1.0, 2.0, 3.0], [0.5], 3, [])
mel.eval("matrix $m[1][3] = <<1, 2, 3>>; $m = $m"), mel.eval("") => ([(1.0, 2.0, 3.0)], None)

== Commands explain themselves
import pydoc
"Runs the host's command about" in pydoc.render_doc(cmds.about, renderer=pydoc.plaintext) => True
cmds.about.__name__, cmds.about.__module__, "about" in dir(cmds) => ('about', 'maya.cmds', True)

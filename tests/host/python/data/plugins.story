== A plug-in of the newer form works from both languages
cmds.loadPlugin("newer.py") => ['newer']
cmds.pyCounter("a", "b") => a b
mel: pyCounter x => x
cmds.pyCounter(label=["a", "b"]) => ['a', 'b']
mel: pyCounter -label "a b" -l c => a b c
cmds.pyCounter(size=(1, 2.5)) => [1.0, 2.5]
cmds.pyCounter(byAmount=3) => 3
mel: pyCounter -b 4 => 7
mel: pyCounter -q => 7
mel: undo; pyCounter -q; => 3
cmds.undo(); print(cmds.pyCounter(query=True)) >> Display: 0
cmds.redo(); print(cmds.pyCounter(q=1)) >> Display: 3
cmds.undoInfo(q=True, undoName=True) => pyCounter -byAmount 3
mel: pyCounter -x => error: Invalid flag '-x'
mel: pyCounter -b => error: Flag '-byAmount' must be passed a int argument
cmds.pyCounter(foo=1) => error: Invalid flag 'foo'
cmds.pyCounter("a", "b", "c") => error: Too many objects or values.
cmds.pyCounter(badLuck=True) => error: no luck >> Error: out of luck | Error: RuntimeError: no luck
"byAmount" in cmds.help("pyCounter") => True
mel: whatIs pyCounter => Command

== What is known of a plug-in
cmds.loadPlugin("%p/newer.py", "older") => ['newer', 'older']
cmds.pluginInfo(q=True, listPlugins=True) => ['newer', 'older']
cmds.pluginInfo("newer.py", q=True, loaded=True), cmds.pluginInfo("other", q=True, loaded=True) => (True, False)
[cmds.pluginInfo("newer", q=True, **{flag: True}) for flag in ("vendor", "version", "name", "command")] => ['A. N. Author', '1.5', 'newer', ['pyCounter']]
cmds.pluginInfo("newer", q=True, path=True) => %p/newer.py
om.MFnPlugin.findPlugin("newer").isNull(), om.MFnPlugin.findPlugin("nobody").isNull() => (False, True)
cmds.loadPlugin("newer") => [] >> Warning: Plug-in, "newer", is already loaded.

== A plug-in of the older form reads its words
cmds.loadPlugin("older") => ['older']
mel: pyWords -flag 0x10 "two words" on => -flag|0x10|two words|on
cmds.pyWords("a", 1) => a|1
cmds.pyWords(flag=1) => error: Invalid flag 'flag'
cmds.pyForgotten() => error: The creator has to return OpenMayaMPx.asMPxPtr(command), not Words
mel: pyWords leave => error: ... >> Error: RuntimeError: Plug-in, "older", cannot be unloaded because it is still in use: its code is running.
cmds.unloadPlugin("older") => ['older'] >> Warning: Plug-in, "older", left behind the command pyForgotten; removed.
hasattr(cmds, "pyWords"), hasattr(cmds, "pyForgotten") => (False, False)

== What can be undone keeps a plug-in loaded
cmds.loadPlugin("newer")
cmds.pyCounter(b=1)
cmds.unloadPlugin("newer") => error: Plug-in, "newer", cannot be unloaded because it is still in use: its commands can still be undone.
cmds.unloadPlugin("newer", force=True) => ['newer']
mel: pyCounter => error: Cannot find procedure "pyCounter".
cmds.undoInfo(q=True, undoQueueEmpty=True) => True
cmds.loadPlugin("newer")
cmds.pyCounter(q=True) => 0

== Plug-ins that do not start leave nothing
cmds.loadPlugin("failing") => error: initializePlugin function failed (failing) >> Error: RuntimeError: no start today | Error: RuntimeError: initializePlugin function failed (failing)
hasattr(cmds, "pyNever") => False
cmds.loadPlugin("noEntry") => error: No initializePlugin() or initializePlugin2() function (noEntry)
mel: loadPlugin broken => error: Unable to dynamically load : %p/broken.py\n...
mel: loadPlugin mixed => error: initializePlugin function failed (mixed) >> Error: TypeError: MFnPlugin needs the object that the entry point got ...
mel: loadPlugin nowhere.py => error: Plug-in, "nowhere.py", was not found on MAYA_PLUG_IN_PATH.
cmds.pluginInfo(q=True, listPlugins=True) is None => True

== Scripts hear of plug-ins that come and go
mel: global proc came(string $name) { print("came " + $name + ";"); } loadPlugin -addCallback "came";
cmds.loadPlugin(addCallback=lambda name: print("hello", name)); cmds.unloadPlugin(addCallback=lambda name: print("bye", name))
cmds.loadPlugin("newer", name="counting") => ['counting'] >> Display: came counting;hello counting
cmds.loadPlugin("newer") => [] >> Warning: Plug-in, "newer", is already loaded.
cmds.pluginInfo("counting", q=True, unloadOk=True), cmds.pluginInfo(q=True, pluginsInUse=True) is None => (True, True)
cmds.pyCounter(b=1)
cmds.pluginInfo("counting", q=True, unloadOk=True), cmds.pluginInfo(q=True, pluginsInUse=True) => (False, ['counting', '1.5'])
cmds.unloadPlugin("counting") => error: ... >> Error: RuntimeError: Plug-in, "counting", cannot be unloaded because it is still in use: its commands can still be undone.
cmds.unloadPlugin("counting", force=True) => ['counting'] >> Display: bye counting
mel: loadPlugin -removeCallback "came"
cmds.loadPlugin("newer") => ['newer'] >> Display: hello newer

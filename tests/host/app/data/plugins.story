== A command of one word
loadPlugin "%p/simpleGreeting.so" => simpleGreeting
simpleGreeting "world" => Hello world
py: cmds.simpleGreeting("Python") => Hello Python
loadPlugin simpleGreeting >> // Warning: Plug-in, "simpleGreeting", is already loaded. //
pluginInfo -q -command simpleGreeting => simpleGreeting
unloadPlugin simpleGreeting => simpleGreeting
simpleGreeting => error: Cannot find procedure "simpleGreeting".
unloadPlugin simpleGreeting => error: Plug-in, "simpleGreeting", is not loaded.

== Flags, query and undo
loadPlugin -quiet "%p/TypedCommand.so"
typedCommand -as labels -label "a b" -lb c => a b c
py: cmds.typedCommand(resultType="labels", label=["a b", "c"]) => ['a b', 'c']
py: cmds.typedCommand(size=(3, 4), resultType="size") => 12
typedCommand -u
typedCommand -u
typedCommand -q => 2
undo; typedCommand -q; => 1
redo; typedCommand -q; => 2
py: cmds.typedCommand(count="many") => error: Invalid arguments for flag 'count'.  Expected int, got str
py: cmds.typedCommand(misbehave="say why") => error: no such thing >> # Error: no such thing #
unloadPlugin TypedCommand => error: Plug-in, "TypedCommand", cannot be unloaded because it is still in use: its commands can still be undone.
unloadPlugin -force TypedCommand => TypedCommand
py: cmds.undoInfo(q=True, undoQueueEmpty=True) => True

== A panel that docks
loadPlugin "%p/PanelPlugin.so"
outsidePanelShow
workspaceControl -q -exists outsidePanel => 1
control -exists outsideContent => 1
@press Press >> // pressed //
workspaceControl -e -close outsidePanel; outsidePanelShow; workspaceControl -q -visible outsidePanel; => 1
unloadPlugin PanelPlugin
workspaceControl -exists outsidePanel => 0
whatIs outsidePanelShow => Unknown

== A menu entry and a type of control
loadPlugin "%p/PanelPlugin.so"
global string $gMainWindow; string $menus[] = `window -q -menuArray $gMainWindow`;
window outside; columnLayout column; outsideDial -width 40 dial; => outside|column|dial
outsideDial => outside|column|outsideDial1
outsideDial -q -width dial => 40
outsideDial -e -visible 0 dial; outsideDial -q -visible dial; => 0
outsideDial -exists dial; => 1
outsideDial -q -exists nothing => 0
outsideDial -q -width nothing => error: Object 'nothing' not found.
outsideDial -parent nowhere => error: Object 'nowhere' not found.
lsUI -type OutsideDial => dial outsideDial1
unloadPlugin PanelPlugin => error: Plug-in, "PanelPlugin", cannot be unloaded because it is still in use: its controls are open.
deleteUI outside
unloadPlugin PanelPlugin => PanelPlugin
outsideDial => error: Cannot find procedure "outsideDial".
loadPlugin PanelPlugin => error: Plug-in, "PanelPlugin", was not found on MAYA_PLUG_IN_PATH.

== What MEL calls is heard
loadPlugin "%p/ListeningPlugin.so"
proc int work(int $n) { about -batch; return $n + 1; } work(2); => 3
optionVar -q heardCommands => about -batch;;optionVar -q "heardCommands";;
startString(`optionVar -q heardCalls`, 42) => work>1p;about>2c;about<2c;work<1p;optionVa
unloadPlugin ListeningPlugin

== What was left behind goes
loadPlugin "%p/UntidyPlugin.so"
untidyCommand
unloadPlugin UntidyPlugin >> // Warning: Plug-in, "UntidyPlugin", left behind the command untidyCommand; removed. // | // Warning: Plug-in, "UntidyPlugin", left behind 2 callback(s); removed. //

== Files that are no plug-ins
loadPlugin "%p/NoEntry.so" => error: No initializePlugin() or initializePlugin2() function (NoEntry)
loadPlugin "%p/HiddenEntry.so" => error: No initializePlugin() or initializePlugin2() function (HiddenEntry)
loadPlugin "%p/MissingSymbol.so" => error: Unable to dynamically load : %p/MissingSymbol.so\n...
loadPlugin "%p/FailingPlugin.so" => error: initializePlugin function failed (FailingPlugin)
failingCommand => error: Cannot find procedure "failingCommand".
loadPlugin "/etc/hostname" => error: Unable to dynamically load : /etc/hostname\n...
loadPlugin nowhere => error: Plug-in, "nowhere", was not found on MAYA_PLUG_IN_PATH.
pluginInfo -q -listPlugins =>

== A command that works on the selection
loadPlugin "%p/SelectionPlugin.so"
createNode transform -n a; createNode transform -n b; createNode transform -n c; select -clear;
listObjects => error: This command requires at least 1 argument(s) to be specified or selected; found 0.
listObjects "nothing" => error: (kInvalidParameter): Object does not exist
select a b; listObjects; => a b
listObjects c => c
listObjects -without a => b
py: cmds.listObjects("a", "c", select=True) => ['a', 'c']
ls -selection => a c
listObjects -farAway 2.54 -atTime 48 => 3
listObjects -farAway "1in" -atTime "2sec" => 3
py: cmds.listObjects(farAway="2ft") => 24.0

== Jobs run when their event comes
scriptJob -event SelectionChanged "print a" => 1
scriptJob -runOnce 1 -event "SelectionChanged" "print b" => 2
scriptJob -e SceneOpened "noSuchThing"
@fire SelectionChanged >> print: ab
@fire SelectionChanged >> print: a
@fire SceneOpened >> error: Cannot find procedure "noSuchThing".
print(`scriptJob -listJobs`) >> print: 1: "-event" "SelectionChanged" "print a"\n\n3: "-event" "SceneOpened" "noSuchThing"\n\n
scriptJob -exists 1 => 1
scriptJob -exists 2 => 0

== A job may end itself
scriptJob -event Undo "print x; scriptJob -kill 1"
@fire Undo >> print: x
@fire Undo >>

== Protected jobs need force
scriptJob -protected -event Undo "print x"
scriptJob -permanent -event Redo "print y"
scriptJob -kill 1 => error: ...
scriptJob -killAll
size(`scriptJob -listJobs`) => 2
scriptJob -kill 1 -force; scriptJob -kill 99; scriptJob -exists 1; => 0
scriptJob -killAll -force
size(`scriptJob -listJobs`) => 0

== Idle jobs run while nothing else does
int $turns = 0; scriptJob -idleEvent "global int $turns; $turns++"; scriptJob -event idle "global int $turns; $turns += 100";
@until int $enough = $turns >= 202
scriptJob -kill 1 -kill 2
size(`scriptJob -listJobs`) => 0

== Jobs hear of option variables
scriptJob -optionVarChanged "size" "print(`optionVar -q size` + \";\")"
optionVar -iv size 4; optionVar -iv other 1; optionVar -remove size >> print: 4;0;

== Bad jobs are refused
scriptJob -event noEvent "print x" => error: Invalid event name 'noEvent'.
scriptJob => error: scriptJob needs something to wait for and a script.
scriptJob -uiDeleted win "print x" => error: Object 'win' not found.
scriptJob -parent win -event Undo "print x" => error: Object 'win' not found.
size(`scriptJob -listJobs`) => 0

== Jobs wait for conditions
scriptJob -conditionTrue SomethingSelected "print some"; scriptJob -cf SomethingSelected "print none"; condition -state 0 mine; scriptJob -cc mine "print(`isTrue mine`)"
createNode transform -n a; condition -e -state 1 mine >> print: some1
select -cl; condition -e -state 0 mine; isTrue SomethingSelected => 0 >> print: none0
scriptJob -conditionTrue noSuch "print x" => error: Invalid condition name 'noSuch'.
scriptJob -listConditions => RedoAvailable SomethingSelected UndoAvailable UndoOrRedoAvailable mine playingBack
stringArrayContains("\"-conditionFalse\"", stringToStringArray(`scriptJob -lj`[1], " ")) => 1
condition -delete mine; isTrue mine => error: Unknown condition: 'mine'.
condition -state 1 playingBack => error: The condition 'playingBack' is the host's own.

== A condition is worked out by its script
int $n = 1; global proc int big() { global int $n; return $n > 3; }
condition -initialize -d Undo -s "big" large; isTrue large => 0
$n = 5; isTrue large => 0
@fire Undo
isTrue large => 1
condition -s "big" -d nothing other => error: Unknown event or condition: 'nothing'.

== Jobs end with their scene, and give way to the next one
scriptJob -killWithScene -event Undo "print a"; scriptJob -event Undo "print b"; file -f -new
@fire Undo >> print: b
scriptJob -replacePrevious -event Undo "print x" => error: -replacePrevious needs -parent.

== One job for all elements of an attribute
createNode plusMinusAverage -n p; scriptJob -dri -ac "p.input1D[0]" "print any"; setAttr p.input1D[3] 2;
@idle
>> print: any

== The scene is played
playbackOptions -min 1 -max 5 -loop once; currentTime 3; play -wait; currentTime -q => 5
currentTime 3; play -state 1; isTrue playingBack => 1
@until int $stopped = !`play -q -state`
currentTime -q => 5

== Jobs end with the session
scriptJob -event Undo "print x"; scriptJob -ovc v "print y"
@restart
@fire Undo
optionVar -iv v 1
>>

== Run-time commands are called like any other
runTimeCommand -annotation "Say it" -command "print hi; 3 + 4;" Greet
Greet >> print: hi
int $sum = `Greet` => 7
runTimeCommand -q -annotation Greet => Say it
runTimeCommand -q -command Greet => print hi; 3 + 4;
runTimeCommand -q -commandLanguage Greet => mel
runTimeCommand -command "noSuchThing" Fails
Fails; print never; => error: ... >> error: Cannot find procedure "noSuchThing".

== Run-time commands are edited and deleted
runTimeCommand -command "print a" -category Tools One; runTimeCommand -default true -command "print d" Two;
runTimeCommand -e -command "print b" -addKeyword x -addKeyword y One
One >> print: b
runTimeCommand -q -keywords One => x,y
runTimeCommand -q -commandArray => One Two
runTimeCommand -q -userCommandArray => One
runTimeCommand -q -categoryArray => Tools
runTimeCommand -e -delete Two => error: ...
runTimeCommand -e -delete One
runTimeCommand -exists One => 0
One => error: Cannot find procedure "One".

== Run-time commands give way to nothing
runTimeCommand -command "print a" One
runTimeCommand -command "print b" One => error: The command 'One' already exists.
runTimeCommand -command "x" about => error: ...
runTimeCommand -command "x" "two words" => error: ...
runTimeCommand -cl perl -command "x" P => error: ...
runTimeCommand -q -command Nobody => error: ...
One >> print: a

== Saved run-time commands come back
runTimeCommand -label "A \"quoted\" label" -command "print \"back\\\\slash\\n\";\nprint 2;" Kept
runTimeCommand -default 1 -command "print no" Own; runTimeCommand -e -save
runTimeCommand -q -command Kept => print "back\\slash...
@restart
>>
runTimeCommand -q -command Kept => print "back\\slash...
runTimeCommand -q -label Kept => A "quoted" label
Kept >> print: back\slash\n2
runTimeCommand -exists Own => 0

== Plug-ins are loaded once
@plugins
loadPlugin tool => tool
loadPlugin tool >> warning: Plug-in, "tool", is already loaded.
loadPlugin -quiet tool.so >>
loadPlugin broken => error: Cannot load broken.
loadPlugin missing => error: Plug-in, "missing", was not found on MAYA_PLUG_IN_PATH.
unloadPlugin tool => tool
unloadPlugin tool => error: ...

== Plug-ins are asked about
@plugins
pluginInfo -q -loaded tool => 0
pluginInfo -q -vendor tool => error: ...
loadPlugin tool
pluginInfo -q -loaded tool => 1
pluginInfo -q -listPlugins => tool
pluginInfo -q -vendor tool => Somebody
pluginInfo -q -command tool => toolRun
pluginInfo -q -path tool => %dplug-ins/tool.so

== Autoload is kept
@plugins
pluginInfo -e -autoload true tool; pluginInfo -e -autoload true "/x/other.so";
pluginInfo -e -autoload false missing; pluginInfo -savePluginPrefs;
@restart
@plugins
pluginInfo -q -autoload tool => 1
pluginInfo -q -autoload other => 1
pluginInfo -q -autoload missing => 0
source "%dmaya/2024/prefs/pluginPrefs.mel"
@idle
pluginInfo -q -loaded tool => 1

== Modules are asked about
moduleInfo -listModules =>
moduleInfo -version => error: moduleInfo needs -listModules or -moduleName.
moduleInfo -moduleName tool -path => error: Module, "tool", was not found on MAYA_MODULE_PATH.

== The host tells about itself
about -version; => 2024
about -batch => 1
about -api => 20240000
about -os => linux64
about => Maya 2024
gmatch(`about -cd`, "[0-9]*/[0-9][0-9]/[0-9][0-9]") => 1
gmatch(`date -time`, "[0-2][0-9]:[0-5][0-9]:[0-6][0-9]") => 1
gmatch(`date -format "YY|MM|DD hh:mm:ss x"`, "??|??|?? ??:??:?? x") => 1
match("^[0-9]+/[0-9]+/[0-9]+ [0-9]+:[0-9]+:[0-9]+$", `date`) == `date` => 1
float $t = `timerX`; int $ok = (`timerX -startTime $t` >= 0 && `timerX` >= $t); => 1

== Folders end in a slash
internalVar -userPrefDir => %dmaya/2024/prefs/
internalVar -userShelfDir => %dmaya/2024/prefs/shelves/
internalVar -userScriptDir => %dmaya/2024/scripts/
internalVar -usd => %dmaya/2024/scripts/
about -preferences => %dmaya/2024
internalVar => error: ...

== Deferred texts run in order and on their own
evalDeferred -lowestPriority "print last;"; evalDeferred "print a;"; evalDeferred "noSuchThing"; evalDeferred -lp "print lower";
    evalDeferred "print b;"; evalDeferred -evaluateNext "print first;"; print now; >> print: now
string $waiting[] = `evalDeferred -list`; size($waiting); => 6
@idle >> print: firsta | error: Cannot find procedure "noSuchThing". | print: blastlower
size(`evalDeferred -list`) => 0
evalDeferred => error: ...

== Deferred texts end with the session
evalDeferred "print late"
@restart
@idle
>>

== A filter is emptied by an empty list
commandEcho -filter {"ls", "print"}
commandEcho -filter {}
commandEcho -q -filter =>

== A variable that is declared twice is told on request
{ int $one; int $one; }
melOptions -duplicateVariableWarnings on
{ int $one; int $two; { int $one; } int $one; } >> warning: Variable "$one" is declared again.
proc once(int $one) { int $one; } >> warning: Variable "$one" is declared again.

== A device without an end is not read to it
int $f = fopen("/dev/zero", "r"); print(size(fgetline($f)) > 0); fclose($f); >> print: 1
freadAllText("/dev/zero"); => error: Cannot read file "/dev/zero": It is too long.

== There is nothing to undo
undo; redo; >> warning: There are no more commands to undo. | warning: There are no more commands to redo.
undoInfo -q -undoQueueEmpty => 1
undoInfo -openChunk; undoInfo -closeChunk; undoInfo -q -undoName =>
undoInfo -state off; undoInfo -q -state => 0

== Flags that are not offered are refused
about -moon => error: Invalid flag '-moon'
scriptJob -conditionNone "a" "print x" => error: Invalid flag '-conditionNone'
commandEcho -q -addFilter => error: Flag '-addFilter' cannot be used in query mode.
mayaDpiSetting -mode 1 => error: The scale of this host's interface follows the system and cannot be set.

== Projects keep their rules
workspace -openWorkspace ($d + "film") => error: ...
workspace -q -fn => %dmaya/projects/default
workspace -newWorkspace ($d + "film"); workspace -fr "scene" "scenes" -fr "images" "out/images"; workspace -saveWorkspace;
workspace -create "scenes"
filetest -d ($d + "film/scenes") => 1
@restart
workspace -o ($d + "film")
workspace -q -rootDirectory => %dfilm/
workspace -q -fileRuleEntry "images" => out/images
workspace -q -fileRule => images out/images scene scenes
workspace -expandName "a/../b" => %dfilm/b
workspace -q -active => film

== Display strings are not overwritten by chance
uiRes("m_WindowMenu.kGeneralEditorsLabel") => General Editors
displayString -value "One" "m_a.k"
displayString -value "Two" "m_a.k" => error: ...
displayString -replace -value "Three" "m_a.k"
displayString -q -value "m_a.k" => Three
displayString -keys "m_a*" => m_a.k
displayString -delete "m_a.k"
uiRes("m_a.k") => m_a.k >> warning: The interface text "m_a.k" does not exist.

== A missing option variable is zero
optionVar -q nothing => 0
optionVar -exists nothing => 0
optionVar -arraySize nothing => 0
optionVar -q => error: ...
optionVar -iv v => error: Flag '-intValue' must be passed...

== Option variables are removed before they are set
optionVar -sva list a -sva list b -iv other 1
optionVar -sva list c -remove list -remove other
optionVar -q list => c
optionVar -exists other => 0
optionVar -sva list d -removeFromArray list 0
optionVar -q list => d
optionVar -removeFromArray list 5 => error: ...
optionVar -clearArray list
size(`optionVar -q list`) + `optionVar -exists list` => 1

== Option variables are listed
optionVar -iv b 1 -iv a 2; optionVar -category films -iv c 3
optionVar -list => a b c
optionVar -list -category films => c
optionVar -listCategories => films
optionVar -default -iv a 2; optionVar -default -iv b 1; optionVar -iv b 9
optionVar -listModified => b
optionVar -iva n 1 -iva n 2
optionVar -arraySize n => 2

== Elements for several arrays keep to their own
optionVar -sva a 1 -sva a 2 -sva b 3 -sva a 4; optionVar -init -sva new x -sva new y
optionVar -q a => 1 2 4
optionVar -q b => 3
optionVar -q new => x y

== Initial values do not overwrite
optionVar -iv old 1; optionVar -init -iv old 2 -iv new 3
optionVar -q old => 1
optionVar -q new => 3

== Stashed values come back
optionVar -iv a 1; optionVar -stash a -iv a 2
optionVar -q a => 2
optionVar -unstash a
optionVar -q a => 1
optionVar -stash a; optionVar -iv a 5; optionVar -clearStash a -unstash a
optionVar -q a => 5

== Only what lasts is saved
optionVar -iv lasting 1; optionVar -transient -iv passing 2
optionVar -q passing => 2
@restart
optionVar -list => lasting

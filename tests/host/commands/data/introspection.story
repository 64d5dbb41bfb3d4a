== Every name has its kind
runTimeCommand -command "print hi" Greet; global proc typed() {} int $number = 1; string $names[];
whatIs about => Command
whatIs substring => Command
whatIs catchQuiet => Command
whatIs Greet => Run Time Command
whatIs typed => Mel procedure entered interactively.
whatIs "$number" => int variable
whatIs "$names" => string[] variable
whatIs "$nothing" => Unknown
whatIs noSuchName => Unknown
whatIs "" => Unknown
for ($name in {"about", "substring", "Greet", "typed"}) print(`exists $name`); >> print: 1111
for ($name in {"$number", "$names", "$nothing", "noSuchName", ""}) print(`exists $name`); >> print: 00000

== A procedure hides a command
global proc string about() { return "mine"; }
whatIs about => Mel procedure entered interactively.

== The host's scripts become procedures when they are called
whatIs startsWith => Script found in: %b/scripts/others/startsWith.mel
exists startsWith => 1
startsWith("ab", "a") => 1
whatIs startsWith => Mel procedure found in: %b/scripts/others/startsWith.mel
// The user's own script of that name comes first in a new session.
fwriteAllText($d + "maya/2024/scripts/startsWith.mel", "global proc int startsWith(string $a, string $b) { return 7; }");
@restart
startsWith("ab", "a") => 7

== Procedures tell their arguments
global proc typed(int $a, string $b[], vector $c) {}
getProcArguments typed => int string[] vector
getProcArguments nobody => error: ...
int $seen = 1; string $names[] = `env`;
stringArrayContains("$seen", `env`) => 1

== The last error is remembered
error "first" => error: first
catchQuiet(`noSuchThing`)
getLastError => Cannot find procedure "noSuchThing".

== Help on less than a command
runTimeCommand -command "print hi" Greet; global proc typed() {}
help -so melInfo => \nSynopsis: melInfo\nNo Flags\n
help -so tokenize => \nSynopsis: tokenize String Any [String[]]\nNo Flags\n
help -so typed => error: Quick help is not available for "typed".
help -so Greet => error: Quick help is not available for "Greet".

== Help finds names
help -list "encode.*" => encodeString
help -list "enc*ing" => encodeString
help -list "nothing[" =>
size(`help -list ".*"`) > 100 => 1

== Python is refused without Python
python("1") => error: Python is not available.

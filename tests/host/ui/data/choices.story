== A tree and its items
treeView -nb 1 -add "a" "" -add "b" "a" -add "c" "b" -add "d" "" -dl "b" "Label B" t => w|c|t
treeView -q -ch "" t => a b c d
treeView -q -ch "b" t => b c
treeView -q -ip "c" t => b
treeView -q -dl "b" t => Label B
treeView -q -il "b" t => 0
treeView -q -iex "x" t => 0
treeView -q -ip "x" t => error: Item not found: x
treeView -e -add "a" "" t => error: There is an item called a already.
treeView -e -add "e" "x" t => error: Item not found: x
treeView -e -si "b" 1 -si "d" 1 t; treeView -q -si t => b d
treeView -e -si "b" 0 t; treeView -q -is "b" t => 0
treeView -e -ei "a" 0 t; treeView -q -iie "a" t => 0
treeView -e -i "a" 1 "host_save.png" t => w|c|t
treeView -e -i "a" 2 "host_save.png" t => error: The tree has no button 2.
treeView -e -ri "b" t; treeView -q -ch "" t => a d
treeView -q -iex "c" t => 0
treeView -e -ra t; size(`treeView -q -ch "" t`) => 0

== A tree calls procedures by their names
global proc int picked(string $item, int $on) { print($item + $on + ";"); return 1; }
treeView -add "a" "" -add "b" "" -sc "picked" -scc "print \"changed;\"" t => w|c|t
treeView -e -si "a" 1 t >>
@key t Home >>
@key t End >> a0;b1;changed;
treeView -e -sc "print \"#1 #2;\"" -scc "" t
@key t Home >> b 0;a 1;
treeView -e -cs t; size(`treeView -q -si t`) => 0

== Files are asked for by kind
fileDialog2 -fm 1 -cap "Open" -ff "Scenes (*.ma);;All (*)" -dir "/tmp" => chosen
@asked => ExistingFile|Open|Scenes (*.ma);;All (*)|/tmp
fileDialog2 -fm 3 -okc "Take"; => chosen
@asked => Folder|File||
fileDialog2 -fm 0 -rf 1 => chosen filter
fileDialog2 -fm 9 => error: File modes are numbered 0 to 4, not 9.
fileDialog -dm "/tmp/*.mel" => chosen
@asked => ExistingFile|File|*.mel (*.mel)|/tmp/
fileDialog -m 1 -t "Save" -dfn "x.mel" -dm "/tmp/*.mel" => chosen
@asked => AnyFile|Save|*.mel (*.mel)|/tmp/x.mel

== Colours
colorSliderGrp -label "Ink" -rgb 1 0.5 0 -cc "print \"#1 #2 #3\"" g => w|c|g
colorSliderGrp -q -rgb g => 1 0.5...
colorSliderGrp -e -hsv 240 1 1 g; colorSliderGrp -q -rgb g => 0 0 1
@click g >> 0 1 0
@access g => Ink
colorIndexSliderGrp -label "No" -min 1 -max 20 -v 7 -cc "print \"#1\"" i => w|c|i
@key i Right >> 8
colorIndexSliderGrp -q -v i => 8
canvas -rgb 0 0 1 -pc "print pressed" v; canvas -q -rgb v => 0 0 1
@click v >> pressed
colorEditor -rgb 1 1 1 => 0 1 0 1
colorEditor -q -rgb => 0 1 0
colorEditor -q -result => 1

== A bar tells how far it is
progressBar -max 10 -isInterruptable 1 -bp -st "Working" p => w|c|p
progressBar -e -step 3 p; progressBar -q -pr p => 3
progressBar -e -step 30 p; progressBar -q -pr p => 10
progressBar -q -ic p => 0
@escape p => 1
progressBar -q -ic p => 1
progressBar -e -ep p
@escape p => 0
progressBar -e -ii 0 -bp p; progressBar -q -ic p => 0
@escape p => 0
helpLine h => w|c|h

== A list of pictures
iconTextScrollList -a "host_save.png" "Save" -a "host_grid.png" "Grid" -iwh 24 24 -cc "print \"changed\"" l => w|c|l
iconTextScrollList -q -nic l => 2
iconTextScrollList -e -si "Grid" l >>
iconTextScrollList -q -sii l => 2
iconTextScrollList -q -iwh l => 24 24
iconTextScrollList -e -sii 3 l => error: Item index 3 is not between 1 and 2.

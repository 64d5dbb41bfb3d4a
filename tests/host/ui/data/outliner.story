== The outliner shows the hierarchy and follows the scene
group -em -n grp; polyCube -n box; parent box grp; outlinerPanel o; getPanel -typeOf o => outlinerPanel
@tree o => persp top front side grp
@open o grp
@tree o => persp top front side grp/box
rename box crate; group -em -n other
@idle
@tree o => persp top front side grp/crate other
outlinerEditor -e -showShapes 1 -sortOrder "dagName" o
@open o crate
@tree o => front grp/crate/crateShape other persp side top
delete crate
@idle
@tree o => front grp other persp side top
undo
@idle
@open o grp
@tree o => front grp/crate other persp side top
lsUI -panels => o
panel -exists o => 1
panel -exists p => 0

== What is selected is selected in both
group -em -n a; group -em -n b; outlinerPanel -selectCommand "print \"sel;\"" o; select -r a
@idle
@marked o => a
@mark o b >> sel;
ls -sl => b
undo; ls -sl => a
@idle
@marked o => a
group -em -n inner -p b; select inner; outlinerEditor -e -showSelected 1 o
@marked o => inner

== A condition greys what depends on it
button b; dimWhen SomethingSelected b; menu -p w m; menuItem i; dimWhen -true SomethingSelected i
button -q -en b => 0
menuItem -q -en i => 1
spaceLocator -n l; select l
@until button -q -en b
menuItem -q -en i => 0
dimWhen -clear SomethingSelected b; deleteUI i
select -cl; button -q -en b => 1
dimWhen noSuch b => error: Unknown condition: 'noSuch'.

== A table of a script
global proc string cell(int $r, int $c) { return $r + "," + $c; } global proc int edit(int $r, int $c, string $v) { print($r + "-" + $c + "=" + $v); return $v != "no"; }
scriptTable -rows 2 -columns 2 -label 1 "A" -label 2 "B" -getCellCmd cell -cellChangedCmd edit t => w|c|t
scriptTable -e -cellIndex 2 1 t; scriptTable -q -cellValue t => 2,1
@cell t 2 1 new >> 2-1=new
scriptTable -q -cellValue t => new
@cell t 2 1 no >> 2-1=no
scriptTable -q -cellValue t => new
scriptTable -e -insertRow 1 t; scriptTable -q -rows t => 3
scriptTable -e -selectedRows 2 -selectedRows 3 t; scriptTable -q -selectedRows t => 2 3
scriptTable -e -deleteRow 9 t => error: The table has no cell 9, 1.
scriptTable -e -clearTable t; scriptTable -q -rows t => 0

== Two sliders, and bars
floatSlider2 -min -1 -max 4 -v1 0.5 -v2 3 -cc2 "print \"two #1\"" d; floatSlider2 -q -v1 d => 0.5
floatScrollBar -min 0 -max 2 -v 1.5 s; floatScrollBar -q -v s => 1.5
textField a; textField b; setFocus b; getModifiers => 0

== Words over the view
headsUpDisplay -section 1 -block 0 -label "Count" -command "size(`ls -sl`)" -event "SelectionChanged" count => 1
headsUpDisplay -q -scriptResult count => 0
spaceLocator -n l
@idle
headsUpDisplay -q -sr count => 1
headsUpDisplay -section 1 -block 0 other => error: Block 0 of section 1 is taken by 'count'.
headsUpDisplay -nextFreeBlock 1 => 1
headsUpDisplay -s 2 -b 0 -atr -c "getAttr l.tx" place; setAttr l.tx 3
@idle
headsUpDisplay -q -sr place => 3
headsUpDisplay -s 2 -b 1 -ev noEvent none => error: Invalid event name 'noEvent'.
headsUpDisplay -lh => count place
headsUpDisplay -remove count; headsUpDisplay -rp 2 0; headsUpDisplay -exists count => 0
headsUpDisplay -q -label count => error: Object 'count' not found.

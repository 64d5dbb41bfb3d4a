== Rows and columns
rowColumnLayout -nc 2 -cw 1 80 -cw 2 60 -cs 2 10 -rs 2 4 r; button a; button b; button -h 30 d; setParent ..; showWindow w;
rowColumnLayout -q -nc r => 2
rowColumnLayout -q -ca r => a b d
button -q -width a => 80
rowColumnLayout -q -width r => 400
rowColumnLayout -e -cw 1 120 r;
rowColumnLayout -nr 2 s; rowColumnLayout -q -nr s => 2

== A grid
gridLayout -nc 3 -cwh 40 20 g; button a; button b; button -h 90 k; button d; setParent ..;
gridLayout -q -cwh g => 40 20
gridLayout -q -nrc g => 2 3
gridLayout -e -cw 50 g; gridLayout -q -cw g => 50
gridLayout -e -pos d 1 g; gridLayout -q -ca g => d a b k
gridLayout -e -pos w 1 g => error: Object 'w' not found.

== Flowing
flowLayout -wrap 1 -cs 3 f; button a; button b; flowLayout -q -wrap f => 1
flowLayout -q -cs f => 3
flowLayout -q -nch f => 2
flowLayout -q -vr f => 0

== Panes
setParent w; paneLayout -cn "vertical2" p; button a; button b; button d; setParent ..;
paneLayout -q -cn p => vertical2
paneLayout -q -nvp p => 2
`button -q -vis a` + `button -q -vis b` + `button -q -vis d` => 2
paneLayout -e -cn "top3" p; button -q -vis d => 1
paneLayout -e -cn "top9" p => error: There is no configuration of panes called 'top9'.
paneLayout -e -sp d 1 p; paneLayout -q -p1 p => d
deleteUI a; paneLayout -q -ca p => d b
deleteUI p; button -exists b => 0

== Menus of a layout of their own
menuBarLayout m; menu -label "File" f; menuItem -label "Open"; columnLayout below; button b;
menuBarLayout -q -ma m => f
menu -q -ni f => 1
menuBarLayout -e -mbv 0 m; menuBarLayout -q -mbv m => 0
window -q -nm w => 0

== Templates say what new elements begin with
uiTemplate t => t
button -dt t -width 77 -label "from template"; button -exists button1 => 0
setUITemplate -pst t; button a; button -l "own" b; setUITemplate -ppt; button k;
button -q -width a => 77
button -q -l a => from template
button -q -l b => own
button -q -l k => k
button -ut t d; button -q -width d => 77
setUITemplate -pst nobody => error: Object 'nobody' not found.
setUITemplate -ppt => error: There is no template to go back from.
setUITemplate -pst DefaultTemplate; setUITemplate -ppt;
deleteUI -uiTemplate t; uiTemplate -exists t => 0

== Windows follow what is in them
window -title "Fits" -rtf 1 fit; columnLayout; button -w 300 -h 120 big; showWindow fit;
int $s[] = `window -q -wh fit`; $s[0] >= 300 && $s[1] >= 120 => 1
button -w 320 -h 60; button -w 320 -h 90;
@until int $s[] = `window -q -wh fit`; $s[1] >= 270; => 1
window -q -rtf fit => 1
window -widthHeight 120 80 -s 0 small; columnLayout; button -w 500 wide; showWindow small;
window -q -wh small => 120 80
button -q -width wide => 500
window -q -s small => 0

== Windows are remembered by name
window -widthHeight 210 110 memo; showWindow memo; deleteUI memo;
windowPref -exists memo => 1
windowPref -q -wh memo => 210 110
windowPref -e -w 250 memo; windowPref -q -width memo => 250
windowPref -remove memo; windowPref -exists memo => 0
windowPref -q -width memo => error: Object 'memo' not found.

== A dialog made of layouts
global proc fill() { string $form = `setParent -q`; print($form); columnLayout; button -l "OK" -c "layoutDialog -dismiss \"OK\"" ok; layoutDialog -dismiss "early"; }
layoutDialog -title "Sure?" -ui "fill" => early
>> layoutDialog1|formLayout1
setParent -q => w|c
button -exists ok => 0
layoutDialog -dismiss "x" => error: No layout dialog is open.
layoutDialog -ui "noSuchThing" => error: Cannot find procedure "noSuchThing".

== Views in a window
modelPanel -camera "persp" -label "View" m => w|c|m
modelPanel -q -cam m => persp
modelEditor -e -gr 0 m; modelEditor -q -gr m => 0
getPanel -type "modelPanel" => m
getPanel -to m => modelPanel
getPanel -to c =>
getPanel -wl "View" => m
size(`getPanel -type "outlinerPanel"`) => 0

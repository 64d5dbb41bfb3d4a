== A scene begins with cameras and default nodes
ls -assemblies => persp top front side
ls -cameras => frontShape perspShape sideShape topShape
ls -type lambert; => lambert1
nodeType persp => transform
nodeType -api perspShape => kCamera
getAttr persp.t => 28 21 28
objExists("initialShadingGroup") + objExists("defaultRenderGlobals") + objExists("none") => 2
delete persp; >> warning: Nodes that belong to every scene were not deleted: persp
rename persp cam => error: Cannot rename a read only node.

== Cubes and spheres have a shape, a history and a name
polyCube => pCube1 polyCube1
ls -sl => pCube1
polyCube -n box -w 2 => box polyCube2
polySphere -ch 0 => pSphere1
sphere => nurbsSphere1 makeNurbSphere1
listRelatives -s box => boxShape
listRelatives -f -s pCube1 => |pCube1|pCubeShape1
polyCube -q -w box => 2
polyCube -e -w 3 -d 4 box; getAttr polyCube2.depth => 4
polyCube -w -1 => error: polyCube: the value of width must be at least 0.
ls "pCube*" => pCube1 pCubeShape1
polyEvaluate -v -f box => 8 6
polyEvaluate -e pSphere1 => 780
nodeType -i polyCube1 => node abstractBaseCreate polyBase polyCreator polyPrimitive polyCube
listHistory box => boxShape polyCube2
delete -ch box; listHistory box => boxShape
exactWorldBoundingBox box => -1.5 -0.5 -2 1.5 0.5 2

== Names are counted up
group -em -n g1 => g1
group -em -n g1 => g2
group -em => group1
createNode transform -n "arm_09" => arm_09
createNode transform -n "arm_09" => arm_10
createNode transform -n "a b!" => a_b_
createNode transform -n "12" => error: New name has no legal characters.
createNode nonsense => error: Unknown object type: nonsense
polyCube; polyCube; delete pCube1; polyCube -n pCube2 => pCube3 polyCube1
rename pCube3 "box#" => box1
ls -s box1 => 
listRelatives -s box1 => boxShape1
rename nothing x => error: No object matches name: nothing
createNode pointLight => pointLightShape1
listRelatives -p pointLightShape1 => pointLight1

== One name below two parents
group -em -n a; group -em -n b; group -em -n x; parent x a; group -em -n x; parent x b; => error: More than one object matches name: x
parent "|x" b; ls x => a|x b|x
ls -l x => |a|x |b|x
objExists x => 1
setAttr x.tx 1; => error: More than one object matches name: x.tx
setAttr "b|x.tx" 4; getAttr "|b|x.tx" => 4
ls "a|*" => a|x
ls "|*|x" => a|x b|x
select "b|x"; rename y; => y
ls x => x

== Selection keeps its order
createNode transform -n a; createNode transform -n b; createNode transform -n c; select c a; ls -sl => c a
select -add b; ls -os => c a b
select -d a; ls -sl => c b
select -tgl a b; ls -sl => c a
select -af b; ls -sl => b c a
select -cl; ls -sl => 
select -all; ls -sl => a b c
select "[nothing]" => error: No object matches name: [nothing]
select none; => error: No object matches name: none
select "?"; ls -sl -hd 2 => a b
parent b a; select -hi a; ls -sl => a b
polyCube; select pCube1.vtx[0:2]; ls -sl => pCube1.vtx[0:2]
ls -sl -fl => pCube1.vtx[0] pCube1.vtx[1] pCube1.vtx[2]
filterExpand -sm 31 => pCube1.vtx[0] pCube1.vtx[1] pCube1.vtx[2]
select pCube1.f[*]; ls -sl -o => pCube1
select pCube1.vtx[8]; => error: No object matches name: pCube1.vtx[8]
select -cl; delete; => error: Nothing is selected.
move 1 2 3; => error: Nothing is selected.

== Attributes
polyCube; setAttr pCube1.tx 5; setAttr pCube1.ry -45.5; getAttr pCube1.translate => 5 0 0
setAttr pCube1.t 1 2 3; getAttr pCube1.t => 1 2 3
setAttr pCube1.t -type "double3" 4 5 6; getAttr pCube1.ty => 5
getAttr -type pCube1.t => double3
getAttr -type pCube1.tx => doubleLinear
getAttr -type pCube1.v => bool
setAttr pCube1.v off; getAttr pCube1.visibility => 0
setAttr pCube1.t 1 2; => error: setAttr: The attribute 'pCube1.translate' needs 3 value(s), but 2 were given.
setAttr pCube1.tx abc; => error: setAttr: 'abc' is not a valid value for the attribute 'pCube1.translateX'.
getAttr pCube1.foo => error: No object matches name: pCube1.foo
setAttr none.tx 1; => error: No object matches name: none.tx
getAttr pCube1.message => error: Message attributes have no data values.
setAttr -l on pCube1.tx; setAttr pCube1.tx 1; => error: setAttr: The attribute 'pCube1.translateX' is locked or connected and cannot be modified.
getAttr -l pCube1.tx => 1
getAttr -se pCube1.tx => 0
setAttr -l off pCube1.tx; setAttr -k off pCube1.tx; listAttr -k pCube1 => visibility translateY translateZ rotateX rotateY rotateZ scaleX scaleY scaleZ
select pCube1; setAttr ".sx" 2; getAttr ".s" => 2 1 1
getAttr "*.rotateOrder" => error: More than one object matches name: *.rotateOrder
getAttr pCube1.pm[0] => 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1

== Attributes that scripts add
createNode transform -n a; addAttr -ln size -sn sze -at double -min 0 -max 10 -dv 3 -k true a; getAttr a.sze => 3
setAttr a.size 11; => error: setAttr: Cannot set the attribute 'a.size' past its maximum value of 10.
setAttr -c a.size 11; getAttr a.size => 10
addAttr -ln notes -dt "string"; setAttr a.notes -type "string" "some text"; getAttr a.notes => some text
setAttr a.notes 5; => error: setAttr: 'a.notes' is a string: say so with -type "string".
putenv TE2_ROOM "den"; setAttr a.notes -type "string" "${TE2_ROOM}/$TE2_ROOM/$none"; getAttr -x a.notes => den/den/$none
setAttr a.notes -type "string" "some text";
addAttr -ln kind -at enum -en "red:green=5:blue" a; setAttr a.kind 6; getAttr -asString a.kind => blue
addAttr -ln size -at double a; => error: addAttr: Found an attribute of the name 'size' on the node 'a'.
addAttr -ln bad -at nonsense a; => error: addAttr: Unknown attribute type: nonsense
addAttr -ln place -at double3 a; addAttr -ln placeX -at double -p place a; addAttr -ln placeY -at double -p place a; addAttr -ln placeZ -at double -p place a; setAttr a.place 1 2 3; getAttr a.place => 1 2 3
listAttr -ud a => size notes kind place placeX placeY placeZ
addAttr -q -max a.size => 10
addAttr -e -max 20 a.size; setAttr a.size 15; getAttr a.size => 15
attributeQuery -n a -ex size => 1
attributeQuery -n a -ex none => 0
attributeQuery -n a -range size => 0 20
attributeQuery -n a -le kind => red:green=5:blue
attributeQuery -typ transform -sn translateX => tx
attributeExists("size", "a") + attributeExists("none", "a") => 1
aliasAttr big a.size; getAttr a.big => 15
renameAttr a.notes remarks; getAttr a.remarks => some text
deleteAttr a.size; getAttr a.size => error: No object matches name: a.size
undo; getAttr a.size => 15
deleteAttr a.tx => error: deleteAttr: 'translateX' is no attribute that was added.
addAttr -ln list -at long -m a; setAttr a.list[3] 7; setAttr a.list[1] 5; getAttr -mi a.list => 1 3
getAttr -s a.list => 2

== Things are moved, turned and scaled
polyCube; move 1 2 3; getAttr pCube1.t => 1 2 3
move -r 1 0 0 pCube1; move -y 7; getAttr pCube1.t => 2 7 3
rotate 0 90 0; getAttr pCube1.r => 0 90 0
move -r -os 1 0 0; getAttr pCube1.t => 2 7 2
scale 2 3 4; scale -r 2 1 1; getAttr pCube1.s => 4 3 4
rotate -r 0 30 0; getAttr pCube1.ry => 120
group -n g pCube1; setAttr g.tx 10; xform -q -ws -t pCube1 => 12 7 2
xform -ws -t 0 0 0 pCube1; getAttr pCube1.t => -10 0 0
xform -q -ws -rp pCube1 => 0 0 0
xform -q -m g => 1 0 0 0 0 1 0 0 0 0 1 0 10 0 0 1
setAttr g.r 0 90 0; setAttr g.s 2 2 2; parent -w pCube1; getAttr pCube1.s => 8 6 8
move 1 2 => error: move needs 3 numbers; found 2.
move 1 2 3 lambert1; => error: 'lambert1' is no transform.
move 1 2 3 none; => error: No object matches name: none
polyCube -n c; move 1 1 1; makeIdentity -apply true c; getAttr c.t; exactWorldBoundingBox c => 0.5 0.5 0.5 1.5 1.5 1.5
xform -cp c; xform -q -rp c => 1 1 1

== The hierarchy
polyCube; polySphere; parent pSphere1 pCube1 => pSphere1
listRelatives pCube1 => pCubeShape1 pSphere1
listRelatives -p pSphere1 => pCube1
listRelatives -ad pCube1 => pSphereShape1 pSphere1 pCubeShape1
listRelatives -c -typ transform pCube1 => pSphere1
listRelatives -ap pCube1 => 
parent pCube1 pSphere1 => error: Cannot parent an object to one of its children.
parent pCube1 pCube1 => error: Select the objects to parent, and the parent last.
parent pSphere1 pCube1; >> warning: Object, 'pSphere1', skipped.  It is already a child of the parent, 'pCube1'.
select pSphere1; parent -w; ls -l pSphere1 => |pSphere1
group -n both pCube1 pSphere1 => both
listRelatives both => pCube1 pSphere1
ungroup both; ls -as => persp top front side pCube1 pSphere1
duplicate pCube1 => pCube2
duplicate -n copy -rr pSphere1 => copy
listRelatives -s copy => copyShape
select pCube1; pickWalk -d down; ls -sl => pCubeShape1
reorder -f pSphere1; ls -as -hd 1 => pSphere1

== Deleting takes what is below and what made it
polyCube; polySphere; parent pSphere1 pCube1; delete pCube1; ls "p?*" => persp perspShape postProcessList1
ls "polyCube*" => 
delete none => error: No object matches name: none
polyCube; lockNode pCube1; delete pCube1 => error: Cannot delete locked node 'pCube1'.
lockNode -l off pCube1; select pCube1; delete; objExists pCube1 => 0
polyCube; polyCube; delete -all; ls "pCube*" => 

== Connections
polyCube; polySphere; connectAttr pCube1.tx pSphere1.ty => Connected pCube1.translateX to pSphere1.translateY.
setAttr pCube1.tx 3; getAttr pSphere1.ty => 3
connectAttr pCube1.ty pSphere1.ty => error: 'pSphere1.translateY' already has an incoming connection from 'pCube1.translateX'.
connectAttr -f pCube1.t pSphere1.t; getAttr pSphere1.tx => 3
connectAttr pCube1.t pSphere1.rx => error: Data types of source and destination are not compatible.
listConnections -s 1 -d 0 pSphere1.t => pCube1
listConnections -p 1 -c 1 -s 0 pCube1.t => pCube1.translate pSphere1.translate
connectionInfo -sfd pSphere1.tx => pCube1.translate
isConnected pCube1.t pSphere1.t => 1
disconnectAttr pCube1.t pSphere1.t => Disconnect pCube1.translate from pSphere1.translate.
getAttr pSphere1.t => 3 0 0
disconnectAttr pCube1.t pSphere1.t => error: There is no connection from 'pCube1.translate' to 'pSphere1.translate' to disconnect
createNode multiplyDivide -n md; connectAttr pCube1.t md.input1; setAttr md.input2 2 2 2; connectAttr md.outputX pSphere1.sx; getAttr pSphere1.sx => 6
listConnections -type shadingEngine pCubeShape1 => initialShadingGroup
delete md; getAttr pSphere1.sx => 6

== Every change can be taken back
polyCube; move 1 2 3; undo; getAttr pCube1.tx => 0
polyCube; move 1 2 3;
undo; ls "pCube*" => pCube1 pCubeShape1
redo; getAttr pCube2.t => 1 2 3
undoInfo -q -un => polyCube
delete pCube1; undo; listRelatives -s pCube1 => pCubeShape1
listHistory pCube1 => pCubeShape1 polyCube1
rename pCube1 box; undo; objExists box => 0
parent pCube2 pCube1; undo; listRelatives -p pCube2 => 
select pCube1; select -cl; undo; ls -sl => pCube1
addAttr -ln n -at long pCube1; undo; attributeQuery -n pCube1 -ex n => 0
connectAttr pCube1.tx pCube2.ty; undo; listConnections -s 1 -d 0 pCube2.ty => 
currentTime 5; undo; currentTime -q => 1
undoInfo -openChunk; setAttr pCube1.tx 1;
setAttr pCube1.ty 2; undoInfo -closeChunk;
undo; getAttr pCube1.t => 0 0 0
catch(`parent pCube1 lambert1`); undoInfo -q -rn => setAttr pCube1.tx 1
setAttr pCube1.tx 1; undoInfo -swf off; delete pCube1; undoInfo -swf on; undo; redo; objExists pCube1 => 0

== Time
currentTime -q => 1
currentTime 12.5; currentTime -q => 12.5
playbackOptions -q -max => 120
playbackOptions -min 0 -max 300; playbackOptions -q -aet => 300
getAttr time1.outTime => 12.5
currentUnit -t pal; currentUnit -q -t => pal
playbackOptions -q -fps => 25
currentUnit -l nonsense; => error: Unknown unit: nonsense

== Scenes are saved and opened
polyCube -n box -w 2; setAttr box.t 1.1 2 3; group -n g box; addAttr -ln notes -dt "string" g; setAttr g.notes -type "string" "a \"b\"\n"; connectAttr box.tx g.sy; setAttr -l on g.tz; playbackOptions -max 50;
file -save => error: The scene has no name yet: use file -rename first.
file -q -modified => 1
file -new => error: Unsaved changes.
file -rename ($d + "one.ma"); file -save -type "mayaAscii"; file -q -modified => 0
file -f -new; objExists box => 0
file -q -sceneName => 
file -o ($d + "one.ma"); getAttr box.t; => 1.1 2 3
getAttr g.notes => a "b"\n
getAttr g.sy => 1.1
getAttr -l g.tz => 1
polyCube -q -w box => 2
listConnections -type shadingEngine boxShape => initialShadingGroup
playbackOptions -q -max => 50
undoInfo -q -undoQueueEmpty => 1
file -q -modified => 0
file -import ($d + "one.ma"); ls "box*" => g|box g1|box g|box|boxShape g1|box|boxShape
listRelatives -p "g1|box" => g1
setAttr "g1|box.tx" 5; getAttr g1.sy => 5
getAttr g.sy => 1.1
size(`sets -q initialShadingGroup`) => 2
file -f -o ($d + "none.ma") => error: File not found: ...
fwriteAllText($d + "text", "hello"); file -f -o ($d + "text") => error: "...
objExists "g|box" => 1
fwriteAllText($d + "bad.ma", "//Tarnwick host scene 1\ncreateNode transform -n one;\nnonsense;\n"); file -f -o ($d + "bad.ma") => error: Error reading file "...
file -q -sn => 
file -rename ($d + "x"); file -q -sn -shn => x.ma
file -s -typ "mayaBinary" => error: file: This host reads and writes scenes of the type "mayaAscii" alone.

== Many nodes
int $i; for ($i = 0; $i < 3000; $i++) polyCube; size(`ls "pCube*" -tr`) => 3000
select "pCube*"; delete; size(`ls "pCube*"`) => 0
undo; size(`ls "pCube*" -tr`) => 3000

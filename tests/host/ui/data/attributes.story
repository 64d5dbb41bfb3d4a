== A group of fields shows an attribute and sets it
polyCube -n box; attrFieldGrp -at "box.t" -pre 2 -cc "print \"cc;\"" g => w|c|g
@idle
@access g => Translate 1
@type g 4.5 >> cc;
getAttr box.tx => 4.5
undoInfo -q -undoName => setAttr...
undo; getAttr box.tx => 0
redo
setAttr box.ty 2.25
@idle
@shows g 2 => 2.25
attrFieldGrp -q -at g => box.t
rename box crate; attrFieldGrp -q -at g => crate.t
attrFieldGrp -e -at "crate.rx" g; attrFieldGrp -q -numberOfFields g => 1
@access g => Rotate X

== What cannot be set is grey
polyCube -n box; attrFieldGrp -at "box.t" g; setAttr -lock 1 box.tx
@idle
@grey g 1 => 1
@grey g 2 => 0
setAttr -lock 0 box.tx; createNode transform -n other; connectAttr other.ty box.ty
@idle
@grey g 1 => 0
@grey g 2 => 1
setAttr other.ty 7
@idle
@shows g 2 => 7.000

== An attribute that is gone is grey until it is back
polyCube -n box; attrFieldSliderGrp -at "box.sx" -label "Size" g; floatField f; connectControl f box.sy
delete box
@idle
@grey g 1 => 1
@grey f => 1
attrFieldSliderGrp -q -at g => box.sx
undo
@idle
@grey g 1 => 0
@grey f => 0
@type f 3
getAttr box.sy => 3
file -f -new
@idle
@grey f => 1

== Every kind of attribute has its control
spaceLocator -n l; addAttr -ln on -at bool l; addAttr -ln axis -at "enum" -en "x:y=5:z" l; addAttr -ln note -dt "string" l; addAttr -ln count -at long -min 1 -max 8 -dv 2 l;
attrControlGrp -a "l.on" a; attrControlGrp -a "l.axis" b; attrControlGrp -a "l.note" n; attrControlGrp -a "l.count" d; attrEnumOptionMenuGrp -at "l.axis" -label "A" f;
@click a 1
getAttr l.on => 1
@key b Down
getAttr l.axis => 5
@type n half "quoted"
getAttr l.note => half "quoted"
@type d 7
getAttr l.count => 7
undo; getAttr l.count => 2
setAttr l.axis 6
@idle
@shows b 1 => z
attrControlGrp -a "l.nothing" e => error: No object matches name: l.nothing
attrControlGrp -a "l.matrix" e => error: No control can show the attribute 'l.matrix'.
attrControlGrp -exists e => 0

== Colours go to the attribute
shadingNode -asShader lambert -n m; attrColorSliderGrp -at "m.color" g
@click g 1
getAttr m.color => 0 1 0
undo; attrColorSliderGrp -e -rgb 1 0 0 g; getAttr m.color => 1 0 0
setAttr m.color 0 0 1
@idle
attrColorSliderGrp -q -rgb g => 0 0 1

== Controls are connected to attributes
polyCube -n box; addAttr -ln note -dt "string" box; textField t; connectControl t box.note; checkBox v; connectControl v box.v
@idle
@type t hello
getAttr box.note => hello
checkBox -q -v v => 1
@click v
getAttr box.v => 0
undo
@idle
checkBox -q -v v => 1
floatFieldGrp -label "S" -nf 3 s; connectControl s box.sx box.sy box.sz; intSliderGrp -field 1 -max 10 i; connectControl -index 1 i box.tx
@type s 2
getAttr box.sx => 2
setAttr box.s 4 5 6; setAttr box.tx 7
@idle
floatFieldGrp -q -v s => 4 5 6
intSliderGrp -q -v i => 7
floatFieldGrp -label "R" -nf 3 r; connectControl -index 3 r box.ry; setAttr box.ry 30
@idle
floatFieldGrp -q -v r => 0 30 0
radioButtonGrp -nrb 2 -da1 0 -da2 3 o; addAttr -ln mode -at long box; connectControl o box.mode
@click o 2
getAttr box.mode => 3
addAttr -ln pick -at long box; optionMenu q; menuItem -label "four" -data 4; menuItem -label "seven" -data 7; connectControl q box.pick; setAttr box.pick 7
@idle
optionMenu -q -v q => seven
@key q Up
getAttr box.pick => 4
symbolCheckBox -onImage "no.png" k; connectControl k box.v; setAttr box.v 0
@idle
symbolCheckBox -q -v k => 0

== A drag is one step to undo
polyCube -n box; floatSlider -min 0 -max 10 s; connectControl s box.tx
@drag s 3 6 9
getAttr box.tx => 9
undo; getAttr box.tx => 0

== What cannot be connected is refused
polyCube -n box; button b; floatField f; floatFieldGrp -label "x" g
connectControl b box.tx => error: 'b' cannot show an attribute.
connectControl f box.t => error: 'f' cannot show the attribute 'box.translate'.
connectControl f box.none => error: No object matches name: box.none
connectControl nobody box.tx => error: Object 'nobody' not found.
connectControl -index 1 g box.tx => error: Nothing in 'g' can show an attribute at index 1.
connectControl f => error: connectControl needs a control and an attribute.

== Where an attribute comes from
polyCube -n box; attrNavigationControlGrp -at "box.tx" -cn "print \"make #1\"" n
@click n 1 >> make box.translateX
createNode transform -n from; connectAttr from.tx box.tx
@idle
@shows n 1 => from
select -cl
@click n 1
ls -sl => from

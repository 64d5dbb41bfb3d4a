== One button of a collection is on
radioCollection k; radioButton -label "a" -onc "print \"a on;\"" -ofc "print \"a off;\"" a; radioButton -label "b" -cc "print \"b #1;\"" b;
radioCollection -q -sl k => NONE
@click a >> a on;
@click b >> a off;b 1;
radioCollection -q -sl k => b
radioCollection -e -sl a k >>
radioButton -q -sl a => 1
radioButton -q -sl b => 0
radioCollection -q -nci k => 2
radioCollection -q -cia k => a b
radioCollection -e -sl nobody k => error: Object 'nobody' not found.
radioCollection k => error: Object's name 'k' is not unique.

== Collections do not disturb each other
radioCollection k; radioButton a; radioButton b; radioCollection m; radioButton x; radioButton -cl k y;
@click a
@click x
radioCollection -q -sl k => a
@click y
radioCollection -q -sl k => y
radioCollection -q -sl m => x
radioButton -cl nobody z => error: Object 'nobody' not found.
radioButton -exists z => 0

== Buttons without a collection exclude those of their layout
columnLayout p; radioButton a; radioButton b; setParent ..; columnLayout q; radioButton x; setParent ..;
@click a
@click x
@click b
`radioButton -q -sl a` * 100 + `radioButton -q -sl b` * 10 + `radioButton -q -sl x` => 11

== Buttons with a picture and a label
iconTextButton -style "iconAndTextHorizontal" -image1 "host_save.png" -label "Save" -c "print \"save\"" s => w|c|s
@click s >> save
iconTextButton -q -label s => Save
iconTextButton -q -style s => iconAndTextHorizontal
iconTextButton -q -image1 s => host_save.png
@access s => Save
iconTextButton -image "none.png" -ann "Nothing to see" n => w|c|n
@access n => Nothing to see
iconTextStaticLabel -image "host_save.png" -label "Saved" t; iconTextStaticLabel -q -label t => Saved

== Switches with pictures
iconTextCheckBox -image "host_grid.png" -label "Grid" -cc "print \"#1;\"" -onc "print \"on;\"" k => w|c|k
@click k >> on;1;
iconTextCheckBox -e -v 0 k >>
iconTextCheckBox -q -v k => 0
symbolCheckBox -oni "host_grid.png" -ofi "host_box.png" -v 1 -ofc "print \"gone\"" s => w|c|s
@click s >> gone
symbolCheckBox -q -v s => 0

== Tools exclude each other
toolCollection k; toolButton -image "host_move.png" a; toolButton -image "host_grid.png" b; iconTextRadioCollection m; iconTextRadioButton -l "x" x;
@click a
@click b
@click x
toolCollection -q -sl k => b
iconTextRadioCollection -q -sl m => x
iconTextRadioButton -e -sl x; iconTextRadioButton -q -sl x => 1

== Pictures
picture -image "host_save.png" p; picture -q -image p => host_save.png
image -image "/none.png" i; image -q -image i => /none.png

== Names for those who cannot see
text -label "Frames"; intField f;
@access f => Frames
textField -ann "Where files go" g;
@access g => Where files go
floatSlider s;
@access s => s

== A group of numbers tells all of them
intFieldGrp -label "Size" -nf 3 -v1 1 -v2 2 -v3 3 -cc "print \"#1,#2,#3\"" g => w|c|g
intFieldGrp -q -v g => 1 2 3
intFieldGrp -q -nf g => 3
intFieldGrp -e -v2 20 g; intFieldGrp -q -v2 g => 20
@type g 7 >> 7,20,3
@access g => Size 1
intFieldGrp -e -v4 1 g => error: The group has no field 4.
intFieldGrp -e -v 4 5 6 0 g; intFieldGrp -q -v g => 4 5 6
intFieldGrp -e -en2 0 g; `intFieldGrp -q -en2 g` + `intFieldGrp -q -en1 g` => 1
intFieldGrp -q -label g => Size

== Fractions keep their digits
floatFieldGrp -nf 2 -pre 2 -v1 0.125 -v2 0.5 -cc "print \"#1\"" g => w|c|g
floatFieldGrp -q -v g => 0.13 0.5
@type g 0.25 >> 0.25
floatFieldGrp -q -pre g => 2

== A group of text is a field with more around it
textFieldGrp -label "Name" -text "cube" -extraLabel "x" -cc "print \"change #1;\"" -tcc "print \"key;\"" g => w|c|g
textFieldGrp -q -text g => cube
textFieldGrp -q -extraLabel g => x
@type g ab >> key;key;change ab;
@access g => Name
textFieldGrp -e -ed 0 g; textFieldGrp -q -ed g => 0

== The button beside a field
textFieldButtonGrp -label "Folder" -bl "Browse" -bc "textFieldButtonGrp -e -text \"/tmp\" g; print pressed" g => w|c|g
@click g >> pressed
textFieldButtonGrp -q -text g => /tmp
textFieldButtonGrp -q -bl g => Browse
textFieldButtonGrp -e -eb 0 g; textFieldButtonGrp -q -eb g => 0

== A group may be removed by its own button
textFieldButtonGrp -bc "deleteUI g; print gone" g => w|c|g
@click g >> gone
textFieldButtonGrp -exists g => 0

== A slider and its field show the same number
intSliderGrp -field 1 -label "Count" -min 2 -max 20 -v 5 -cc "print \"now #1;\"" g => w|c|g
intSliderGrp -q -v g => 5
intSliderGrp -e -v 90 g; intSliderGrp -q -v g => 20
@type g 12 >> now 12;
intSliderGrp -q -v g => 12
@key g Up >> now 13;
intSliderGrp -q -field g => 1
intSliderGrp -q -max g => 20

== A field may reach beyond its slider
floatSliderGrp -field 1 -min 0 -max 1 -fmn -10 -fmx 10 -v 0.5 g => w|c|g
floatSliderGrp -e -v 7.5 g; floatSliderGrp -q -v g => 7.5
floatSliderGrp -q -max g => 7.5
floatSliderGrp -q -fmx g => 10

== Sliders answer to keys and tell nobody of scripts
intSlider -min 0 -max 10 -v 4 -cc "print \"#1\"" s => w|c|s
intSlider -e -v 6 s >>
@key s Right >> 7
intSlider -q -v s => 7
floatSlider -min -1 -max 1 -v 0.5 f => w|c|f
floatSlider -q -v f => 0.5
floatSlider -e -max 0.25 f; floatSlider -q -v f => 0.25
floatSlider -e -hr 0 f; floatSlider -q -hr f => 0

== Check boxes in a group
checkBoxGrp -label "Do" -ncb 3 -la3 "a" "b" "c" -va3 1 0 1 -cc2 "print \"two #1;\"" -cc "print \"all #1;\"" -on2 "print \"on;\"" g => w|c|g
checkBoxGrp -q -va3 g => 1 0 1
@click g 2 >> on;two 1;all 1;
checkBoxGrp -e -v2 0 g >>
checkBoxGrp -q -v2 g => 0
checkBoxGrp -q -l3 g => c
checkBoxGrp -ncb 2 -l3 "x" => error: The group has no button 3.

== Radio buttons in a group
radioButtonGrp -label "Axis" -nrb 3 -la3 "x" "y" "z" -sl 2 -on1 "print \"one\";" -of2 "print \"off\";" -cc "print \"#1;\"" g => w|c|g
radioButtonGrp -q -sl g => 2
@click g 1 >> off0;one1;
radioButtonGrp -q -sl g => 1
radioButtonGrp -e -sl 0 g; radioButtonGrp -q -sl g => 0
radioButtonGrp -e -sl 4 g => error: The group has no button 4.
radioButtonGrp -nrb 2 -vertical -scl g h => w|c|h
@click h 2
@click g 3
radioButtonGrp -q -sl h => 0
radioButtonGrp -scl nobody => error: Object 'nobody' not found.

== An option menu in a group
optionMenuGrp -label "Mode" -cc "print \"#1\"" g => w|c|g
menuItem -label "first"; menuItem -label "second" second;
optionMenuGrp -q -ni g => 2
optionMenuGrp -e -sl 2 g; optionMenuGrp -q -v g => second
@key g|OptionMenu Up >> first
menuItem -p "g|OptionMenu" -label "third" third; optionMenuGrp -q -ils g => menuItem1 second third
optionMenuGrp -e -dai g; optionMenuGrp -q -ni g => 0
@access g => Mode

== Columns of groups and rows take the same flags
floatFieldGrp -label "L" -nf 2 -cw3 50 60 70 -ct3 "left" "both" "right" -co3 2 0 4 -cl3 "right" "left" "left" -adj 2 g => w|c|g
rowLayout -nc 3 -cw3 10 20 30 -ad3 2 -cat 1 "left" 3 -cl3 "left" "center" "right" r => w|c|r
rowLayout -cw 300 5 => error: Column 300 is not between 1 and 256.

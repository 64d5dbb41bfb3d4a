== Curves go through their keys as their tangents say
createNode transform -n a; setKeyframe -at tx -t 0 -v 0 a; setKeyframe -at tx -t 10 -v 10 a; setKeyframe -at tx -t 20 -v 0 a;
keyTangent -q -itt -ott a => auto auto auto auto auto auto
global proc string at(float $times[]) { string $s[]; for ($t in $times) { float $v = `getAttr -t $t a.tx`; $s[size($s)] = $v; } return stringArrayToString($s, " "); }
at({0.0, 2.5, 5.0, 10.0, 25.0}) => 0 1.5625 5 10 0
keyTangent -itt linear -ott linear a; at({2.5, 15.0}) => 2.5 5
keyTangent -q -oa -t 0 a => 45
keyTangent -ott step -t 10 a; at({10.0, 19.9, 20.0}) => 10 10 0
keyTangent -ott stepnext -t 10 a; at({10.0, 10.1}) => 10 0
keyTangent -itt flat -ott flat a; at({2.5}) => 1.5625
keyTangent -itt spline -ott spline a; keyTangent -q -ia -t 10 a => 0
keyTangent -oa 45 -t 0 a; keyTangent -q -ott -t 0 a => fixed
undo; keyTangent -q -ott -t 0 a => spline
keyTangent -itt nonsense a => error: Unknown tangent type: nonsense
keyTangent -wt 1 a => error: keyTangent: Curves of this host have no weighted tangents.
keyTangent -g -itt linear -ott linear; keyTangent -q -g -ott => linear
setInfinity -pri linear -poi cycleRelative a; setInfinity -q -poi a => cycleRelative
keyTangent -itt linear -ott linear a; at({-5.0, 25.0, 45.0}) => -5 5 5
setInfinity -poi oscillate a; keyframe -e -t 20 -vc 4 a; at({25.0, 35.0}) => 7 5
file -rename ($d + "curve.ma"); file -save; file -f -o ($d + "curve.ma"); at({5.0, 35.0}) => 5 5

== A keyed attribute may be set until time moves
createNode transform -n a; currentTime 1; setKeyframe a; currentTime 10; setAttr a.tx 5; move -r 0 2 0 a; setKeyframe a; keyframe -q -vc -at tx -at ty a => 0 5 0 2
setAttr a.tx 9; undo; getAttr a.tx => 5
setAttr a.tx 9; currentTime 1; currentTime 10; getAttr a.tx => 5
getAttr -se a.tx => 1

== Keys are copied, scaled, snapped and baked
createNode transform -n a; createNode transform -n b; setKeyframe -at tx -t 1 -v 1 -t 3 a; setKeyframe -at tx -t 3 -v 5 a;
pasteKey -t 10 -at tx b => error: pasteKey: Nothing was copied.
copyKey -at tx a => 1
pasteKey -t 10 -at tx b => 1
keyframe -q -tc -vc b => 10 1 12 5
pasteKey -t 10 -o insert -at tx b; keyframe -q -tc b => 10 12 14
pasteKey -t 1 -o replaceCompletely -at ty b; keyframe -q -tc -at ty b => 1 3
scaleKey -ts 2 -tp 1 -vs 10 -at ty b; keyframe -q -tc -vc -at ty b => 1 10 5 50
keyframe -e -r -tc 0.4 -at ty b; snapKey -at ty b; keyframe -q -tc -at ty b => 1 5
keyframe -q -iv -index "1:" -at ty b => 1
connectAttr a.tx b.sx; bakeResults -t "1:3" -at sx b => 1
keyframe -q -vc -at sx b => 1 3 5
listConnections -p 1 -d 0 b.sx => b_scaleX.output
bakeResults -t "1:3" -sb 0 b => error: bakeResults: There is nothing between 1 and 3.

== Keys may follow another attribute
createNode transform -n a; createNode transform -n b; setDrivenKeyframe -cd a.tx -dv 0 -v 0 b.ry; setDrivenKeyframe -cd a.tx -dv 10 -v 90 b.ry => 1
setAttr a.tx 5; getAttr b.ry => 45
nodeType `listConnections -d 0 b.ry`; => animCurveUA
setDrivenKeyframe -q -dr b.ry => a.translateX
setDrivenKeyframe -cd a.ty -dv 0 -v 0 b.ry; setDrivenKeyframe -cd a.ty -dv 1 -v 7 b.ry; setAttr a.ty 1; getAttr b.ry => 52
nodeType `listConnections -d 0 -scn 1 b.ry`; => blendWeighted
setKeyframe -at tz b; setDrivenKeyframe -cd a.tx b.tz => error: setDrivenKeyframe: Nothing can follow 'a.translateX'...
delete b; ls -type animCurve -type blendWeighted; =>

== Expressions set what they say
createNode transform -n a; createNode transform -n b; expression -s "a.tx = frame * 2;\na.ty = b.tx + 1; // b.ty" -n e => e
currentTime 5; getAttr a.t => 10 1 0
setAttr b.tx 3; getAttr a.ty => 4
expression -q -s e => a.translateX = frame * 2;\na.translateY = b.translateX + 1; // b.ty
rename b c; expression -q -s e => a.translateX = frame * 2;\na.translateY = c.translateX + 1; // b.ty
listConnections -s 1 -d 0 a.tx => e
setAttr a.tx 1; => error: setAttr: The attribute 'a.translateX' is locked or connected and cannot be modified.
expression -s "a.tx = 1" => error: Attribute already controlled by an expression, keyframe, or other connection: a.translateX.
expression -s "none.tx = 1" => error: Attribute not found or variable missing '$': none.tx.
expression -e -s "float $x = sin(time) > 2 ? 1 : 7;\nif ($x == 7) { tx = $x; setAttr c.tz $x; }" -o a e; getAttr a.tx => 7
getAttr c.tz => 7
catch(`expression -s "c.ty = ("`); ls -type expression; => e >> error: ...
getAttr -t 24 a.tx => 7
file -rename ($d + "e.ma"); file -save; file -f -o ($d + "e.ma"); expression -e -s "a.tz = time;" e; currentTime 48; getAttr a.tz => 2
expression -e -s "setAttr c.sz (`getAttr c.sz` + 1);" e; setAttr c.sz 0; playbackOptions -min 1 -max 5; play -wait; getAttr c.sz => 5
expression -e -s "a.tz = time;" e; currentTime 48;
delete a; ls -type expression; =>
undo; getAttr a.tz => 2

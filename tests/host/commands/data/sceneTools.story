== Matrices give back the angles that made them
createNode transform -n a; setAttr a.s 1 2 3; setAttr a.sh 0.5 0 0.25; setAttr a.t 1 2 3; setAttr a.rp 1 0 0;
proc string show(string $what) { float $v[] = `getAttr ("a." + $what)`; return $v[0] + " " + $v[1] + " " + $v[2]; }
    for ($o = 0; $o < 6; $o++) {
        setAttr a.ro $o; setAttr a.r 20 -35 130; float $m[] = `xform -q -m a`; setAttr a.r 0 0 0; setAttr a.s 1 1 1; setAttr a.sh 0 0 0; setAttr a.t 0 0 0;
        xform -m $m[0] $m[1] $m[2] $m[3] $m[4] $m[5] $m[6] $m[7] $m[8] $m[9] $m[10] $m[11] $m[12] $m[13] $m[14] $m[15] a;
        print(show("r") + " " + show("t") + " " + show("s") + " " + show("sh") + ";");
    } >> print: 20 -35 130 1 2 3 1 2 3 0.5 0 0.25;20 -35 130 1 2 3 1 2 3 0.5 0 0.25;20 -35 130 1 2 3 1 2 3 0.5 0 0.25;20 -35 130 1 2 3 1 2 3 0.5 0 0.25;20 -35 130 1 2 3 1 2 3 0.5 0 0.25;20 -35 130 1 2 3 1 2 3 0.5 0 0.25;

== Sets and shading
polyCube; polySphere; sets -n things pCube1 pSphere1 => things
sets -q things => pCube1 pSphere1
sets -e -rm things pCube1; sets -im things pCube1 => 0
sets -im things pSphere1 => 1
select things; ls -sl => pSphere1
select -ne things; ls -sl => things
sets -e -add things things => error: A set cannot be its own member.
sets -q pCube1 => error: 'pCube1' is no set.
shadingNode -asShader blinn => blinn1
sets -r 1 -nss 1 -em -n blinn1SG; connectAttr blinn1.outColor blinn1SG.surfaceShader; sets -e -forceElement blinn1SG pCube1; listConnections -type shadingEngine pCubeShape1 => blinn1SG
sets -e -fe blinn1SG pSphere1.f[0:3]; sets -q blinn1SG => pCubeShape1 pSphere1.f[0:3]
select pCube1; hyperShade -assign lambert1; sets -q blinn1SG => pSphere1.f[0:3]
undo; undo; sets -q blinn1SG => pCubeShape1
ls -mat => blinn1 lambert1 standardSurface1
shadingNode blinn => error: shadingNode: Say as what: -asShader...
listSets -o pCubeShape1 => blinn1SG
delete pCube1; sets -q blinn1SG => 

== Keys move attributes
polyCube; setKeyframe -at tx -t 1 -v 0 pCube1; setKeyframe -at tx -t 11 -v 20 pCube1 => 1
getAttr -t 6 pCube1.tx => 10
currentTime 6; getAttr pCube1.tx => 10
getAttr -t 100 pCube1.tx => 20
listConnections -s 1 -d 0 pCube1.tx => pCube1_translateX
nodeType pCube1_translateX => animCurveTL
keyframe -q -tc pCube1 => 1 11
keyframe -q -at tx -vc -t "5:20" pCube1 => 20
keyframe -q -kc pCube1 => 2
keyframe -e -at tx -t 11 -vc 40 pCube1; getAttr pCube1.tx => 20
findKeyframe -w next pCube1 => 11
setAttr pCube1.tx 7; getAttr pCube1.tx => 7
currentTime 1; currentTime 6; getAttr pCube1.tx => 20
currentTime 21; setAttr pCube1.tx 8; setKeyframe -at tx pCube1; undo; undo; currentTime 6;
cutKey -at tx -t 11 pCube1 => 1
undo; keyframe -q -kc pCube1 => 2
setKeyframe pCube1 => 10
group -n g pCube1; setKeyframe -at tx -hi below g => 2
delete g; ls -type animCurve; => 

== Namespaces
namespace -add arm => arm
namespace -add arm => error: The namespace 'arm' already exists.
createNode transform -n "arm:hand"; ls "arm:*" => arm:hand
ls "hand" => 
ls -r 1 "hand*" => arm:hand
namespace -set arm; createNode transform -n finger => arm:finger
objExists finger; => 1
namespace -set ":"; namespaceInfo -cur => :
namespaceInfo -lon => UI arm shared
namespaceInfo -ls arm => arm:hand arm:finger
namespace -rm arm => error: The namespace 'arm' is not empty.
rename "arm:hand" "leg:foot"; namespace -ex leg => 1
namespace -ren leg limb; ls "limb:*" => limb:foot
namespace -rm limb -mnr; ls foot => foot
namespace -rm none; => error: The namespace 'none' does not exist.

== Constraints are nodes with targets
polyCube; polySphere; parentConstraint -mo pCube1 pSphere1 => pSphere1_parentConstraint1
parentConstraint -q -tl pSphere1 => pCube1
parentConstraint -q -wal pSphere1_parentConstraint1 => pCube1W0
pointConstraint pCube1 => error: Select what to follow, and what follows last.
delete -cn pSphere1; listRelatives pSphere1 => pSphereShape1

== Lights, cameras, joints, curves
pointLight -i 2 -rgb 1 0 0 => pointLightShape1
getAttr pointLightShape1.color => 1 0 0
ls -lights => pointLightShape1
camera -n shot => shot shotShape
spaceLocator -p 1 2 3 => locator1
joint -p 0 1 0; joint -p 0 2 0; listRelatives -p joint2 => joint1
xform -q -ws -t joint2 => 0 2 0
curve -d 1 -p 0 0 0 -p 1 0 0 -p 1 2 0 => curve1
exactWorldBoundingBox curve1 => 0 0 0 1 2 0
curve -p 0 0 0 => error: curve: A curve of degree 3 needs at least 4 points.
circle -r 2 -nr 0 1 0 => nurbsCircle1 makeNurbCircle1
polyCylinder -sx 8 -h 3; polyEvaluate -f pCylinder1 => 24
polyPlane -sx 2 -sy 3; polyEvaluate -v pPlane1 => 12
hide pPlane1; getAttr pPlane1.v => 0
showHidden pPlane1; getAttr pPlane1.v => 1

== Jobs hear of the scene
polyCube; scriptJob -attributeChange "pCube1.tx" "print x"; scriptJob -nodeDeleted pCube1 "print gone"; scriptJob -event SelectionChanged "print sel"; scriptJob -timeChange "print time";
@idle
setAttr pCube1.ty 1; setAttr pCube1.tx 1; setAttr pCube1.tx 2;
@idle  >> print: x
currentTime 5; select -cl;
@idle  >> print: timesel
scriptJob -nodeNameChanged pCube1 "print named"; rename pCube1 box;
@idle  >> print: named
scriptJob -attributeChange "none.tx" "print x"; => error: No object matches name: none.tx
select -ne box; 
@idle  >> print: sel
delete box;
@idle  >> print: gonesel
polyCube; file -f -new;
@idle  >> print: sel

== Scripts of other hosts' files run
requires maya "2024"; fileInfo "product" "test"; createNode transform -n "g"; setAttr ".t" -type "double3" 1 2 3 ; createNode mesh -n "gShape" -p "g"; setAttr -k off ".v"; getAttr g.tz => 3
fileInfo -q "product" => test
listRelatives g => gShape
select -ne :time1; setAttr ".o" 5; 

== Procedures about names and parents
group -em -n a; group -em -n b -p a; group -em -n c -p b; longNameOf c; => |a|b|c
rootOf c => |a
firstParentOf c => b
"<" + firstParentOf("a") + longNameOf("none") + rootOf("none") + ">" => <>

== Turns and scales have pivots, and may leave children where they are
polyCube; move 2 0 0; rotate -r -p 0 0 0 -os -fo 0 0 90 pCube1; xform -q -ws -t pCube1 => 0 2 0
scale -r -p 0cm 0cm 0cm 2 2 2 pCube1; xform -q -ws -t pCube1 => 0 4 0
polySphere; parent pSphere1 pCube1; move -pcp 5 5 5 pCube1; xform -q -ws -t pSphere1 => 0 0 0
setKeyframe pCube1; setAttr pSphere1.rz 3; delete -channels -at tx pCube1; listConnections -d 0 pCube1.tx; =>
delete -channels -unitlessAnimationCurves false pCube1; ls -type animCurve; =>
polyEvaluate -s pCube1 => 2
camera -ff "Overscan" -hfo 0.5; camera -q -ff camera1 => Overscan
spotLight -do 2 -p 5; getAttr spotLight1.penumbraAngle => 5

== Deformers stand between what makes a form and its shape
polyCube; cluster pCube1 => cluster1 cluster1Handle
cluster -q -g cluster1 => pCubeShape1
listHistory pCube1 => pCubeShape1 cluster1 polyCube1 cluster1Handle
lattice -dv 2 3 4 -oc 1 pCube1 => ffd1 ffd1Lattice ffd1Base
getAttr ffd1Lattice.tDivisions => 3
nonLinear -type bend pCube1 => bend1 bend1Handle
getAttr bend1HandleShape.curvature => 0
nonLinear -type nonsense pCube1 => error: nonLinear: Unknown type: nonsense
polyEvaluate -f pCube1 => 6
polyCube -e -sx 2 pCube1; polyEvaluate -f pCube1 => 10
delete ffd1; ls "ffd*" =>
listHistory -pdo 1 pCube1 => bend1 cluster1 polyCube1
delete cluster1Handle; listHistory -pdo 1 pCube1 => bend1 polyCube1
undo; undo; listHistory -pdo 1 pCube1 => bend1 ffd1 cluster1 polyCube1
duplicate pCube1; polyEvaluate -f pCube2 => 10
file -rename ($d + "d.ma"); file -save; file -f -o ($d + "d.ma"); polyEvaluate -f pCube1 => 10
listHistory -pdo 1 pCube1 => bend1 ffd1 cluster1 polyCube1
delete -ch pCube1; listHistory pCube1; => pCubeShape1
polyEvaluate -f pCube1 => 10
cluster persp => error: No deformable objects selected.

== Shapes are blended by name
polyCube -n base; polyCube -n smile; polyCube -n frown; blendShape -n face smile frown base => face
getAttr face.smile => 0
setAttr face.smile 0.5; blendShape -q -w face => 0.5 0
blendShape -q -t face => smile frown
aliasAttr -q face => frown weight[1] smile weight[0]
setKeyframe face.frown; listConnections -d 0 face.frown => face_weight_1_
blendShape -e -w 0 0.25 face; getAttr "face.w[0]" => 0.25
polyCube -n wink; blendShape -e -t base 2 wink 1 face; setAttr face.wink 1; blendShape -q -wc face => 3
blendShape -e -w 9 1 face => error: blendShape: There is no target 9.
file -rename ($d + "b.ma"); file -save; file -f -o ($d + "b.ma"); getAttr face.smile => 0.25

== Joints take hold of forms
select -cl; joint -n root; joint -n tip -p 0 1 0; polyCube -n body; skinCluster root body => skinCluster1
skinCluster -q -inf body => root tip
findRelatedSkinCluster body => skinCluster1
skinCluster -tsb root body => error: The skin on body was already bound.
skinCluster -e -ri tip skinCluster1; skinCluster -q -inf skinCluster1 => root
undo; skinCluster -q -inf skinCluster1 => root tip
skinCluster -q -mi skinCluster1 => 5
skinCluster body => error: skinCluster: No joint is named or selected.
skinPercent skinCluster1 => error: Cannot find procedure "skinPercent".
skinCluster -e -ub body; findRelatedSkinCluster body =>

== Chains have handles and mirrored copies
global proc int near(float $a[], float $b[]) { int $i; for ($i = 0; $i < size($b); $i++) { if (abs($a[$i] - $b[$i]) > 1e-9) return 0; } return 1; }
select -cl; joint -n l_hip -p 1 5 0; joint -n l_knee -p 2 3 0; joint -n l_foot -p 2 0 0; ikHandle -n leg -sj l_hip -ee l_foot -sol ikSCsolver => leg effector1
ikHandle -q -sj leg => l_hip
ikHandle -q -sol leg => ikSCsolver
ikHandle -q -jl leg => l_hip l_knee
xform -q -ws -t leg => 2 0 0
listRelatives -c l_knee => l_foot effector1
ikHandle -e -sol nonsense leg => error: ikHandle: Unknown solver: nonsense
ikHandle -sj l_foot -ee l_hip => error: ikHandle: 'l_hip' is not below the joint 'l_foot'.
ikHandle -sj l_hip -ee l_foot -sol ikSplineSolver => error: ikHandle: Say along which curve: this host makes none.
delete leg; delete effector1; joint -e -oj xyz -sao yup -ch -zso l_hip; near(`xform -q -ws -t l_foot`, {2.0, 0.0, 0.0}) => 1
near(`getAttr l_knee.t`, {sqrt(5.0), 0.0, 0.0}) => 1
near(`xform -q -ws -m l_knee`, {0.0, -1.0, 0.0}) => 1
joint -e -oj xxy l_hip => error: joint: Unknown axes: xxy ...
setAttr l_knee.r 0 0 30; mirrorJoint -myz -mb -sr "l_" "r_" l_hip => r_hip r_knee r_foot
near(`xform -q -ws -t r_knee`, {-2.0, 3.0, 0.0}) => 1
getAttr r_knee.r => 0 0 30
float $l[] = `xform -q -ws -t l_foot`; near(`xform -q -ws -t r_foot`, {-$l[0], $l[1], $l[2]}) => 1
joint -e -oj none l_knee; getAttr l_knee.jo => 0 0 0
undo; objExists r_hip => 1
undo; objExists r_hip => 0

== Layers have members
polyCube; polySphere; parent pSphere1 pCube1; createDisplayLayer -n shown -nr pCube1 => shown
editDisplayLayerMembers -q shown => pCube1
editDisplayLayerMembers shown pCube1; editDisplayLayerMembers -q shown => pCube1 pCubeShape1 pSphere1 pSphereShape1
select pSphere1; createDisplayLayer -nr -mc => layer1
editDisplayLayerMembers -q -fn layer1 => |pCube1|pSphere1
editDisplayLayerGlobals -q -cdl => layer1
editDisplayLayerMembers -nr defaultLayer pSphere1; editDisplayLayerMembers -q layer1; =>
editDisplayLayerGlobals -cdl defaultLayer; editDisplayLayerGlobals -q -cdl => defaultLayer
editDisplayLayerMembers pCube1 shown => error: 'pCube1' is no layer.
createRenderLayer -n light -nr pCube1; editRenderLayerMembers -nr light pSphere1; editRenderLayerMembers -q light => pCube1 pSphere1
editRenderLayerMembers -r light pCube1; editRenderLayerMembers -q light => pSphere1
file -rename ($d + "l.ma"); file -save; file -f -o ($d + "l.ma"); editDisplayLayerMembers -q shown => pCube1 pCubeShape1 pSphereShape1
editRenderLayerMembers -q light => pSphere1

== Notes and measures
polyCube; move 1 2 3; annotate -tx "here" pCube1 => annotationShape1
getAttr annotation1.text; => here
xform -q -ws -t annotation1 => 1 2 3
distanceDimension -sp 0 0 0 -ep 3 4 0 => distanceDimensionShape1
getAttr distanceDimension1.distance => 5
move 0 4 0 locator2; getAttr distanceDimension1.distance => 4
distanceDimension -sp 0 0 0 -ep 0 4 0; ls -type locator; => locatorShape1 locatorShape2
toggle -template pCube1; getAttr pCube1.template => 1
toggle -template -st off pCube1; toggle -q -template pCube1 => 0

== Elements and aliases are listed
createNode plusMinusAverage -n p; setAttr "p.input1D[2]" 4; listAttr -m -st "input1D" p => input1D[2]
aliasAttr size "p.input1D[2]"; listAttr -m -st "input1D" p => size
listAttr -lf -st "translate*" persp => translateX translateY translateZ
addAttr -ci true -sn "n" -ln "note" -dt "string" p; addAttr -q -ex p.note => 1
addAttr -q -ex p.none => 0
createNode transform -n a; createNode transform -n b; aimConstraint -aim 0 0 1 -o 10 0 0 -wut "object" a b; getAttr b_aimConstraint1.aimVector => 0 0 1
getAttr -asString b_aimConstraint1.worldUpType => object

== Constraints lose targets one by one
createNode transform -n a; createNode transform -n b; createNode transform -n c; parentConstraint -w 0.5 a b c => c_parentConstraint1
parentConstraint -e -w 0.25 b c; parentConstraint -q -w b c => 0.25
parentConstraint -q -w c => 0.5 0.25
parentConstraint -e -rm a c; parentConstraint -q -tl c => b
parentConstraint -q -wal c => bW1
undo; parentConstraint -q -tl c => a b
parentConstraint -e -rm a b c; objExists c_parentConstraint1 => 0

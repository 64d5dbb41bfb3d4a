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

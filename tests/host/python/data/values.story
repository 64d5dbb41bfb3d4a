== Vectors and points
om.MVector(1, 2, 3) * om.MVector(4, 5, 6) => 32.0
om.MVector(1, 0, 0) ^ om.MVector(0, 1, 0) => maya.api.OpenMaya.MVector(0, 0, 1)
2 * om.MVector([1, 2, 3]) - om.MVector(1, 1, 1) => maya.api.OpenMaya.MVector(1, 3, 5)
om.MVector(3, 4, 0).normalize().length(), list(-om.MVector(3, 4)) => (1.0, [-3.0, -4.0, -0.0])
om.MVector().normal() => maya.api.OpenMaya.MVector(0, 0, 0)
"%.4f" % om.MVector(1, 0, 0).angle(om.MVector(0, 2, 0)) => 1.5708
om.MVector.kYaxisVector[om.MVector.kYaxis], om1.MVector.yAxis(1) => (1.0, 1.0)
om.MPoint(1, 2, 3) - om.MPoint(1, 1, 1), om.MPoint(1, 2) + om.MVector(0, 0, 5) => (maya.api.OpenMaya.MVector(0, 1, 2), maya.api.OpenMaya.MPoint(1, 2, 5, 1))
om.MPoint(2, 4, 6, 2).cartesianize(), om.MPoint(0, 3).distanceTo(om.MPoint(4, 0)) => (maya.api.OpenMaya.MPoint(1, 2, 3, 1), 5.0)
om.MVector(1, 2, 3) == om.MVector(om.MPoint(1, 2, 3)), om.MVector(1) != om.MVector(2) => (True, True)
om.MFloatVector(0.1).x == 0.1, om.MVector(0.1).x == 0.1 => (False, True)
om.MVector(1, 2, 3, 4) => error: MVector takes at most 3 numbers, got 4
om.MVector("abc") => error: ...
v = om.MVector(); v.w = 1 => error: 'MVector' object has no attribute 'w'
om.MVector(1, 2, 3) + 1 => error: ...
om.MColor((1, 0.5, 0)) * 0.5 => maya.api.OpenMaya.MColor(0.5, 0.25, 0, 1)

== Matrices and rotations
m = om.MMatrix([2, 0, 0, 0, 0, 3, 0, 0, 0, 0, -4, 0, 1, 2, 3, 1])
m.det4x4(), m[12], m.getElement(3, 1), len(m) => (-24.0, 1.0, 2.0, 16)
(m * m.inverse()).isEquivalent(om.MMatrix.kIdentity), m.transpose().transpose() == m => (True, True)
om.MPoint(1, 1, 1) * m, om.MVector(1, 1, 1) * m => (maya.api.OpenMaya.MPoint(3, 5, -1, 1), maya.api.OpenMaya.MVector(2, 3, -4))
om.MMatrix([0] * 16).isSingular(), om.MMatrix([[1, 0, 0, 0]] * 4)[4] => (True, 1.0)
om.MMatrix([1, 2]) => error: A matrix needs 16 numbers, got 2
import math; turn = om.MEulerRotation(0.1, 0.2, 0.3, om.MEulerRotation.kZXY)
all(om.MEulerRotation.decompose(turn.asMatrix(), order).asMatrix().isEquivalent(turn.asMatrix()) for order in range(6)) => True
turn.asQuaternion().asMatrix().isEquivalent(turn.asMatrix()) => True
(turn.asQuaternion() * turn.asQuaternion()).asMatrix().isEquivalent(turn.asMatrix() * turn.asMatrix()) => True
om.MVector(1, 0, 0).rotateBy(om.MEulerRotation(0, 0, math.pi / 2)).isEquivalent(om.MVector(0, 1, 0)) => True
om.MVector(1, 0, 0).rotateBy(om.MVector(1, 0, 0).rotateTo(om.MVector(-1, 0, 0))).isEquivalent(om.MVector(-1, 0, 0)) => True
om.MQuaternion(math.pi, om.MVector(0, 2, 0)).asAxisAngle() => (maya.api.OpenMaya.MVector(0, 1, 0), 3.141592653589793)
om.MQuaternion.slerp(om.MQuaternion(), om.MQuaternion(1.0, om.MVector(1, 0, 0)), 0.25).asEulerRotation().isEquivalent(om.MEulerRotation(0.25)) => True
whole = om.MTransformationMatrix(); _ = whole.setScale((1, 2, 3)).setShear((0.1, 0.2, 0.3)).setRotation(turn).setTranslation(om.MVector(4, 5, 6), 4)
again = om.MTransformationMatrix(whole.asMatrix()); again.isEquivalent(whole)
["%.3f" % value for value in again.scale(4) + again.shear(4)] => ['1.000', '2.000', '3.000', '0.100', '0.200', '0.300']
whole.rotation().isEquivalent(turn), again.translation(4) => (True, maya.api.OpenMaya.MVector(4, 5, 6))
om.MTransformationMatrix(m).asMatrix().isEquivalent(m) => True

== Units
om.MTime(48).asUnits(om.MTime.kSeconds), om.MTime(2, om.MTime.kSeconds) == om.MTime(48) => (2.0, True)
om.MTime(1, om.MTime.kSeconds) + om.MTime(12) => maya.api.OpenMaya.MTime(1.5, 3)
om.MAngle(90, om.MAngle.kDegrees) < om.MAngle(2), round(om1.MAngle(2).asDegrees(), 3) => (True, 114.592)
round(om.MDistance(1, om.MDistance.kFeet).asInches(), 9), om.MDistance(5).value, om1.MDistance(5).unit() => (12.0, 5.0, 6)
om.MTime(1, 99) => error: (kInvalidParameter): 99 is no unit of MTime

== Arrays
om.MIntArray([1, 2]) + [3], list(om.MDoubleArray(2, 0.5)), om.MStringArray(["a"])[-1] => (maya.api.OpenMaya.MIntArray([1, 2, 3]), [0.5, 0.5], 'a')
a = om.MIntArray(); a.append(4); a.insert(3, 0); a.remove(1); a.setLength(3); print(list(a)) >> Display: [3, 0, 0]
om.MIntArray([1])[1] => error: array index out of range
om.MIntArray(["x"]) => error: ...
om.MStringArray([1]) => error: MStringArray holds texts, not int
hasattr(om.MIntArray(), "length") => False
b = om1.MVectorArray(); b.append(om1.MVector(1, 2, 3)); b.set(om1.MVector(4), 0); print(b.length(), b[0].x) >> Display: 1 4.0

== Places for results in the older form
util = om1.MScriptUtil(); util.createFromDouble(1, 2, 3)
pointer = util.asDoublePtr()
om1.MScriptUtil.setDoubleArray(pointer, 1, 7)
om1.MScriptUtil.getDoubleArrayItem(pointer, 1), om1.MScriptUtil.getDouble(pointer), util.asInt() => (7.0, 1.0, 1)
matrix = om1.MMatrix(); _ = om1.MScriptUtil.createMatrixFromList(range(16), matrix)
matrix(1, 2) => 6.0
result = om1.MCommandResult(); om1.MGlobal.executeCommand("$i = {1, 2}", result)
result.resultType() == om1.MCommandResult.kIntArray => True
numbers = om1.MIntArray(); result.getResult(numbers); plain = [0]; result.getResult(plain); print(list(numbers) == plain, plain) >> Display: True [1, 2]

== What the API does not have is named
om.MFnMesh => error: module 'maya.api.OpenMaya' has no attribute 'MFnMesh'
from maya.OpenMaya import MFnMesh => error: cannot import name 'MFnMesh' from 'maya.OpenMaya' ...
om.MSceneMessage.addCallback(1, print) => error: MSceneMessage.addCallback: the host does not tell of message 1
import maya.app.general.mayaMixin => error: No module named 'maya.app'

== Objects are known through renaming and reparenting
_ = [cmds.createNode("transform", name=name) for name in ("a", "b")]
sel = om.MSelectionList().add("a"); node = sel.getDependNode(0)
fn = om.MFnDependencyNode(node)
fn.name(), fn.typeName, node.apiTypeStr => ('a', 'transform', 'kTransform')
_ = cmds.rename("a", "renamed"); cmds.parent("renamed", "b")
fn.name(), om.MDagPath.getAPathTo(node).fullPathName() => ('renamed', '|b|renamed')
handle = om.MObjectHandle(node)
handle.isValid() => True
cmds.delete("renamed")
handle.isValid(), sel.length() => (False, 1)
fn.name() => error: (kInvalidParameter): Object does not exist
node == om.MSelectionList(sel).getDependNode(0), om.MObject().isNull(), node.hasFn(om.MFn.kMesh) => error: (kInvalidParameter): Object does not exist
om.MSelectionList().add("nothing") => error: (kInvalidParameter): Object does not exist
om.MFnDependencyNode(om.MObject()) => error: (kInvalidParameter): Object is incompatible with this method

== Paths
cube = cmds.polyCube(name="box")[0]; cmds.group(cube, name="upper")
path = om.MSelectionList().add("box").getDagPath(0)
str(path), path.fullPathName(), path.length(), path.childCount() => ('box', '|upper|box', 2, 1)
path.extendToShape().fullPathName(), path.apiType() == om.MFn.kMesh, path.hasFn(om.MFn.kShape) => ('|upper|box|boxShape', True, True)
path.pop(2).fullPathName(), om.MDagPath(path).pop().isValid() => ('|upper', False)
path.pop(5) => error: (kInvalidParameter): Index out of range
cmds.move(1, 2, 3, "upper"); cmds.move(0, 1, 0, "box", relative=True)
matrix = om.MSelectionList().add("boxShape").getDagPath(0).inclusiveMatrix()
om.MPoint() * matrix => maya.api.OpenMaya.MPoint(1, 3, 3, 1)
dag = om.MFnDagNode(om.MSelectionList().add("box").getDependNode(0))
om.MFnDependencyNode(dag.parent(0)).name(), dag.childCount(), dag.child(0).apiTypeStr => ('upper', 1, 'kMesh')
om.MDagPath.getAPathTo(om.MSelectionList().add("time1").getDependNode(0)) => error: (kInvalidParameter): Object is incompatible with this method

== Transforms in the host's own units
_ = cmds.createNode("transform", name="turned"); cmds.setAttr("turned.rotate", 0, 90, 0)
fn = om.MFnTransform(om.MSelectionList().add("turned").getDagPath(0))
"%.4f" % fn.rotation().y, om.MFnDependencyNode(fn.object()).findPlug("ry", False).asDouble() > 1.57 => ('1.5708', True)
_ = fn.setTranslation(om.MVector(1, 2, 3), om.MSpace.kTransform); fn.setScale([2, 2, 2])
cmds.getAttr("turned.t"), fn.scale() => ([(1.0, 2.0, 3.0)], [2.0, 2.0, 2.0])
_ = fn.setRotation(om.MEulerRotation(0.5, 0, 0))
"%.3f" % cmds.getAttr("turned.rx") => 28.648
fn.transformation().asMatrix().isEquivalent(om.MMatrix(cmds.getAttr("turned.worldMatrix[0]")), 1e-6) => True
om.MFnTransform(om.MSelectionList().add("time1").getDependNode(0)) => error: (kInvalidParameter): Object is incompatible with this method

== Attributes and connections
_ = [cmds.createNode("transform", name=name) for name in ("a", "b")]
plug = om.MSelectionList().add("a.translateX").getPlug(0)
plug.name(), plug.partialName(), plug.partialName(useLongNames=True), plug.isChild => ('a.translateX', 'tx', 'translateX', True)
plug.setDouble(4.5)
plug.asDouble(), plug.asInt(), cmds.getAttr("a.tx") => (4.5, 4, 4.5)
plug.parent().name(), plug.parent().numChildren(), plug.parent().child(2).name() => ('a.translate', 3, 'a.translateZ')
cmds.connectAttr("a.tx", "b.ty")
plug.isConnected, plug.isSource, [other.name() for other in plug.destinations()] => (True, True, ['b.translateY'])
target = om.MSelectionList().add("b.ty").getPlug(0)
target.source() == plug, target.isDestination, target.isLocked => (True, True, False)
plug.isLocked = True
cmds.getAttr("a.tx", lock=True) => True
om.MFnDependencyNode(plug.node()).findPlug("nothing", False) => error: (kInvalidParameter): Object does not exist
om.MFnDependencyNode(plug.node()).hasAttribute("rotateOrder") => True

== Selection
_ = [cmds.createNode("transform", name=name) for name in ("a", "b", "c")]
cmds.select("a", "b")
om.MGlobal.getActiveSelectionList().getSelectionStrings() => ('a', 'b')
om.MGlobal.setActiveSelectionList(om.MSelectionList().add("c").add("a.tx"))
cmds.ls(selection=True) => ['c', 'a.translateX']
om.MGlobal.selectByName("b", om.MGlobal.kAddToList); om.MGlobal.unselectByName("c")
cmds.ls(selection=True) => ['a.translateX', 'b']
om.MGlobal.clearSelectionList()
om.MGlobal.getActiveSelectionList().isEmpty() => True
len(om.MSelectionList().add("*Shape")) > 0, om.MSelectionList().add("time1").getDependNode(0).apiTypeStr => (True, 'kTime')
om.MSelectionList().add("time1").getDagPath(0) => error: item is not a DAG path

== Iterators
_ = cmds.polyCube(name="one"), cmds.polyCube(name="two"), cmds.group("one", name="upper")
it = om.MItDag(om.MItDag.kDepthFirst, om.MFn.kMesh); found = []
while not it.isDone(): found.append(it.fullPathName()); it.next()
sorted(found) => ['|two|twoShape', '|upper|one|oneShape']
it = om.MItDag(); it.reset(om.MSelectionList().add("upper").getDependNode(0)); found = []
while not it.isDone(): found.append((it.partialPathName(), it.depth())); it.next()
found => [('upper', 0), ('one', 1), ('oneShape', 2)]
it.next() => error: The iterator is at its end
sorted(om.MFnDependencyNode(one).name() for one in om.MItDependencyNodes(om.MFn.kMesh)) => ['oneShape', 'twoShape']
it = om.MItSelectionList(om.MSelectionList().add("upper").add("time1"), om.MFn.kTransform)
it.getDagPath().partialPathName(), it.next(), it.isDone() => ('upper', None, True)

== The older form fills what it is handed
_ = cmds.polyCube(name="box"); cmds.move(1, 2, 3, "box"); cmds.select("box")
sel = om1.MSelectionList(); om1.MGlobal.getActiveSelectionList(sel)
path = om1.MDagPath(); node = om1.MObject(); sel.getDagPath(0, path); sel.getDependNode(0, node); path.extendToShape()
path.fullPathName(), om1.MFnDependencyNode(node).name(), node.apiTypeStr() => ('|box|boxShape', 'box', 'kTransform')
names = om1.MStringArray(); sel.getSelectionStrings(names)
list(names) => ['box']
fn = om1.MFnTransform(om1.MDagPath.getAPathTo(node)); util = om1.MScriptUtil(); util.createFromDouble(0, 0, 0); place = util.asDoublePtr(); fn.getScale(place)
fn.getTranslation(om1.MSpace.kWorld).y, om1.MScriptUtil.getDoubleArrayItem(place, 2) => (2.0, 1.0)
plug = om1.MFnDependencyNode(node).findPlug("translateX")
plug.isConnected(), plug.asDouble(), plug.isNull() => (False, 1.0, False)
om1.MScriptUtil.getDoubleArrayItem(path.inclusiveMatrix()[3], 1) => 2.0

== Callbacks of single nodes
_ = cmds.createNode("transform", name="a"); node = om.MSelectionList().add("a").getDependNode(0)
named = om.MNodeMessage.addNameChangedCallback(node, lambda node, before, data: print(before, om.MFnDependencyNode(node).name(), data), 5)
gone = om.MNodeMessage.addNodeDestroyedCallback(node, print, "gone")
_ = cmds.rename("a", "b")
@idle >> Display: a b 5
om.MMessage.removeCallback(named)
cmds.delete("b")
@idle >> Display: gone
om.MMessage.removeCallback(gone)
om.MNodeMessage.addAttributeChangedCallback => error: type object 'MNodeMessage' has no attribute 'addAttributeChangedCallback'

== Measures are read in the units that are set
_ = cmds.createNode("transform", name="a"); cmds.xform("a", translation=("2in", "1m", 3))
cmds.getAttr("a.t") => [(5.08, 100.0, 3.0)]
_ = cmds.currentUnit(linear="m")
cmds.xform("a", translation=("5cm", 1, "1km"))
cmds.xform("a", query=True, translation=True) => [0.05, 1.0, 1000.0]
cmds.undo(); cmds.undo()
cmds.xform("a", translation=("5cm", 1, "1 inch"))
cmds.xform("a", query=True, translation=True) => [5.0, 1.0, 2.54]

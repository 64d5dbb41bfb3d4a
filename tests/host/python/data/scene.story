== Python gets the scene in its own words
cmds.ls("nothing") => []
cmds.polyCube(w=2, n="box") => ['box', 'polyCube1']
cmds.objExists("box"), cmds.objExists("none") => (True, False)
cmds.getAttr("box.t"), cmds.getAttr("box.tx"), cmds.getAttr("box.v") => ([(0.0, 0.0, 0.0)], 0.0, True)
cmds.listRelatives("box", s=True), cmds.listRelatives("boxShape", c=True), cmds.listConnections("box") => (['boxShape'], None, None)
cmds.move(1, 2, 3, "box")
cmds.xform("box", q=True, ws=True, t=True) => [1.0, 2.0, 3.0]
cmds.setAttr("box.t", 4, 5, 6, type="double3")
cmds.setAttr("box.v", False)
cmds.getAttr("box.t"), cmds.getAttr("box.v") => ([(4.0, 5.0, 6.0)], False)
cmds.setAttr("box.t", *[0.1234567890123, 0, 0])
cmds.getAttr("box.tx") => 0.1234567890123
cmds.addAttr("box", ln="notes", dt="string"); cmds.getAttr("box.notes")
cmds.setAttr("box.notes", "text", type="string")
cmds.getAttr("box.notes") => text
cmds.shadingNode("place2dTexture", asUtility=True)
cmds.getAttr("place2dTexture1.repeatUV") => [(1.0, 1.0)]
cmds.setKeyframe("box", at="sx", t=[1, 5, 10]), cmds.keyframe("box", q=True, at="sx", t=(2, 10)) => (3, 2)
cmds.cutKey("box", at="sx", t=(1, 5)), cmds.keyframe("box", q=True, at="sx", tc=True), cmds.cutKey("box") => (2, [10.0], 1)
cmds.select("box")
cmds.parent(cmds.polySphere()[0], "box"), cmds.ls(sl=True, l=True) => (['pSphere1'], ['|box|pSphere1'])
cmds.select(["box", ["pSphere1"]])
cmds.ls(sl=True) => ['box', 'pSphere1']
cmds.undo()
cmds.ls(sl=True) => ['pSphere1']
cmds.currentTime(3), cmds.currentTime(q=True) => (3.0, 3.0)
cmds.polyCube("box", q=True, w=True) => 2.0

== What is not there is a ValueError
def failure(run, *arguments):
        try: run(*arguments)
        except Exception as error: return type(error).__name__ + ": " + str(error)
failure(cmds.getAttr, "foo.tx") => ValueError: No object matches name: foo.tx
failure(cmds.select, "foo") => ValueError: No object matches name: foo
failure(cmds.createNode, "nonsense") => RuntimeError: Unknown object type: nonsense

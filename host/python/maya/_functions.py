"""MFn: the API's names for kinds of objects. The numbers are the host's own; scripts use the names."""

from maya import cmds

# The kind of a node by its type; for other types the kind of the nearest type above it.
_KINDS = {
    "node": "DependencyNode",
    "entity": "DependencyNode",
    "dagNode": "DagNode",
    "shape": "Shape",
    "transform": "Transform",
    "joint": "Joint",
    "ikHandle": "IkHandle",
    "ikEffector": "IkEffector",
    "constraint": "Constraint",
    "parentConstraint": "ParentConstraint",
    "pointConstraint": "PointConstraint",
    "orientConstraint": "OrientConstraint",
    "aimConstraint": "AimConstraint",
    "scaleConstraint": "ScaleConstraint",
    "poleVectorConstraint": "PoleVectorConstraint",
    "mesh": "Mesh",
    "nurbsCurve": "NurbsCurve",
    "nurbsSurface": "NurbsSurface",
    "locator": "Locator",
    "camera": "Camera",
    "light": "Light",
    "ambientLight": "AmbientLight",
    "areaLight": "AreaLight",
    "directionalLight": "DirectionalLight",
    "pointLight": "PointLight",
    "spotLight": "SpotLight",
    "volumeLight": "VolumeLight",
    "objectSet": "Set",
    "shadingEngine": "ShadingEngine",
    "lambert": "Lambert",
    "blinn": "Blinn",
    "phong": "Phong",
    "phongE": "PhongExplorer",
    "anisotropic": "Anisotropy",
    "surfaceShader": "SurfaceShader",
    "file": "FileTexture",
    "checker": "Checker",
    "ramp": "Ramp",
    "noise": "Noise",
    "place2dTexture": "Place2dTexture",
    "place3dTexture": "Place3dTexture",
    "time": "Time",
    "displayLayer": "DisplayLayer",
    "displayLayerManager": "DisplayLayerManager",
    "renderLayer": "RenderLayer",
    "partition": "Partition",
    "groupId": "GroupId",
    "polyCube": "PolyCube",
    "polySphere": "PolySphere",
    "polyCylinder": "PolyCylinder",
    "polyCone": "PolyCone",
    "polyTorus": "PolyTorus",
    "animCurve": "AnimCurve",
    "animCurveTL": "AnimCurveTimeToDistance",
    "animCurveTA": "AnimCurveTimeToAngular",
    "animCurveTU": "AnimCurveTimeToUnitless",
    "animCurveTT": "AnimCurveTimeToTime",
    "multiplyDivide": "MultiplyDivide",
    "plusMinusAverage": "PlusMinusAverage",
    "condition": "Condition",
    "reverse": "Reverse",
    "clamp": "ClampColor",
    "blendColors": "BlendColors",
    "unitConversion": "UnitConversion",
    "expression": "Expression",
}

# Kinds that are no node of their own, or that several kinds belong to.
_OTHERS = ("NamedObject", "PluginDependNode", "Attribute", "Component", "Geometric", "Curve",
           "Surface", "Texture2d", "MeshVertComponent", "MeshEdgeComponent",
           "MeshPolygonComponent", "CurveCVComponent", "SurfaceCVComponent", "Plugin")

# What an object of a kind can be taken for besides.
_ABOVE = {
    "Mesh": ("Geometric",),
    "NurbsCurve": ("Geometric", "Curve"),
    "NurbsSurface": ("Geometric", "Surface"),
    "MeshVertComponent": ("Component",),
    "MeshEdgeComponent": ("Component",),
    "MeshPolygonComponent": ("Component",),
    "CurveCVComponent": ("Component",),
    "SurfaceCVComponent": ("Component",),
}


class MFn:
    """The kinds of objects, as MFn.kTransform and its like."""

    kInvalid = 0
    kBase = 1


_names = {0: "kInvalid", 1: "kBase"}


def _number_kinds():
    for number, name in enumerate(dict.fromkeys([*_KINDS.values(), *_OTHERS]), 2):
        setattr(MFn, "k" + name, number)
        _names[number] = "k" + name


_number_kinds()


def name_of(kind):
    return _names[kind]


def _inherited(node_type):
    """The types above a type and itself, from the outermost on."""
    return cmds.nodeType(node_type, isTypeName=True, inherited=True) or [node_type]


_chains = {}


def _chain(node_type):
    if node_type not in _chains:
        types = ["node"] + [name for name in _inherited(node_type) if name != "node"]
        _chains[node_type] = [_KINDS[name] for name in types if name in _KINDS]
    return _chains[node_type]


def kind_of_type(node_type):
    return getattr(MFn, "k" + _chain(node_type)[-1])


def type_is(node_type, kind):
    """Whether a node of the type can be taken for a kind."""
    kinds = {"NamedObject"}
    for name in _chain(node_type):
        kinds.add(name)
        kinds.update(_ABOVE.get(name, ()))
    return kind == MFn.kBase or name_of(kind)[1:] in kinds


def component_is(name, kind):
    return kind == MFn.kBase or name_of(kind)[1:] in (name, *_ABOVE[name])

// Forms, lights, cameras and the like: one row each.

#include "commands/scene/SceneCommands.h"
#include "commands/scene/SetMembership.h"
#include "scene/Joints.h"
#include "scene/Shapes.h"
#include "scene/Transforms.h"

namespace host::commands {

using namespace scene;

namespace {

struct FormRow
{
    const char* command;
    const char* transform; ///< usual name
    const char* maker;
    const char* shape;
    const char* output; ///< of the maker
    const char* input; ///< of the shape
    const char* axis; ///< the maker's attribute for the flag "axis"
    Vector usualAxis;
};

// clang-format off
const FormRow FORMS[] = {
    {"polyCube",     "pCube1",         "polyCube",         "mesh",         "output",        "inMesh", "axis",   {0, 1, 0}},
    {"polySphere",   "pSphere1",       "polySphere",       "mesh",         "output",        "inMesh", "axis",   {0, 1, 0}},
    {"polyCylinder", "pCylinder1",     "polyCylinder",     "mesh",         "output",        "inMesh", "axis",   {0, 1, 0}},
    {"polyCone",     "pCone1",         "polyCone",         "mesh",         "output",        "inMesh", "axis",   {0, 1, 0}},
    {"polyPlane",    "pPlane1",        "polyPlane",        "mesh",         "output",        "inMesh", "axis",   {0, 1, 0}},
    {"polyTorus",    "pTorus1",        "polyTorus",        "mesh",         "output",        "inMesh", "axis",   {0, 1, 0}},
    {"sphere",       "nurbsSphere1",   "makeNurbSphere",   "nurbsSurface", "outputSurface", "create", "axis",   {0, 1, 0}},
    {"cylinder",     "nurbsCylinder1", "makeNurbCylinder", "nurbsSurface", "outputSurface", "create", "axis",   {0, 1, 0}},
    {"cone",         "nurbsCone1",     "makeNurbCone",     "nurbsSurface", "outputSurface", "create", "axis",   {0, 1, 0}},
    {"torus",        "nurbsTorus1",    "makeNurbTorus",    "nurbsSurface", "outputSurface", "create", "axis",   {0, 1, 0}},
    {"nurbsPlane",   "nurbsPlane1",    "makeNurbPlane",    "nurbsSurface", "outputSurface", "create", "axis",   {0, 1, 0}},
    {"circle",       "nurbsCircle1",   "makeNurbCircle",   "nurbsCurve",   "outputCurve",   "create", "normal", {0, 0, 1}},
};

/// Flags that set an attribute of another name; the others have that of their attribute.
constexpr struct { const char* command; const char* flag; const char* attribute; } RENAMED[] = {
    {"polyCube",     "subdivisionsX", "subdivisionsWidth"},
    {"polyCube",     "subdivisionsY", "subdivisionsHeight"},
    {"polyCube",     "subdivisionsZ", "subdivisionsDepth"},
    {"polySphere",   "subdivisionsX", "subdivisionsAxis"},
    {"polySphere",   "subdivisionsY", "subdivisionsHeight"},
    {"polyCylinder", "subdivisionsX", "subdivisionsAxis"},
    {"polyCylinder", "subdivisionsY", "subdivisionsHeight"},
    {"polyCylinder", "subdivisionsZ", "subdivisionsCaps"},
    {"polyCone",     "subdivisionsX", "subdivisionsAxis"},
    {"polyCone",     "subdivisionsY", "subdivisionsHeight"},
    {"polyCone",     "subdivisionsZ", "subdivisionsCap"},
    {"polyPlane",    "subdivisionsX", "subdivisionsWidth"},
    {"polyPlane",    "subdivisionsY", "subdivisionsHeight"},
    {"polyTorus",    "subdivisionsX", "subdivisionsAxis"},
    {"polyTorus",    "subdivisionsY", "subdivisionsHeight"},
    {"joint",        "orientation",   "jointOrient"},
    {"spotLight",    "dropOff",       "dropoff"},
    {"spotLight",    "penumbra",      "penumbraAngle"},
    {"joint",        "scaleCompensate", "segmentScaleCompensate"},
};
// clang-format on

const FormRow& FormOf(const Call& call)
{
    const QString name = call.GetCommand().GetName();
    for (const FormRow& row : FORMS) {
        if (name == QLatin1String(row.command))
            return row;
    }
    Q_UNREACHABLE();
}

QString AttributeFor(const QString& command, const QString& flag, const FormRow* form)
{
    for (const auto& row : RENAMED) {
        if (command == QLatin1String(row.command) && flag == QLatin1String(row.flag))
            return QLatin1String(row.attribute);
    }
    return form && flag == QLatin1String("axis") ? QString::fromLatin1(form->axis) : flag;
}

std::optional<Error> SetFromFlag(
    const Call& call, Node& node, const QString& flag, const FormRow* form)
{
    const QString name = AttributeFor(call.GetCommand().GetName(), flag, form);
    const Plug plug = Plug::Find(node, name);
    const QByteArray key = flag.toLatin1();
    if (!plug.IsValid())
        return std::nullopt;
    Scene& scene = Scene::Current();
    if (plug.HasChildren()) {
        FloatList numbers;
        for (int i = 0; i < plug.attribute->children.size(); ++i)
            numbers += call.Float(key.constData(), i);
        scene.SetValue(plug, numbers);
        return std::nullopt;
    }
    Value value = call.Argument(key.constData());
    if (plug.attribute->type->IsNamed("enum") && value.IsString())
        value = plug.attribute->EnumNumber(value.ToText()).value_or(value.ToInt());
    const double number = value.ToFloat();
    const auto& minimum = plug.attribute->minimum;
    if (minimum && number < *minimum) {
        return Error{QStringLiteral("%1: the value of %2 must be at least %3.")
                         .arg(call.GetCommand().GetName(), flag, NumberText(*minimum))};
    }
    scene.SetValue(plug, value);
    return std::nullopt;
}

std::optional<Error> SetFromFlags(const Call& call, Node& node, const FormRow* form)
{
    for (const QString& flag : call.GivenFlags()) {
        if (flag == QLatin1String("name") || call.GetCommand().FindFlag(flag)->arguments.isEmpty())
            continue;
        if (const auto error = SetFromFlag(call, node, flag, form))
            return error;
    }
    return std::nullopt;
}

/// The maker of what the call names: the maker itself, a shape or its transform.
std::optional<Error> FindMaker(const Call& call, const FormRow& form, Node*& maker)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return found.error;
    for (Node* node : found.Nodes()) {
        QVector<Node*> candidates{node, MakerOf(*node)};
        for (const Node* shape : node->Shapes())
            candidates += MakerOf(*shape);
        for (Node* candidate : qAsConst(candidates)) {
            if (candidate && candidate->GetType().GetName() == QLatin1String(form.maker)) {
                maker = candidate;
                return std::nullopt;
            }
        }
    }
    return Error{
        QStringLiteral("No object matches name: %1 (made by %2)")
            .arg(Scene::Current().DisplayName(found.items.first()), call.GetCommand().GetName())};
}

Outcome QueryFlag(const Call& call, Node& node, const FormRow* form)
{
    const QString flag = call.GivenFlags().value(0);
    if (flag == QLatin1String("constructionHistory"))
        return true;
    const Plug plug = Plug::Find(node, AttributeFor(call.GetCommand().GetName(), flag, form));
    if (!plug.IsValid())
        return {};
    const Value value = Scene::Current().GetValue(plug);
    const QVector<ArgumentType> types = call.GetCommand().FindFlag(flag)->arguments;
    const bool isName = types == QVector<ArgumentType>{ArgumentType::String};
    return isName ? Outcome(plug.attribute->EnumName(value.ToInt())) : Outcome(value);
}

Node& CreateShape(const char* type, Node& transform)
{
    return Scene::Current().Create(
        *NodeType::Find(QLatin1String(type)), ShapeName(transform.GetName()), &transform);
}

Outcome CreateForm(const Call& call, const FormRow& form)
{
    Scene& scene = Scene::Current();
    Node& maker = scene.Create(*NodeType::Find(QLatin1String(form.maker)),
        scene.Names().UnusedName(QLatin1String(form.maker) + QLatin1Char('1')));
    SetTriple(scene, maker, form.axis, form.usualAxis);
    if (const auto error = SetFromFlags(call, maker, &form))
        return *error;
    if (call.Has("object") && !call.Bool("object"))
        return StringList{maker.GetName()};
    const NewName name = NameFor(call, QLatin1String(form.transform));
    if (name.error)
        return *name.error;
    Node& transform = scene.Create(*NodeType::Find(QStringLiteral("transform")), name.name);
    Node& shape = CreateShape(form.shape, transform);
    scene.Connect(Plug::Find(maker, QLatin1String(form.output)),
        Plug::Find(shape, QLatin1String(form.input)));
    if (shape.GetType().Is("surfaceShape"))
        AssignShading(*scene.FindOne(QStringLiteral("initialShadingGroup")),
            {shape.shared_from_this(), {}, false});
    SelectNodes({&transform});
    if (!call.Has("constructionHistory") || call.Bool("constructionHistory"))
        return DisplayNames({&transform, &maker});
    KeepForm(scene, shape);
    scene.Delete({&maker});
    return DisplayNames({&transform});
}

Outcome RunForm(Call& call)
{
    const FormRow& form = FormOf(call);
    if (call.IsCreate())
        return CreateForm(call, form);
    Node* maker = nullptr;
    if (const auto error = FindMaker(call, form, maker))
        return *error;
    if (call.IsQuery())
        return QueryFlag(call, *maker, &form);
    const auto error = SetFromFlags(call, *maker, &form);
    return error ? Outcome(*error) : Outcome();
}

// Things that have no maker

struct ThingRow
{
    const char* command;
    const char* transform;
    const char* shape;
    bool givesShape; ///< the answer is the shape rather than the transform
};

constexpr ThingRow THINGS[] = {
    {"directionalLight", "directionalLight1", "directionalLight", true},
    {"pointLight", "pointLight1", "pointLight", true},
    {"spotLight", "spotLight1", "spotLight", true},
    {"ambientLight", "ambientLight1", "ambientLight", true},
    {"camera", "camera1", "camera", false},
    {"spaceLocator", "locator1", "locator", false},
};

const ThingRow& ThingOf(const Call& call)
{
    const QString name = call.GetCommand().GetName();
    for (const ThingRow& row : THINGS) {
        if (name == QLatin1String(row.command))
            return row;
    }
    Q_UNREACHABLE();
}

void SetLightColor(const Call& call, Node& shape)
{
    if (call.GetCommand().FindFlag(QStringLiteral("rgb")) && call.Has("rgb")) {
        Scene::Current().SetValue(Plug::Find(shape, QStringLiteral("color")),
            FloatList{call.Float("rgb", 0), call.Float("rgb", 1), call.Float("rgb", 2)});
    }
}

/// Where flags of some commands put the transform.
void PlaceThing(const Call& call, Node& transform)
{
    for (const char* flag : {"position", "rotation"}) {
        if (!call.GetCommand().FindFlag(QLatin1String(flag)) || !call.Has(flag))
            continue;
        const Vector value{call.Float(flag, 0), call.Float(flag, 1), call.Float(flag, 2)};
        const bool turns = qstrcmp(flag, "rotation") == 0;
        SetTriple(Scene::Current(), transform, turns ? "rotate" : "translate", value);
    }
}

Outcome ChangeThing(const Call& call, const ThingRow& row)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    Node* shape = found.items.first().node.get();
    const QVector<Node*> shapes = shape->Shapes();
    if (!shapes.isEmpty())
        shape = shapes.first();
    if (!shape->GetType().Is(row.shape))
        return NoMatch(Scene::Current().DisplayName(found.items.first()));
    if (call.IsQuery()) {
        const QString flag = call.GivenFlags().value(0);
        if (flag == QLatin1String("rgb"))
            return Scene::Current().GetValue(Plug::Find(*shape, QStringLiteral("color")));
        return QueryFlag(call, *shape, nullptr);
    }
    SetLightColor(call, *shape);
    const auto error = SetFromFlags(call, *shape, nullptr);
    return error ? Outcome(*error) : Outcome();
}

Outcome RunThing(Call& call)
{
    const ThingRow& row = ThingOf(call);
    if (!call.IsCreate())
        return ChangeThing(call, row);
    Scene& scene = Scene::Current();
    const NewName name = NameFor(call, QLatin1String(row.transform));
    if (name.error)
        return *name.error;
    Node& transform = scene.Create(*NodeType::Find(QStringLiteral("transform")), name.name);
    Node& shape = CreateShape(row.shape, transform);
    SetLightColor(call, shape);
    PlaceThing(call, transform);
    if (const auto error = SetFromFlags(call, shape, nullptr))
        return *error;
    SelectNodes({&transform});
    if (shape.GetType().Is("light"))
        AddToSet(*scene.FindOne(QStringLiteral("defaultLightSet")),
            {transform.shared_from_this(), {}, false});
    if (qstrcmp(row.shape, "camera") == 0)
        return DisplayNames({&transform, &shape});
    if (qstrcmp(row.shape, "locator") == 0)
        return DisplayNames({&transform});
    return scene.DisplayName(row.givesShape ? shape : transform);
}

std::optional<Error> ChangeJoint(const Call& call, Node& joint)
{
    Scene& scene = Scene::Current();
    if (!joint.GetType().Is("joint"))
        return NoMatch(scene.DisplayName(joint));
    if (const auto error = SetFromFlags(call, joint, nullptr))
        return error;
    if (call.Has("zeroScaleOrient"))
        SetTriple(scene, joint, "rotateAxis", {});
    QVector<Node*> joints{&joint};
    if (call.Has("children")) {
        joints.clear();
        joint.CollectTree(joints);
    }
    for (Node* each : qAsConst(joints)) {
        const bool orients = call.Has("orientJoint") && each->GetType().Is("joint");
        if (orients
            && !OrientJoint(
                scene, *each, call.Text("orientJoint"), call.Text("secondaryAxisOrient"))) {
            return Error{QStringLiteral("joint: Unknown axes: %1 %2")
                             .arg(call.Text("orientJoint"), call.Text("secondaryAxisOrient"))};
        }
    }
    return std::nullopt;
}

/// A joint goes below the joint that is selected.
Outcome Joint(Call& call)
{
    Scene& scene = Scene::Current();
    if (!call.IsCreate()) {
        const FoundItems found = Targets(call);
        if (found.error)
            return *found.error;
        Node& node = *found.items.first().node;
        if (!node.GetType().Is("joint"))
            return NoMatch(scene.DisplayName(node));
        if (call.IsQuery() && call.Has("position"))
            return FloatList{
                WorldPivot(scene, node).x, WorldPivot(scene, node).y, WorldPivot(scene, node).z};
        if (call.IsQuery())
            return QueryFlag(call, node, nullptr);
        for (Node* joint : found.Nodes()) {
            const auto error = ChangeJoint(call, *joint);
            if (error)
                return *error;
        }
        return {};
    }
    Node* parent = nullptr;
    if (!scene.Selection().isEmpty() && scene.Selection().last().node->GetType().IsTransform())
        parent = scene.Selection().last().node.get();
    const NewName name = NameFor(call, QStringLiteral("joint1"));
    if (name.error)
        return *name.error;
    Node& joint = scene.Create(*NodeType::Find(QStringLiteral("joint")), name.name, parent);
    if (call.Has("position")) {
        const Vector place{
            call.Float("position", 0), call.Float("position", 1), call.Float("position", 2)};
        SetTriple(scene, joint, "translate",
            call.Has("relative") ? place : ParentMatrix(scene, joint).Inverted().Map(place));
    }
    if (const auto error = SetFromFlags(call, joint, nullptr))
        return *error;
    SelectNodes({&joint});
    return scene.DisplayName(joint);
}

/// A curve through or along points. The toy knows its points and their box.
Outcome Curve(Call& call)
{
    Scene& scene = Scene::Current();
    const char* flag = call.Has("editPoint") ? "editPoint" : "point";
    VectorList points;
    Box box;
    for (int use = 0; use < call.UseCount(flag); ++use) {
        points
            += Vector{call.Float(flag, 0, use), call.Float(flag, 1, use), call.Float(flag, 2, use)};
        box.Add(points.last());
    }
    const int degree = call.Has("degree") ? call.Int("degree") : 3;
    if (degree < 1 || points.size() < (call.Has("editPoint") ? 2 : degree + 1)) {
        return Error{QStringLiteral("curve: A curve of degree %1 needs at least %2 points.")
                         .arg(degree)
                         .arg(qMax(2, degree + 1))};
    }
    const NewName name = NameFor(call, QStringLiteral("curve1"));
    if (name.error)
        return *name.error;
    Node& transform = scene.Create(*NodeType::Find(QStringLiteral("transform")), name.name);
    Node& shape = CreateShape("nurbsCurve", transform);
    scene.SetValue(Plug::Find(shape, QStringLiteral("degree")), degree);
    scene.SetValue(Plug::Find(shape, QStringLiteral("spans")), points.size() - degree);
    scene.SetValue(Plug::Find(shape, QStringLiteral("form")), call.Has("periodic") ? 2 : 0);
    scene.SetValue(Plug::Find(shape, QStringLiteral("editPoints")), points);
    SetTriple(scene, shape, "storedSize", box.maximum - box.minimum);
    SetTriple(scene, shape, "storedOffset", (box.maximum + box.minimum) * 0.5);
    SelectNodes({&transform});
    return scene.DisplayName(transform);
}

/// Counts of parts and the like, of the first mesh there is.
Outcome PolyEvaluate(Call& call)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    Scene& scene = Scene::Current();
    PartCounts sum;
    int shells = 0; // every form is of one piece
    Box box;
    for (const Node* node : found.Nodes()) {
        QVector<Node*> tree;
        node->CollectTree(tree);
        for (const Node* shape : qAsConst(tree)) {
            if (!shape->GetType().Is("mesh"))
                continue;
            const PartCounts counts = CountParts(scene, *shape);
            shells += counts.faces > 0 ? 1 : 0;
            sum.vertices += counts.vertices;
            sum.edges += counts.edges;
            sum.faces += counts.faces;
            sum.textureVertices += counts.textureVertices;
            sum.triangles += counts.triangles;
            box.Add(WorldBox(scene, *shape));
        }
    }
    constexpr struct
    {
        const char* flag;
        int PartCounts::*count;
    } COUNTS[] = {
        {"vertex", &PartCounts::vertices},
        {"edge", &PartCounts::edges},
        {"face", &PartCounts::faces},
        {"uvcoord", &PartCounts::textureVertices},
        {"triangle", &PartCounts::triangles},
    };
    if (call.Has("shell"))
        return shells;
    IntList answers;
    for (const auto& row : COUNTS) {
        if (call.Has(row.flag))
            answers += sum.*row.count;
    }
    if (call.Has("boundingBox"))
        return FloatList{box.minimum.x, box.maximum.x, box.minimum.y, box.maximum.y, box.minimum.z,
            box.maximum.z};
    if (answers.size() == 1)
        return answers.first();
    return answers.isEmpty()
        ? IntList{sum.vertices, sum.edges, sum.faces, sum.textureVertices, sum.triangles}
        : answers;
}

// clang-format off
const CommandRow FORM_COMMANDS[] = {
    {"polyCube", "string[]", "QE", "[String...]",
        "axis/ax length length length cqe; caching/cch B cqe; createUVs/cuv int cqe; depth/d length cqe; height/h length cqe; nodeState/nds int cqe;"
        "subdivisionsDepth/sd int cqe; subdivisionsHeight/sh int cqe; subdivisionsWidth/sw int cqe; subdivisionsX/sx int cqe; subdivisionsY/sy int cqe;"
        "subdivisionsZ/sz int cqe; texture/tx int cqe; width/w length cqe", RunForm},
    {"polySphere", "string[]", "QE", "[String...]",
        "axis/ax length length length cqe; createUVs/cuv int cqe; radius/r length cqe; subdivisionsAxis/sa int cqe; subdivisionsHeight/sh int cqe;"
        "subdivisionsX/sx int cqe; subdivisionsY/sy int cqe; texture/tx int cqe", RunForm},
    {"polyCylinder", "string[]", "QE", "[String...]",
        "axis/ax length length length cqe; createUVs/cuv int cqe; height/h length cqe; radius/r length cqe; roundCap/rcp B cqe; subdivisionsAxis/sa int cqe;"
        "subdivisionsCaps/sc int cqe; subdivisionsHeight/sh int cqe; subdivisionsX/sx int cqe; subdivisionsY/sy int cqe; subdivisionsZ/sz int cqe", RunForm},
    {"polyCone", "string[]", "QE", "[String...]",
        "axis/ax length length length cqe; createUVs/cuv int cqe; height/h length cqe; radius/r length cqe; roundCap/rcp B cqe; subdivisionsAxis/sa int cqe;"
        "subdivisionsCap/sc int cqe; subdivisionsHeight/sh int cqe; subdivisionsX/sx int cqe; subdivisionsY/sy int cqe; subdivisionsZ/sz int cqe", RunForm},
    {"polyPlane", "string[]", "QE", "[String...]",
        "axis/ax length length length cqe; createUVs/cuv int cqe; height/h length cqe; subdivisionsHeight/sh int cqe; subdivisionsWidth/sw int cqe;"
        "subdivisionsX/sx int cqe; subdivisionsY/sy int cqe; texture/tx int cqe; width/w length cqe", RunForm},
    {"polyTorus", "string[]", "QE", "[String...]",
        "axis/ax length length length cqe; createUVs/cuv int cqe; radius/r length cqe; sectionRadius/sr length cqe; subdivisionsAxis/sa int cqe;"
        "subdivisionsHeight/sh int cqe; subdivisionsX/sx int cqe; subdivisionsY/sy int cqe; twist/tw angle cqe", RunForm},
    {"sphere", "string[]", "QE", "[String...]",
        "axis/ax length length length cqe; degree/d int cqe; endSweep/esw angle cqe; pivot/p length length length cqe; radius/r length cqe; sections/s int cqe;"
        "spans/nsp int cqe; startSweep/ssw angle cqe; tolerance/tol length cqe; useTolerance/ut B cqe", RunForm},
    {"cylinder", "string[]", "QE", "[String...]",
        "axis/ax length length length cqe; degree/d int cqe; endSweep/esw angle cqe; startSweep/ssw angle cqe; heightRatio/hr float cqe; pivot/p length length length cqe; radius/r length cqe; sections/s int cqe;"
        "spans/nsp int cqe; tolerance/tol length cqe; useTolerance/ut B cqe", RunForm},
    {"cone", "string[]", "QE", "[String...]",
        "axis/ax length length length cqe; degree/d int cqe; endSweep/esw angle cqe; startSweep/ssw angle cqe; heightRatio/hr float cqe; pivot/p length length length cqe; radius/r length cqe; sections/s int cqe;"
        "spans/nsp int cqe; tolerance/tol length cqe; useTolerance/ut B cqe", RunForm},
    {"torus", "string[]", "QE", "[String...]",
        "axis/ax length length length cqe; degree/d int cqe; endSweep/esw angle cqe; startSweep/ssw angle cqe; heightRatio/hr float cqe; pivot/p length length length cqe; radius/r length cqe; sections/s int cqe;"
        "spans/nsp int cqe; tolerance/tol length cqe; useTolerance/ut B cqe", RunForm},
    {"nurbsPlane", "string[]", "QE", "[String...]",
        "axis/ax length length length cqe; degree/d int cqe; lengthRatio/lr float cqe; patchesU/u int cqe; patchesV/v int cqe; pivot/p length length length cqe;"
        "width/w length cqe; tolerance/tol length cqe; useTolerance/ut B cqe", RunForm},
    {"circle", "string[]", "QE", "[String...]",
        "center/c length length length cqe; degree/d int cqe; normal/nr length length length cqe; radius/r length cqe; sections/s int cqe; sweep/sw angle cqe; tolerance/tol length cqe; useTolerance/ut B cqe", RunForm},
};

const char* const FORM_FLAGS = "constructionHistory/ch B cq; name/n str c; object/o B c";

const CommandRow COMMANDS[] = {
    {"directionalLight", "any", "QE", "[String...]",
        "intensity/i float cqe; name/n str c; position/pos length length length c; rgb/rgb float float float cqe; rotation/rot angle angle angle c;"
        "shadowColor/sc float float float cqe; useRayTraceShadows/rs B cqe", RunThing},
    {"pointLight", "any", "QE", "[String...]",
        "decayRate/d int cqe; intensity/i float cqe; name/n str c; position/pos length length length c; rgb/rgb float float float cqe; rotation/rot angle angle angle c;"
        "shadowColor/sc float float float cqe; useRayTraceShadows/rs B cqe", RunThing},
    {"spotLight", "any", "QE", "[String...]",
        "coneAngle/ca angle cqe; decayRate/d int cqe; dropOff/do float cqe; intensity/i float cqe; name/n str c; penumbra/p angle cqe;"
        "position/pos length length length c; rgb/rgb float float float cqe; rotation/rot angle angle angle c; shadowColor/sc float float float cqe;"
        "useRayTraceShadows/rs B cqe", RunThing},
    {"ambientLight", "any", "QE", "[String...]",
        "ambientShade/as float cqe; intensity/i float cqe; name/n str c; position/pos length length length c; rgb/rgb float float float cqe;"
        "rotation/rot angle angle angle c", RunThing},
    {"camera", "any", "QE", "[String...]",
        "cameraScale/cs float cqe; centerOfInterest/coi length cqe; displayResolution/dr B cqe; farClipPlane/fcp length cqe; filmFit/ff str cqe; focalLength/fl float cqe;"
        "horizontalFilmAperture/hfa float cqe; horizontalFilmOffset/hfo float cqe; horizontalPan/hpn float cqe; lensSqueezeRatio/lsr float cqe; motionBlur/mb B cqe;"
        "name/n str c; panZoomEnabled/pze B cqe; shutterAngle/sa angle cqe; verticalFilmAperture/vfa float cqe; verticalFilmOffset/vfo float cqe; verticalPan/vpn float cqe;"
        "zoom/zom float cqe;"
        "nearClipPlane/ncp length cqe; orthographic/o B cqe; orthographicWidth/ow length cqe; overscan/ovr float cqe; position/p length length length c;"
        "rotation/rot angle angle angle c", RunThing},
    {"spaceLocator", "any", "QE", "[String...]", "name/n str c; position/p length length length c; absolute/a - c; relative/r - c", RunThing},
    {"joint", "any", "QE", "[String...]",
        "absolute/a - c; children/ch - e; name/n str c; orientJoint/oj str e; orientation/o angle angle angle cqe; position/p length length length cq;"
        "radius/rad float cqe; relative/r - c; scaleCompensate/sc B cqe; secondaryAxisOrient/sao str e; segmentScaleCompensate/ssc B cqe;"
        "zeroScaleOrient/zso - e", Joint},
    {"curve", "string", "", "",
        "degree/d float c; editPoint/ep length length length cm; knot/k float cm; name/n str c; objectSpace/os - c; periodic/per B c;"
        "point/p length length length cm; worldSpace/ws - c", Curve},
    {"polyEvaluate", "any", "", "[String...]",
        "boundingBox/b - c; edge/e - c; face/f - c; format/fmt - c; shell/s - c; triangle/t - c; uvcoord/uv - c; vertex/v - c", PolyEvaluate},
};
// clang-format on

} // namespace

void RegisterScenePrimitives(CommandRegistry& registry)
{
    for (const CommandRow& row : FORM_COMMANDS)
        RegisterSceneCommand(registry, row, FORM_FLAGS);
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands

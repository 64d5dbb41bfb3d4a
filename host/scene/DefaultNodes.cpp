#include "scene/DefaultNodes.h"

#include "scene/Transforms.h"

namespace host::scene {

namespace {

struct NodeRow
{
    const char* type;
    const char* name;
};

// clang-format off
constexpr NodeRow NODES[] = {
    {"time",                     "time1"},
    {"sequenceManager",          "sequenceManager1"},
    {"partition",                "renderPartition"},
    {"renderGlobalsList",        "renderGlobalsList1"},
    {"defaultLightList",         "defaultLightList1"},
    {"defaultShaderList",        "defaultShaderList1"},
    {"postProcessList",          "postProcessList1"},
    {"defaultRenderUtilityList", "defaultRenderUtilityList1"},
    {"defaultRenderingList",     "defaultRenderingList1"},
    {"lightList",                "lightList1"},
    {"defaultTextureList",       "defaultTextureList1"},
    {"lambert",                  "lambert1"},
    {"standardSurface",          "standardSurface1"},
    {"shadingEngine",            "initialShadingGroup"},
    {"shadingEngine",            "initialParticleSE"},
    {"materialInfo",             "initialMaterialInfo"},
    {"dof",                      "dof1"},
    {"renderGlobals",            "defaultRenderGlobals"},
    {"renderQuality",            "defaultRenderQuality"},
    {"resolution",               "defaultResolution"},
    {"objectSet",                "defaultLightSet"},
    {"objectSet",                "defaultObjectSet"},
    {"hardwareRenderGlobals",    "hardwareRenderGlobals"},
    {"lightLinker",              "lightLinker1"},
    {"displayLayerManager",      "layerManager"},
    {"displayLayer",             "defaultLayer"},
    {"renderLayerManager",       "renderLayerManager"},
    {"renderLayer",              "defaultRenderLayer"},
};

constexpr const char* CONNECTIONS[][2] = {
    {"lambert1.outColor",              "initialShadingGroup.surfaceShader"},
    {"lambert1.outColor",              "initialParticleSE.surfaceShader"},
    {"initialShadingGroup.message",    "initialMaterialInfo.shadingGroup"},
    {"lambert1.message",               "initialMaterialInfo.material"},
    {"lambert1.message",               "defaultShaderList1.shaders[0]"},
    {"standardSurface1.message",       "defaultShaderList1.shaders[1]"},
    {"initialShadingGroup.message",    "renderPartition.sets[0]"},
    {"initialParticleSE.message",      "renderPartition.sets[1]"},
    {"defaultRenderLayer.message",     "renderLayerManager.renderLayerId[0]"},
};
// clang-format on

struct CameraRow
{
    const char* name;
    Vector place;
    Vector rotation;
    bool orthographic;
};

constexpr CameraRow CAMERAS[] = {
    {"persp", {28, 21, 28}, {-27.938352729602379, 45, 0}, false},
    {"top", {0, 1000.1, 0}, {-90, 0, 0}, true},
    {"front", {0, 0, 1000.1}, {0, 0, 0}, true},
    {"side", {1000.1, 0, 0}, {0, 90, 0}, true},
};

Plug PlugNamed(const Scene& scene, const char* text)
{
    const QString path = QLatin1String(text);
    const int dot = path.indexOf(QLatin1Char('.'));
    Node* node = scene.FindOne(path.left(dot));
    Q_ASSERT_X(node, "PlugNamed", text);
    return Plug::Find(*node, path.mid(dot + 1));
}

void CreateCamera(Scene& scene, const CameraRow& row)
{
    const QString name = QLatin1String(row.name);
    Node& transform = scene.Create(*NodeType::Find(QStringLiteral("transform")), name);
    SetTriple(scene, transform, "translate", row.place);
    SetTriple(scene, transform, "rotate", row.rotation);
    Node& shape = scene.Create(
        *NodeType::Find(QStringLiteral("camera")), name + QLatin1String("Shape"), &transform);
    const auto set = [&](const char* attribute, const Value& value) {
        scene.SetValue(Plug::Find(shape, QLatin1String(attribute)), value);
    };
    set("orthographic", row.orthographic);
    set("renderable", !row.orthographic);
    set("centerOfInterest", row.orthographic ? 1000.1 : 44.82186966202994);
    set("imageName", name);
    set("depthName", name + QLatin1String("_depth"));
    set("maskName", name + QLatin1String("_mask"));
    if (!row.orthographic)
        return;
    scene.SetValue(Plug::Find(transform, QStringLiteral("visibility")), false);
}

} // namespace

void CreateDefaultNodes(Scene& scene)
{
    for (const NodeRow& row : NODES) {
        const NodeType* type = NodeType::Find(QLatin1String(row.type));
        Q_ASSERT_X(type, "CreateDefaultNodes", row.type);
        scene.Create(*type, QLatin1String(row.name));
    }
    for (const auto& row : CONNECTIONS)
        scene.Connect(PlugNamed(scene, row[0]), PlugNamed(scene, row[1]));
    for (const CameraRow& row : CAMERAS)
        CreateCamera(scene, row);
}

} // namespace host::scene

// Scenes are opened, saved and named.

#include "commands/Session.h"
#include "commands/scene/SceneCommands.h"
#include "engine/Engine.h"
#include "scene/SceneFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QScopedValueRollback>

namespace host::commands {

using namespace scene;

namespace {

const QString TYPE = QStringLiteral("mayaAscii");

/// Names without a folder lie in the project's folder for scenes.
QString Expanded(const QString& name)
{
    if (name.isEmpty() || QFileInfo(name).isAbsolute())
        return QDir::cleanPath(name);
    const Project& project = Session::Current().project;
    const QString inScenes
        = project.Expand(project.Rules().value(QStringLiteral("scene"), QStringLiteral("scenes")))
        + QLatin1Char('/') + name;
    const bool elsewhere = !QFileInfo::exists(inScenes) && QFileInfo::exists(project.Expand(name));
    return QDir::cleanPath(elsewhere ? project.Expand(name) : inScenes);
}

std::optional<Error> UnsavedError(const Call& call)
{
    if (Scene::Current().isModified && !call.Has("force"))
        return Error{QStringLiteral("Unsaved changes.")};
    return std::nullopt;
}

std::optional<Error> TypeError(const Call& call)
{
    if (!call.Has("type") || call.Text("type") == TYPE)
        return std::nullopt;
    return Error{QStringLiteral("file: This host reads and writes scenes of the type \"%1\" alone.")
                     .arg(TYPE)};
}

struct ReadText
{
    QString text;
    std::optional<Error> error;
};

/// The statements of a scene file; anything else is refused before the scene is touched.
ReadText Read(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile())
        return {{}, Error{QStringLiteral("File not found: %1").arg(path)}};
    if (!file.open(QIODevice::ReadOnly)) {
        return {
            {}, Error{QStringLiteral("Cannot read file \"%1\": %2").arg(path, file.errorString())}};
    }
    const QByteArray bytes = file.readAll();
    const QByteArray lead = bytes.left(bytes.indexOf('\n')).trimmed();
    if (!lead.startsWith("//") || !lead.contains("scene") || bytes.contains('\0')) {
        return {{},
            Error{QStringLiteral("\"%1\" is no scene file that this host can read.").arg(path)}};
    }
    return {QString::fromUtf8(bytes), std::nullopt};
}

/// Runs the statements; what they do cannot be undone, and is no change of a person.
bool Run(const QString& text)
{
    Engine& engine = Engine::Current();
    const UndoPause pause(engine.undoQueue, true);
    return !engine.mel->Run(text).failed;
}

Outcome NewScene(const Call& call)
{
    if (const auto error = UnsavedError(call))
        return *error;
    Scene::Current().Reset();
    Engine::Current().events.Fire(QStringLiteral("NewSceneOpened"));
    return QStringLiteral("untitled");
}

Outcome OpenScene(const Call& call)
{
    const QString path = Expanded(call.ObjectText());
    if (const auto error = UnsavedError(call))
        return *error;
    const ReadText read = Read(path);
    if (read.error)
        return *read.error;
    Scene& scene = Scene::Current();
    scene.Reset();
    const bool whole = Run(read.text);
    scene.Select({});
    Engine::Current().undoQueue.Clear();
    Engine::Current().events.Fire(QStringLiteral("PostSceneRead"));
    Engine::Current().events.Fire(QStringLiteral("SceneOpened"));
    if (!whole) {
        // Under its old name a save would put the rest in the place of the whole.
        return Error{
            QStringLiteral("Error reading file \"%1\": only a part of it was read. The scene "
                           "bears no name now.")
                .arg(path)};
    }
    scene.fileName = path;
    scene.isModified = false;
    return path;
}

Outcome ImportScene(const Call& call)
{
    const QString path = Expanded(call.ObjectText());
    const ReadText read = Read(path);
    if (read.error)
        return *read.error;
    Scene& scene = Scene::Current();
    const QString space = call.Has("namespace") ? NameIndex::LegalName(call.Text("namespace"))
                                                : scene.currentNamespace;
    const QScopedValueRollback<QString> inSpace(scene.currentNamespace, space);
    const QVector<Node*> before = scene.Nodes();
    const Playback playback = scene.GetPlayback();
    const SceneUnits units = scene.GetUnits();
    scene.BeginImport();
    const bool whole = !Engine::Current().mel->Run(read.text).failed;
    scene.EndImport();
    // Time and units stay those of the scene that is open.
    scene.SetPlayback(playback);
    scene.SetUnits(units);
    if (!whole)
        return Error{QStringLiteral("Error reading file \"%1\".").arg(path)};
    if (!call.Has("returnNewNodes"))
        return path;
    const QSet<Node*> old(before.begin(), before.end());
    QVector<Node*> added;
    for (Node* node : scene.Nodes()) {
        if (!old.contains(node))
            added += node;
    }
    return DisplayNames(added, true);
}

std::optional<Error> Write(const QString& path, const QString& text)
{
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    const bool written = file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0;
    if (written && file.commit())
        return std::nullopt;
    return Error{QStringLiteral("Cannot write file \"%1\": %2").arg(path, file.errorString())};
}

Outcome SaveScene(const Call& call)
{
    Scene& scene = Scene::Current();
    if (const auto error = TypeError(call))
        return *error;
    if (scene.fileName.isEmpty())
        return Error{QStringLiteral("The scene has no name yet: use file -rename first.")};
    if (const auto error = Write(scene.fileName, SceneText(scene)))
        return *error;
    scene.isModified = false;
    Engine::Current().events.Fire(QStringLiteral("SceneSaved"));
    return scene.fileName;
}

Outcome ExportScene(const Call& call)
{
    if (const auto error = TypeError(call))
        return *error;
    QVector<Node*> nodes;
    if (call.Has("exportSelected")) {
        FoundItems selected;
        selected.items = Scene::Current().Selection();
        nodes = selected.Nodes();
        if (nodes.isEmpty())
            return NothingSelected();
    }
    QString path = Expanded(call.ObjectText());
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".ma");
    if (const auto error = Write(path, SceneText(Scene::Current(), nodes)))
        return *error;
    return path;
}

Outcome RenameScene(const Call& call)
{
    QString path = Expanded(call.Text("rename"));
    if (path.isEmpty() || path == QLatin1String("."))
        return Error{QStringLiteral("file: A scene needs a name.")};
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".ma");
    Scene::Current().fileName = path;
    return path;
}

Outcome QueryFile(const Call& call)
{
    const Scene& scene = Scene::Current();
    if (call.Has("exists"))
        return QFileInfo::exists(Expanded(call.Has("location") ? QString() : call.ObjectText()));
    if (call.Has("sceneName")) {
        if (!call.Has("shortName"))
            return scene.fileName;
        return QFileInfo(scene.fileName).fileName();
    }
    if (call.Has("modified") || call.Has("anyModified"))
        return scene.isModified;
    if (call.Has("type"))
        return StringList{TYPE};
    if (call.Has("location") || call.Has("expandName"))
        return call.GetObjects().isEmpty() ? scene.fileName : Expanded(call.ObjectText());
    if (call.Has("list"))
        return scene.fileName.isEmpty() ? StringList() : StringList{scene.fileName};
    if (call.Has("reference"))
        return StringList();
    if (call.Has("writable"))
        return QFileInfo(scene.fileName).isWritable();
    return Error{QStringLiteral("file: Say what to query.")};
}

Outcome File(Call& call)
{
    if (call.IsQuery())
        return QueryFile(call);
    if (call.Has("reference"))
        return Error{QStringLiteral("file: This host's scene has no references; use -import.")};
    if (call.Has("newFile"))
        return NewScene(call);
    const bool needsName = call.Has("open") || call.Has("import") || call.Has("exportAll")
        || call.Has("exportSelected");
    if (needsName && call.ObjectText().isEmpty())
        return Error{QStringLiteral("file: No file is named.")};
    if (call.Has("open"))
        return OpenScene(call);
    if (call.Has("import"))
        return ImportScene(call);
    if (call.Has("exportAll") || call.Has("exportSelected"))
        return ExportScene(call);
    Outcome outcome;
    if (call.Has("rename"))
        outcome = RenameScene(call);
    if (outcome.Ok() && call.Has("save"))
        return SaveScene(call);
    if (call.Has("modified") && !call.Has("rename"))
        Scene::Current().isModified = call.Bool("modified");
    return outcome;
}

/// What files of other hosts ask for at their beginning; there is nothing to load here.
Outcome Requires(Call&)
{
    return {};
}

Outcome FileInfo(Call& call)
{
    Scene& scene = Scene::Current();
    const QString key = call.ObjectText();
    if (call.Has("remove")) {
        scene.info.remove(call.Text("remove"));
        return {};
    }
    if (!call.IsQuery()) {
        scene.info.insert(key, call.ObjectText(1));
        return {};
    }
    if (!key.isEmpty())
        return scene.info.contains(key) ? StringList{scene.info.value(key)} : StringList();
    StringList pairs;
    for (auto entry = scene.info.begin(); entry != scene.info.end(); ++entry)
        pairs += QStringList{entry.key(), entry.value()};
    return pairs;
}

const CommandRow COMMANDS[] = {
    {"file", "any", "Q", "[String]",
        "anyModified/amf - q; exists/ex - q; expandName/exn - q; exportAll/ea - c;"
        "exportSelected/es - c; force/f - c; ignoreVersion/iv - c; import/i - c; list/l - q;"
        "channels/chn B c; constraints/con B c; constructionHistory/ch B c; defaultExtensions/de B "
        "c;"
        "expressions/exp B c; loadReferenceDepth/lrd str c; mergeNamespacesOnClash/mnc B c;"
        "preserveReferences/pr - c; renameAll/ra B c; shader/sh B c; uiConfiguration/uc B c;"
        "location/loc - q; modified/mf B cq; namespace/ns str c; newFile/new - c; open/o - c;"
        "options/op str c; prompt/pmt B c; reference/r - cq; rename/rn str c;"
        "returnNewNodes/rnn - c; save/s - c; sceneName/sn - q; shortName/shn - q; type/typ str cq;"
        "writable/w - q",
        File},
    {"fileInfo", "string[]", "Q", "[String] [String]", "remove/rm str c", FileInfo},
    {"requires", "none", "", "[String...]", "dataType/dataType str cm; nodeType/nodeType str cm",
        Requires},
};

} // namespace

/// Not as steps to undo: a scene that goes takes its steps with it.
void RegisterSceneFiles(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands

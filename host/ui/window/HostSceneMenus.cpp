// The main window's entries for scenes: what would be lost is asked for first.

#include "engine/Engine.h"
#include "scene/Scene.h"
#include "ui/window/HostWindow.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>

namespace host::ui {

namespace {

QString MelQuoted(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    text.replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString SceneFilter()
{
    return HostWindow::tr("Scenes (*.ma)") + QLatin1String(";;") + HostWindow::tr("All Files (*)");
}

} // namespace

bool HostWindow::RunFileCommand(const QString& arguments)
{
    const QString text = QStringLiteral("file ") + arguments;
    return !m_engine.Execute(Language::Mel, text, true).failed;
}

/// False when the person wants to keep the scene that is open.
bool HostWindow::MayDropScene()
{
    if (!scene::Scene::Current().isModified)
        return true;
    const auto answer = QMessageBox::question(this, tr("Save Changes"),
        tr("The scene has changes that are not saved. Save them?"),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && SaveScene());
}

QString HostWindow::ChooseScene(const QString& title)
{
    return QFileDialog::getOpenFileName(this, title, QString(), SceneFilter());
}

void HostWindow::NewScene()
{
    if (MayDropScene())
        RunFileCommand(QStringLiteral("-force -new"));
}

void HostWindow::OpenScene()
{
    if (!MayDropScene())
        return;
    const QString path = ChooseScene(tr("Open Scene"));
    if (!path.isEmpty())
        RunFileCommand(QStringLiteral("-force -open ") + MelQuoted(path));
}

void HostWindow::ImportScene()
{
    const QString path = ChooseScene(tr("Import"));
    if (!path.isEmpty())
        RunFileCommand(QStringLiteral("-import ") + MelQuoted(path));
}

bool HostWindow::SaveScene()
{
    if (scene::Scene::Current().fileName.isEmpty())
        return SaveSceneAs();
    return RunFileCommand(QStringLiteral("-save -type \"mayaAscii\""));
}

bool HostWindow::SaveSceneAs()
{
    QString path
        = QFileDialog::getSaveFileName(this, tr("Save Scene As"), QString(), SceneFilter());
    if (path.isEmpty())
        return false;
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".ma");
    return RunFileCommand(
        QStringLiteral("-rename %1 -save -type \"mayaAscii\"").arg(MelQuoted(path)));
}

void HostWindow::SaveSceneNow()
{
    SaveScene();
}

void HostWindow::SaveSceneUnderName()
{
    SaveSceneAs();
}

void HostWindow::FollowSceneName()
{
    for (const char* event : {"NewSceneOpened", "SceneOpened", "SceneSaved"}) {
        m_engine.events.Add(QLatin1String(event), [window = QPointer<HostWindow>(this)] {
            if (window)
                window->ShowSceneName();
        });
    }
}

void HostWindow::ShowSceneName()
{
    const QString path = scene::Scene::Current().fileName;
    const QString name = path.isEmpty() ? tr("untitled scene") : QFileInfo(path).fileName();
    setWindowTitle(tr("Tarnwick Host - %1").arg(name));
    if (auto* label = menuBar()->findChild<QLabel*>(QStringLiteral("sceneLabel"))) {
        label->setText(name);
        label->setToolTip(path);
    }
}

} // namespace host::ui

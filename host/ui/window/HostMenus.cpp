// The main window's menus: one row per entry, and what the entries do.

#include "engine/Engine.h"
#include "ui/model/InterfaceModel.h"
#include "ui/window/CommandLine.h"
#include "ui/window/CommandReference.h"
#include "ui/window/HostIcons.h"
#include "ui/window/HostWindow.h"
#include "ui/window/Viewport.h"
#include "ui/workspace/DockArea.h"
#include "ui/workspace/Workspace.h"
#include "ui/workspace/WorkspaceControls.h"
#include "ui/workspace/WorkspacePanel.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScreen>
#include <QStatusBar>
#include <QTextEdit>
#include <QUrl>

namespace host::ui {

struct HostWindow::MenuRow
{
    const char* name;
    const char* label;
    /// MEL that fills the menu when it opens; null for a menu that is filled here.
    const char* postMenuCommand;
    void (HostWindow::*update)();
};

struct HostWindow::ActionRow
{
    const char* menu;
    const char* name; ///< null: a separator
    const char* label;
    const char* tip;
    const char* key;
    void (HostWindow::*run)();
    /// For switches: option variable that keeps the state, and what it acts on.
    const char* optionVar;
    void (HostWindow::*toggle)(bool);
    const char* mel = nullptr; ///< for entries that are commands
};

using W = HostWindow;

// clang-format off
const HostWindow::MenuRow HostWindow::MENUS[] = {
    {"mainFileMenu",    "File",    nullptr, nullptr},
    {"mainEditMenu",    "Edit",    nullptr, &W::UpdateEditActions},
    {"mainCreateMenu",  "Create",  nullptr, nullptr},
    {"mainSelectMenu",  "Select",  nullptr, &W::UpdatePanelEntries},
    {"mainModifyMenu",  "Modify",  nullptr, &W::UpdateModifyActions},
    {"mainDisplayMenu", "Display", nullptr, nullptr},
    {"mainWindowMenu",  "Windows", "global string $gMainWindowMenu; buildViewMenu $gMainWindowMenu;", nullptr},
    {"mainHelpMenu",    "Help",    nullptr, nullptr},
};

const HostWindow::ActionRow HostWindow::ACTIONS[] = {
    {"mainFileMenu", "newScene", "New Scene", "Begin an empty scene", nullptr, &W::NewScene, nullptr, nullptr},
    {"mainFileMenu", "openScene", "Open Scene...", "Open a scene from a file", nullptr, &W::OpenScene, nullptr, nullptr},
    {"mainFileMenu", "saveScene", "Save Scene", "Save the scene under its name", nullptr, &W::SaveSceneNow, nullptr, nullptr},
    {"mainFileMenu", "saveSceneAs", "Save Scene As...", "Save the scene under another name", nullptr, &W::SaveSceneUnderName, nullptr, nullptr},
    {"mainFileMenu", "importScene", "Import...", "Add what is in a scene file", nullptr, &W::ImportScene, nullptr, nullptr},
    {"mainFileMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainFileMenu", "sourceScript",   "Source Script...",          "Run a MEL or Python file",                      nullptr,  &W::SourceScript,          nullptr, nullptr},
    {"mainFileMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainFileMenu", "savePreferences","Save Preferences",          "Write option variables, shelves and panels now", nullptr, &W::SavePreferences,       nullptr, nullptr},
    {"mainFileMenu", "openPreferencesFolder", "Open Preferences Folder", "Show the folder that holds the preferences", nullptr, &W::OpenPreferencesFolder, nullptr, nullptr},
    {"mainFileMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainFileMenu", "quitHost",       "Quit",                      "End the host",                                  "Ctrl+Q", &W::Quit,                  nullptr, nullptr},

    {"mainEditMenu", "undo",           "Undo",                      "Undo in the text that has the keyboard",        nullptr,  &W::RunEditSlot,           nullptr, nullptr},
    {"mainEditMenu", "redo",           "Redo",                      "Redo in the text that has the keyboard",        nullptr,  &W::RunEditSlot,           nullptr, nullptr},
    {"mainEditMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainEditMenu", "cut",            "Cut",                       "Cut the selected text",                         nullptr,  &W::RunEditSlot,           nullptr, nullptr},
    {"mainEditMenu", "copy",           "Copy",                      "Copy the selected text",                        nullptr,  &W::RunEditSlot,           nullptr, nullptr},
    {"mainEditMenu", "paste",          "Paste",                     "Paste into the text that has the keyboard",     nullptr,  &W::RunEditSlot,           nullptr, nullptr},
    {"mainEditMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainEditMenu", "undoCommand", "Undo Command", "Take back the last change of the scene", nullptr, nullptr, nullptr, nullptr, "undo"},
    {"mainEditMenu", "redoCommand", "Redo Command", "Make the change that was taken back again", nullptr, nullptr, nullptr, nullptr, "redo"},
    {"mainEditMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainEditMenu", "deleteObjects", "Delete Objects", "Delete the selected objects", nullptr, nullptr, nullptr, nullptr, "delete"},
    {"mainEditMenu", "duplicateObjects", "Duplicate Objects", "Copy the selected objects", nullptr, nullptr, nullptr, nullptr, "duplicate -rr"},
    {"mainEditMenu", "groupObjects", "Group Objects", "Put the selected objects below a new one", nullptr, nullptr, nullptr, nullptr, "group"},
    {"mainEditMenu", "ungroupObjects", "Ungroup Objects", "Take the selected groups apart", nullptr, nullptr, nullptr, nullptr, "ungroup"},
    {"mainEditMenu", "parentObjects", "Parent Objects", "Put the selected objects below the one that was selected last", nullptr, nullptr, nullptr, nullptr, "parent"},
    {"mainEditMenu", "unparentObjects", "Unparent Objects", "Take the selected objects out of the one above", nullptr, nullptr, nullptr, nullptr, "parent -world"},

    {"mainCreateMenu", "createCube", "Cube", "Add a cube", nullptr, nullptr, nullptr, nullptr, "polyCube"},
    {"mainCreateMenu", "createSphere", "Sphere", "Add a sphere", nullptr, nullptr, nullptr, nullptr, "polySphere"},
    {"mainCreateMenu", "createCylinder", "Cylinder", "Add a cylinder", nullptr, nullptr, nullptr, nullptr, "polyCylinder"},
    {"mainCreateMenu", "createCone", "Cone", "Add a cone", nullptr, nullptr, nullptr, nullptr, "polyCone"},
    {"mainCreateMenu", "createPlane", "Plane", "Add a plane", nullptr, nullptr, nullptr, nullptr, "polyPlane"},
    {"mainCreateMenu", "createTorus", "Torus", "Add a torus", nullptr, nullptr, nullptr, nullptr, "polyTorus"},
    {"mainCreateMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainCreateMenu", "createLocator", "Locator", "Add a point to hold on to", nullptr, nullptr, nullptr, nullptr, "spaceLocator"},
    {"mainCreateMenu", "createCamera", "Camera", "Add a camera", nullptr, nullptr, nullptr, nullptr, "camera"},
    {"mainCreateMenu", "createLight", "Point Light", "Add a point light", nullptr, nullptr, nullptr, nullptr, "pointLight"},
    {"mainCreateMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainCreateMenu", "createShelf",       "Shelf...",             "Add an empty shelf",                            nullptr,  &W::CreateShelf,           nullptr, nullptr},
    {"mainCreateMenu", "createShelfButton", "Shelf Button...",      "Add a button for a MEL command to the current shelf", nullptr, &W::CreateShelfButton, nullptr, nullptr},

    {"mainSelectMenu", "selectAllObjects", "All Objects", "Select all objects of the scene", nullptr, nullptr, nullptr, nullptr, "select -all"},
    {"mainSelectMenu", "selectNoObjects", "No Objects", "Select none of the objects", nullptr, nullptr, nullptr, nullptr, "select -clear"},
    {"mainSelectMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainSelectMenu", "selectAll",    "All Text",                  "Select all of the text that has the keyboard",  nullptr,  &W::RunEditSlot,           nullptr, nullptr},
    {"mainSelectMenu", "selectNone",   "No Text",                   "Drop the selection in the text that has the keyboard", nullptr, &W::SelectNothing,   nullptr, nullptr},
    {"mainSelectMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},

    {"mainModifyMenu", "freezeTransformations", "Freeze Transformations", "Make the place of the selected objects their origin", nullptr, nullptr, nullptr, nullptr, "makeIdentity -apply true"},
    {"mainModifyMenu", "centerPivot", "Center Pivot", "Put the pivots into the middle of the selected objects", nullptr, nullptr, nullptr, nullptr, "xform -centerPivots"},
    {"mainModifyMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainModifyMenu", "toggleFloating", "Float or Dock Panel",     "Move the current panel into a window of its own, or back", nullptr, &W::ToggleFloating, nullptr, nullptr},
    {"mainModifyMenu", "closePanel",   "Close Panel",               "Close the current panel",                       nullptr,  &W::ClosePanel,            nullptr, nullptr},
    {"mainModifyMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainModifyMenu", "clearHistory", "Clear Output History",      "Forget everything the host printed",            nullptr,  &W::ClearHistory,          nullptr, nullptr},

    {"mainDisplayMenu", "hideObjects", "Hide Objects", "Hide the selected objects", nullptr, nullptr, nullptr, nullptr, "hide"},
    {"mainDisplayMenu", "showLastHidden", "Show Last Hidden", "Show what was hidden last", nullptr, nullptr, nullptr, nullptr, "showHidden -lastHidden"},
    {"mainDisplayMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainDisplayMenu", "shelfVisible",       "Shelf",              "Show or hide the shelves",                      nullptr,  nullptr, "shelfVisible",       &W::ShowShelf},
    {"mainDisplayMenu", "commandLineVisible", "Command Line",       "Show or hide the command line",                 nullptr,  nullptr, "commandLineVisible", &W::ShowCommandLine},
    {"mainDisplayMenu", "helpLineVisible",    "Help Line",          "Show or hide the help line",                    nullptr,  nullptr, "helpLineVisible",    &W::ShowHelpLine},
    {"mainDisplayMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainDisplayMenu", "gridVisible",        "Grid",               "Show or hide the grid",                         nullptr,  nullptr, "viewportGridVisible", &W::ShowGrid},
    {"mainDisplayMenu", "axisVisible",        "View Axis",          "Show or hide the axes in the corner of the view", nullptr, nullptr, "viewportAxisVisible", &W::ShowAxis},
    {"mainDisplayMenu", "resetView",          "Reset View",         "Bring the camera back to its first place",      nullptr,  &W::ResetView,             nullptr, nullptr},
    {"mainDisplayMenu", "saveViewPicture",    "Save View as Picture...", "Write what the viewport shows into a file", nullptr, &W::SaveViewPicture,       nullptr, nullptr},
    {"mainDisplayMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainDisplayMenu", "fullScreen",         "Full Screen",        "Let the main window fill the screen",           nullptr,  nullptr, nullptr,              &W::ShowFullScreen},

    {"mainHelpMenu", "commandReference", "Command Reference",       "List the commands with their flags",            nullptr,  &W::ShowCommandReference,  nullptr, nullptr},
    {"mainHelpMenu", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mainHelpMenu", "aboutHost",      "About Tarnwick Host",       "What this program is",                          nullptr,  &W::ShowAbout,             nullptr, nullptr},
};
// clang-format on

namespace {

/// The names of the edit actions are those of the slots of Qt's text widgets.
bool RunTextSlot(QWidget* widget, const QString& slot)
{
    return widget && QMetaObject::invokeMethod(widget, slot.toLatin1().constData());
}

bool IsTextWidget(const QWidget* widget)
{
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QTextEdit*>(widget)
        || qobject_cast<const QPlainTextEdit*>(widget);
}

QString MelQuoted(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    text.replace(QLatin1Char('"'), QLatin1String("\\\""));
    text.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

void HostWindow::CreateMenus()
{
    Element* window = m_model.Find(objectName(), WindowKind);
    for (const MenuRow& row : MENUS) {
        QMenu* menu = menuBar()->addMenu(tr(row.label));
        Element* element
            = m_model.Create(MenuKind, QStringLiteral("menu"), QLatin1String(row.name), window);
        element->values.insert(QStringLiteral("label"), QString::fromLatin1(row.label));
        element->SetMenu(menu);
        if (row.postMenuCommand) {
            element->SetCallback(QStringLiteral("postMenuCommand"),
                {Language::Mel, QLatin1String(row.postMenuCommand), {}});
            connect(menu, &QMenu::aboutToShow, element,
                [element] { element->RunCallback(QStringLiteral("postMenuCommand")); });
        }
        if (row.update)
            connect(menu, &QMenu::aboutToShow, this, row.update);
        for (const ActionRow& action : ACTIONS) {
            if (qstrcmp(action.menu, row.name) == 0)
                CreateAction(action, element);
        }
    }
}

void HostWindow::CreateAction(const ActionRow& row, Element* menu)
{
    if (!row.name) {
        menu->GetMenu()->addSeparator();
        return;
    }
    QAction* action = menu->GetMenu()->addAction(tr(row.label));
    action->setStatusTip(tr(row.tip));
    if (row.key)
        action->setShortcut(QKeySequence(QLatin1String(row.key)));
    Element* element
        = m_model.Create(MenuItemKind, QStringLiteral("menuItem"), QLatin1String(row.name), menu);
    element->values.insert(QStringLiteral("label"), QString::fromLatin1(row.label));
    element->SetCallback(QStringLiteral("command"),
        {Language::Mel,
            row.mel ? QString::fromLatin1(row.mel)
                    : QStringLiteral("hostAction \"%1\"").arg(QLatin1String(row.name)),
            {}});
    element->SetAction(action);
    if (row.mel)
        connect(action, &QAction::triggered, this, [this, mel = QString::fromLatin1(row.mel)] {
            m_engine.Execute(Language::Mel, mel, true);
        });
    if (row.run)
        connect(action, &QAction::triggered, this, row.run);
    if (!row.toggle)
        return;
    action->setCheckable(true);
    action->setChecked(row.optionVar != nullptr);
    connect(action, &QAction::toggled, this, row.toggle);
    if (row.optionVar) {
        const QString variable = QLatin1String(row.optionVar);
        connect(action, &QAction::toggled, this,
            [this, variable](bool on) { m_engine.optionVars.Set(variable, on ? 1 : 0); });
    }
}

QAction* HostWindow::ActionNamed(const char* name) const
{
    return m_model.FindMenuItem(QLatin1String(name));
}

bool HostWindow::TriggerAction(const QString& name)
{
    for (const ActionRow& row : ACTIONS) {
        if (row.name && name == QLatin1String(row.name)) {
            ActionNamed(row.name)->trigger();
            return true;
        }
    }
    return false;
}

void HostWindow::ApplyStoredSwitches()
{
    for (const ActionRow& row : ACTIONS) {
        const Value stored
            = row.optionVar ? m_engine.optionVars.Get(QLatin1String(row.optionVar)) : Value();
        if (stored.IsNumber())
            ActionNamed(row.name)->setChecked(stored.ToBool());
    }
}

// File

void HostWindow::SourceScript()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Source Script"), QString(),
        tr("Scripts (*.mel *.py)") + QLatin1String(";;") + tr("All Files (*)"));
    if (path.isEmpty())
        return;
    const bool python = path.endsWith(QLatin1String(".py"), Qt::CaseInsensitive);
    const ScriptScope scope(python ? Language::Python : Language::Mel);
    m_engine.GetLanguage(python ? Language::Python : Language::Mel).RunFile(path);
}

void HostWindow::SavePreferences()
{
    Q_EMIT SavePreferencesRequested();
    statusBar()->showMessage(
        tr("Preferences are kept in %1").arg(m_engine.paths.PreferencesDirectory()));
}

void HostWindow::OpenPreferencesFolder()
{
    const QString folder = m_engine.paths.PreferencesDirectory();
    m_engine.output.Info(tr("Preferences folder: %1").arg(folder));
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        m_engine.output.Warning(tr("No program is set up to show folders."));
}

void HostWindow::Quit()
{
    close();
}

// Edit and select

void HostWindow::OnFocusChanged(QWidget*, QWidget* now)
{
    // Opening a menu may take the keyboard away from another window.
    if (IsTextWidget(now))
        m_lastText = now;
}

QWidget* HostWindow::TextWidget() const
{
    return m_lastText && m_lastText->isVisible() ? m_lastText.data() : nullptr;
}

void HostWindow::UpdateEditActions()
{
    const QWidget* text = TextWidget();
    for (const char* name : {"undo", "redo", "cut", "copy", "paste"})
        ActionNamed(name)->setEnabled(text != nullptr);
}

void HostWindow::RunEditSlot()
{
    if (const auto* action = qobject_cast<QAction*>(sender()))
        RunTextSlot(TextWidget(), action->objectName());
}

void HostWindow::SelectNothing()
{
    QWidget* text = TextWidget();
    if (auto* field = qobject_cast<QLineEdit*>(text))
        field->deselect();
    const auto drop = [](auto* edit) {
        QTextCursor cursor = edit->textCursor();
        cursor.clearSelection();
        edit->setTextCursor(cursor);
    };
    if (auto* edit = qobject_cast<QPlainTextEdit*>(text))
        drop(edit);
    if (auto* edit = qobject_cast<QTextEdit*>(text))
        drop(edit);
}

void HostWindow::UpdatePanelEntries()
{
    const bool hasText = TextWidget() != nullptr;
    for (const char* name : {"selectAll", "selectNone"})
        ActionNamed(name)->setEnabled(hasText);
    QMenu* menu = ActionNamed("selectAll")->associatedWidgets().isEmpty()
        ? nullptr
        : qobject_cast<QMenu*>(ActionNamed("selectAll")->associatedWidgets().first());
    qDeleteAll(m_panelEntries);
    m_panelEntries.clear();
    if (!menu)
        return;
    for (WorkspacePanel* panel : window()->findChildren<WorkspacePanel*>()) {
        if (!m_workspace->IsOpen(panel))
            continue;
        QAction* entry = menu->addAction(panel->GetIcon(), panel->GetLabel());
        connect(entry, &QAction::triggered, panel, [this, panel] { m_workspace->Raise(panel); });
        m_panelEntries += entry;
    }
}

// Create

void HostWindow::CreateShelf()
{
    const QString name = QInputDialog::getText(this, tr("New Shelf"), tr("Name of the new shelf:"));
    if (name.trimmed().isEmpty())
        return;
    m_engine.Execute(Language::Mel,
        QStringLiteral("{ global string $gShelfTopLevel; shelfLayout -parent $gShelfTopLevel %1; "
                       "saveAllShelves $gShelfTopLevel; }")
            .arg(MelQuoted(name.trimmed())),
        false);
}

void HostWindow::CreateShelfButton()
{
    const QString command
        = QInputDialog::getMultiLineText(this, tr("New Shelf Button"), tr("MEL command:"));
    if (command.trimmed().isEmpty())
        return;
    const QString label = QInputDialog::getText(
        this, tr("New Shelf Button"), tr("Label:"), QLineEdit::Normal, command.trimmed().left(12));
    if (label.isEmpty())
        return;
    m_engine.Execute(Language::Mel,
        QStringLiteral("scriptToShelf(%1, %2, 1)").arg(MelQuoted(label), MelQuoted(command)),
        false);
}

// Modify

QString HostWindow::FocusedPanel() const
{
    // The panel that has the keyboard, else the one in front of the viewport.
    for (const QWidget* widget = QApplication::focusWidget(); widget;
         widget = widget->parentWidget()) {
        if (m_controls->Contains(widget->objectName())
            && qobject_cast<const WorkspacePanel*>(widget))
            return widget->objectName();
    }
    const WorkspacePanel* front = m_workspace->GetArea(DockSide::Center)->CurrentPanel();
    return front && !front->IsFixed() ? front->objectName() : QString();
}

void HostWindow::UpdateModifyActions()
{
    const bool hasPanel = !FocusedPanel().isEmpty();
    for (const char* name : {"toggleFloating", "closePanel"})
        ActionNamed(name)->setEnabled(hasPanel);
}

void HostWindow::ToggleFloating()
{
    if (WorkspaceControl* control = m_controls->Find(FocusedPanel()))
        m_controls->SetFloating(*control, !m_controls->Place(*control).floating);
}

void HostWindow::ClosePanel()
{
    if (WorkspaceControl* control = m_controls->Find(FocusedPanel()))
        m_controls->Close(*control);
}

void HostWindow::ClearHistory()
{
    m_engine.history.Clear();
}

// Display

void HostWindow::ShowShelf(bool on)
{
    m_shelfArea->setVisible(on);
}

void HostWindow::ShowCommandLine(bool on)
{
    m_commandLine->setVisible(on);
}

void HostWindow::ShowHelpLine(bool on)
{
    statusBar()->setVisible(on);
}

void HostWindow::ShowGrid(bool on)
{
    m_viewport->SetGridVisible(on);
}

void HostWindow::ShowAxis(bool on)
{
    m_viewport->SetAxisVisible(on);
}

void HostWindow::ResetView()
{
    m_viewport->ResetView();
}

void HostWindow::SaveViewPicture()
{
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save View as Picture"), QStringLiteral("view.png"), tr("Pictures (*.png *.jpg)"));
    if (path.isEmpty())
        return;
    if (m_viewport->grab().save(path))
        m_engine.output.Info(tr("Wrote \"%1\".").arg(path));
    else
        m_engine.output.Error(tr("Cannot write \"%1\".").arg(path));
}

void HostWindow::ShowFullScreen(bool on)
{
    if (on) {
        m_windowedGeometry = geometry();
        setWindowState(windowState() | Qt::WindowFullScreen);
        // Where no window manager does it.
        setGeometry(screen()->geometry());
        return;
    }
    setWindowState(windowState() & ~Qt::WindowFullScreen);
    setGeometry(m_windowedGeometry);
}

// Help

void HostWindow::ShowCommandReference()
{
    auto* reference = findChild<CommandReference*>();
    if (!reference)
        reference = new CommandReference(m_engine, this);
    reference->show();
    reference->raise();
    reference->activateWindow();
}

void HostWindow::ShowAbout()
{
    QMessageBox box(this);
    box.setWindowTitle(tr("About"));
    box.setIconPixmap(HostIcon(QStringLiteral("tarnwick")).pixmap(48));
    box.setText(tr("<b>Tarnwick Host</b>"));
    box.setInformativeText(
        tr("Stands in for a 3D host application of release %1: it loads the same plug-ins and runs "
           "the same scripts. It has no scene.")
            .arg(QLatin1String(RELEASE)));
    box.exec();
}

} // namespace host::ui

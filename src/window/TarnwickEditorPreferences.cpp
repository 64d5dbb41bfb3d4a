// The user's options in the editor window.

#include "editor/CodeEditorGroup.h"
#include "plugin/MayaUtil.h"
#include "settings/ColorSettings.h"
#include "settings/ExtraSettings.h"
#include "settings/Settings.h"
#include "views/SideBar.h"
#include "views/search/SearchView.h"
#include "window/PanelGroup.h"
#include "window/PreferencesDialog.h"
#include "window/TarnwickEditor.h"

#include <QAction>

void TarnwickEditor::ShowPreferencesDialog()
{
    auto* dialog = new PreferencesDialog(&m_keyBindings, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &PreferencesDialog::Applied, this, &TarnwickEditor::OnPreferencesApplied);
    dialog->open();
}

/// What shows or uses an option follows it at once.
void TarnwickEditor::OnPreferencesApplied()
{
    MayaUtil::UpdatePylintPythonPath();
    ApplyTheme();
    ApplyPreferences();
    UpdateOverrideScriptEditorButton();
    ShowBoundKeys();
    for (CodeEditorGroup* group : qAsConst(m_groups))
        group->UpdateParser();
    m_actions.revertModuleStateOnExecute->setChecked(Settings::pythonRevertModuleStateOnExecute);
    UpdateRecentFilesMenu();
    // Colors are asked for with each painting, also where nothing else has changed.
    for (QWidget* widget : findChildren<QWidget*>())
        widget->update();
    if (IsGuest())
        return;
    Settings::WriteUserConfig();
    ColorSettings::WriteUserConfig();
    ExtraSettings::WriteUserConfig();
    m_keyBindings.WriteUserKeyBindings();
}

void TarnwickEditor::ShowBoundKeys()
{
    for (CodeEditorGroup* group : qAsConst(m_groups))
        group->UpdateKeyBindings();
    m_outputPanel->UpdateKeyBindings();
    m_sideBar->UpdateKeyBindings(&m_keyBindings);
    UpdateActivityToolTips();
}

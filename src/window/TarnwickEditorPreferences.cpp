// The user's options in the editor window.

#include "settings/ColorSettings.h"
#include "window/PreferencesDialog.h"
#include "window/TarnwickEditor.h"

void TarnwickEditor::ShowPreferencesDialog()
{
    auto* dialog = new PreferencesDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &PreferencesDialog::Applied, this, &TarnwickEditor::OnPreferencesApplied);
    dialog->open();
}

void TarnwickEditor::OnPreferencesApplied()
{
    ApplyPreferences();
    if (!IsGuest())
        ColorSettings::WriteUserConfig();
}

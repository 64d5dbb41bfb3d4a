#include "settings/pages/PreferencesPage.h"

QString PreferencesPage::GetRestoreQuestion() const
{
    return tr("Set all options of this page back to their defaults?");
}

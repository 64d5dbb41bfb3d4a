// Several hosts on one preferences folder. The first one owns the tabs and the configuration; the
// others are guests, whose buffers the next session takes over.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "files/GuestTabs.h"
#include "files/InterruptedSave.h"
#include "files/SessionLock.h"
#include "plugin/Logger.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"
#include "window/TabDetails.h"
#include "window/TarnwickEditor.h"
#include "window/chrome/StatusBar.h"

#include <QFileInfo>

namespace {

const QString INTERRUPTED_SAVES = QStringLiteral("interruptedSaves");

void FinishInterruptedSaves(const QString& folder)
{
    InterruptedSave::SetFolder(
        folder.isEmpty() ? folder : QStringLiteral("%1/%2").arg(folder, INTERRUPTED_SAVES));
    const QStringList files = InterruptedSave::FinishAll();
    for (const QString& path : files) {
        Logger::Warning(TarnwickEditor::tr("The last session ended while it was saving %1. The "
                                           "file has now been saved to its end.")
                            .arg(path));
    }
}

} // namespace

bool TarnwickEditor::IsGuest() const
{
    return m_session && !m_session->IsOwner();
}

/// Before anything is restored.
void TarnwickEditor::StartSession()
{
    const QString folder = Settings::GetUserConfigDirectory();
    FinishInterruptedSaves(folder);
    m_session = std::make_unique<SessionLock>(folder);
    Settings::ownsUserConfig = m_session->IsOwner();
    if (!IsGuest())
        return;
    Settings::tabDetails.clear();
    Settings::tabBarScrolling.clear();
    Settings::activeTabViewIndex = 0;
    m_guestTabs = std::make_unique<GuestTabs>(folder);
    const QString owner
        = tr("Another session uses these preferences: %1.").arg(m_session->GetOtherOwner());
    const QString consequence = tr("This one changes neither its tabs nor its preferences; buffers "
                                   "come back at the next start.");
    Logger::Warning(owner);
    Logger::Info(consequence);
    // Nobody can tell from here whether it still runs.
    if (m_session->IsOwnerElsewhere())
        Logger::Info(tr("If it has ended, delete %1").arg(m_session->GetPath()));
    m_statusBar->SetSession(tr("Second session"), QStringLiteral("%1\n%2").arg(owner, consequence));
}

/// The buffers of guests that have ended come behind the tabs that there are.
void TarnwickEditor::AdoptGuestTabs()
{
    if (m_session->GetPath().isEmpty())
        return;
    m_adoptedTabs = GuestTabs::Claim(QFileInfo(m_session->GetPath()).path());
    for (const auto& tabs : m_adoptedTabs) {
        for (const QString& record : tabs->Read()) {
            TabDetails details;
            if (!ParseTabDetails(record, details) || details.type != CodeEditorType::Buffer)
                continue;
            details.group = qMax(0, GetActiveCodeEditorGroupIndex());
            details.isCurrent = false;
            RestoreCodeEditor(details);
        }
    }
}

void TarnwickEditor::StoreConfiguration()
{
    const QStringList recentFiles = Settings::recentFiles;
    const bool isStored = IsGuest() ? StoreGuestTabs() : Settings::WriteUserConfig();
    if (!IsGuest()) {
        ColorSettings::WriteUserConfig();
        m_keyBindings.WriteUserKeyBindings();
        m_sideBar->SaveWorkspace();
    }
    // Others have opened files, too. Not now: this may be what an entry of the menu does.
    if (Settings::recentFiles != recentFiles)
        QMetaObject::invokeMethod(
            this, &TarnwickEditor::UpdateRecentFilesMenu, Qt::QueuedConnection);
    // Now they are this session's own.
    for (const auto& tabs : m_adoptedTabs) {
        if (isStored)
            tabs->Write({});
    }
    if (isStored)
        m_adoptedTabs.clear();
}

bool TarnwickEditor::StoreGuestTabs()
{
    QStringList records;
    for (const QString& record : qAsConst(Settings::tabDetails)) {
        TabDetails details;
        if (ParseTabDetails(record, details) && details.type == CodeEditorType::Buffer)
            records.append(record);
    }
    if (m_guestTabs->Write(records))
        return true;
    Logger::Error(QStringLiteral("Failed to write the tabs of this session"));
    return false;
}

/// What a guest leaves: buffers with a text, and its files among the recent ones of everybody.
void TarnwickEditor::EndGuestSession()
{
    if (!IsGuest())
        return;
    const QStringList paths = GetCodeEditorPaths();
    for (const QString& path : paths) {
        CodeEditorGroup* const group = GetCodeEditorGroupByPath(path);
        const int index = group->GetCodeEditorIndex(path);
        if (group->GetType(index) == CodeEditorType::File)
            Settings::AddRecentFile(path);
        else if (group->GetText(index).isEmpty() && !group->IsModified(index)) {
            DeleteFileByPath(path);
            CloseCodeEditor(group, index, false);
        }
    }
    Settings::MergeRecentFiles();
}

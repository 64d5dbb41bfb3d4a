// The open tabs: stored between sessions and opened again.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "settings/Settings.h"
#include "window/TabDetails.h"
#include "window/TarnwickEditor.h"

#include <QDir>
#include <QFileInfo>

namespace {

TabDetails DetailsOf(const CodeEditorGroup& group, int tab)
{
    const CodeEditorProperties properties = group.GetProperties(tab);
    const bool isBuffer = properties.type == CodeEditorType::Buffer;
    TabDetails details;
    details.group = group.GetId();
    details.type = properties.type;
    details.path = isBuffer ? QFileInfo(properties.filePath).fileName() : properties.filePath;
    details.isCurrent = tab == group.GetCurrentIndex();
    details.cursorPosition = group.GetCursorPosition(tab);
    details.scrollValue = group.GetVerticalScrollBarValue(tab);
    details.label = isBuffer ? properties.label : QString();
    return details;
}

} // namespace

void TarnwickEditor::UpdateCodeEditorGroupDetails()
{
    Settings::tabDetails.clear();
    Settings::tabBarScrolling.clear();
    for (const CodeEditorGroup* group : qAsConst(m_groups)) {
        for (int tab = 0; tab < group->GetCount(); ++tab)
            Settings::tabDetails.append(FormatTabDetails(DetailsOf(*group, tab)));
        Settings::tabBarScrolling.append(QString::number(group->GetTabBarScrollValue()));
    }
}

void TarnwickEditor::RestoreCodeEditors()
{
    for (CodeEditorGroup* group : qAsConst(m_groups))
        group->SetParsingEnabled(false);
    const QStringList records = Settings::tabDetails;
    for (const QString& record : records) {
        TabDetails details;
        if (ParseTabDetails(record, details))
            RestoreCodeEditor(details);
    }
    AdoptGuestTabs();
    for (int i = 0; i < m_groups.size(); ++i) {
        bool isNumber = false;
        const int scrollValue = Settings::tabBarScrolling.value(i).toInt(&isNumber);
        // Without one the current tab is in view.
        if (isNumber)
            m_groups[i]->SetTabBarScrollValue(scrollValue);
    }
    ActivateGroupWithEditors();
    RefreshCodeEditorGroups(false);
    for (CodeEditorGroup* group : qAsConst(m_groups))
        group->SetParsingEnabled(true);
}

void TarnwickEditor::RestoreCodeEditor(const TabDetails& details)
{
    CodeEditorGroup* const group = GetCodeEditorGroupByIndex(details.group);
    const bool isBuffer = details.type == CodeEditorType::Buffer;
    const QString path = isBuffer && QDir::isRelativePath(details.path)
        ? QStringLiteral("%1/%2").arg(Settings::GetInternalBufferDirectoryPath(), details.path)
        : details.path;
    // Listed twice by hand: opening it again would show the first one.
    if (CodeEditorExists(path))
        return;
    const int tab = CreateCodeEditor(details.type, path, details.label, group, -1);
    if (tab < 0)
        return;
    group->SetCursorPosition(tab, details.cursorPosition);
    group->SetVerticalScrollBarValue(tab, details.scrollValue);
    if (details.isCurrent)
        group->SetCurrentIndex(tab);
}

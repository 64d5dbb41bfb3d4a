#include "editor/CodeEditorGroupTabBar.h"

#include "settings/Settings.h"

#include <QMenu>
#include <QWheelEvent>

namespace {

constexpr double EIGHTHS_PER_DEGREE = 8.0;
constexpr int SMALLEST_TURN = 14; // degrees

} // namespace

/// An entry of a tab's context menu; one without a label is a separator.
struct CodeEditorGroupTabBar::MenuRow
{
    enum class Offered { Always, WithOthers, WithTabsToRight, ForFiles };

    const char* label;
    void (CodeEditorGroupTabBar::*signal)(int);
    Offered offered = Offered::Always;
};

// clang-format off
const CodeEditorGroupTabBar::MenuRow CodeEditorGroupTabBar::MENU_ROWS[] = {
    {QT_TR_NOOP("Close"),                   &CodeEditorGroupTabBar::CloseRequested},
    {QT_TR_NOOP("Close Other Tabs"),        &CodeEditorGroupTabBar::CloseOthersRequested,   MenuRow::Offered::WithOthers},
    {QT_TR_NOOP("Close Tabs to the Right"), &CodeEditorGroupTabBar::CloseToRightRequested,  MenuRow::Offered::WithTabsToRight},
    {nullptr,                               nullptr},
    {QT_TR_NOOP("Rename"),                  &CodeEditorGroupTabBar::RenameRequested},
    {nullptr,                               nullptr},
    {QT_TR_NOOP("Copy Path"),               &CodeEditorGroupTabBar::CopyPathRequested},
    {QT_TR_NOOP("Reveal in Folder"),        &CodeEditorGroupTabBar::ShowInFolderRequested},
    {QT_TR_NOOP("Reveal in Side Bar"),      &CodeEditorGroupTabBar::ShowInSideBarRequested, MenuRow::Offered::ForFiles},
};
// clang-format on

CodeEditorGroupTabBar::CodeEditorGroupTabBar(QWidget* parent)
    : CustomTabBar(parent)
{ }

void CodeEditorGroupTabBar::SetTabType(int index, CodeEditorType type)
{
    SetTabData(index, static_cast<int>(type));
}

CodeEditorType CodeEditorGroupTabBar::GetTabType(int index) const
{
    return static_cast<CodeEditorType>(GetTabData(index));
}

void CodeEditorGroupTabBar::SetTabLanguage(int index, CodeEditorLanguage language)
{
    SetTabIcon(index, GetLanguageIconName(language));
}

QString CodeEditorGroupTabBar::GetLanguageIconName(CodeEditorLanguage language)
{
    switch (language) {
    case CodeEditorLanguage::Mel: return QStringLiteral("lang_mel");
    case CodeEditorLanguage::Python: return QStringLiteral("lang_python");
    case CodeEditorLanguage::Text: break;
    }
    return QStringLiteral("lang_text");
}

bool CodeEditorGroupTabBar::IsOffered(const MenuRow& row, int index) const
{
    switch (row.offered) {
    case MenuRow::Offered::WithOthers: return GetCount() > 1;
    case MenuRow::Offered::WithTabsToRight: return index + 1 < GetCount();
    case MenuRow::Offered::ForFiles: return GetTabType(index) == CodeEditorType::File;
    case MenuRow::Offered::Always: break;
    }
    return true;
}

void CodeEditorGroupTabBar::ShowContextMenu(int index, const QPoint& point)
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const MenuRow& row : MENU_ROWS) {
        if (!row.label)
            menu->addSeparator();
        else if (IsOffered(row, index))
            connect(menu->addAction(tr(row.label)), &QAction::triggered, this,
                [this, index, signal = row.signal] { (this->*signal)(index); });
    }
    menu->popup(point);
}

void CodeEditorGroupTabBar::wheelEvent(QWheelEvent* event)
{
    event->accept();
    if (!Settings::mouseWheelChangesActiveTab)
        return;
    const int degrees = qRound(event->angleDelta().y() / EIGHTHS_PER_DEGREE);
    if (degrees > SMALLEST_TURN)
        SetCurrentIndex(GetCurrentIndex() - 1);
    else if (degrees < -SMALLEST_TURN)
        SetCurrentIndex(GetCurrentIndex() + 1);
}

#include "editor/CodeEditorGroupTabBar.h"

#include "settings/Settings.h"

#include <QWheelEvent>

namespace {

constexpr double EIGHTHS_PER_DEGREE = 8.0;
constexpr int SMALLEST_TURN = 14; // degrees

QString IconName(CodeEditorLanguage language)
{
    switch (language) {
    case CodeEditorLanguage::Mel: return QStringLiteral("lang_mel");
    case CodeEditorLanguage::Python: return QStringLiteral("lang_python");
    case CodeEditorLanguage::Text: break;
    }
    return QStringLiteral("lang_text");
}

} // namespace

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
    SetTabIcon(index, IconName(language));
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

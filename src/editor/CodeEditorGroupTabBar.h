#pragma once

#include "editor/CodeEditorProperties.h"
#include "window/chrome/CustomTabBar.h"

/// The tabs of one code editor group: what kind of script each tab holds, and the wheel. Owned by
/// the group.
class CodeEditorGroupTabBar : public CustomTabBar
{
    Q_OBJECT

public:
    explicit CodeEditorGroupTabBar(QWidget* parent);

    void SetTabType(int index, CodeEditorType type);
    CodeEditorType GetTabType(int index) const;
    void SetTabLanguage(int index, CodeEditorLanguage language);

protected:
    void wheelEvent(QWheelEvent* event) override;
};

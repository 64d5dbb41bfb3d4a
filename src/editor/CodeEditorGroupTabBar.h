#pragma once

#include "editor/CodeEditorProperties.h"
#include "window/chrome/CustomTabBar.h"

/// The tabs of one code editor group: what kind of script each tab holds, what its context menu
/// offers, and the wheel. Owned by the group.
class CodeEditorGroupTabBar : public CustomTabBar
{
    Q_OBJECT

public:
    explicit CodeEditorGroupTabBar(QWidget* parent);

    void SetTabType(int index, CodeEditorType type);
    CodeEditorType GetTabType(int index) const;
    void SetTabLanguage(int index, CodeEditorLanguage language);
    static QString GetLanguageIconName(CodeEditorLanguage language);
    void ShowContextMenu(int index, const QPoint& point) override;

Q_SIGNALS:
    void CloseOthersRequested(int index);
    void CloseToRightRequested(int index);
    void CopyPathRequested(int index);
    void ShowInFolderRequested(int index);
    void ShowInSideBarRequested(int index);

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    struct MenuRow;
    static const MenuRow MENU_ROWS[];

    bool IsOffered(const MenuRow& row, int index) const;
};

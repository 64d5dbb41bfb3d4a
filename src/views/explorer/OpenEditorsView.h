#pragma once

#include "editor/CodeEditorProperties.h"
#include "views/SubView.h"
#include "window/chrome/TabDragData.h"

#include <QVector>

class FlatButton;
class KeyBindings;
class QTreeWidgetItem;
class SideBarTree;

/// The section that lists what is open, group by group in tab order. The window tells it what there
/// is; it answers by signals. Rows are changed one by one, so that the place under the pointer and
/// the keyboard's stay.
class OpenEditorsView : public SubView
{
    Q_OBJECT

public:
    struct Editor
    {
        int group = 0; ///< from 0
        CodeEditorProperties properties;
        bool modified = false;
    };

    explicit OpenEditorsView(QWidget* parent);

    /// All open editors, by group and then by tab.
    void SetEditors(const QVector<Editor>& editors);
    /// Marks the row of the active editor; none for an empty path.
    void SelectEditor(const QString& path);
    /// Selects the row of that path and moves the focus to it.
    void Reveal(const QString& path);
    int GetNaturalHeight() const override;
    void UpdateKeyBindings(const KeyBindings* keyBindings);

Q_SIGNALS:
    void ActivateRequested(const QString& path);
    void CloseRequested(const QString& path);
    /// For the menu of the editor's tab.
    void MenuRequested(const QString& path, const QPoint& globalPoint);
    void NewRequested();
    void SaveAllRequested();
    void CloseAllRequested();

protected:
    void Refresh() override;

private:
    struct Row;

    QVector<Row> WantedRows() const;
    void ApplyRow(QTreeWidgetItem* item, const Row& row);
    void UpdateNote();
    void ShowSelection();
    QTreeWidgetItem* ItemOf(const QString& path) const;
    void OnActivated(QTreeWidgetItem* item);
    void ShowContextMenu(const QPoint& point);
    void CreateTools();
    DraggedTab TabOf(const QString& path) const;

    struct Tool;
    static const Tool TOOLS[];

    FlatButton* m_newButton = nullptr;
    FlatButton* m_saveAllButton = nullptr;
    FlatButton* m_closeAllButton = nullptr;
    SideBarTree* m_tree;
    QVector<Editor> m_editors;
    QString m_activePath;
};

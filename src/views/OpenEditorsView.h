#pragma once

#include "editor/CodeEditorProperties.h"
#include "views/SubView.h"

#include <QVector>

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

Q_SIGNALS:
    void ActivateRequested(const QString& path);
    void CloseRequested(const QString& path);

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

    SideBarTree* m_tree;
    QVector<Editor> m_editors;
    QString m_activePath;
};

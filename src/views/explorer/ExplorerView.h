#pragma once

#include "views/explorer/SectionHeights.h"

#include <QHash>
#include <QWidget>

class GrooveSplitter;
class OpenEditorsView;
class OutlineView;
class SubView;
class WorkspaceView;

/// The side bar's first page: sections below each other that share its height. Owned by the side
/// bar. What the user drags is kept as the ratio of the sections that take what is left.
class ExplorerView : public QWidget
{
    Q_OBJECT

public:
    explicit ExplorerView(QWidget* parent);

    OpenEditorsView* GetOpenEditors() const { return m_openEditors; }
    WorkspaceView* GetWorkspace() const { return m_workspace; }
    OutlineView* GetOutline() const { return m_outline; }

    /// Puts the sizes into the settings.
    void SaveState();
    /// Shows and hides the sections as the settings have it.
    void UpdateVisibility();

Q_SIGNALS:
    void HideRequested();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void AddSection(SubView* section, double weight);
    QVector<SubView*> ShownSections() const;
    void RestoreWeights();
    void UpdateHeights();
    void UpdateHandles();
    void OnSplitterMoved();
    void OnStep(const SubView* section, int step);
    void ShowSectionMenu(SubView& section, const QPoint& globalPoint);

    GrooveSplitter* m_splitter = nullptr;
    OpenEditorsView* m_openEditors = nullptr;
    WorkspaceView* m_workspace = nullptr;
    OutlineView* m_outline = nullptr;
    QVector<SubView*> m_sections;
    QHash<const SubView*, double> m_weights;
    QHash<const SubView*, int> m_dragged; ///< height that the user wants of a natural section
};

#pragma once

#include <QWidget>

class FlatButton;
class QMenu;
class SubViewHeader;

/// A section of the side bar: a header that expands and collapses the content below it. The state
/// is an option of the settings, changed at once. Owned by the explorer, which gives it its height.
/// A section that cannot be seen does no work: it remembers that it is stale and refreshes when it
/// is shown.
class SubView : public QWidget
{
    Q_OBJECT

public:
    /// `expanded` is the member of Settings that keeps the state; it outlives the view.
    SubView(const QString& title, bool* expanded, QWidget* parent);
    ~SubView() override;

    SubViewHeader* GetHeader() const { return m_header; }
    bool IsExpanded() const { return *m_expanded; }
    void SetExpanded(bool expanded);
    /// The height of everything in the content, in pixels; 0 for content that takes what it gets.
    virtual int GetNaturalHeight() const { return 0; }
    /// Focus to the content's main widget, or to the header when collapsed.
    void FocusContent(Qt::FocusReason reason);
    /// What the section's context menu offers before what all of them do.
    virtual void AddMenuEntries(QMenu&) { }

Q_SIGNALS:
    void ExpandedChanged();
    void NaturalHeightChanged();
    void HeaderMenuRequested(const QPoint& globalPoint);

protected:
    void SetContent(QWidget* content);
    /// A page that holds the section's main widget at the distances that all sections keep.
    QWidget* CreatePage(QWidget* main);
    /// What a page is higher than its main widget, in pixels.
    static int PageMargins();
    FlatButton* AddTool(const QString& icon, const QString& label, const QString& name);
    /// Refreshes now, or when the content is seen again.
    void MarkStale();
    virtual void Refresh() { }
    bool IsContentSeen() const;

    bool event(QEvent* event) override;

private:
    void RefreshIfSeen();
    void UpdateRevealed(const QWidget* focus);

    bool* m_expanded; ///< not owned
    SubViewHeader* m_header;
    QWidget* m_content = nullptr;
    QWidget* m_lastTool = nullptr;
    bool m_hovered = false;
    bool m_stale = false;
};

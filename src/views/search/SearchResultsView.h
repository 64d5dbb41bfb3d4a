#pragma once

#include "search/SearchResult.h"

#include <QTreeView>
#include <QVector>

class SearchResultsModel;

/// The hits of a search as a tree: files with the number of their hits, below them the lines with
/// the hit marked. Owned by the search view. While it has the focus, plain keys belong to it and
/// not to the host's shortcuts.
class SearchResultsView : public QTreeView
{
    Q_OBJECT

public:
    explicit SearchResultsView(QWidget* parent);

    const SearchResultsModel* GetModel() const { return m_model; }

    /// Hits of one file, found below the folder.
    void AppendResults(
        const QString& folder, const QString& relative, const QVector<SearchResult>& results);
    /// Shows what was appended.
    void Flush();
    void UpdateResults(const QString& filePath, const QVector<SearchResult>& results);
    void Clear();

    /// Goes to the hit behind or before the current one, and round at the end.
    void GoToNext() { Go(1); }
    void GoToPrevious() { Go(-1); }
    /// Offers to replace single hits.
    void SetReplaceActive(bool active) { m_replaceActive = active; }
    /// Asks to have every listed hit replaced.
    void ReplaceAll(const QString& text);
    void DismissCurrent();
    void CopyCurrent() const;

Q_SIGNALS:
    /// To be shown in its editor; with `focus` to go on there.
    void HitChosen(const SearchResult& hit, bool focus);
    void FileChosen(const QString& filePath);
    /// The hits of each file are neighbours.
    void ReplaceRequested(const QVector<SearchResult>& hits, const QString& text);
    void ReplaceHitRequested(const SearchResult& hit);
    void CountChanged();
    void HideRequested();
    void ClearRequested();

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void Go(int step);
    QModelIndex Neighbour(const QModelIndex& index, int step) const;
    void Choose(const QModelIndex& index, bool focus);
    bool HandleArrowPress(const QModelIndex& index, const QPoint& point);
    void PaintFile(QPainter& painter, const QRect& row, const QModelIndex& index) const;
    void PaintHit(QPainter& painter, const QRect& row, const QModelIndex& index) const;
    QString ToolTipOf(const QModelIndex& index) const;

    SearchResultsModel* m_model;
    QPersistentModelIndex m_pressed;
    bool m_focusByKey = false;
    bool m_replaceActive = false;
};

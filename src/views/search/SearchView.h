#pragma once

#include "editor/SearchHistory.h"
#include "search/SearchResult.h"

#include <QStringList>
#include <QVector>
#include <QWidget>

class ElidedLabel;
class EmptyPage;
class FlatButton;
class KeyBindings;
class QLabel;
class QStackedLayout;
class SearchResultsView;
class ToolLineEdit;

/// How a search ended.
struct SearchOutcome
{
    int files = 0; ///< that were searched
    bool isCancelled = false;
    bool hasTooMany = false; ///< it ended because there were too many hits
    bool hasFolders = true; ///< there was more to search than the buffers
    QStringList unreadableFolders;
    QStringList givenUpFiles; ///< in which matching took too many steps
};

/// The side bar's page that finds a text across files and replaces it there. Only collects what is
/// wanted and shows what was found: the window searches. Owned by the side bar.
class SearchView : public QWidget
{
    Q_OBJECT

public:
    explicit SearchView(QWidget* parent);

    /// The buttons that stand in the row of the page's title.
    QWidget* GetTitleTools() const { return m_titleTools; }
    const SearchResultsView* GetResults() const { return m_results; }
    void UpdateKeyBindings(const KeyBindings* keyBindings);

    // What is wanted
    void SetSearchText(const QString& text);
    /// Text taken from a document, which is meant as it stands also while expressions are used.
    void SeedSearchText(const QString& text);
    QString GetSearchText() const;
    void SetReplaceText(const QString& text);
    void SetIncludeText(const QString& text);
    void SetExcludeText(const QString& text);
    void SelectAllSearchText();
    void FocusSearch(Qt::FocusReason reason);
    void FocusReplace(Qt::FocusReason reason);
    void ToggleMatchCase();
    void ToggleMatchWord();
    void ToggleRegularExpression();
    void ToggleReplace();
    void SetReplaceVisible(bool visible);
    bool IsReplaceActive() const { return m_replaceVisible; }
    void ShowFilters() { SetFiltersVisible(true); }
    void HideFilters() { SetFiltersVisible(false); }
    void SetFiltersVisible(bool visible);
    void ToggleFilters();

    /// Searches again; without a text nothing is searched and nothing found.
    void Refresh();
    /// Empties fields and results.
    void Clear();
    void ReplaceAll();

    // What was found
    void ClearResults();
    void AppendResults(
        const QString& folder, const QString& relative, const QVector<SearchResult>& results);
    void UpdateResults(const QString& filePath, const QVector<SearchResult>& results);
    bool HasResults(const QString& filePath) const;
    void NextResult();
    void PreviousResult();
    void CollapseAll();
    /// While a search lasts: shows what came up to now.
    void ShowProgress(int files);
    void FinishSearch(const SearchOutcome& outcome);
    /// A sentence about the last thing done, until the next search.
    void ShowNote(const QString& note);

Q_SIGNALS:
    void SearchRequested(const QString& text, const QStringList& include,
        const QStringList& exclude, bool matchCase, bool matchWord, bool useRegularExpression);
    void HitChosen(const SearchResult& hit, bool focus);
    void FileChosen(const QString& filePath);
    /// To replace these hits, which are those of whole lines of the results.
    void ReplaceRequested(const QVector<SearchResult>& hits, const QString& text);
    /// To replace this one where it can be seen.
    void ReplaceHitRequested(const SearchResult& hit);
    void HitCountChanged(int count);
    /// The page came into view; while it was not, nobody told it of changes.
    void Shown();
    void HideRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void showEvent(QShowEvent* event) override;

private Q_SLOTS:
    void OnSearchTextChanged();
    void OnToggled();
    void UpdateReplaceText();
    void UpdateResultsState();

private:
    struct ButtonRow;
    struct FieldRow;
    static const ButtonRow BUTTONS[];
    static const FieldRow FIELDS[];

    /// What a search depends on besides where it looks.
    struct Wanted
    {
        QString text;
        bool matchCase = false;
        bool matchWord = false;
        bool useRegularExpression = false;
        bool operator==(const Wanted& other) const;
    };

    void CreateWidgets();
    void CreateLayout();
    void CreateConnections();
    void UpdateLook();
    Wanted GetWanted() const;
    bool CheckExpression();
    void UpdateEmptyPage();
    void WalkHistory(bool older);

    QWidget* m_titleTools = nullptr;
    FlatButton* m_refreshButton = nullptr;
    FlatButton* m_collapseAllButton = nullptr;
    FlatButton* m_clearButton = nullptr;
    FlatButton* m_toggleReplaceButton = nullptr;
    FlatButton* m_matchCaseButton = nullptr;
    FlatButton* m_matchWordButton = nullptr;
    FlatButton* m_regularExpressionButton = nullptr;
    FlatButton* m_replaceAllButton = nullptr;
    FlatButton* m_detailsButton = nullptr;
    ToolLineEdit* m_searchField = nullptr;
    ToolLineEdit* m_replaceField = nullptr;
    ToolLineEdit* m_includeField = nullptr;
    ToolLineEdit* m_excludeField = nullptr;
    ElidedLabel* m_status = nullptr;
    QLabel* m_message = nullptr;
    SearchResultsView* m_results = nullptr;
    EmptyPage* m_emptyPage = nullptr;
    QStackedLayout* m_pages = nullptr;
    SearchHistory m_history;
    Wanted m_searched; ///< what the results are of; no text: nothing was searched
    SearchOutcome m_outcome;
    QString m_note;
    bool m_isSearching = false;
    bool m_replaceVisible = false;
};

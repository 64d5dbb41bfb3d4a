#pragma once

#include "editor/SearchHistory.h"
#include "window/chrome/OverlayFrame.h"

class FlatButton;
class KeyBindings;
class QLabel;
class QRegularExpression;
class QTimer;
class ToolLineEdit;

/// The bar that searches one text: what is sought and how, the way from match to match, and
/// optionally what replaces it. Knows nothing of the text: it tells its owner what is wanted and is
/// told how much was found. Owned by the widget it floats over, which places it.
class FindReplaceWidget : public OverlayFrame
{
    Q_OBJECT

public:
    /// Without `replaceAvailable` the bar only finds.
    FindReplaceWidget(bool replaceAvailable, QWidget* parent);

    /// Asks the owner to show the bar, with or without the replace row.
    void Show(bool replace) { Q_EMIT ShowRequested(replace); }
    /// Hides the bar and tells so; nothing when it is hidden.
    void Close();
    void FindNext();
    void FindPrevious();
    void Replace();
    void ReplaceAll();

    /// An unchanged text is announced again.
    void SetSearchText(const QString& text);
    /// Text taken from a document, which is meant as it stands also while expressions are used.
    void SeedSearchText(const QString& text);
    QString GetSearchText() const;
    bool HasSearchText() const;
    /// Both select the field's text.
    void FocusSearchText();
    void FocusReplaceText();

    void SetReplaceVisible(bool visible);
    bool IsReplaceVisible() const { return m_replaceVisible; }
    void SetReplaceEnabled(bool enabled);
    /// Checks the tool; with `announce` also tells that the search has changed.
    void SetFindInSelectionEnabled(bool enabled, bool announce);
    bool IsFindInSelection() const;

    /// How many matches there are and which of them is selected, from 1. Below 1 the last number
    /// shown stays.
    void SetResults(int current, int total);
    /// A sentence below the fields about how the search went; empty takes it away.
    void SetMessage(const QString& message);
    /// A sentence about what was done, until the next thing is done.
    void ShowNotice(const QString& notice);
    /// The width of what the bar floats over, in pixels; the bar adapts its own.
    void SetParentWidth(int width);
    void UpdateKeyBindings(const KeyBindings* keyBindings);

Q_SIGNALS:
    /// The expression has no pattern when nothing is to be found, also when what was typed is no
    /// expression. `incremental`: move to a match while typing. `retakeRegion`: only what is
    /// selected now is to be searched from here on.
    void SearchChanged(const QRegularExpression& expression, bool findInSelection, bool incremental,
        bool retakeRegion);
    void ReplaceRequested(const QString& text);
    void ReplaceAllRequested(const QString& text);
    void FindNextRequested();
    void FindPreviousRequested();
    void ShowRequested(bool replace);
    void Closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private Q_SLOTS:
    void OnSearchParametersChanged();
    void OnFindInSelectionToggled();
    void OnReturnPressed(bool backwards);

private:
    struct ButtonRow;
    static const ButtonRow BUTTONS[];

    void CreateWidgets();
    void CreateLayout();
    void UpdateLook();
    void CreateConnections();
    void AnnounceSearch(bool incremental, bool retakeRegion);
    /// The keys that the bar takes before the field that has the focus.
    bool IsFieldKey(const QKeyEvent& event) const;
    bool HandleKey(const QKeyEvent& event);
    void SetFault(const QString& fault);
    void UpdateResultsLabel();
    void UpdateMessageLabel();
    void UpdateReplaceRow();
    void UpdateReplaceFieldWidth();
    void UpdateSize();

    FlatButton* m_toggleReplaceButton = nullptr;
    ToolLineEdit* m_searchLineEdit = nullptr;
    FlatButton* m_matchCaseButton = nullptr;
    FlatButton* m_matchWordButton = nullptr;
    FlatButton* m_regularExpressionButton = nullptr;
    QLabel* m_resultsLabel = nullptr;
    FlatButton* m_previousButton = nullptr;
    FlatButton* m_nextButton = nullptr;
    FlatButton* m_findInSelectionButton = nullptr;
    FlatButton* m_closeButton = nullptr;
    ToolLineEdit* m_replaceLineEdit = nullptr;
    FlatButton* m_replaceButton = nullptr;
    FlatButton* m_replaceAllButton = nullptr;
    QLabel* m_messageLabel = nullptr;
    SearchHistory m_history;
    QString m_fault; ///< of the expression
    QString m_message; ///< about how the search went
    QString m_notice; ///< about what was done
    bool m_replaceVisible = false;
    bool m_replaceEnabled;
    int m_current = 0; ///< the number shown, from 1
    int m_total = 0;
    int m_parentWidth = 0; ///< pixels; 0: not told yet
};

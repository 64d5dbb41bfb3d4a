#pragma once

#include "views/quickhelp/QuickHelpTopics.h"

#include <QVector>
#include <QWidget>

#include <functional>
#include <utility>

class EmptyPage;
class FlatButton;
class KeyBindings;
class QLabel;
class QLineEdit;
class QStackedLayout;
class QTimer;
class QuickHelpFlags;
class QuickHelpPage;

/// The side bar's page about one name: a command with its flags, to read and to put into the
/// script, a procedure or a name of Python. Owned by the side bar.
class QuickHelpView : public QWidget
{
    Q_OBJECT

public:
    using Script = QuickHelpTopics::Script;

    explicit QuickHelpView(QWidget* parent);

    /// Where the script comes from that names are looked up in.
    void SetScriptSource(std::function<Script()> source) { m_getScript = std::move(source); }
    void UpdateKeyBindings(const KeyBindings* keyBindings);

    /// Shows what the text names. Unknown names are told of only when they were asked for;
    /// otherwise the page stays as it is.
    void Show(const QString& text, bool isRequested);
    void FocusSearch(Qt::FocusReason reason);

Q_SIGNALS:
    /// A flag was chosen, by its long name.
    void FlagChosen(const QString& longName);
    void CommandReferenceRequested(const QString& command);
    /// `line` counts from 1; 0 means anywhere.
    void FileRequested(const QString& path, int line);
    void HideRequested();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CreateWidgets();
    void CreateLayout();
    void CreateConnections();
    void UpdateLook();
    void OnSearchChanged();
    void OnSearchRested();
    void OnReturnPressed();
    void FocusFlags();
    const QuickHelpTopic* GetTopic() const;
    void Remember(const QuickHelpTopic& topic, bool isRequested);
    void ShowTopic();
    void ShowNothing(const QString& name, bool isPython);
    void ShowFirstHint();
    void Go(int step);
    void Filter();
    void UpdateButtons();

    QLineEdit* m_search = nullptr;
    FlatButton* m_backButton = nullptr;
    FlatButton* m_forwardButton = nullptr;
    FlatButton* m_referenceButton = nullptr;
    QStackedLayout* m_pages = nullptr;
    EmptyPage* m_emptyPage = nullptr;
    QuickHelpPage* m_page = nullptr;
    QLabel* m_caption = nullptr;
    QuickHelpFlags* m_flags = nullptr;
    QLabel* m_count = nullptr;
    QTimer* m_restTimer = nullptr;
    std::function<Script()> m_getScript;
    QString m_shortcut; ///< of the quick help, as text
    QuickHelpTopics m_topics;
    QVector<QuickHelpTopic> m_history;
    int m_place = -1; ///< in the history
    bool m_isPassing = false; ///< the newest topic gives way to the next one
    bool m_isUnknown = false; ///< what was asked for last is shown to be unknown
    QString m_typedName; ///< looked up while it was typed, so it filters nothing
};

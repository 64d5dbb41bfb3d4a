#pragma once

#include "views/QuickHelpText.h"

#include <QHash>
#include <QWidget>

class FlatButton;
class QLabel;
class QLineEdit;
class QuickHelpFlags;

/// The side bar's page about one command: its flags, to read and to put into the script. Owned by
/// the side bar. The host is asked once per name and session.
class QuickHelpView : public QWidget
{
    Q_OBJECT

public:
    explicit QuickHelpView(QWidget* parent);

    /// Shows the command that the text names. Unknown names are told of only when they were asked
    /// for; otherwise the page stays as it is.
    void Show(const QString& text, bool isRequested);
    void FocusSearch(Qt::FocusReason reason);

Q_SIGNALS:
    /// A flag was chosen, by its long name.
    void FlagChosen(const QString& longName);
    void CommandReferenceRequested(const QString& command);

private:
    using Flags = QVector<QuickHelpText::Flag>;

    void CreateWidgets();
    void CreateLayout();
    void CreateConnections();
    void UpdateLook();
    void ShowTitle(const QString& text, const QString& kind, bool isCommand);
    Flags FlagsOf(const QString& command);
    void ShowName(const QString& name);
    void ShowNothing(const QString& name);
    void Go(int step);
    void Filter();
    void UpdateButtons();

    QLineEdit* m_search = nullptr;
    QLabel* m_icon = nullptr;
    QLabel* m_name = nullptr;
    QLabel* m_kind = nullptr;
    FlatButton* m_backButton = nullptr;
    FlatButton* m_forwardButton = nullptr;
    FlatButton* m_referenceButton = nullptr;
    QuickHelpFlags* m_flags = nullptr;
    QLabel* m_caption = nullptr;
    QLabel* m_count = nullptr;
    QHash<QString, Flags> m_known;
    QStringList m_history;
    int m_place = -1; ///< in the history
    bool m_isCommand = false; ///< what the title names
};

#pragma once

#include <QWidget>

class QMenu;
class StatusItem;

/// The line under the window: the numbers of errors and warnings and what the checkers say about
/// the cursor's line at the left; the overwrite mode, the cursor's place, an unusual encoding or
/// line end and the language at the right. Owned by the window, which tells it everything and
/// answers its presses.
class StatusBar : public QWidget
{
    Q_OBJECT

public:
    enum class Severity { None, Error, Warning, Info };

    explicit StatusBar(QWidget* parent);

    /// 0 text, 1 MEL, 2 Python. Shown only when the user wants the interpreter there.
    void SetInterpreter(int language);
    /// Line and column from 1 and the number of selected characters; 0, 0, 0 shows nothing.
    void SetCursorPosition(int line, int column, int selectionLength);
    /// How the file differs from the ordinary; nothing where it does not.
    void SetFormat(const QString& encoding, const QString& lineEnds);
    /// What is special about this session; nothing when the text is empty.
    void SetSession(const QString& text, const QString& explanation);
    void SetOverwrite(bool overwrite);
    void SetErrorAndWarningCount(int errors, int warnings);
    /// The message of the cursor's line; elided where it is too long.
    void SetInfo(const QString& text, Severity severity = Severity::None);
    /// Stands in place of the info until an empty text is given (tips of menu entries).
    void ShowTip(const QString& text);
    /// Follows the settings that say which fields are shown.
    void UpdateFields();
    /// Check marks for the fields and an entry that hides the bar; for the caller to delete.
    QMenu* CreateContextMenu();

    QSize sizeHint() const override;

Q_SIGNALS:
    void CountsPressed();
    void InfoPressed();
    void PositionPressed();
    void HideRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    StatusItem* CreateItem(const QString& name);
    void UpdateInfo();
    void UpdateLook();

    StatusItem* m_counts;
    StatusItem* m_info;
    StatusItem* m_overwrite;
    StatusItem* m_position;
    StatusItem* m_format;
    StatusItem* m_session;
    StatusItem* m_interpreter;
    QString m_infoText;
    Severity m_severity = Severity::None;
    QString m_tip;
};

#pragma once

#include <QWidget>

class QLabel;

/// The line under the window: what the active editor has to say about the cursor's line at the
/// left, the cursor's place and the editor's language at the right. Owned by the window, which
/// tells it everything.
class StatusBar : public QWidget
{
    Q_OBJECT

public:
    explicit StatusBar(QWidget* parent);

    /// 0 text, 1 MEL, 2 Python. Shown only when the user wants the interpreter there.
    void SetInterpreter(int language);
    /// Line and column from 1 and the number of selected characters; 0, 0, 0 shows nothing.
    void SetCursorPosition(int line, int column, int selectionLength);
    void SetOverwrite(bool overwrite);
    void SetInfo(const QString& text);
    /// Stands in place of the info until an empty text is given (tips of menu entries).
    void ShowTip(const QString& text);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    QLabel* CreateItem(const QString& name, const QString& accessibleName);
    void UpdateInfoText();
    void UpdateFonts();

    QLabel* m_info;
    QLabel* m_position;
    QLabel* m_overwrite;
    QLabel* m_interpreterIcon;
    QLabel* m_interpreter;
    QString m_infoText;
    QString m_tip;
};

#pragma once

#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>

class QDialog;

/// Answers modal dialogs in the order in which they come up, as soon as each is shown. One that
/// nobody expected is dismissed, so that a test fails instead of hanging.
class DialogAnswers : public QObject
{
public:
    struct Seen
    {
        QString title;
        QString text; ///< of a message box or an input dialog
        QStringList buttons; ///< of a message box
        QString defaultButton;
        bool isPlainText = false; ///< of a message box
    };

    DialogAnswers();

    /// The button of a message box, by its text.
    void Press(const QString& button);
    /// The same, but nobody is expected to ask when the text is empty.
    void Expect(const QString& button)
    {
        if (!button.isEmpty())
            Press(button);
    }
    /// Into an input dialog, which is accepted then.
    void Type(const QString& text);
    /// A file dialog: the name, and the name filter unless it is empty.
    void ChooseFile(const QString& path, const QString& filter = QString());
    void Dismiss();
    /// Anything else that is to happen while the dialog stands.
    void Do(const std::function<void(QDialog*)>& act) { m_answers.append(act); }

    /// What came up since the last call. Answers that nobody asked for are forgotten.
    QList<Seen> Take();
    /// The same as texts, "title: text [default button]".
    QStringList TakeQuestions();
    int CountWaiting() const { return m_answers.size(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Answer(QDialog* dialog);

    QList<std::function<void(QDialog*)>> m_answers;
    QList<Seen> m_seen;
};

#include "window/DialogAnswers.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

namespace {

QString Label(const QAbstractButton* button)
{
    return button ? button->text().remove('&') : QString();
}

DialogAnswers::Seen Describe(const QDialog* dialog)
{
    DialogAnswers::Seen seen;
    seen.title = dialog->windowTitle();
    if (const auto* box = qobject_cast<const QMessageBox*>(dialog)) {
        seen.text = box->text();
        for (const QAbstractButton* button : box->buttons())
            seen.buttons += Label(button);
        seen.isPlainText = box->textFormat() == Qt::PlainText;
        seen.defaultButton = Label(box->defaultButton());
    } else if (const auto* input = qobject_cast<const QInputDialog*>(dialog)) {
        seen.text = input->labelText();
    }
    return seen;
}

} // namespace

DialogAnswers::DialogAnswers()
{
    qApp->installEventFilter(this);
}

void DialogAnswers::Press(const QString& button)
{
    Do([button](QDialog* dialog) {
        for (QPushButton* candidate : dialog->findChildren<QPushButton*>()) {
            if (Label(candidate) == button)
                return candidate->click();
        }
        dialog->reject();
    });
}

void DialogAnswers::Type(const QString& text)
{
    Do([text](QDialog* dialog) {
        dialog->findChild<QLineEdit*>()->setText(text);
        dialog->accept();
    });
}

void DialogAnswers::ChooseFile(const QString& path, const QString& filter)
{
    Do([path, filter](QDialog* dialog) {
        auto* files = qobject_cast<QFileDialog*>(dialog);
        if (!files)
            return dialog->reject();
        if (!filter.isEmpty())
            files->selectNameFilter(filter);
        files->findChild<QLineEdit*>("fileNameEdit")->setText(path);
        QMetaObject::invokeMethod(files, "accept");
    });
}

void DialogAnswers::Dismiss()
{
    Do([](QDialog* dialog) { dialog->reject(); });
}

QList<DialogAnswers::Seen> DialogAnswers::Take()
{
    m_answers.clear();
    return std::exchange(m_seen, {});
}

QStringList DialogAnswers::TakeQuestions()
{
    QStringList questions;
    for (const Seen& seen : Take())
        questions += QString("%1: %2 [%3]").arg(seen.title, seen.text, seen.defaultButton)
            + (seen.isPlainText ? "" : " in rich text");
    return questions;
}

bool DialogAnswers::eventFilter(QObject* watched, QEvent* event)
{
    auto* dialog = qobject_cast<QDialog*>(watched);
    if (dialog && event->type() == QEvent::Show && dialog->isModal()) {
        // The dialog's own event loop has to run before it can end.
        QTimer::singleShot(0, dialog, [this, dialog] { Answer(dialog); });
    }
    return QObject::eventFilter(watched, event);
}

void DialogAnswers::Answer(QDialog* dialog)
{
    m_seen += Describe(dialog);
    if (m_answers.isEmpty())
        dialog->reject();
    else
        m_answers.takeFirst()(dialog);
}

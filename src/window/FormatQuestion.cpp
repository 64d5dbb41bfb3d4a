#include "window/FormatQuestion.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace {

QString Translate(const char* text)
{
    return QCoreApplication::translate("FormatQuestion", text);
}

QString TextOf(const FormatQuestion& question)
{
    const QString text = question.canKeep
        ? Translate("'%1' is stored as: %2.\n\nKeep its encoding and line ends, or write it as %3 "
                    "with line feeds?")
        : Translate("'%1' has characters that %2 cannot hold.\n\nWrite it as %3 with line feeds?");
    return text.arg(question.name, question.found, question.target) + question.warning;
}

} // namespace

FormatAnswer AskAboutFormat(QWidget* parent, const FormatQuestion& question, bool& checked)
{
    QMessageBox box(
        QMessageBox::Question, Translate("Save"), TextOf(question), QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    QPushButton* const keep
        = question.canKeep ? box.addButton(Translate("Keep"), QMessageBox::AcceptRole) : nullptr;
    QPushButton* const convert = box.addButton(
        Translate("Write as %1").arg(question.target), QMessageBox::DestructiveRole);
    QPushButton* const cancel = box.addButton(QMessageBox::Cancel);
    box.setDefaultButton(keep ? keep : cancel);
    if (!question.checkBox.isEmpty())
        box.setCheckBox(new QCheckBox(question.checkBox, &box));
    box.exec();
    checked = box.checkBox() && box.checkBox()->isChecked();
    if (keep && box.clickedButton() == keep)
        return FormatAnswer::Keep;
    return box.clickedButton() == convert ? FormatAnswer::Convert : FormatAnswer::Cancel;
}

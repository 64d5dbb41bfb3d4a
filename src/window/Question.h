#pragma once

#include <QMessageBox>

/// Asks the user, with the window that asks as parent. Names of files and tabs are shown as they
/// are: nothing in them is taken for markup.
QMessageBox::StandardButton AskQuestion(QWidget* parent, const QString& title, const QString& text,
    QMessageBox::StandardButtons buttons, QMessageBox::StandardButton defaultButton);

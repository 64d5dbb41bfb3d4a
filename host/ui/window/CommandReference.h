#pragma once

#include <QDialog>

class QLineEdit;
class QListWidget;
class QPlainTextEdit;

namespace host {
class Engine;
}

namespace host::ui {

/// A window that lists all commands and functions and shows the help of the chosen one.
class CommandReference : public QDialog
{
    Q_OBJECT
public:
    CommandReference(Engine& engine, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void UpdateNames();
    void ShowHelp();
    QString HelpFor(const QString& name);

    Engine& m_engine;
    QLineEdit* m_filter = nullptr;
    QListWidget* m_names = nullptr;
    QPlainTextEdit* m_text = nullptr;
};

} // namespace host::ui

#pragma once

#include "engine/OutputStream.h"

#include <QWidget>

#include <memory>

class QLineEdit;
class QPushButton;

namespace host {
class Engine;
}

namespace host::ui {

class HistoryLineEdit;

/// The line at the lower edge of the main window: a language switch, a field for one command, and a
/// field with the last thing the host said. Messages may come from any thread.
class CommandLine : public QWidget
{
    Q_OBJECT
public:
    CommandLine(Engine& engine, QWidget* parent);
    ~CommandLine() override;

    Language GetLanguage() const { return m_language; }
    void SetLanguage(Language language);

Q_SIGNALS:
    void ScriptEditorRequested();

private:
    struct LastMessage;

    void CreateFields();
    void OnReturnPressed();
    void ShowLastMessage();

    Engine& m_engine;
    Language m_language = Language::Mel;
    QPushButton* m_languageButton = nullptr;
    HistoryLineEdit* m_input = nullptr;
    QLineEdit* m_result = nullptr;
    std::shared_ptr<LastMessage> m_lastMessage;
    int m_displayId = 0;
};

} // namespace host::ui

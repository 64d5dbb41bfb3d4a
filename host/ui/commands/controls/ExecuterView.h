#pragma once

#include "engine/Script.h"

#include <QPlainTextEdit>

namespace host::ui {

/// A field whose text is a script: Ctrl+Return, or Enter on the number pad, runs the selection, or
/// the whole text when nothing is selected.
class ExecuterView : public QPlainTextEdit
{
    Q_OBJECT
public:
    explicit ExecuterView(QWidget* parent = nullptr);

    void SetLanguage(Language language) { m_language = language; }
    Language GetLanguage() const { return m_language; }
    /// Runs the selection, or everything. Everything is cleared afterwards when it ran well.
    void Execute();
    void ExecuteAll();
    /// What went wrong, empty when nothing did.
    QString Load(const QString& path);
    QString Save(const QString& path) const;
    QString GetFileName() const { return m_fileName; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool Run(const QString& text);

    Language m_language = Language::Mel;
    QString m_fileName;
};

} // namespace host::ui

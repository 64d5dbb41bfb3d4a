#include "e2e/EditorSession.h"

#include <QApplication>
#include <QtTest>

namespace {

const QString PLUGIN = QStringLiteral("TarnwickEditor2");

QList<QPlainTextEdit*> TextEditsOfClass(const char* className)
{
    QList<QPlainTextEdit*> found;
    for (QWidget* widget : QApplication::allWidgets()) {
        if (qstrcmp(widget->metaObject()->className(), className) == 0)
            found += qobject_cast<QPlainTextEdit*>(widget);
    }
    return found;
}

/// Walks through the tabs by keys, as their places are nobody else's business.
void ShowTabOf(QPlainTextEdit* editor, const QList<QPlainTextEdit*>& editors)
{
    editor->window()->activateWindow();
    for (int i = 0; i < editors.size() && !editor->isVisible(); ++i) {
        for (QPlainTextEdit* shown : editors) {
            if (!shown->isVisible())
                continue;
            shown->setFocus();
            QTest::keyClick(shown, Qt::Key_PageDown, Qt::ControlModifier);
            break;
        }
    }
}

} // namespace

EditorSession::EditorSession()
    : m_folder(std::make_unique<QTemporaryDir>())
    , m_host(host::RunState::Interactive, m_folder->path())
{
    m_host.Start();
}

EditorSession::EditorSession(const QString& preferencesFolder)
    : m_host(host::RunState::Interactive, preferencesFolder)
{
    m_host.Start();
}

bool EditorSession::LoadPlugin()
{
    const QString path = qEnvironmentVariable("TE2_BUILD_DIR") + "/plug-ins/" + PLUGIN + ".so";
    return m_host.GetEngine().plugins.Load(path).Ok();
}

bool EditorSession::OpenEditor()
{
    return LoadPlugin() && Mel("tarnwickEditor2")
        && QTest::qWaitFor([this] { return Console() && Console()->isVisible(); });
}

QList<QPlainTextEdit*> EditorSession::Editors() const
{
    return TextEditsOfClass("CodeEditor");
}

QPlainTextEdit* EditorSession::Console() const
{
    return TextEditsOfClass("OutputTextEdit").value(0);
}

QString EditorSession::ConsoleText() const
{
    const QPlainTextEdit* console = Console();
    return console ? console->toPlainText() : QString();
}

QPlainTextEdit* EditorSession::Focus(const QString& label)
{
    QPlainTextEdit* editor = nullptr;
    for (QPlainTextEdit* candidate : Editors()) {
        if (candidate->accessibleName().section(',', 0, 0) == label)
            editor = candidate;
    }
    if (!editor)
        return nullptr;
    ShowTabOf(editor, Editors());
    editor->window()->activateWindow();
    editor->setFocus();
    const bool focused
        = QTest::qWaitFor([editor] { return QApplication::focusWidget() == editor; });
    return focused ? editor : nullptr;
}

void EditorSession::Replace(QPlainTextEdit* editor, const QString& text)
{
    editor->selectAll();
    editor->insertPlainText(text);
}

void EditorSession::Execute(QPlainTextEdit* editor, const QString& script)
{
    Replace(editor, script);
    QTest::keyClick(editor, Qt::Key_Return, Qt::ControlModifier);
}

bool EditorSession::Mel(const QString& text)
{
    return !m_host.GetEngine().Execute(host::Language::Mel, text, false).failed;
}

bool EditorSession::Python(const QString& text)
{
    return !m_host.GetEngine().Execute(host::Language::Python, text, false).failed;
}

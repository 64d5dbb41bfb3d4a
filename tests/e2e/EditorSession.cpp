#include "e2e/EditorSession.h"

#include "e2e/EditorTabs.h"

#include <QApplication>
#include <QtTest>

namespace {

const QString PLUGIN = QStringLiteral("TarnwickEditor2");

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
    return EditorTabs::Editors();
}

QPlainTextEdit* EditorSession::Console() const
{
    return EditorTabs::TextEditsOfClass("OutputTextEdit").value(0);
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
        if (EditorTabs::LabelOf(candidate) == label)
            editor = candidate;
    }
    if (!editor)
        return nullptr;
    EditorTabs::GoTo(editor);
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

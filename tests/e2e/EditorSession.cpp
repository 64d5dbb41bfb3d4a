#include "e2e/EditorSession.h"

#include <QApplication>
#include <QTabBar>
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

} // namespace

EditorSession::EditorSession()
    : m_host(host::RunState::Interactive, m_folder.path())
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
    for (QPlainTextEdit* editor : Editors()) {
        if (editor->accessibleName().section(',', 0, 0) != label)
            continue;
        for (QTabBar* bar : editor->window()->findChildren<QTabBar*>()) {
            for (int i = 0; i < bar->count(); ++i) {
                if (bar->tabText(i) == label)
                    bar->setCurrentIndex(i);
            }
        }
        editor->window()->activateWindow();
        editor->setFocus();
        const bool focused
            = QTest::qWaitFor([editor] { return QApplication::focusWidget() == editor; });
        return focused ? editor : nullptr;
    }
    return nullptr;
}

void EditorSession::Execute(QPlainTextEdit* editor, const QString& script)
{
    editor->setPlainText(script);
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

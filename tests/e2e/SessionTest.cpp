#include "e2e/EditorSession.h"
#include "support/TestMain.h"

#include <QAction>
#include <QApplication>
#include <QProcess>
#include <QScrollBar>
#include <QtTest>

#include <csignal>

namespace {

const char* const FOLDER_VARIABLE = "TE2_SESSION_FOLDER";

QString ScriptPath(const QString& folder)
{
    return folder + "/script.py";
}

} // namespace

/// Another process's part of the test below: works for a while and is killed. Does nothing when it
/// is run by itself.
class SessionVictim : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void WorksAndIsKilled();
};

void SessionVictim::WorksAndIsKilled()
{
    const QString folder = qEnvironmentVariable(FOLDER_VARIABLE);
    if (folder.isEmpty())
        return;
    EditorSession session(folder);
    QVERIFY(session.OpenEditor());
    QVERIFY(session.Mel("tarnwickEditor2 -openFile \"" + ScriptPath(folder) + "\""));
    QPlainTextEdit* const file = session.Focus("script.py");
    QVERIFY(file);
    QTextCursor cursor = file->textCursor();
    cursor.setPosition(1200);
    file->setTextCursor(cursor);
    file->verticalScrollBar()->setValue(150);
    QAction* saveState = nullptr;
    for (QWidget* parent = file; parent; parent = parent->parentWidget()) {
        for (QAction* action : parent->actions()) {
            if (action->text() == "Save State")
                saveState = action;
        }
    }
    QVERIFY(saveState);
    saveState->trigger();
    QPlainTextEdit* const buffer = session.Focus("Python");
    QVERIFY(buffer);
    session.Execute(buffer, "kept = 'by executing'");
    EditorSession::Replace(buffer, "typed and never kept");
    std::raise(SIGKILL);
}

/// A session that ends with the host's sudden death, and the next start.
class SessionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void AKilledSessionComesBack();
};

void SessionTest::AKilledSessionComesBack()
{
    const QTemporaryDir folder;
    QFile script(ScriptPath(folder.path()));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write(QByteArray("line\n").repeated(400));
    script.close();

    QProcess victim;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(FOLDER_VARIABLE, folder.path());
    victim.setProcessEnvironment(environment);
    victim.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    victim.start(QCoreApplication::applicationFilePath(), {"SessionVictim"});
    constexpr int LONG = 60000; // ms
    QVERIFY(victim.waitForFinished(LONG));
    // Had it ended by itself, one of its checks would have failed.
    QVERIFY2(victim.exitStatus() == QProcess::CrashExit, victim.readAllStandardOutput());

    EditorSession session(folder.path());
    QVERIFY(session.OpenEditor());
    QMap<QString, QPlainTextEdit*> editors;
    for (QPlainTextEdit* editor : session.Editors())
        editors[editor->accessibleName()] = editor;
    QCOMPARE(editors.keys(), (QStringList{"MEL", "Python", "script.py"}));
    QCOMPARE(editors["Python"]->toPlainText(), "kept = 'by executing'");
    QPlainTextEdit* const file = editors["script.py"];
    QCOMPARE(file->blockCount(), 401);
    QVERIFY(file->isVisible());
    QTRY_COMPARE(QApplication::focusWidget(), file);
    QCOMPARE(file->textCursor().position(), 1200);
    QCOMPARE(file->verticalScrollBar()->value(), 150);
    QVERIFY(session.Mel("unloadPlugin TarnwickEditor2"));
}

TE2_TEST(SessionVictim)
TE2_TEST(SessionTest)
#include "SessionTest.moc"

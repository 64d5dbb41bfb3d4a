#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/FilesFixture.h"

#include <QDialog>
#include <QtTest>

/// Files that other programs change, and going back to what is on disk.
class FileChangesTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { QVERIFY(Finish()); }
    void FollowsOtherPrograms_data();
    void FollowsOtherPrograms();
    void OwnSavesAreNoChanges();
    void ReloadingKeepsThePlace();
    void ADeletedFileIsUnsaved();
    void FollowsReplacedFiles();
    void AFileThatComesBack_data();
    void AFileThatComesBack();
    void FindsWhatNobodyTold();
    void ChangesWhileAQuestionStands();
    void AFolderInItsPlace();
    void Reverts_data();
    void Reverts();

private:
    void Overwrite(const QByteArray& text) const;
};

/// As another program does it, until the watcher has told.
void FileChangesTest::Overwrite(const QByteArray& text) const
{
    QSignalSpy changed(Group(), &CodeEditorGroup::FileChanged);
    MakeFile("a.py", text);
    QTRY_VERIFY(changed.count() > 0);
}

void FileChangesTest::FollowsOtherPrograms_data()
{
    // "button": empty: nobody asks
    Columns<bool, bool, QString, QString>("modified", "checks", "button", "text");
    Row("unmodified", false, true, "", "theirs");
    Row("yes", true, true, "Yes", "theirs");
    Row("no", true, true, "No", "ours text\n");
    Row("switched off", false, false, "", "text\n");
}

void FileChangesTest::FollowsOtherPrograms()
{
    QFETCH(bool, modified);
    QFETCH(bool, checks);
    QFETCH(QString, button);
    CodeEditor* const editor = OpenFile("a.py");
    if (modified)
        editor->insertPlainText("ours ");
    Settings::checkForModifiedFiles = checks;
    Overwrite("theirs");
    m_dialogs.Expect(button);
    m_window->CheckForFileChanges();
    const QString question = "Reload: " + Path("a.py")
        + "\n\nThis file has been modified by another program.\nDo you want to reload it? [No]";
    QCOMPARE(m_dialogs.TakeQuestions().join('|'), button.isEmpty() ? "" : question);
    QTEST(editor->GetText(), "text");
    QCOMPARE(editor->IsModified(), button == "No");
    // Nobody is asked twice about one change.
    m_window->CheckForFileChanges();
    QCOMPARE(m_dialogs.Take().size(), 0);
}

void FileChangesTest::OwnSavesAreNoChanges()
{
    CodeEditor* const editor = OpenFile("a.py");
    QSignalSpy changed(Group(), &CodeEditorGroup::FileChanged);
    QVERIFY(m_window->SaveCodeEditor(Path("a.py"), "ours"));
    // A check before the watcher has told of it must not make it an outside change afterwards.
    m_window->CheckForFileChanges();
    QTRY_VERIFY(changed.count() > 0);
    editor->insertPlainText("new ");
    m_window->CheckForFileChanges();
    QCOMPARE(m_dialogs.Take().size(), 0);
    QCOMPARE(editor->GetText(), "new text\n");
    // What others write after it is one.
    Overwrite("theirs");
    m_dialogs.Press("Yes");
    m_window->CheckForFileChanges();
    QCOMPARE(editor->GetText(), "theirs");
}

void FileChangesTest::ReloadingKeepsThePlace()
{
    CodeEditor* const editor = OpenFile("a.py", QByteArray("line\n").repeated(500));
    editor->SetCursorPosition(1234, false, false);
    editor->SetVerticalScrollBarValue(180);
    Overwrite(QByteArray("LINE\n").repeated(600));
    // Giving the focus looks after it.
    m_frame->setFocus();
    editor->setFocus();
    QTRY_COMPARE(editor->GetLineCount(), 601);
    QCOMPARE(editor->GetCursorPosition(), 1234);
    QCOMPARE(editor->GetVerticalScrollBarValue(), 180);
}

void FileChangesTest::ADeletedFileIsUnsaved()
{
    CodeEditor* const editor = OpenFile("a.py");
    QFile::remove(Path("a.py"));
    QTRY_VERIFY(editor->IsModified());
    QCOMPARE(editor->GetText(), "text\n");
    m_window->Save();
    QCOMPARE(Content(Path("a.py")), "text\n");
    // It is watched again.
    Overwrite("theirs");
    m_window->CheckForFileChanges();
    QCOMPARE(editor->GetText(), "theirs");
}

/// As many editors save: the old file goes away under another name, then a new one is written.
void FileChangesTest::FollowsReplacedFiles()
{
    const CodeEditor* const editor = OpenFile("a.py");
    for (const QByteArray text : {"second", "third"}) {
        QSignalSpy changed(Group(), &CodeEditorGroup::FileChanged);
        QFile::remove(Path("a.py~"));
        QVERIFY(QFile::rename(Path("a.py"), Path("a.py~")));
        QTRY_VERIFY(changed.count() > 0);
        MakeFile("a.py", text);
        m_window->CheckForFileChanges();
        QCOMPARE(editor->GetText(), QString(text));
        QVERIFY(!editor->IsModified());
    }
    QCOMPARE(m_dialogs.Take().size(), 0);
}

void FileChangesTest::AFileThatComesBack_data()
{
    // "button": empty: nobody asks
    Columns<QByteArray, QString, bool>("content", "button", "modified");
    Row("as it was", QByteArray("text\n"), "", false);
    Row("with other line ends", QByteArray("text\r\n"), "", false);
    Row("another", QByteArray("theirs"), "No", true);
    Row("another, wanted", QByteArray("theirs"), "Yes", false);
}

void FileChangesTest::AFileThatComesBack()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, button);
    CodeEditor* const editor = OpenFile("a.py");
    QFile::remove(Path("a.py"));
    QTRY_VERIFY(editor->IsModified());
    MakeFile("a.py", content);
    m_dialogs.Expect(button);
    m_window->CheckForFileChanges();
    m_window->CheckForFileChanges();
    QCOMPARE(m_dialogs.Take().size(), button.isEmpty() ? 0 : 1);
    QTEST(editor->IsModified(), "modified");
    QCOMPARE(editor->GetText(), QString(button == "Yes" ? "theirs" : "text\n"));
    // It is watched again.
    Overwrite("later");
}

/// The watcher only speaks when the event loop runs, and from some folders not at all.
void FileChangesTest::FindsWhatNobodyTold()
{
    const CodeEditor* const first = OpenFile("a.py");
    CodeEditor* const second = OpenFile("b.py");
    CodeEditor* const third = OpenFile("c.py");
    third->insertPlainText("ours ");
    MakeFile("a.py", "TEXT\n");
    MakeFile("c.py", "theirs");
    QSignalSpy rewritten(second->document(), &QTextDocument::contentsChanged);
    MakeFile("b.py", "text\n");
    m_dialogs.Press("No");
    m_window->CheckForFileChanges();
    QCOMPARE(m_dialogs.Take().size(), 1);
    QCOMPARE(first->GetText(), "TEXT\n");
    QCOMPARE(rewritten.count(), 0);
    QCOMPARE(third->GetText(), "ours text\n");
}

void FileChangesTest::ChangesWhileAQuestionStands()
{
    CodeEditor* const editor = OpenFile("a.py");
    editor->insertPlainText("ours ");
    MakeFile("a.py", "theirs");
    const auto change = [this](QDialog* dialog) {
        MakeFile("a.py", "theirs again");
        m_window->CheckForFileChanges(); // does not ask on top of the question
        dialog->reject();
    };
    m_dialogs.Do(change);
    m_window->CheckForFileChanges();
    QCOMPARE(m_dialogs.Take().size(), 1);
    QCOMPARE(editor->GetText(), "ours text\n");
    m_dialogs.Press("Yes");
    m_window->CheckForFileChanges();
    QCOMPARE(m_dialogs.Take().size(), 1);
    QCOMPARE(editor->GetText(), "theirs again");
}

void FileChangesTest::AFolderInItsPlace()
{
    const CodeEditor* const editor = OpenFile("a.py");
    QFile::remove(Path("a.py"));
    QDir().mkdir(Path("a.py"));
    m_window->CheckForFileChanges();
    QTRY_VERIFY(editor->IsModified());
    QCOMPARE(editor->GetText(), "text\n");
    QCOMPARE(TakeErrors(), QStringList());
}

void FileChangesTest::Reverts_data()
{
    Columns<QString, bool, QString>("button", "readable", "text");
    Row("yes", "Yes", true, "text\n");
    Row("no", "No", true, "new text\n");
    Row("nothing to read", "Yes", false, "new text\n");
    Row("empty by now", "Yes", true, "");
}

void FileChangesTest::Reverts()
{
    QFETCH(QString, button);
    QFETCH(bool, readable);
    QFETCH(QString, text);
    CodeEditor* const editor = OpenFile("a.py");
    m_window->RevertFile(); // nothing to ask
    editor->insertPlainText("new ");
    if (!readable)
        QFile::remove(Path("a.py"));
    if (text.isEmpty())
        MakeFile("a.py", "");
    m_dialogs.Press(button);
    m_window->RevertFile();
    QCOMPARE(m_dialogs.TakeQuestions().join('|'),
        "Reload: Reloading this file will result in unsaved changes being lost.\n\n"
        "Continue? [No]");
    QCOMPARE(editor->GetText(), text);
    const bool modified = text.startsWith("new");
    QCOMPARE(editor->IsModified(), modified);
    QCOMPARE(editor->accessibleName(), QString(modified ? "a.py, modified" : "a.py"));
}

TE2_TEST(FileChangesTest)
#include "FileChangesTest.moc"

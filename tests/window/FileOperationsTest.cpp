#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/FilesFixture.h"

#include <QFileDialog>
#include <QtTest>

using Type = CodeEditorType;
using Language = CodeEditorLanguage;

/// New buffers; opening, saving and renaming, with every question answered.
class FileOperationsTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { QVERIFY(Finish()); }
    void NewAsksForTheLanguage_data();
    void NewAsksForTheLanguage();
    void OpensAFile_data();
    void OpensAFile();
    void OpensThroughTheDialog();
    void SavesABufferAs_data();
    void SavesABufferAs();
    void RefusesToSaveOverAnOpenFile();
    void AFailedSaveLosesNothing();
    void CompletesTheTextBeforeSaving_data();
    void CompletesTheTextBeforeSaving();
    void RenamesABuffer_data();
    void RenamesABuffer();
    void RenamesAFile_data();
    void RenamesAFile();
};

void FileOperationsTest::NewAsksForTheLanguage_data()
{
    // "name": of the backing file
    Columns<QString, QString, int, QString>("button", "label", "language", "name");
    Row("mel", "MEL", "MEL", int(Language::Mel), "melBuffer_\\w{6}\\.mel");
    Row("python", "Python", "Python", int(Language::Python), "pythonBuffer_\\w{6}\\.py");
    Row("none", "None", "Text", int(Language::Text), "textBuffer_\\w{6}\\.txt");
    Row("cancel", "Cancel", "", 0, "");
}

void FileOperationsTest::NewAsksForTheLanguage()
{
    QFETCH(QString, button);
    QFETCH(QString, label);
    QFETCH(QString, name);
    m_dialogs.Press(button);
    m_window->NewBuffer();
    const DialogAnswers::Seen seen = m_dialogs.Take().value(0);
    QCOMPARE(seen.title, "Source Type");
    QCOMPARE(seen.text, "Specify executor source language.");
    QCOMPARE(QSet<QString>(seen.buttons.begin(), seen.buttons.end()),
        (QSet<QString>{"MEL", "Python", "None", "Cancel"}));
    QCOMPARE(seen.defaultButton, "MEL");
    QCOMPARE(m_window->GetCodeEditorCount(), label.isEmpty() ? 0 : 1);
    if (label.isEmpty())
        return;
    QCOMPARE(Labels(), QStringList(label));
    QTEST(int(Group()->GetLanguage(0)), "language");
    QCOMPARE(Group()->GetType(0), Type::Buffer);
    // The box has taken the activation away; what has the focus in the window counts.
    QCOMPARE(m_frame->focusWidget(), m_window->GetActiveCodeEditor());
    const QFileInfo backing(Group()->GetFilePath(0));
    QVERIFY2(QRegularExpression("^" + name + "$").match(backing.fileName()).hasMatch(),
        qPrintable(backing.fileName()));
    QCOMPARE(backing.absolutePath(), Settings::GetInternalBufferDirectoryPath());
    QCOMPARE(BackingFiles(), QStringList(backing.fileName()));
}

void FileOperationsTest::OpensAFile_data()
{
    // "asked": in the folder
    Columns<QString, QString, int>("name", "asked", "language");
    Row("mel", "a.mel", "a.mel", int(Language::Mel));
    Row("python", "a b.PY", "a b.PY", int(Language::Python));
    Row("text", "a.pyi", "a.pyi", int(Language::Text));
    Row("path with steps back", "a.py", "./x/../a.py", int(Language::Python));
}

void FileOperationsTest::OpensAFile()
{
    QFETCH(QString, name);
    QFETCH(QString, asked);
    MakeFile(name, "one\r\ntwo\n");
    const QString path = m_folder->path() + "/" + asked;
    QVERIFY(m_window->GetCodeEditor(path, true));
    // Twice gives one tab.
    m_window->OpenFile(path, false);
    QCOMPARE(Labels(), QStringList(name));
    QCOMPARE(Group()->GetFilePath(0), Path(name));
    QTEST(int(Group()->GetLanguage(0)), "language");
    QCOMPARE(Group()->GetText(0), "one\ntwo\n");
    QVERIFY(!Group()->IsModified(0));
    QVERIFY(Settings::tabDetails.value(0).startsWith("0;1;" + Path(name) + ";1;"));
}

void FileOperationsTest::OpensThroughTheDialog()
{
    MakeFile("a.py");
    m_dialogs.ChooseFile(Path("a.py"));
    m_window->OpenFile();
    QCOMPARE(m_dialogs.Take().value(0).title, "Open File");
    QCOMPARE(Labels(), QStringList("a.py"));
    // It comes back where it was left.
    QString directory;
    QStringList filters;
    m_dialogs.Do([&](QDialog* dialog) {
        const auto* files = qobject_cast<QFileDialog*>(dialog);
        directory = files->directory().path();
        filters = files->nameFilters();
        dialog->reject();
    });
    m_window->OpenFile();
    QCOMPARE(directory, m_folder->path());
    QCOMPARE(filters,
        (QStringList{"Script Files(*.mel *.py *.pyw *.pyi)", "MEL (*.mel)",
            "Python (*.py *.pyw *.pyi)", "All Files(*.*)"}));
    QCOMPARE(m_window->GetCodeEditorCount(), 1);
    m_window->OpenFile(Path("missing.py"), false);
    QCOMPARE(m_window->GetCodeEditorCount(), 1);
    QCOMPARE(TakeErrors(), QStringList("Failed to open file: " + Path("missing.py")));
}

void FileOperationsTest::SavesABufferAs_data()
{
    // "saved": empty: not at all; "answer": about a file that is there
    Columns<QString, QString, QString, QString, int>(
        "filter", "typed", "saved", "answer", "language");
    const int mel = int(Language::Mel);
    const int python = int(Language::Python);
    const QString melFilter = "MEL (*.mel)";
    const QString pythonFilter = "Python (*.py *.pyw *.pyi)";
    Row("another suffix", melFilter, "script.txt", "script.txt.mel", "", mel);
    Row("upper case", melFilter, "script.MEL", "script.MEL", "", mel);
    Row("none", pythonFilter, "script", "script.py", "", python);
    Row("pyw", pythonFilter, "script.pyw", "script.pyw", "", python);
    Row("all files", "All Files(*.*)", "notes", "notes", "", int(Language::Text));
    Row("over another one", pythonFilter, "taken", "taken.py", "Yes", python);
    Row("not over another one", pythonFilter, "taken", "", "No", python);
    Row("cancel", "", "", "", "", python);
}

void FileOperationsTest::SavesABufferAs()
{
    QFETCH(QString, filter);
    QFETCH(QString, typed);
    QFETCH(QString, saved);
    QFETCH(QString, answer);
    MakeFile("taken.py", "old");
    const CodeEditor* const editor = NewBuffer("x = 1");
    if (typed.isEmpty())
        m_dialogs.Dismiss();
    else
        m_dialogs.ChooseFile(Path(typed), filter);
    m_dialogs.Expect(answer);
    m_window->Save();
    QCOMPARE(m_dialogs.Take().value(0).title, "Save File");
    QCOMPARE(Content(Path("taken.py")), QByteArray(saved == "taken.py" ? "x = 1" : "old"));
    QCOMPARE(editor->IsModified(), saved.isEmpty());
    QCOMPARE(BackingFiles().size(), saved.isEmpty() ? 1 : 0);
    QCOMPARE(Labels(), QStringList(saved.isEmpty() ? "Python" : saved));
    if (saved.isEmpty())
        return;
    QCOMPARE(Content(Path(saved)), "x = 1");
    QCOMPARE(Group()->GetFilePath(0), Path(saved));
    QCOMPARE(Group()->GetType(0), Type::File);
    QTEST(int(Group()->GetLanguage(0)), "language");
    QVERIFY(Settings::tabDetails.value(0).startsWith("0;1;" + Path(saved)));
}

void FileOperationsTest::RefusesToSaveOverAnOpenFile()
{
    OpenFile("a.py", "a");
    NewBuffer("b");
    m_dialogs.ChooseFile(Path("a.py"));
    m_dialogs.Press("Yes"); // replace it
    m_window->SaveAs();
    QCOMPARE(
        TakeErrors(), QStringList("An open editor already exists with that path: " + Path("a.py")));
    QCOMPARE(Content(Path("a.py")), "a");
    QCOMPARE(Labels(), (QStringList{"a.py", "Python"}));
}

void FileOperationsTest::AFailedSaveLosesNothing()
{
    CodeEditor* const editor = OpenFile("a.py");
    editor->insertPlainText("new ");
    // Nobody can write where a folder stands.
    QFile::remove(Path("a.py"));
    QVERIFY(QDir(m_folder->path()).mkdir("a.py"));
    m_window->Save();
    QCOMPARE(TakeErrors(), QStringList("Failed to open file for save: " + Path("a.py")));
    QVERIFY(editor->IsModified());
    QCOMPARE(editor->GetText(), "new text\n");
    QVERIFY(QDir(m_folder->path()).rmdir("a.py"));
    m_window->SaveAll();
    QCOMPARE(Content(Path("a.py")), "new text\n");
    QVERIFY(!editor->IsModified());
}

void FileOperationsTest::CompletesTheTextBeforeSaving_data()
{
    Columns<QString, bool, bool, QByteArray>("name", "trim", "newLine", "content");
    Row("neither", "a.py", false, false, QByteArray("x  \ny "));
    Row("trim", "a.py", true, false, QByteArray("x\ny"));
    Row("line end", "a.py", false, true, QByteArray("x  \ny \n"));
    Row("both", "a.py", true, true, QByteArray("x\ny\n"));
    Row("both in mel", "a.mel", true, true, QByteArray("x\ny\n"));
    Row("never in text", "a.txt", true, true, QByteArray("x  \ny "));
}

void FileOperationsTest::CompletesTheTextBeforeSaving()
{
    QFETCH(QString, name);
    QFETCH(bool, trim);
    QFETCH(bool, newLine);
    const bool mel = name.endsWith(".mel");
    (mel ? Settings::melTrimTrailingWhiteSpacesOnSave
         : Settings::pythonTrimTrailingWhiteSpacesOnSave)
        = trim;
    (mel ? Settings::melEnsureNewLineAtEofOnSave : Settings::pythonEnsureNewLineAtEofOnSave)
        = newLine;
    OpenFile(name, "")->insertPlainText("x  \ny ");
    m_window->Save();
    QTEST(Content(Path(name)), "content");
    QVERIFY(!m_window->GetActiveCodeEditor()->IsModified());
}

void FileOperationsTest::RenamesABuffer_data()
{
    Columns<QString, QString, int>("name", "label", "warnings");
    Row("plain", "shelf %1", "shelf %1", 0);
    Row("semicolon", "a;b", "ab", 1);
    Row("nothing but semicolons", ";;", "Python", 1);
    Row("empty", "", "Python", 0);
}

void FileOperationsTest::RenamesABuffer()
{
    QFETCH(QString, name);
    QFETCH(QString, label);
    QFETCH(int, warnings);
    NewBuffer("x");
    TakeLog(host::MessageType::Warning);
    m_dialogs.Type(name);
    m_window->Rename();
    const DialogAnswers::Seen seen = m_dialogs.Take().value(0);
    QCOMPARE(seen.title, "Rename");
    QCOMPARE(seen.text, "New Name:");
    const QStringList shown = TakeLog(host::MessageType::Warning);
    QCOMPARE(shown.size(), warnings);
    QCOMPARE(
        shown.value(0), warnings ? QString("Rename: ';' is an invalid character.") : QString());
    QCOMPARE(Labels(), QStringList(label));
    m_window->SaveState();
    QVERIFY(Settings::tabDetails.value(0).endsWith(";" + label));
}

void FileOperationsTest::RenamesAFile_data()
{
    // "error": %1: the old path, %2: the new one
    Columns<QString, bool, QString>("name", "renamed", "error");
    Row("another suffix", "b.mel", true, "");
    Row("taken", "taken.py", false, "Raname failed. File already exists: %2");
    Row("folder that is not there", "no/b.py", false,
        "Rename file failed. Please verify file path and permissions: %1 -> %2");
    Row("the same", "a.py", false, "");
}

void FileOperationsTest::RenamesAFile()
{
    QFETCH(QString, name);
    QFETCH(bool, renamed);
    QFETCH(QString, error);
    MakeFile("taken.py", "old");
    CodeEditor* const editor = OpenFile("a.py");
    editor->insertPlainText("new ");
    m_dialogs.Type(name);
    m_window->Rename();
    QCOMPARE(TakeErrors(),
        error.isEmpty()
            ? QStringList()
            : QStringList(QString(error).replace("%1", Path("a.py")).replace("%2", Path(name))));
    QCOMPARE(QFile::exists(Path("a.py")), !renamed);
    QCOMPARE(editor->GetFilePath(), Path(renamed ? name : "a.py"));
    QCOMPARE(Labels(), QStringList(renamed ? name : "a.py"));
    QCOMPARE(editor->GetLanguage(), renamed ? Language::Mel : Language::Python);
    QVERIFY(editor->IsModified());
    QCOMPARE(Content(Path("taken.py")), "old");
    m_window->Save();
    QCOMPARE(Content(editor->GetFilePath()), "new text\n");
}

TE2_TEST(FileOperationsTest)
#include "FileOperationsTest.moc"

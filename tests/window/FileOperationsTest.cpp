#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/DialogAnswers.h"
#include "window/FileText.h"
#include "window/TarnwickEditor.h"
#include "window/WindowFixture.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QtTest>

using host::MessageType;
using Type = CodeEditorType;
using Language = CodeEditorLanguage;

/// Opening, saving, renaming and closing, with every question answered.
class FileOperationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();
    void NewAsksForTheLanguage_data();
    void NewAsksForTheLanguage();
    void OpensAFile_data();
    void OpensAFile();
    void OpensThroughTheDialog();
    void ClosesABuffer_data();
    void ClosesABuffer();
    void ClosesAFile_data();
    void ClosesAFile();
    void CancelEndsClosingSeveral();
    void ClosesAroundATab();
    void ATabMayMoveWhileAQuestionStands();
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
    void FollowsOtherPrograms_data();
    void FollowsOtherPrograms();
    void OwnSavesAreNoChanges();
    void ReloadingKeepsThePlace();
    void ADeletedFileIsUnsaved();
    void Reverts_data();
    void Reverts();
    void RemembersClosedFiles();
    void AsksBeforeTheHostQuits_data();
    void AsksBeforeTheHostQuits();
    void RestoresTheSession();
    void WhatCannotBeRestoredIsLeftOut();

private:
    void CreateWindow();
    QString MakeFile(const QString& name, const QByteArray& text = "text\n") const;
    QByteArray Content(const QString& path) const;
    CodeEditor* OpenFile(const QString& name, const QByteArray& text = "text\n");
    CodeEditor* NewBuffer(const QString& text);
    CodeEditorGroup* Group() const { return m_window->GetActiveCodeEditorGroup(); }
    QStringList Labels() const;
    QStringList BackingFiles() const;
    QStringList TakeErrors() { return TakeLog(MessageType::Error); }
    QStringList TakeLog(MessageType type);
    QString Path(const QString& name) const { return m_folder->filePath(name); }

    std::unique_ptr<WindowFixture> m_host;
    std::unique_ptr<QMainWindow> m_frame;
    QPointer<TarnwickEditor> m_window;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<DialogAnswers> m_dialogs;
};

void FileOperationsTest::initTestCase()
{
    m_host = std::make_unique<WindowFixture>();
    m_dialogs = std::make_unique<DialogAnswers>();
}

void FileOperationsTest::cleanupTestCase()
{
    m_dialogs.reset();
    m_host.reset();
}

/// Without any tab.
void FileOperationsTest::init()
{
    Settings::ResetToDefaults();
    m_folder = std::make_unique<QTemporaryDir>();
    CreateWindow();
    m_window->CloseAllFiles();
    TakeErrors();
}

void FileOperationsTest::cleanup()
{
    QCOMPARE(m_dialogs->CountWaiting(), 0);
    m_dialogs->Take();
    m_frame.reset();
    QDir(Settings::GetInternalBufferDirectoryPath()).removeRecursively();
    m_host->RunIdle();
}

void FileOperationsTest::CreateWindow()
{
    m_frame = std::make_unique<QMainWindow>();
    m_window = new TarnwickEditor;
    m_frame->setCentralWidget(m_window);
    m_frame->resize(1300, 900);
    m_frame->show();
    m_frame->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_frame.get()));
    m_host->RunIdle();
}

QString FileOperationsTest::MakeFile(const QString& name, const QByteArray& text) const
{
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QByteArray FileOperationsTest::Content(const QString& path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

CodeEditor* FileOperationsTest::OpenFile(const QString& name, const QByteArray& text)
{
    m_window->OpenFile(MakeFile(name, text), false);
    return m_window->GetActiveCodeEditor();
}

CodeEditor* FileOperationsTest::NewBuffer(const QString& text)
{
    m_window->NewPythonBuffer();
    m_window->GetActiveCodeEditor()->insertPlainText(text);
    return m_window->GetActiveCodeEditor();
}

QStringList FileOperationsTest::Labels() const
{
    QStringList labels;
    for (const CodeEditorProperties& properties : Group()->GetAllProperties())
        labels += properties.label;
    return labels;
}

/// Our own lines alone: the host misses the panel that the window is not in.
QStringList FileOperationsTest::TakeLog(MessageType type)
{
    const QString prefix = "[TarnwickEditor2] ";
    QStringList lines;
    for (const QString& line : m_host->TakeMessages(type).filter(prefix))
        lines += QString(line).remove(prefix);
    return lines;
}

QStringList FileOperationsTest::BackingFiles() const
{
    return QDir(Settings::GetInternalBufferDirectoryPath()).entryList(QDir::Files);
}

void FileOperationsTest::NewAsksForTheLanguage_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("label");
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("name"); // of the backing file
    QTest::newRow("mel") << "MEL"
                         << "MEL" << int(Language::Mel) << "melBuffer_\\w{6}\\.mel";
    QTest::newRow("python") << "Python"
                            << "Python" << int(Language::Python) << "pythonBuffer_\\w{6}\\.py";
    QTest::newRow("none") << "None"
                          << "Text" << int(Language::Text) << "textBuffer_\\w{6}\\.txt";
    QTest::newRow("cancel") << "Cancel"
                            << "" << 0 << "";
}

void FileOperationsTest::NewAsksForTheLanguage()
{
    QFETCH(QString, button);
    QFETCH(QString, label);
    QFETCH(QString, name);
    m_dialogs->Press(button);
    m_window->NewBuffer();
    const DialogAnswers::Seen seen = m_dialogs->Take().value(0);
    QCOMPARE(seen.title, QString("Source Type"));
    QCOMPARE(seen.text, QString("Specify executor source language."));
    QCOMPARE(QSet<QString>(seen.buttons.begin(), seen.buttons.end()),
        (QSet<QString>{"MEL", "Python", "None", "Cancel"}));
    QCOMPARE(seen.defaultButton, QString("MEL"));
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
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("asked"); // in the folder
    QTest::addColumn<int>("language");
    QTest::newRow("mel") << "a.mel"
                         << "a.mel" << int(Language::Mel);
    QTest::newRow("python") << "a b.PY"
                            << "a b.PY" << int(Language::Python);
    QTest::newRow("text") << "a.pyi"
                          << "a.pyi" << int(Language::Text);
    QTest::newRow("path with steps back") << "a.py"
                                          << "./x/../a.py" << int(Language::Python);
}

void FileOperationsTest::OpensAFile()
{
    QFETCH(QString, name);
    QFETCH(QString, asked);
    MakeFile(name, "one\r\ntwo\n");
    // Twice gives one tab.
    for (int i = 0; i < 2; ++i)
        m_window->OpenFile(m_folder->path() + "/" + asked, false);
    QCOMPARE(Labels(), QStringList(name));
    QCOMPARE(Group()->GetFilePath(0), Path(name));
    QTEST(int(Group()->GetLanguage(0)), "language");
    QCOMPARE(Group()->GetText(0), QString("one\ntwo\n"));
    QVERIFY(!Group()->IsModified(0));
    QVERIFY(Settings::tabDetails.value(0).startsWith("0;1;" + Path(name) + ";1;"));
}

void FileOperationsTest::OpensThroughTheDialog()
{
    MakeFile("a.py");
    m_dialogs->ChooseFile(Path("a.py"));
    m_window->OpenFile();
    QCOMPARE(m_dialogs->Take().value(0).title, QString("Open File"));
    QCOMPARE(Labels(), QStringList("a.py"));
    // It comes back where it was left.
    QString directory;
    QStringList filters;
    m_dialogs->Do([&](QDialog* dialog) {
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

void FileOperationsTest::ClosesABuffer_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("wantsQuestion");
    QTest::addColumn<QString>("button"); // empty: nobody asks
    QTest::addColumn<bool>("closed");
    QTest::newRow("empty") << "" << true << "" << true;
    QTest::newRow("yes") << "x" << true << "Yes" << true;
    QTest::newRow("no") << "x" << true << "No" << false;
    QTest::newRow("questions are switched off") << "x" << false << "" << true;
}

void FileOperationsTest::ClosesABuffer()
{
    QFETCH(QString, text);
    QFETCH(bool, wantsQuestion);
    QFETCH(QString, button);
    QFETCH(bool, closed);
    NewBuffer(text);
    Settings::showConfirmDialogOnInternalBufferClose = wantsQuestion;
    if (!button.isEmpty())
        m_dialogs->Press(button);
    m_window->CloseFile();
    const QList<DialogAnswers::Seen> seen = m_dialogs->Take();
    QCOMPARE(seen.size(), button.isEmpty() ? 0 : 1);
    if (!seen.isEmpty()) {
        QCOMPARE(seen[0].title, QString("Delete"));
        QCOMPARE(
            seen[0].text, QString("Delete buffer 'Python'?\n\nUnsaved contents will be lost."));
        QCOMPARE(seen[0].defaultButton, QString("No"));
    }
    QCOMPARE(m_window->GetCodeEditorCount(), closed ? 0 : 1);
    QCOMPARE(BackingFiles().size(), closed ? 0 : 1);
    QCOMPARE(Settings::tabDetails.size(), closed ? 0 : 1);
}

void FileOperationsTest::ClosesAFile_data()
{
    QTest::addColumn<bool>("modified");
    QTest::addColumn<QString>("button"); // empty: nobody asks
    QTest::addColumn<bool>("writable");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<QByteArray>("content");
    const QByteArray old = "text\n";
    QTest::newRow("as it was") << false << "" << true << true << old;
    QTest::newRow("save") << true << "Yes" << true << true << QByteArray("new text\n");
    QTest::newRow("do not save") << true << "No" << true << true << old;
    QTest::newRow("cancel") << true << "Cancel" << true << false << old;
    QTest::newRow("cannot be saved") << true << "Yes" << false << false << QByteArray("no file");
}

void FileOperationsTest::ClosesAFile()
{
    QFETCH(bool, modified);
    QFETCH(QString, button);
    QFETCH(bool, writable);
    QFETCH(bool, closed);
    CodeEditor* const editor = OpenFile("a.py");
    if (modified)
        editor->insertPlainText("new ");
    if (!writable)
        QVERIFY(QDir(m_folder->path()).removeRecursively());
    if (!button.isEmpty())
        m_dialogs->Press(button);
    m_window->CloseFile();
    const QList<DialogAnswers::Seen> seen = m_dialogs->Take();
    QCOMPARE(seen.size(), button.isEmpty() ? 0 : 1);
    if (!seen.isEmpty()) {
        QCOMPARE(seen[0].title, QString("Save"));
        QCOMPARE(seen[0].text, QString("'a.py' has been modified. Save changes?"));
        QCOMPARE(seen[0].defaultButton, QString("Yes"));
    }
    QTEST(Content(Path("a.py")), "content");
    QCOMPARE(m_window->GetCodeEditorCount(), closed ? 0 : 1);
    QCOMPARE(Settings::recentFiles, closed ? QStringList(Path("a.py")) : QStringList());
    if (!closed)
        QVERIFY(editor->IsModified());
}

void FileOperationsTest::CancelEndsClosingSeveral()
{
    OpenFile("a.py");
    for (const char* name : {"b.py", "c.py", "d.py"})
        OpenFile(name)->insertPlainText("new ");
    m_dialogs->Press("Yes");
    m_dialogs->Press("Cancel");
    m_window->CloseAllFiles();
    QCOMPARE(m_dialogs->Take().size(), 2);
    QCOMPARE(Labels(), (QStringList{"c.py", "d.py"}));
    // What was asked about is what is shown.
    QCOMPARE(m_window->GetActiveCodeEditor()->GetLabel(), QString("c.py"));
    QCOMPARE(Content(Path("b.py")), QByteArray("new text\n"));
    m_dialogs->Press("No");
    m_dialogs->Press("No");
    m_window->CloseAllFiles();
    QCOMPARE(m_window->GetCodeEditorCount(), 0);
}

void FileOperationsTest::ClosesAroundATab()
{
    for (const char* name : {"a.py", "b.py", "c.py", "d.py"})
        OpenFile(name);
    CodeEditorGroup* const group = Group();
    Q_EMIT group->CloseTabsToRightRequested(group, 2);
    QCOMPARE(Labels(), (QStringList{"a.py", "b.py", "c.py"}));
    Q_EMIT group->CloseOtherTabsRequested(group, 1);
    QCOMPARE(Labels(), QStringList("b.py"));
    Q_EMIT group->CloseTabRequested(group, 0);
    QCOMPARE(m_window->GetCodeEditorCount(), 0);
}

void FileOperationsTest::ATabMayMoveWhileAQuestionStands()
{
    OpenFile("a.py");
    OpenFile("b.py")->insertPlainText("new ");
    CodeEditorGroup* const group = Group();
    m_dialogs->Do([group](QDialog* dialog) {
        Q_EMIT group->MoveTabToZoneRequested(0, 1, 0, TabDropZone::After);
        dialog->findChild<QPushButton*>()->click(); // Yes
    });
    m_window->CloseCodeEditor(group, 1, true);
    QCOMPARE(m_window->GetCodeEditorPaths(), QStringList(Path("a.py")));
    QCOMPARE(Content(Path("b.py")), QByteArray("new text\n"));
    // And it may be closed by somebody else.
    OpenFile("b.py")->insertPlainText("new ");
    m_dialogs->Do([this, group](QDialog* dialog) {
        m_window->CloseCodeEditor(group, 1, false);
        dialog->findChild<QPushButton*>()->click();
    });
    m_window->CloseFile();
    QCOMPARE(m_window->GetCodeEditorPaths(), QStringList(Path("a.py")));
}

void FileOperationsTest::SavesABufferAs_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("saved"); // empty: not at all
    QTest::addColumn<QString>("answer"); // about a file that is there
    QTest::addColumn<int>("language");
    const int mel = int(Language::Mel);
    const int python = int(Language::Python);
    const QString melFilter = "MEL (*.mel)";
    const QString pythonFilter = "Python (*.py *.pyw *.pyi)";
    QTest::newRow("another suffix") << melFilter << "script.txt"
                                    << "script.txt.mel"
                                    << "" << mel;
    QTest::newRow("upper case") << melFilter << "script.MEL"
                                << "script.MEL"
                                << "" << mel;
    QTest::newRow("none") << pythonFilter << "script"
                          << "script.py"
                          << "" << python;
    QTest::newRow("pyw") << pythonFilter << "script.pyw"
                         << "script.pyw"
                         << "" << python;
    QTest::newRow("all files") << "All Files(*.*)"
                               << "notes"
                               << "notes"
                               << "" << int(Language::Text);
    QTest::newRow("over another one") << pythonFilter << "taken"
                                      << "taken.py"
                                      << "Yes" << python;
    QTest::newRow("not over another one") << pythonFilter << "taken"
                                          << ""
                                          << "No" << python;
    QTest::newRow("cancel") << ""
                            << ""
                            << ""
                            << "" << python;
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
        m_dialogs->Dismiss();
    else
        m_dialogs->ChooseFile(Path(typed), filter);
    if (!answer.isEmpty())
        m_dialogs->Press(answer);
    m_window->Save();
    QCOMPARE(m_dialogs->Take().value(0).title, QString("Save File"));
    QCOMPARE(Content(Path("taken.py")), QByteArray(saved == "taken.py" ? "x = 1" : "old"));
    QCOMPARE(editor->IsModified(), saved.isEmpty());
    QCOMPARE(BackingFiles().size(), saved.isEmpty() ? 1 : 0);
    QCOMPARE(Labels(), QStringList(saved.isEmpty() ? "Python" : saved));
    if (saved.isEmpty())
        return;
    QCOMPARE(Content(Path(saved)), QByteArray("x = 1"));
    QCOMPARE(Group()->GetFilePath(0), Path(saved));
    QCOMPARE(Group()->GetType(0), Type::File);
    QTEST(int(Group()->GetLanguage(0)), "language");
    QVERIFY(Settings::tabDetails.value(0).startsWith("0;1;" + Path(saved)));
}

void FileOperationsTest::RefusesToSaveOverAnOpenFile()
{
    OpenFile("a.py", "a");
    NewBuffer("b");
    m_dialogs->ChooseFile(Path("a.py"));
    m_dialogs->Press("Yes"); // replace it
    m_window->SaveAs();
    QCOMPARE(
        TakeErrors(), QStringList("An open editor already exists with that path: " + Path("a.py")));
    QCOMPARE(Content(Path("a.py")), QByteArray("a"));
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
    QCOMPARE(editor->GetText(), QString("new text\n"));
    QVERIFY(QDir(m_folder->path()).rmdir("a.py"));
    m_window->SaveAll();
    QCOMPARE(Content(Path("a.py")), QByteArray("new text\n"));
    QVERIFY(!editor->IsModified());
}

void FileOperationsTest::CompletesTheTextBeforeSaving_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("trim");
    QTest::addColumn<bool>("newLine");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("neither") << "a.py" << false << false << QByteArray("x  \ny ");
    QTest::newRow("trim") << "a.py" << true << false << QByteArray("x\ny");
    QTest::newRow("line end") << "a.py" << false << true << QByteArray("x  \ny \n");
    QTest::newRow("both") << "a.py" << true << true << QByteArray("x\ny\n");
    QTest::newRow("both in mel") << "a.mel" << true << true << QByteArray("x\ny\n");
    QTest::newRow("never in text") << "a.txt" << true << true << QByteArray("x  \ny ");
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
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("label");
    QTest::addColumn<int>("warnings");
    QTest::newRow("plain") << "shelf %1"
                           << "shelf %1" << 0;
    QTest::newRow("semicolon") << "a;b"
                               << "ab" << 1;
    QTest::newRow("nothing but semicolons") << ";;"
                                            << "Python" << 1;
    QTest::newRow("empty") << ""
                           << "Python" << 0;
}

void FileOperationsTest::RenamesABuffer()
{
    QFETCH(QString, name);
    QFETCH(QString, label);
    QFETCH(int, warnings);
    NewBuffer("x");
    TakeLog(MessageType::Warning);
    m_dialogs->Type(name);
    m_window->Rename();
    const DialogAnswers::Seen seen = m_dialogs->Take().value(0);
    QCOMPARE(seen.title, QString("Rename"));
    QCOMPARE(seen.text, QString("New Name:"));
    const QStringList shown = TakeLog(MessageType::Warning);
    QCOMPARE(shown.size(), warnings);
    QCOMPARE(
        shown.value(0), warnings ? QString("Rename: ';' is an invalid character.") : QString());
    QCOMPARE(Labels(), QStringList(label));
    m_window->SaveState();
    QVERIFY(Settings::tabDetails.value(0).endsWith(";" + label));
}

void FileOperationsTest::RenamesAFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("renamed");
    QTest::addColumn<QString>("error"); // %1: the old path, %2: the new one
    QTest::newRow("another suffix") << "b.mel" << true << "";
    QTest::newRow("taken") << "taken.py" << false << "Raname failed. File already exists: %2";
    QTest::newRow("folder that is not there")
        << "no/b.py" << false
        << "Rename file failed. Please verify file path and permissions: %1 -> %2";
    QTest::newRow("the same") << "a.py" << false << "";
}

void FileOperationsTest::RenamesAFile()
{
    QFETCH(QString, name);
    QFETCH(bool, renamed);
    QFETCH(QString, error);
    MakeFile("taken.py", "old");
    CodeEditor* const editor = OpenFile("a.py");
    editor->insertPlainText("new ");
    m_dialogs->Type(name);
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
    QCOMPARE(Content(Path("taken.py")), QByteArray("old"));
    m_window->Save();
    QCOMPARE(Content(editor->GetFilePath()), QByteArray("new text\n"));
}

void FileOperationsTest::FollowsOtherPrograms_data()
{
    QTest::addColumn<bool>("modified");
    QTest::addColumn<bool>("checks");
    QTest::addColumn<QString>("button"); // empty: nobody asks
    QTest::addColumn<QString>("text");
    QTest::newRow("unmodified") << false << true << ""
                                << "theirs";
    QTest::newRow("yes") << true << true << "Yes"
                         << "theirs";
    QTest::newRow("no") << true << true << "No"
                        << "ours text\n";
    QTest::newRow("switched off") << false << false << ""
                                  << "text\n";
}

void FileOperationsTest::FollowsOtherPrograms()
{
    QFETCH(bool, modified);
    QFETCH(bool, checks);
    QFETCH(QString, button);
    CodeEditor* const editor = OpenFile("a.py");
    if (modified)
        editor->insertPlainText("ours ");
    Settings::checkForModifiedFiles = checks;
    QSignalSpy changed(Group(), &CodeEditorGroup::FileChanged);
    MakeFile("a.py", "theirs");
    QTRY_VERIFY(changed.count() > 0);
    if (!button.isEmpty())
        m_dialogs->Press(button);
    m_window->CheckForFileChanges();
    const QList<DialogAnswers::Seen> seen = m_dialogs->Take();
    QCOMPARE(seen.size(), button.isEmpty() ? 0 : 1);
    if (!seen.isEmpty()) {
        QCOMPARE(seen[0].title, QString("Reload"));
        QCOMPARE(seen[0].text,
            Path("a.py")
                + "\n\nThis file has been modified by another program.\n"
                  "Do you want to reload it?");
        QCOMPARE(seen[0].defaultButton, QString("No"));
    }
    QTEST(editor->GetText(), "text");
    QCOMPARE(editor->IsModified(), button == "No");
    // Nobody is asked twice about one change.
    m_window->CheckForFileChanges();
    QCOMPARE(m_dialogs->Take().size(), 0);
}

void FileOperationsTest::OwnSavesAreNoChanges()
{
    CodeEditor* const editor = OpenFile("a.py");
    QSignalSpy changed(Group(), &CodeEditorGroup::FileChanged);
    QVERIFY(m_window->SaveCodeEditor(Path("a.py"), "ours"));
    // A check before the watcher has told of it must not make it an outside change afterwards.
    m_window->CheckForFileChanges();
    QTRY_VERIFY(changed.count() > 0);
    editor->insertPlainText("new ");
    m_window->CheckForFileChanges();
    QCOMPARE(m_dialogs->Take().size(), 0);
    QCOMPARE(editor->GetText(), QString("new text\n"));
    // What others write after it is one.
    changed.clear();
    MakeFile("a.py", "theirs");
    QTRY_VERIFY(changed.count() > 0);
    m_dialogs->Press("Yes");
    m_window->CheckForFileChanges();
    QCOMPARE(editor->GetText(), QString("theirs"));
}

void FileOperationsTest::ReloadingKeepsThePlace()
{
    CodeEditor* const editor = OpenFile("a.py", QByteArray("line\n").repeated(500));
    editor->SetCursorPosition(1234, false, false);
    editor->SetVerticalScrollBarValue(180);
    QSignalSpy changed(Group(), &CodeEditorGroup::FileChanged);
    MakeFile("a.py", QByteArray("LINE\n").repeated(600));
    QTRY_VERIFY(changed.count() > 0);
    // Giving the focus looks after it.
    m_frame->setFocus();
    editor->setFocus();
    QTRY_COMPARE(editor->GetLineCount(), 601);
    QCOMPARE(editor->GetCursorPosition(), 1234);
    QCOMPARE(editor->GetVerticalScrollBarValue(), 180);
}

void FileOperationsTest::ADeletedFileIsUnsaved()
{
    CodeEditor* const editor = OpenFile("a.py");
    QFile::remove(Path("a.py"));
    QTRY_VERIFY(editor->IsModified());
    QCOMPARE(editor->GetText(), QString("text\n"));
    m_window->Save();
    QCOMPARE(Content(Path("a.py")), QByteArray("text\n"));
    // It is watched again.
    QSignalSpy changed(Group(), &CodeEditorGroup::FileChanged);
    MakeFile("a.py", "theirs");
    QTRY_VERIFY(changed.count() > 0);
    m_window->CheckForFileChanges();
    QCOMPARE(editor->GetText(), QString("theirs"));
}

void FileOperationsTest::Reverts_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<QString>("text");
    QTest::newRow("yes") << "Yes" << true << "text\n";
    QTest::newRow("no") << "No" << true << "new text\n";
    QTest::newRow("nothing to read") << "Yes" << false << "new text\n";
}

void FileOperationsTest::Reverts()
{
    QFETCH(QString, button);
    QFETCH(bool, readable);
    QFETCH(QString, text);
    CodeEditor* const editor = OpenFile("a.py");
    m_window->RevertFile(); // nothing to ask
    editor->insertPlainText("new ");
    if (!readable)
        QFile::remove(Path("a.py"));
    m_dialogs->Press(button);
    m_window->RevertFile();
    const QList<DialogAnswers::Seen> seen = m_dialogs->Take();
    QCOMPARE(seen.size(), 1);
    QCOMPARE(seen[0].text,
        QString("Reloading this file will result in unsaved changes being lost.\n\nContinue?"));
    QCOMPARE(seen[0].defaultButton, QString("No"));
    QCOMPARE(editor->GetText(), text);
    QCOMPARE(editor->IsModified(), text != "text\n");
}

void FileOperationsTest::RemembersClosedFiles()
{
    for (const char* name : {"a.py", "b & c.py", "d.py"})
        OpenFile(name);
    m_window->CloseAllFiles();
    QMenu* menu = nullptr;
    for (QMenu* candidate : m_window->findChildren<QMenu*>()) {
        if (candidate->title() == "Recent Files")
            menu = candidate;
    }
    QVERIFY(menu);
    QStringList entries;
    for (const QAction* action : menu->actions())
        entries += action->isSeparator() ? "-" : action->text();
    QCOMPARE(entries,
        (QStringList{"Reopen Closed File", "-", Path("d.py"), Path("b && c.py"), Path("a.py"), "-",
            "Clear Items"}));
    menu->actions().at(3)->trigger();
    QCOMPARE(Labels(), QStringList("b & c.py"));
    for (int i = 0; i < 3; ++i)
        menu->actions().first()->trigger();
    QCOMPARE(Labels(), (QStringList{"b & c.py", "d.py", "a.py"}));
    menu->actions().last()->trigger();
    QVERIFY(Settings::recentFiles.isEmpty());
    QCOMPARE(menu->actions().size(), 2); // the separator is not shown at the end
}

void FileOperationsTest::AsksBeforeTheHostQuits_data()
{
    QTest::addColumn<bool>("savesOnExit");
    QTest::addColumn<bool>("wantsQuestion");
    QTest::addColumn<bool>("modified");
    QTest::addColumn<QString>("button"); // empty: nobody asks
    QTest::addColumn<bool>("writable");
    QTest::addColumn<bool>("quits");
    QTest::newRow("yes") << false << true << true << "Yes" << true << true;
    QTest::newRow("no") << false << true << true << "No" << true << true;
    QTest::newRow("cancel") << false << true << true << "Cancel" << true << false;
    QTest::newRow("cannot be saved") << false << true << true << "Yes" << false << false;
    QTest::newRow("nothing modified") << false << true << false << "" << true << true;
    QTest::newRow("saved anyway") << true << true << true << "" << true << true;
    QTest::newRow("not wanted") << false << false << true << "" << true << true;
}

void FileOperationsTest::AsksBeforeTheHostQuits()
{
    QFETCH(bool, savesOnExit);
    QFETCH(bool, wantsQuestion);
    QFETCH(bool, modified);
    QFETCH(QString, button);
    QFETCH(bool, writable);
    QFETCH(bool, quits);
    Settings::saveAllOnExit = savesOnExit;
    Settings::showUnsavedFileDialogOnMayaExit = wantsQuestion;
    const CodeEditor* const buffer = NewBuffer("kept");
    CodeEditor* const editor = OpenFile("a.py");
    if (modified)
        editor->insertPlainText("new ");
    if (!writable)
        QVERIFY(QDir(m_folder->path()).removeRecursively());
    if (!button.isEmpty())
        m_dialogs->Press(button);
    QCloseEvent close;
    QObject* const filter = m_window;
    QCOMPARE(filter->eventFilter(MayaUtil::GetMainWindow(), &close), !quits);
    QCOMPARE(close.isAccepted(), quits);
    const QList<DialogAnswers::Seen> seen = m_dialogs->Take();
    QCOMPARE(seen.size(), button.isEmpty() ? 0 : 1);
    if (!seen.isEmpty()) {
        QCOMPARE(seen[0].title, QString("Tarnwick Editor 2"));
        QCOMPARE(
            seen[0].text, QString("Tarnwick Editor 2 files have been modified. Save all changes?"));
    }
    QCOMPARE(editor->IsModified(), modified && !(button == "Yes" && writable));
    QCOMPARE(Content(buffer->GetFilePath()), QByteArray("kept"));
}

void FileOperationsTest::RestoresTheSession()
{
    NewBuffer("first\nsecond\n");
    m_dialogs->Type("my buffer");
    m_window->Rename();
    OpenFile("long.py", QByteArray("line\n").repeated(900))->SetCursorPosition(2003, false, false);
    m_window->GetActiveCodeEditor()->SetVerticalScrollBarValue(321);
    CodeEditorGroup* const group = m_window->GetCodeEditorGroupByIndex(1);
    m_window->CreateCodeEditor(Type::File, MakeFile("b;c.mel"), QString(), group, -1);
    m_window->CreateCodeEditor(Type::File, MakeFile("d.txt"), QString(), group, -1);
    m_window->SetActiveCodeEditor(1, 0, true);
    m_window->GetActiveCodeEditor()->SetCursorPosition(2, false, false);
    const QStringList paths = m_window->GetCodeEditorPaths();
    // As it is left and started again.
    m_window->Shutdown();
    const QStringList records = Settings::tabDetails;
    m_frame.reset();
    Settings::ResetToDefaults();
    Settings::ReadUserConfig();
    QCOMPARE(Settings::tabDetails, records);
    CreateWindow();
    QCOMPARE(m_window->GetCodeEditorPaths(), paths);
    QCOMPARE(m_window->GetCodeEditorWithFocus(), m_window->GetCodeEditor(Path("b;c.mel")));
    QCOMPARE(m_window->GetActiveCodeEditor()->GetCursorPosition(), 2);
    const CodeEditorGroup* const first = m_window->GetCodeEditorGroupByIndex(0);
    QCOMPARE(first->GetCurrentIndex(), 1);
    QCOMPARE(first->GetText(0), QString("first\nsecond\n"));
    QCOMPARE(first->GetLabel(0), QString("my buffer"));
    QCOMPARE(first->GetLanguage(0), Language::Python);
    QCOMPARE(first->GetCursorPosition(1), 2003);
    QCOMPARE(first->GetVerticalScrollBarValue(1), 321);
    QVERIFY(!first->IsModified(0) && !first->IsModified(1));
    // Once more, never looked at in between.
    m_window->SaveState();
    QCOMPARE(Settings::tabDetails, records);
}

void FileOperationsTest::WhatCannotBeRestoredIsLeftOut()
{
    const QString kept = MakeFile("kept.py");
    const QString record = "0;1;" + kept + ";1;2;0";
    m_frame.reset();
    Settings::tabDetails = QStringList{"3;1;" + kept + ";1;0;0", "0;2;" + kept + ";1;0;0", "",
        "0;1;" + Path("gone.py") + ";1;0;0", "0;0;gone.mel;0;0;0;MEL", record, record};
    Settings::activeTabViewIndex = 2;
    TakeErrors();
    CreateWindow();
    QCOMPARE(m_window->GetCodeEditorPaths(), QStringList(kept));
    QCOMPARE(m_window->GetActiveCodeEditor()->GetFilePath(), kept);
    QCOMPARE(TakeErrors(),
        (QStringList{"Failed to open file: " + Path("gone.py"),
            "Failed to open file: " + Settings::GetInternalBufferDirectoryPath() + "/gone.mel"}));
    m_window->SaveState();
    QCOMPARE(Settings::tabDetails, QStringList(record));
}

TE2_TEST(FileOperationsTest)
#include "FileOperationsTest.moc"

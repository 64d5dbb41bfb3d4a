#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/FilesFixture.h"

#include <QAction>
#include <QCloseEvent>
#include <QDialog>
#include <QMenu>
#include <QPushButton>
#include <QtTest>

using Type = CodeEditorType;
using Language = CodeEditorLanguage;

/// Closing tabs and the host, and what comes back afterwards.
class ClosingTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { QVERIFY(Finish()); }
    void ClosesABuffer_data();
    void ClosesABuffer();
    void ClosesAFile_data();
    void ClosesAFile();
    void CancelEndsClosingSeveral();
    void ClosesAroundATab();
    void ATabMayMoveWhileAQuestionStands();
    void RemembersClosedFiles();
    void AsksBeforeTheHostQuits_data();
    void AsksBeforeTheHostQuits();
    void RestoresTheSession();
    void RestoresWhereTheTabsWereScrolledTo();
    void WhatCannotBeRestoredIsLeftOut();
};

void ClosingTest::ClosesABuffer_data()
{
    // "button": empty: nobody asks
    Columns<QString, bool, QString, bool>("text", "wantsQuestion", "button", "closed");
    Row("empty", "", true, "", true);
    Row("yes", "x", true, "Yes", true);
    Row("no", "x", true, "No", false);
    Row("questions are switched off", "x", false, "", true);
}

void ClosingTest::ClosesABuffer()
{
    QFETCH(QString, text);
    QFETCH(bool, wantsQuestion);
    QFETCH(QString, button);
    QFETCH(bool, closed);
    NewBuffer(text);
    Settings::showConfirmDialogOnInternalBufferClose = wantsQuestion;
    m_dialogs.Expect(button);
    m_window->CloseFile();
    const QString question
        = "Delete: Delete buffer 'Python'?\n\nUnsaved contents will be lost. [No]";
    QCOMPARE(m_dialogs.TakeQuestions().join('|'), button.isEmpty() ? "" : question);
    QCOMPARE(m_window->GetCodeEditorCount(), closed ? 0 : 1);
    QCOMPARE(BackingFiles().size(), closed ? 0 : 1);
    QCOMPARE(Settings::tabDetails.size(), closed ? 0 : 1);
}

void ClosingTest::ClosesAFile_data()
{
    // "button": empty: nobody asks
    Columns<bool, QString, bool, bool, QByteArray>(
        "modified", "button", "writable", "closed", "content");
    const QByteArray old = "text\n";
    Row("as it was", false, "", true, true, old);
    Row("save", true, "Yes", true, true, QByteArray("new text\n"));
    Row("do not save", true, "No", true, true, old);
    Row("cancel", true, "Cancel", true, false, old);
    Row("cannot be saved", true, "Yes", false, false, QByteArray("no file"));
}

void ClosingTest::ClosesAFile()
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
    m_dialogs.Expect(button);
    m_window->CloseFile();
    const QString question = "Save: 'a.py' has been modified. Save changes? [Yes]";
    QCOMPARE(m_dialogs.TakeQuestions().join('|'), button.isEmpty() ? "" : question);
    QTEST(Content(Path("a.py")), "content");
    QCOMPARE(m_window->GetCodeEditorCount(), closed ? 0 : 1);
    QCOMPARE(Settings::recentFiles, closed ? QStringList(Path("a.py")) : QStringList());
    if (!closed)
        QVERIFY(editor->IsModified());
}

void ClosingTest::CancelEndsClosingSeveral()
{
    OpenFile("a.py");
    for (const char* name : {"b.py", "c.py", "d.py"})
        OpenFile(name)->insertPlainText("new ");
    m_dialogs.Press("Yes");
    m_dialogs.Press("Cancel");
    m_window->CloseAllFiles();
    QCOMPARE(m_dialogs.Take().size(), 2);
    QCOMPARE(Labels(), (QStringList{"c.py", "d.py"}));
    // What was asked about is what is shown.
    QCOMPARE(m_window->GetActiveCodeEditor()->GetLabel(), "c.py");
    QCOMPARE(Content(Path("b.py")), "new text\n");
    m_dialogs.Press("No");
    m_dialogs.Press("No");
    m_window->CloseAllFiles();
    QCOMPARE(m_window->GetCodeEditorCount(), 0);
}

void ClosingTest::ClosesAroundATab()
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

void ClosingTest::ATabMayMoveWhileAQuestionStands()
{
    OpenFile("a.py");
    OpenFile("b.py")->insertPlainText("new ");
    CodeEditorGroup* const group = Group();
    m_dialogs.Do([group](QDialog* dialog) {
        Q_EMIT group->MoveTabToZoneRequested(0, 1, 0, TabDropZone::After);
        dialog->findChild<QPushButton*>()->click(); // Yes
    });
    m_window->CloseCodeEditor(group, 1, true);
    QCOMPARE(m_window->GetCodeEditorPaths(), QStringList(Path("a.py")));
    QCOMPARE(Content(Path("b.py")), "new text\n");
    // And it may be closed by somebody else.
    OpenFile("b.py")->insertPlainText("new ");
    m_dialogs.Do([this, group](QDialog* dialog) {
        m_window->CloseCodeEditor(group, 1, false);
        dialog->findChild<QPushButton*>()->click();
    });
    m_window->CloseFile();
    QCOMPARE(m_window->GetCodeEditorPaths(), QStringList(Path("a.py")));
}

void ClosingTest::RemembersClosedFiles()
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

void ClosingTest::AsksBeforeTheHostQuits_data()
{
    // "button": empty: nobody asks
    Columns<bool, bool, bool, QString, bool, bool>(
        "savesOnExit", "wantsQuestion", "modified", "button", "writable", "quits");
    Row("yes", false, true, true, "Yes", true, true);
    Row("no", false, true, true, "No", true, true);
    Row("cancel", false, true, true, "Cancel", true, false);
    Row("cannot be saved", false, true, true, "Yes", false, false);
    Row("nothing modified", false, true, false, "", true, true);
    Row("saved anyway", true, true, true, "", true, true);
    Row("not wanted", false, false, true, "", true, true);
}

void ClosingTest::AsksBeforeTheHostQuits()
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
    m_dialogs.Expect(button);
    QCloseEvent close;
    QObject* const filter = m_window;
    QCOMPARE(filter->eventFilter(MayaUtil::GetMainWindow(), &close), !quits);
    QCOMPARE(close.isAccepted(), quits);
    const QString question = "Tarnwick Editor 2: Tarnwick Editor 2 files have been modified. "
                             "Save all changes? [Yes]";
    QCOMPARE(m_dialogs.TakeQuestions().join('|'), button.isEmpty() ? "" : question);
    QCOMPARE(editor->IsModified(), modified && !(button == "Yes" && writable));
    QCOMPARE(Content(buffer->GetFilePath()), "kept");
}

void ClosingTest::RestoresTheSession()
{
    NewBuffer("first\nsecond\n");
    m_dialogs.Type("my buffer");
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
    DeleteWindow();
    Settings::ResetToDefaults();
    Settings::ReadUserConfig();
    QCOMPARE(Settings::tabDetails, records);
    CreateWindow();
    QCOMPARE(m_window->GetCodeEditorPaths(), paths);
    QCOMPARE(m_window->GetCodeEditorWithFocus(), m_window->GetCodeEditor(Path("b;c.mel")));
    QCOMPARE(m_window->GetActiveCodeEditor()->GetCursorPosition(), 2);
    const CodeEditorGroup* const first = m_window->GetCodeEditorGroupByIndex(0);
    QCOMPARE(first->GetCurrentIndex(), 1);
    QCOMPARE(first->GetText(0), "first\nsecond\n");
    QCOMPARE(first->GetLabel(0), "my buffer");
    QCOMPARE(first->GetLanguage(0), Language::Python);
    QCOMPARE(first->GetCursorPosition(1), 2003);
    QCOMPARE(first->GetVerticalScrollBarValue(1), 321);
    QVERIFY(!first->IsModified(0) && !first->IsModified(1));
    // Once more, never looked at in between.
    m_window->SaveState();
    QCOMPARE(Settings::tabDetails, records);
}

void ClosingTest::RestoresWhereTheTabsWereScrolledTo()
{
    for (int i = 0; i < 30; ++i)
        OpenFile(QString("script%1.py").arg(i));
    // Away from the current tab, which is the last one.
    Group()->SetTabBarScrollValue(70);
    m_window->Shutdown();
    DeleteWindow();
    CreateWindow();
    QCOMPARE(Group()->GetCurrentIndex(), 29);
    QCOMPARE(Group()->GetTabBarScrollValue(), 70);
    // Another current tab is brought into view as ever.
    Group()->SetCurrentIndex(28);
    QVERIFY(Group()->GetTabBarScrollValue() > 70);
}

void ClosingTest::WhatCannotBeRestoredIsLeftOut()
{
    const QString kept = MakeFile("kept.py");
    const QString record = "0;1;" + kept + ";1;2;0";
    DeleteWindow();
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

TE2_TEST(ClosingTest)
#include "ClosingTest.moc"

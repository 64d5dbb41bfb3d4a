#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "views/SideBar.h"
#include "views/search/SearchResultsModel.h"
#include "views/search/SearchResultsView.h"
#include "views/search/SearchView.h"
#include "window/FilesFixture.h"
#include "window/chrome/ElidedLabel.h"
#include "window/chrome/ToolLineEdit.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <QtTest>

#include <sys/stat.h>

/// The search page together with the window, over real files.
class SearchInFilesTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { QVERIFY(Finish()); }
    void FindsInFilesEditorsAndBuffers();
    void KeepsToWhatIsIncluded();
    void FollowsEditsAndKeepsItsPlace();
    void CatchesUpWithWhatItDidNotSee();
    void KnowsWhatIsLeftOfClosedEditors();
    void GoesThroughTheHitsByKeys();
    void FindsAHitThatMoved();
    void ReplacesEverywhere();
    void ReplacesGroups();
    void LeavesWhatItCannotReplace();
    void ReplacesNothingWhenCancelled();
    void DismissedHitsStay();
    void StopsAtEscape();
    void RunsOneSearchAtATime();
    void ShowsWhatIsWrong();

private:
    SearchView* View() const { return m_window->findChild<SearchView*>(); }
    SearchResultsView* Results() const { return View()->findChild<SearchResultsView*>(); }
    const SearchResultsModel* Model() const { return View()->GetResults()->GetModel(); }
    template <typename T>
    T* Part(const char* name) const
    {
        return m_window->findChild<T*>(name);
    }
    void Search(const QString& text);
    void Toggle(const char* button);
    QString Status() const { return Part<ElidedLabel>("m_searchStatus")->GetText(); }
    /// "name: line" of every hit; names alone of files.
    QStringList Listed() const;
    void ReplaceAll(const QString& text, const QString& answer = "Replace All");
};

void SearchInFilesTest::init()
{
    Start();
    Settings::workspaceFolders = QStringList{m_folder->path()};
    m_window->FindInFiles();
}

void SearchInFilesTest::Search(const QString& text)
{
    View()->SetSearchText(text);
    QTest::keyClick(Part<ToolLineEdit>("m_searchField"), Qt::Key_Return);
    QTRY_VERIFY(!Status().contains("Esc"));
    QCoreApplication::sendPostedEvents(m_window, QEvent::MetaCall);
}

void SearchInFilesTest::Toggle(const char* button)
{
    Part<QAbstractButton>(button)->click();
    QCoreApplication::sendPostedEvents(m_window, QEvent::MetaCall);
}

QStringList SearchInFilesTest::Listed() const
{
    QStringList listed;
    for (int i = 0; i < Model()->GetFileCount(); ++i) {
        for (const SearchResult& hit : Model()->GetFileAt(i).hits)
            listed.append(hit.fileName + ": " + hit.lineText);
    }
    return listed;
}

void SearchInFilesTest::ReplaceAll(const QString& text, const QString& answer)
{
    View()->SetReplaceVisible(true);
    View()->SetReplaceText(text);
    m_dialogs.Press(answer);
    View()->ReplaceAll();
    QCoreApplication::sendPostedEvents(m_window, QEvent::MetaCall);
}

void SearchInFilesTest::FindsInFilesEditorsAndBuffers()
{
    MakeFile("b.py", "x = needle\n  needle(needle)\n");
    MakeFile("A.mel", "nothing\n");
    OpenFile("open.mel", "on the disk: needle\n")->SetText("in the editor: Needle\n");
    NewBuffer("a needle, not saved");
    Search("needle");
    QCOMPARE(Listed(),
        (QStringList{"Python: a needle, not saved", "b.py: x = needle", "b.py: needle(needle)",
            "b.py: needle(needle)", "open.mel: in the editor: Needle"}));
    QCOMPARE(Status(), "5 results in 3 files");
    QCOMPARE(Model()->GetFileAt(0).detail, "internal buffer");
    Toggle("m_globalMatchCaseButton");
    QCOMPARE(Status(), "4 results in 2 files");
    Search("nowhere");
    QCOMPARE(Part<QLabel>("m_emptyHint")->text(), "Nothing matches \"nowhere\" in 4 files.");
}

void SearchInFilesTest::KeepsToWhatIsIncluded()
{
    const QString python = MakeFile("a.py", "needle\n");
    MakeFile("a.mel", "needle\n");
    NewBuffer("needle");
    View()->SetIncludeText("*.mel, ");
    Search("needle");
    // Patterns are about files, buffers have none.
    QCOMPARE(Listed(), (QStringList{"Python: needle", "a.mel: needle"}));
    QVERIFY(!m_window->IncludePathInSearch(python));
    View()->SetIncludeText(python);
    Search("needle");
    QCOMPARE(Listed(), QStringList{"a.py: needle"});
    View()->SetIncludeText(m_folder->path());
    View()->SetExcludeText("*.py");
    Search("needle");
    QCOMPARE(Listed(), QStringList{"a.mel: needle"});
}

void SearchInFilesTest::FollowsEditsAndKeepsItsPlace()
{
    CodeEditor* const editor = OpenFile("a.py", "one needle\ntwo needle\nthree needle\n");
    MakeFile("b.py", "needle\n");
    Search("needle");
    const QModelIndex file = Model()->index(0, 0);
    Results()->collapse(Model()->index(1, 0));
    Results()->setCurrentIndex(Model()->index(1, 0, file));
    editor->SetCursorSelection(0, 0);
    editor->insertPlainText("a new needle\n");
    QTRY_COMPARE(Listed().first(), "a.py: a new needle");
    QCOMPARE(Results()->currentIndex().data().toString(), "two needle");
    QCOMPARE(Model()->GetHit(Results()->currentIndex()).position, 13 + 11 + 4);
    QVERIFY(Results()->isExpanded(file) && !Results()->isExpanded(Model()->index(1, 0)));
    editor->SetText("nothing");
    QTRY_COMPARE(Listed(), QStringList{"b.py: needle"});
    editor->SetText("needle again");
    QTRY_COMPARE(Listed(), (QStringList{"b.py: needle", "a.py: needle again"}));
}

void SearchInFilesTest::CatchesUpWithWhatItDidNotSee()
{
    CodeEditor* const editor = OpenFile("a.py", "needle\n");
    Search("needle");
    m_window->ShowExplorer();
    editor->SetText("another needle");
    m_window->FindInFiles();
    QCOMPARE(Listed(), QStringList{"a.py: another needle"});
}

void SearchInFilesTest::KnowsWhatIsLeftOfClosedEditors()
{
    OpenFile("a.py", "needle\n")->SetText("needle, never saved");
    OpenFile("b.py", "needle\n")->SetText("needle, saved");
    m_window->Save();
    NewBuffer("needle");
    Search("needle");
    for (const QString& path : m_window->GetCodeEditorPaths())
        m_window->CloseCodeEditor(Group(), Group()->GetCodeEditorIndex(path), false);
    QCOMPARE(Listed().mid(0, 2), (QStringList{"a.py: needle", "b.py: needle, saved"}));
    ReplaceAll("thread");
    QCOMPARE(Content(Path("a.py")) + Content(Path("b.py")), "thread\nthread, saved");
}

void SearchInFilesTest::GoesThroughTheHitsByKeys()
{
    MakeFile("a.py", "one needle needle\n");
    MakeFile("b.py", "\nneedle\n");
    Search("needle");
    const auto place = [this] {
        const CodeEditor* const editor = m_window->GetActiveCodeEditor();
        return editor->GetLabel() + ' ' + QString::number(editor->GetSelectedStartPosition()) + ' '
            + editor->textCursor().selectedText();
    };
    QStringList places;
    for (int i = 0; i < 4; ++i) {
        m_window->FindInFilesNext();
        places.append(place());
    }
    QCOMPARE(
        places, (QStringList{"a.py 4 needle", "a.py 11 needle", "b.py 1 needle", "a.py 4 needle"}));
    m_window->FindInFilesPrevious();
    QCOMPARE(place(), "b.py 1 needle");
    QCOMPARE(m_window->GetCodeEditorWithFocus(), m_window->GetActiveCodeEditor());
    Results()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(Results(), Qt::Key_Up); // the file
    QTest::keyClick(Results(), Qt::Key_Up);
    QTest::keyClick(Results(), Qt::Key_Return);
    QCOMPARE(place(), "a.py 11 needle");
    QCOMPARE(m_window->GetCodeEditorWithFocus(), m_window->GetActiveCodeEditor());
}

void SearchInFilesTest::FindsAHitThatMoved()
{
    MakeFile("a.py", "needle\n");
    Search("needle");
    MakeFile("a.py", "a line before\na needle\n");
    m_window->FindInFilesNext();
    QCOMPARE(m_window->GetActiveCodeEditor()->textCursor().selectedText(), "needle");
    QFile::remove(MakeFile("b.py", "needle\n"));
}

void SearchInFilesTest::ReplacesEverywhere()
{
    const QString windows = MakeFile("a.py", "\xef\xbb\xbfneedle\r\nneedle \xc3\xa9 needle\r\n");
    const QString odd = MakeFile("b.py", "\xe9 needle\nneedle");
    chmod(qPrintable(windows), 0750);
    CodeEditor* const editor = OpenFile("c.py", "needle\nneedle\n");
    CodeEditor* const buffer = NewBuffer("needle");
    Search("needle");
    ReplaceAll("thread");
    const DialogAnswers::Seen question = m_dialogs.Take().value(0);
    QCOMPARE(question.title, "Replace All");
    QCOMPARE(question.text, "Replace 8 occurrances across 4 files with 'thread'");
    QCOMPARE(question.defaultButton, "Cancel");
    QCOMPARE(Content(windows), "\xef\xbb\xbfthread\r\nthread \xc3\xa9 thread\r\n");
    QCOMPARE(Content(odd), "\xe9 thread\nthread");
    struct stat status;
    QCOMPARE(stat(qPrintable(windows), &status), 0);
    QCOMPARE(status.st_mode & 0777u, 0750u);
    QCOMPARE(editor->GetText(), "thread\nthread\n");
    QCOMPARE(Content(Path("c.py")), "needle\nneedle\n");
    QCOMPARE(buffer->GetText(), "thread");
    QCOMPARE(Status(), "8 results replaced in 4 files");
    QCOMPARE(Listed(), QStringList());
    editor->undo();
    QCOMPARE(editor->GetText(), "needle\nneedle\n");
}

void SearchInFilesTest::ReplacesGroups()
{
    const QString path = MakeFile("a.py", "set(1, 2)\nset(3, 4)\n");
    CodeEditor* const editor = OpenFile("b.py", "set(5, 6)");
    Toggle("m_globalRegularExpressionButton");
    Search("set\\((\\d), (\\d)\\)");
    ReplaceAll("\\2=\\1");
    QCOMPARE(Content(path), "2=1\n4=3\n");
    QCOMPARE(editor->GetText(), "6=5");
    // What looks like a group in a plain search is none.
    Toggle("m_globalRegularExpressionButton");
    Search("=");
    ReplaceAll("\\1");
    QCOMPARE(Content(path), "2\\11\n4\\13\n");
}

void SearchInFilesTest::LeavesWhatItCannotReplace()
{
    const QString changed = MakeFile("changed.py", "needle\n");
    const QString gone = MakeFile("gone.py", "needle\n");
    const QString good = MakeFile("good.py", "needle\n");
    const QString readOnly = MakeFile("readonly.py", "needle\n");
    chmod(qPrintable(readOnly), 0444);
    Search("needle");
    MakeFile("changed.py", "a needle, and more\n");
    QFile::remove(gone);
    TakeLog(host::MessageType::Warning);
    ReplaceAll("thread");
    QCOMPARE(Content(changed), "a needle, and more\n");
    QCOMPARE(Content(readOnly), "needle\n");
    QCOMPARE(Content(good), "thread\n");
    QCOMPARE(Status(), "1 result replaced in 1 file; 3 files left, see the output");
    const QStringList log = TakeLog(host::MessageType::Warning);
    QCOMPARE(log.size(), 3);
    for (const QString& path : {changed, gone, readOnly})
        QCOMPARE(log.filter(path + ": it ").size(), 1);
    QCOMPARE(Listed().size(), 3);
}

void SearchInFilesTest::ReplacesNothingWhenCancelled()
{
    const QString path = MakeFile("a.py", "needle\n");
    Search("needle");
    ReplaceAll("thread", "Cancel");
    QCOMPARE(Content(path), "needle\n");
    // The hits are not of what is typed now, so there is nothing to ask.
    View()->SetSearchText("needl");
    View()->ReplaceAll();
    QCOMPARE(m_dialogs.Take().size(), 1);
}

void SearchInFilesTest::DismissedHitsStay()
{
    const QString path = MakeFile("a.py", "needle needle\nneedle\n");
    Search("needle");
    Results()->setCurrentIndex(Model()->index(1, 0, Model()->index(0, 0)));
    QTest::keyClick(Results(), Qt::Key_Delete);
    ReplaceAll("thread");
    QCOMPARE(Content(path), "thread needle\nthread\n");
    QCOMPARE(Listed(), QStringList{"a.py: thread needle"});
}

void SearchInFilesTest::StopsAtEscape()
{
    for (int i = 0; i < 400; ++i)
        MakeFile(QString("%1.py").arg(i, 3, 10, QChar('0')), QByteArray("x = 1\n").repeated(4000));
    Toggle("m_globalRegularExpressionButton");
    auto* const field = Part<ToolLineEdit>("m_searchField");
    QTimer::singleShot(0, field, [field] {
        QCoreApplication::postEvent(
            field, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
        // Would close the side bar's page if it got through.
        QCoreApplication::postEvent(
            field, new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a"));
    });
    Search("\\d");
    QVERIFY2(Status().startsWith("Cancelled: "), qPrintable(Status()));
    QCOMPARE(View()->GetSearchText(), "\\d");
    QVERIFY(Model()->GetFileCount() < 400);
}

void SearchInFilesTest::RunsOneSearchAtATime()
{
    for (int i = 0; i < 100; ++i)
        MakeFile(QString("%1.py").arg(i), QByteArray("x = 1\n").repeated(4000));
    MakeFile("z.py", "needle = 2\n");
    OpenFile("open.py", "x = 1\n");
    QTimer::singleShot(0, m_window, [this] {
        m_window->Search("needle = ", {}, {}, false, false, false);
        m_window->CloseAllFiles();
    });
    m_window->Search("\\d", {}, {}, false, false, true);
    QTRY_COMPARE(Listed(), QStringList{"z.py: needle = 2"});
    QCOMPARE(m_window->GetCodeEditorCount(), 0);
}

void SearchInFilesTest::ShowsWhatIsWrong()
{
    MakeFile("a.py", QByteArray(300, 'a') + "b\n");
    Toggle("m_globalRegularExpressionButton");
    Search("(");
    QVERIFY(!Part<ToolLineEdit>("m_searchField")->GetFault().isEmpty());
    QVERIFY(Part<QLabel>("m_searchMessage")->isVisible());
    Search("(a+)+[xy]");
    QCOMPARE(Part<QLabel>("m_searchMessage")->text(),
        "'(a+)+[xy]' takes too many steps and was given up in 'a.py'.");
    Search("b");
    QCOMPARE(Status(), "1 result in 1 file");
    QVERIFY(!Part<QLabel>("m_searchMessage")->isVisible());
}

TE2_TEST(SearchInFilesTest)
#include "SearchInFilesTest.moc"

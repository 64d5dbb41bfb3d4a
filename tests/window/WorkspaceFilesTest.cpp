#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "settings/Settings.h"
#include "support/Rows.h"
#include "support/TestMain.h"
#include "views/explorer/FolderListing.h"
#include "views/explorer/WorkspaceTree.h"
#include "views/explorer/WorkspaceView.h"
#include "window/FilesFixture.h"

#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QtTest>

/// What is done to files in the workspace's tree, with the keys that people use, and what becomes
/// of open editors.
class WorkspaceFilesTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void TakesTypedNames_data();
    void TakesTypedNames();
    void EditorsFollowAFolder();
    void RefusesWhatIsInTheWay_data();
    void RefusesWhatIsInTheWay();
    void Deletes_data();
    void Deletes();
    void ADeletedFileStaysInItsEditor();
    void CopiesPaths();
    void OpensInTheNextGroup();
    void FindsInAFolder();

private:
    QString Tools() const { return Path("tools"); }
    QModelIndex Item(const QString& relative) const;
    void Select(const QString& relative);
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Choose(const QString& entry);
    QLineEdit* Field() const { return m_tree->findChild<QLineEdit*>("m_nameField"); }
    QStringList OnDisk() const;

    WorkspaceTree* m_tree = nullptr;
    QByteArray m_dataHome;
};

void WorkspaceFilesTest::init()
{
    Settings::workspaceExpandedFolderHashes.clear();
    Start();
    m_dataHome = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", Path("data").toLocal8Bit());
    for (const char* folder : {"data", "tools/rigs/deep"})
        QVERIFY(QDir().mkpath(Path(folder)));
    for (const char* file :
        {"tools/a.py", "tools/b.mel", "tools/rigs/r.py", "tools/rigs/deep/d.py"})
        MakeFile(file);
    auto* const view = m_window->findChild<WorkspaceView*>();
    m_tree = view->findChild<WorkspaceTree*>();
    m_window->ShowExplorer();
    view->AddFolder(Tools());
    QTRY_VERIFY(Item("rigs").isValid());
}

void WorkspaceFilesTest::cleanup()
{
    qputenv("XDG_DATA_HOME", m_dataHome);
    m_window->findChild<WorkspaceView*>()->RemoveFolder(Tools());
    Settings::workspaceFolders.clear();
    QFile::remove(Settings::GetDefaultWorkspacePath());
    QVERIFY(Finish());
}

QModelIndex WorkspaceFilesTest::Item(const QString& relative) const
{
    return m_tree->GetModel()->IndexOf(relative.isEmpty() ? Tools() : Tools() + "/" + relative);
}

void WorkspaceFilesTest::Select(const QString& relative)
{
    m_tree->SelectPath(relative.isEmpty() ? Tools() : Tools() + "/" + relative);
    QTRY_VERIFY(Item(relative).isValid() && m_tree->currentIndex() == Item(relative));
    m_tree->setFocus();
}

void WorkspaceFilesTest::Key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

/// An entry of the context menu of the current row.
void WorkspaceFilesTest::Choose(const QString& entry)
{
    Q_EMIT m_tree->customContextMenuRequested(m_tree->visualRect(m_tree->currentIndex()).center());
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    for (QAction* action : menu->actions()) {
        if (action->text() == entry) {
            menu->setActiveAction(action);
            QTest::keyClick(menu, Qt::Key_Return);
            return;
        }
    }
    menu->close();
    QFAIL(qPrintable("no entry " + entry));
}

QStringList WorkspaceFilesTest::OnDisk() const
{
    QStringList paths;
    QDirIterator iterator(Tools(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
        QDirIterator::Subdirectories);
    while (iterator.hasNext())
        paths += iterator.next().mid(Tools().size() + 1);
    paths.sort();
    return paths;
}

void WorkspaceFilesTest::TakesTypedNames_data()
{
    // The current row, an entry of its menu, and what becomes of the name.
    Columns<QString, QString, QString, bool, QString, QString, bool>(
        "start", "entry", "typed", "refused", "gone", "made", "opened");
    Row("file", "", "New File...", "n.txt", false, "", "n.txt", false);
    Row("script", "rigs", "New File...", "n.py", false, "", "rigs/n.py", true);
    Row("upper case script", "", "New File...", "N.MEL", false, "", "N.MEL", true);
    Row("folder", "rigs/deep", "New Folder...", "in", false, "", "rigs/deep/in", false);
    Row("no name", "", "New File...", "", false, "", "", false);
    Row("blanks", "", "New File...", "  ", true, "", "", false);
    Row("slash", "", "New Folder...", "x/y", true, "", "", false);
    Row("dots", "", "New Folder...", "..", true, "", "", false);
    Row("too long", "", "New File...", QString(256, 'x'), true, "", "", false);
    Row("taken", "", "New File...", "a.py", true, "", "", false);
    Row("rename", "a.py", "Rename...", "c.py", false, "a.py", "c.py", false);
    Row("folder renamed", "rigs/deep", "Rename...", "flat", false, "rigs/deep", "rigs/flat", false);
    Row("rename to itself", "a.py", "Rename...", "a.py", false, "", "", false);
    Row("rename to taken", "a.py", "Rename...", "b.mel", true, "", "", false);
    Row("rename in another case", "a.py", "Rename...", "A.py", false, "a.py", "A.py", false);
}

void WorkspaceFilesTest::TakesTypedNames()
{
    QFETCH(QString, start);
    QFETCH(QString, entry);
    QFETCH(QString, typed);
    QFETCH(bool, refused);
    QFETCH(QString, gone);
    QFETCH(QString, made);
    const QStringList before = OnDisk();
    Select(start);
    Choose(entry);
    QTRY_VERIFY(Field());
    Field()->selectAll();
    if (!typed.isEmpty())
        QTest::keyClicks(Field(), typed);
    QTest::keyClick(Field(), Qt::Key_Return);
    if (refused) {
        QVERIFY(Field()->property("invalid").toBool());
        QVERIFY(!Field()->accessibleDescription().isEmpty());
        QCOMPARE(OnDisk(), before);
        QCOMPARE(TakeErrors().size(), before.contains(typed) ? 1 : 0);
        QTest::keyClick(Field(), Qt::Key_Escape);
    }
    QTRY_VERIFY(!Field());
    QStringList expected = before;
    expected.removeAll(gone);
    const QStringList moved = expected.filter(QRegularExpression("^" + gone + "/"));
    for (const QString& path : gone.isEmpty() ? QStringList() : moved) {
        expected.removeAll(path);
        expected += made + path.mid(gone.size());
    }
    if (!made.isEmpty())
        expected += made;
    expected.sort();
    QCOMPARE(OnDisk(), expected);
    if (!made.isEmpty())
        QTRY_COMPARE(m_tree->GetCurrentPath(), Tools() + "/" + made);
    QTEST(m_window->CodeEditorExists(Tools() + "/" + made), "opened");
}

void WorkspaceFilesTest::EditorsFollowAFolder()
{
    m_window->OpenFile(Tools() + "/rigs/deep/d.py", false);
    m_window->OpenFile(Tools() + "/a.py", false);
    m_window->GetActiveCodeEditor()->insertPlainText("unsaved");
    Select("rigs/deep/d.py");
    Q_EMIT m_tree->RenameRequested(Tools() + "/rigs", "arms");
    QVERIFY(m_window->CodeEditorExists(Tools() + "/arms/deep/d.py"));
    QVERIFY(!m_window->CodeEditorExists(Tools() + "/rigs/deep/d.py"));
    // What was expanded still is.
    QTRY_VERIFY(m_tree->isExpanded(Item("arms/deep")));
    QVERIFY(Settings::workspaceExpandedFolderHashes.contains(
        FolderListing::Hash(Tools() + "/arms/deep")));
    // A root, too.
    Q_EMIT m_tree->RenameRequested(Tools(), "kit");
    QCOMPARE(Settings::workspaceFolders, QStringList(Path("kit")));
    CodeEditor* const moved = m_window->GetCodeEditor(Path("kit/a.py"));
    QVERIFY(moved && moved->IsModified());
    QVERIFY(TakeErrors().isEmpty());
    QVERIFY(QFile::rename(Path("kit"), Tools()));
    Settings::workspaceFolders = QStringList();
}

void WorkspaceFilesTest::RefusesWhatIsInTheWay_data()
{
    Columns<QString, QString>("from", "folder");
    Row("a file of that name", "a.py", "rigs");
    Row("into itself", "rigs", "rigs/deep");
    Row("vanished", "gone.py", "rigs");
    Row("an unsaved editor of that name", "b.mel", "rigs");
}

void WorkspaceFilesTest::RefusesWhatIsInTheWay()
{
    QFETCH(QString, from);
    QFETCH(QString, folder);
    MakeFile("tools/rigs/a.py");
    // Open, but not on the disk any more.
    m_window->OpenFile(MakeFile("tools/rigs/b.mel"), false);
    QVERIFY(QFile::remove(Path("tools/rigs/b.mel")));
    const QStringList before = OnDisk();
    m_dialogs.Press("Yes");
    Q_EMIT m_tree->MoveRequested({Tools() + "/" + from}, Tools() + "/" + folder);
    QTRY_COMPARE(m_dialogs.CountWaiting(), 0);
    QStringList errors;
    QTRY_VERIFY(!(errors += TakeErrors()).isEmpty());
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors.first().contains(from));
    QCOMPARE(OnDisk(), before);
}

void WorkspaceFilesTest::Deletes_data()
{
    using L = QStringList;
    // With what each question names.
    Columns<L, bool, L, L, bool>("paths", "hasTrash", "answers", "questions", "deleted");
    Row("file", L("a.py"), true, L("Yes"), L("'a.py'"), true);
    Row("folder", L("rigs"), true, L("Yes"), L("'rigs'"), true);
    Row("several", L{"a.py", "b.mel"}, true, L("Yes"), L("2 items"), true);
    Row("no", L("a.py"), true, L("No"), L("'a.py'"), false);
    Row("no trash", L("rigs"), false, L{"Yes", "Yes"}, L{"'rigs'", "for good"}, true);
    Row("no trash, kept", L("rigs"), false, L{"Yes", "No"}, L{"'rigs'", "for good"}, false);
}

void WorkspaceFilesTest::Deletes()
{
    QFETCH(QStringList, paths);
    QFETCH(bool, hasTrash);
    QFETCH(QStringList, answers);
    QFETCH(QStringList, questions);
    QFETCH(bool, deleted);
    if (!hasTrash) {
        QVERIFY(QDir(Path("data")).removeRecursively());
        MakeFile("data");
    }
    const int before = OnDisk().size();
    Select(paths.first());
    for (const QString& path : paths)
        m_tree->selectionModel()->select(Item(path), QItemSelectionModel::Select);
    for (const QString& answer : qAsConst(answers))
        m_dialogs.Press(answer);
    Key(Qt::Key_Delete);
    const QList<DialogAnswers::Seen> seen = m_dialogs.Take();
    QCOMPARE(seen.size(), questions.size());
    for (int i = 0; i < seen.size(); ++i) {
        QVERIFY2(seen[i].text.contains(questions[i]), qPrintable(seen[i].text));
        QCOMPARE(seen[i].defaultButton, QString("No"));
        QVERIFY(seen[i].isPlainText);
    }
    for (const QString& path : paths) {
        QCOMPARE(QFileInfo::exists(Tools() + "/" + path), !deleted);
        QTRY_COMPARE(Item(path).isValid(), !deleted);
        QCOMPARE(QFileInfo::exists(Path("data/Trash/files/" + path)), deleted && hasTrash);
    }
    QCOMPARE(OnDisk().size() < before, deleted);
}

void WorkspaceFilesTest::ADeletedFileStaysInItsEditor()
{
    m_window->OpenFile(Tools() + "/rigs/r.py", false);
    CodeEditor* const editor = m_window->GetActiveCodeEditor();
    Select("rigs");
    m_dialogs.Press("Yes");
    Key(Qt::Key_Delete);
    QCOMPARE(m_window->GetCodeEditor(Tools() + "/rigs/r.py"), editor);
    QCOMPARE(editor->GetText(), QString("text\n"));
    QVERIFY(editor->IsModified());
}

void WorkspaceFilesTest::CopiesPaths()
{
    Select("rigs/r.py");
    Choose("Copy Relative Path");
    QCOMPARE(QApplication::clipboard()->text(), QString("rigs/r.py"));
    m_tree->selectionModel()->select(Item("a.py"), QItemSelectionModel::Select);
    QTest::keySequence(m_tree, QKeySequence::Copy);
    const QStringList copied = QApplication::clipboard()->text().split('\n');
    QCOMPARE(QSet<QString>(copied.begin(), copied.end()),
        (QSet<QString>{Tools() + "/rigs/r.py", Tools() + "/a.py"}));
}

void WorkspaceFilesTest::OpensInTheNextGroup()
{
    m_window->OpenFile(Tools() + "/a.py", false);
    Select("b.mel");
    Key(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(m_window->GetCodeEditorGroupByIndex(1)->GetCount(), 1);
    QCOMPARE(m_window->GetActiveCodeEditor()->GetFilePath(), Tools() + "/b.mel");
    QCOMPARE(m_window->GetActiveCodeEditorGroupIndex(), 1);
}

void WorkspaceFilesTest::FindsInAFolder()
{
    Select("rigs");
    Choose("Find in Folder...");
    auto* const include = m_window->findChild<QLineEdit*>("m_includeField");
    QVERIFY(include->isVisible());
    QCOMPARE(include->text(), Tools() + "/rigs");
    QCOMPARE(QApplication::focusWidget()->objectName(), QString("m_searchField"));
}

TE2_TEST(WorkspaceFilesTest)
#include "WorkspaceFilesTest.moc"

#include "editor/CodeEditor.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/FilesFixture.h"
#include "window/InsertPathDialog.h"
#include "window/InsertedPath.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

class InsertPathTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { QVERIFY(Finish()); }
    void cleanupTestCase() { m_host.reset(); }
    void WritesPaths_data();
    void WritesPaths();
    void CompletesWhatIsThere();
    void InsertsWhatItShows();
    void OffersWhatCanBe();
    void CompletesWhileTyping();
    void ForgetsWhatIsCancelled();

private:
    template <typename Widget>
    static Widget* Part(const QDialog* dialog, const char* name)
    {
        return dialog->findChild<Widget*>(name);
    }
};

/// What is kept in memory only is nothing that resetting would change.
void InsertPathTest::init()
{
    Start();
    Settings::insertPathForwardSlashes = true;
    Settings::insertPathEscapeBackslashes = false;
}

void InsertPathTest::WritesPaths_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("relativeTo");
    QTest::addColumn<QString>("slashes"); // forward, back, escaped
    QTest::addColumn<QString>("text");
    const QString home = QDir::homePath();
    const auto row = [](const char* name, const QString& typed, const QString& relativeTo,
                         const QString& slashes, const QString& text) {
        QTest::newRow(name) << typed << relativeTo << slashes << text;
    };
    // clang-format off
    row("absolute",           "/a/b.png",     "",     "forward", "/a/b.png");
    row("without a root",     "b.png",        "",     "forward", "/base/b.png");
    row("as it is typed",     "/a/../b/",     "",     "forward", "/a/../b/");
    row("blanks",             " /a/b c.png ", "",     "forward", "/a/b c.png");
    row("home",               "~/b.png",      "",     "forward", home + "/b.png");
    row("nothing",            "  ",           "/a",   "forward", "");
    row("below",              "/a/b/c.png",   "/a",   "forward", "b/c.png");
    row("beside",             "/a/../d/c.png", "/a/b", "forward", "../../d/c.png");
    row("a folder stays one", "/a/b/",        "/a",   "forward", "b/");
    row("the folder itself",  "/a",           "/a",   "forward", ".");
    row("another drive",      "C:\\maps\\b",  "/a",   "forward", "C:/maps/b");
    row("another machine",    "\\\\box\\b",   "/a",   "forward", "//box/b");
    row("backslashes",        "/a/b.png",     "",     "back",    "\\a\\b.png");
    row("escaped",            "/a/b.png",     "/a/c", "escaped", "..\\\\b.png");
    row("drive, escaped",     "C:\\maps",     "",     "escaped", "C:\\\\maps");
    // clang-format on
}

void InsertPathTest::WritesPaths()
{
    QFETCH(QString, typed);
    QFETCH(QString, relativeTo);
    QFETCH(QString, slashes);
    const PathStyle style = {relativeTo, slashes == "forward", slashes == "escaped"};
    QTEST(InsertedPath::Text(typed, "/base", style), "text");
    // Without backslashes there is nothing to escape.
    const PathStyle escaped = {relativeTo, style.forwardSlashes, true};
    if (style.forwardSlashes)
        QTEST(InsertedPath::Text(typed, "/base", escaped), "text");
}

void InsertPathTest::CompletesWhatIsThere()
{
    for (const char* name : {"b.png", "A.png", ".hidden"})
        MakeFile(name);
    QVERIFY(QDir(m_folder->path()).mkdir("apart"));
    const QString base = m_folder->path();
    QCOMPARE(InsertedPath::Completions("a", base, 100), QStringList({"A.png", "apart/"}));
    QCOMPARE(InsertedPath::Completions("./B", base, 100), QStringList({"./b.png"}));
    QCOMPARE(InsertedPath::Completions(base + "/.h", "/", 100), QStringList({base + "/.hidden"}));
    QCOMPARE(InsertedPath::Completions("nowhere/x", base, 100), QStringList());
    QCOMPARE(InsertedPath::Completions("", base, 2).size() <= 2, true);
}

void InsertPathTest::InsertsWhatItShows()
{
    CodeEditor* const editor = OpenFile("script.py", "open('old')");
    editor->SetCursorSelection(9, 6);
    Settings::workspaceFolders = QStringList{Path("tools")};
    QTest::keyClicks(editor, "x");
    editor->undo();
    editor->SetCursorSelection(9, 6);
    m_dialogs.Do([&](QDialog* dialog) {
        QVERIFY(!Part<QPushButton>(dialog, "m_insertButton")->isEnabled());
        Part<QLineEdit>(dialog, "m_path")->setText(Path("maps/a.png"));
        Part<QComboBox>(dialog, "m_kind")->setCurrentIndex(1);
        QCOMPARE(Part<QLineEdit>(dialog, "m_preview")->text(), QString("maps/a.png"));
        Part<QComboBox>(dialog, "m_folder")->setCurrentIndex(1);
        Part<QCheckBox>(dialog, "m_forwardSlashes")->setChecked(false);
        Part<QCheckBox>(dialog, "m_escapeBackslashes")->setChecked(true);
        QCOMPARE(Part<QLineEdit>(dialog, "m_preview")->text(), QString("..\\\\maps\\\\a.png"));
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    m_window->ShowInsertPathDialog();
    QCOMPARE(editor->GetText(), QString("open('old..\\\\maps\\\\a.png')"));
    // Nobody makes the window the active one again here.
    QCOMPARE(m_frame->focusWidget(), static_cast<QWidget*>(editor));
    editor->undo();
    QCOMPARE(editor->GetText(), QString("open('old')"));
    QVERIFY(!Settings::insertPathAbsolute && !Settings::insertPathForwardSlashes);
    // The next time it is as it was left.
    m_dialogs.Do([&](QDialog* dialog) {
        QCOMPARE(Part<QComboBox>(dialog, "m_folder")->currentData().toString(), Path("tools"));
        QVERIFY(Part<QComboBox>(dialog, "m_folder")->isEnabled());
        QVERIFY(Part<QCheckBox>(dialog, "m_escapeBackslashes")->isChecked());
        dialog->reject();
    });
    m_window->ShowInsertPathDialog();
    QCOMPARE(editor->GetText(), QString("open('old')"));
}

void InsertPathTest::OffersWhatCanBe()
{
    Settings::workspaceFolders.clear();
    Settings::insertPathAbsolute = false;
    InsertPathDialog nowhere(QString(), m_window);
    QVERIFY(!Part<QComboBox>(&nowhere, "m_kind")->isEnabled());
    QVERIFY(!Part<QCheckBox>(&nowhere, "m_escapeBackslashes")->isEnabled());
    Part<QLineEdit>(&nowhere, "m_path")->setText("/a/b");
    QCOMPARE(nowhere.GetText(), QString("/a/b"));
    nowhere.accept();
    // Nobody chose that.
    QVERIFY(!Settings::insertPathAbsolute);
    InsertPathDialog somewhere(Path("tools"), m_window);
    QVERIFY(Part<QComboBox>(&somewhere, "m_folder")->isEnabled());
    Part<QLineEdit>(&somewhere, "m_path")->setText("D:\\a");
    QVERIFY(!Part<QComboBox>(&somewhere, "m_kind")->isEnabled());
    QCOMPARE(somewhere.GetText(), QString("D:/a"));
    // Without an editor nothing comes up.
    m_window->CloseAllFiles();
    m_dialogs.Take();
    m_window->ShowInsertPathDialog();
    QVERIFY(m_dialogs.Take().isEmpty());
}

void InsertPathTest::CompletesWhileTyping()
{
    QVERIFY(QDir(m_folder->path()).mkpath("maps/deep"));
    InsertPathDialog dialog(QString(), m_window);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    auto* field = Part<QLineEdit>(&dialog, "m_path");
    QTest::keyClicks(field, m_folder->path() + "/ma");
    const QAbstractItemView* const popup = field->completer()->popup();
    QTRY_VERIFY(popup->isVisible());
    QTest::keyClick(popup->window(), Qt::Key_Down);
    QTest::keyClick(popup->window(), Qt::Key_Return);
    QCOMPARE(field->text(), Path("maps/"));
    QVERIFY(dialog.isVisible());
    // And on with what is in the folder.
    QTRY_VERIFY(popup->isVisible());
    QCOMPARE(popup->model()->index(0, 0).data().toString(), Path("maps/deep/"));
}

void InsertPathTest::ForgetsWhatIsCancelled()
{
    InsertPathDialog dialog(Path("tools"), m_window);
    Part<QComboBox>(&dialog, "m_kind")->setCurrentIndex(1);
    Part<QCheckBox>(&dialog, "m_forwardSlashes")->setChecked(false);
    dialog.reject();
    QVERIFY(Settings::insertPathAbsolute && Settings::insertPathForwardSlashes);
}

TE2_TEST(InsertPathTest)
#include "InsertPathTest.moc"

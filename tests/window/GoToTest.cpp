#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "output/OutputTextEdit.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "views/goto/GoToWidget.h"
#include "window/FilesFixture.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QtTest>

class GoToTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { QVERIFY(Finish()); }
    void cleanupTestCase() { m_host.reset(); }
    void ListsFilesAsTheyWereUsed();
    void GoesBackAndForth();
    void OpensWhatIsChosen_data();
    void OpensWhatIsChosen();
    void OpensInTheNextGroup();
    void FollowsTheWorkspace();
    void TakesPreviewsBack_data();
    void TakesPreviewsBack();
    void StaysWhereOneClicks();
    void GoesToSymbols();
    void GoesToLines_data();
    void GoesToLines();
    void RunsCommands();
    void ChangesModes();
    void SaysWhatIsMissing_data();
    void SaysWhatIsMissing();
    void StaysInTheWindow_data();
    void StaysInTheWindow();

private:
    GoToWidget* Widget() const { return m_window->findChild<GoToWidget*>(); }
    QLineEdit* Field() const { return Widget()->findChild<QLineEdit*>(); }
    QListView* List() const { return Widget()->findChild<QListView*>(); }
    CodeEditor* Editor() const { return m_window->GetActiveCodeEditor(); }
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
    }
    void Type(const QString& text) const { QTest::keyClicks(QApplication::focusWidget(), text); }
    /// The names in the rows.
    QStringList Rows() const;
    QString Current() const { return List()->currentIndex().data().toString(); }
    /// Cursor, selection and scroll position.
    QString View() const;
    CodeEditor* OpenScript();
};

namespace {

/// Three functions with a hundred lines between them.
QByteArray LongScript()
{
    QByteArray script = "import os\n";
    for (const char* name : {"first", "second", "third"})
        script += "def " + QByteArray(name) + "():\n" + QByteArray("\tx = 1\n").repeated(100);
    return script;
}

} // namespace

QStringList GoToTest::Rows() const
{
    QStringList rows;
    for (int i = 0; i < List()->model()->rowCount(); ++i)
        rows += List()->model()->index(i, 0).data().toString();
    return rows;
}

QString GoToTest::View() const
{
    const QTextCursor cursor = Editor()->textCursor();
    return QString("%1-%2 at %3, %4")
        .arg(cursor.anchor())
        .arg(cursor.position())
        .arg(Editor()->verticalScrollBar()->value())
        .arg(Editor()->horizontalScrollBar()->value());
}

CodeEditor* GoToTest::OpenScript()
{
    CodeEditor* const editor = OpenFile("script.py", LongScript());
    editor->SetCursorSelection(40, 30);
    editor->verticalScrollBar()->setValue(3);
    return editor;
}

void GoToTest::ListsFilesAsTheyWereUsed()
{
    MakeFile("recent.py");
    Settings::recentFiles = QStringList{Path("recent.py"), Path("b.py")};
    OpenFile("a.py");
    OpenFile("b.py");
    m_window->CreateCodeEditor(CodeEditorType::Buffer, CodeEditorLanguage::Text, Path("x"), "notes",
        QString(), m_window->GetCodeEditorGroupByIndex(1), -1);
    OpenFile("c.py");
    m_window->SetActiveCodeEditor(Path("x"));
    m_window->SetActiveCodeEditor(Path("a.py"));
    m_window->OnFilePathChanged(Path("b.py"), Path("d.py"));
    Settings::recentFiles = QStringList{Path("recent.py"), Path("c.py")};
    Press(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(Rows(), QStringList({"a.py", "notes", "c.py", "d.py", "recent.py"}));
    QCOMPARE(Current(), QString("notes"));
}

void GoToTest::GoesBackAndForth()
{
    OpenFile("a.py");
    OpenFile("b.py");
    OpenFile("c.py");
    for (const char* label : {"b.py", "c.py"}) {
        Press(Qt::Key_P, Qt::ControlModifier);
        Press(Qt::Key_Return);
        QCOMPARE(Editor()->GetLabel(), QString(label));
        QVERIFY(Editor()->hasFocus());
    }
    // The same keys go down, round at the end.
    for (const char* label : {"b.py", "a.py", "c.py", "b.py"}) {
        Press(Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(Current(), QString(label));
    }
    Press(Qt::Key_Up);
    Press(Qt::Key_Up);
    QCOMPARE(Current(), QString("a.py"));
    Press(Qt::Key_PageDown);
    QCOMPARE(Current(), QString("a.py"));
    Press(Qt::Key_Escape);
    QVERIFY(!Widget()->isVisible() && Editor()->hasFocus());
    QCOMPARE(Editor()->GetLabel(), QString("c.py"));
}

void GoToTest::OpensWhatIsChosen_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("view");
    // clang-format off
    QTest::newRow("name")                << "scr"            << "script.py" << "1, 1";
    QTest::newRow("name and line")       << "scr:3"          << "script.py" << "3, 1";
    QTest::newRow("name, line, column")  << "scr:3:5"        << "script.py" << "3, 5";
    QTest::newRow("beyond the end")      << "scr:9999"       << "script.py" << "305, 1";
    QTest::newRow("pasted path")         << "%1/other.py"    << "other.py"  << "1, 1";
    QTest::newRow("pasted path, line")   << "%1/script.py:7" << "script.py" << "7, 1";
    // clang-format on
}

void GoToTest::OpensWhatIsChosen()
{
    MakeFile("script.py", LongScript());
    MakeFile("other.py");
    Settings::recentFiles = QStringList{Path("script.py")};
    NewBuffer("x");
    m_window->GoToFile();
    QFETCH(QString, typed);
    Field()->setText(typed.replace("%1", m_folder->path()));
    Press(Qt::Key_Return);
    QTEST(Editor()->GetLabel(), "label");
    int line = 0;
    int column = 0;
    int length = 0;
    Editor()->GetCursorStatus(line, column, length);
    QTEST(QString("%1, %2").arg(line).arg(column), "view");
    QVERIFY(Editor()->hasFocus());
}

void GoToTest::OpensInTheNextGroup()
{
    OpenFile("a.py");
    MakeFile("b.py");
    Settings::recentFiles = QStringList{Path("b.py")};
    Press(Qt::Key_P, Qt::ControlModifier);
    Press(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(m_window->GetActiveCodeEditorGroupIndex(), 1);
    QCOMPARE(Labels(), QStringList({"b.py"}));
    QVERIFY(Group()->isVisible() && Editor()->hasFocus());
}

void GoToTest::FollowsTheWorkspace()
{
    OpenFile("a.py");
    QVERIFY(QDir(m_folder->path()).mkdir("tools"));
    MakeFile("tools/b.py");
    Settings::workspaceFolders = QStringList{Path("tools")};
    m_window->GoToFile();
    QTRY_COMPARE(Rows(), QStringList({"a.py", "b.py"}));
    MakeFile("tools/c.py");
    m_window->OnWorkspaceModified();
    QTRY_COMPARE(Rows(), QStringList({"a.py", "b.py", "c.py"}));
    Type("tools/b");
    QCOMPARE(Rows(), QStringList({"b.py"}));
    Type("x");
    QCOMPARE(Rows(), QStringList({"No matching files"}));
}

void GoToTest::TakesPreviewsBack_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("leaving");
    for (const char* typed : {"@second", ":150", ":+40:3"}) {
        for (const char* leaving : {"Escape", "prefix", "focus", "window"})
            QTest::addRow("%s, %s", typed, leaving) << typed << leaving;
    }
}

void GoToTest::TakesPreviewsBack()
{
    OpenScript();
    const QString before = View();
    m_window->GoToFile();
    QFETCH(QString, typed);
    Type(typed);
    QVERIFY(View() != before);
    QFETCH(QString, leaving);
    if (leaving == "Escape")
        Press(Qt::Key_Escape);
    else if (leaving == "prefix")
        Field()->setText("script");
    else if (leaving == "focus")
        m_window->findChild<OutputTextEdit*>()->setFocus();
    else
        m_frame->hide();
    QCOMPARE(View(), before);
    QCOMPARE(Widget()->isVisible(), leaving == "prefix");
    QCOMPARE(Editor()->hasFocus(), leaving == "Escape");
}

/// What one sees is where one clicks.
void GoToTest::StaysWhereOneClicks()
{
    OpenScript();
    m_window->GoToLine();
    Type("150");
    const int scrolled = Editor()->verticalScrollBar()->value();
    QTest::mouseClick(Editor()->viewport(), Qt::LeftButton, {}, QPoint(60, 200));
    QVERIFY(!Widget()->isVisible());
    QCOMPARE(Editor()->verticalScrollBar()->value(), scrolled);
    QVERIFY(Editor()->GetCurrentLine() > 100);
}

void GoToTest::GoesToSymbols()
{
    OpenScript();
    Editor()->SetCurrentLine(120);
    Press(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Rows(), QStringList({"first", "second", "third"}));
    QCOMPARE(Current(), QString("second"));
    Press(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Editor()->GetSelectedText(), QString("third"));
    Field()->setText("@s");
    QCOMPARE(Rows(), QStringList({"second", "os", "first"}));
    QCOMPARE(Editor()->GetSelectedText(), QString("second"));
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    QCOMPARE(Editor()->GetSelectedText(), QString("os"));
    QVERIFY(Editor()->hasFocus() && !Widget()->isVisible());
}

void GoToTest::GoesToLines_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("row");
    QTest::addColumn<int>("position"); // -1: nothing is accepted
    QTest::newRow("line") << "2"
                          << "Go to line 2 of 305" << 10;
    QTest::newRow("column of a tab") << "3:4"
                                     << "Go to line 3 of 305, column 4" << 23;
    QTest::newRow("column") << "3:6"
                            << "Go to line 3 of 305, column 6" << 25;
    QTest::newRow("beyond the line") << "3:99"
                                     << "Go to line 3 of 305, column 99" << 29;
    QTest::newRow("relative") << "-1"
                              << "Go to line 1 of 305" << 0;
    QTest::newRow("no number") << "x"
                               << "Line 1 to 305" << -1;
    QTest::newRow("line 0") << "0"
                            << "Line 1 to 305" << -1;
    QTest::newRow("nothing") << ""
                             << "Line 1 to 305" << -1;
}

void GoToTest::GoesToLines()
{
    OpenScript();
    Editor()->SetCurrentLine(2);
    QFETCH(int, position);
    m_window->findChild<QAbstractButton*>("m_position")->click();
    QFETCH(QString, typed);
    Type(typed);
    QTEST(Rows().value(0), "row");
    Press(Qt::Key_Return);
    QCOMPARE(Widget()->isVisible(), position < 0);
    if (position >= 0)
        QCOMPARE(Editor()->GetCursorPosition(), position);
}

void GoToTest::RunsCommands()
{
    OpenFile("a.py", "\tx");
    m_window->GoToFile();
    Type(">tabs spaces");
    QCOMPARE(Current(), QString("Convert Tabs to Spaces"));
    Press(Qt::Key_Return);
    QCOMPARE(Editor()->GetText(), QString("    x"));
    QVERIFY(Editor()->hasFocus());
    m_window->GoToFile();
    Type(">");
    QCOMPARE(Rows().mid(0, 2), QStringList({"Convert Tabs to Spaces", "New..."}));
    Type("toggle comment");
    Press(Qt::Key_Return);
    QCOMPARE(Editor()->GetText(), QString("    # x"));
    // What acts on the console does so when one came from there.
    m_window->findChild<OutputTextEdit*>()->setFocus();
    m_window->GoToFile();
    Type(">");
    QCOMPARE(Rows().mid(0, 2), QStringList({"Toggle Comment", "Convert Tabs to Spaces"}));
    Type("select all");
    Press(Qt::Key_Return);
    QVERIFY(m_window->findChild<OutputTextEdit*>()->hasFocus());
    QVERIFY(!Editor()->textCursor().hasSelection());
}

void GoToTest::ChangesModes()
{
    OpenScript();
    m_window->GoToFile();
    Type("?");
    QCOMPARE(Rows(), QStringList({"a name", "@", ":", ">"}));
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    QCOMPARE(Field()->text(), QString("@"));
    QCOMPARE(Rows().first(), QString("first"));
    Press(Qt::Key_G, Qt::ControlModifier);
    QCOMPARE(Field()->text(), QString(":"));
    Press(Qt::Key_Backspace);
    QCOMPARE(Rows(), QStringList({"script.py"}));
}

void GoToTest::SaysWhatIsMissing_data()
{
    QTest::addColumn<bool>("isOpen");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("row");
    // clang-format off
    QTest::newRow("no file")            << false << ""        << "No files yet: open one, or add a folder to the workspace";
    QTest::newRow("no matching file")   << true  << "zzz"     << "No matching files";
    QTest::newRow("symbols of nothing") << false << "@"       << "No editor is open";
    QTest::newRow("no symbols")         << true  << "@"       << "No symbols";
    QTest::newRow("lines of nothing")   << false << ":"       << "No editor is open";
    QTest::newRow("no command")         << true  << ">zzz"    << "No matching commands";
    // clang-format on
}

void GoToTest::SaysWhatIsMissing()
{
    QFETCH(bool, isOpen);
    Settings::recentFiles.clear();
    if (isOpen)
        OpenFile("a.txt");
    m_window->GoToFile();
    QFETCH(QString, typed);
    Type(typed);
    QFETCH(QString, row);
    QTRY_COMPARE(Rows(), QStringList({row}));
    Press(Qt::Key_Return);
    Press(Qt::Key_Down);
    QVERIFY(Widget()->isVisible());
    QCOMPARE(Field()->accessibleDescription(), row);
}

void GoToTest::StaysInTheWindow_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << 1.0 << QSize(1300, 900);
    QTest::newRow("narrow") << 1.0 << QSize(420, 700);
    QTest::newRow("low") << 1.0 << QSize(900, 320);
    QTest::newRow("double") << 2.0 << QSize(1300, 900);
    QTest::newRow("double and narrow") << 2.0 << QSize(700, 500);
}

void GoToTest::StaysInTheWindow()
{
    QFETCH(double, scale);
    QFETCH(QSize, size);
    Settings::customScaleValue = scale;
    DeleteWindow();
    CreateWindow();
    OpenScript();
    m_window->GoToFile();
    Type(">");
    const int width = qRound(400 * scale);
    const auto* editors = m_window->findChild<QWidget*>("m_codeEditorSplitter");
    const QRect area(editors->mapTo(m_window, QPoint()), editors->size());
    QCOMPARE(Widget()->width(), qMin(width, m_window->width() - qRound(40 * scale)));
    // Unless the margin of the window is in the way.
    const int offset = qAbs(Widget()->geometry().center().x() - area.center().x());
    const int margin = m_window->width() - Widget()->geometry().right() - 1;
    QVERIFY(offset < 2 || margin == qRound(20 * scale));
    QCOMPARE(Widget()->y(), area.y() + qRound(8 * scale));
    // Also when the window changes below it.
    Settings::sideBarVisible = true;
    m_frame->resize(size);
    QTRY_VERIFY(m_window->rect().contains(Widget()->geometry()));
    QVERIFY(List()->height() >= List()->sizeHintForRow(0));
    m_window->ToggleCodeEditor();
    QVERIFY(!Widget()->isVisible() || m_window->rect().contains(Widget()->geometry()));
    Settings::customScaleValue = 1.0;
}

TE2_TEST(GoToTest)
#include "GoToTest.moc"

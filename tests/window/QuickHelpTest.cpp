#include "editor/CodeEditor.h"
#include "plugin/MayaUtil.h"
#include "support/TestMain.h"
#include "views/quickhelp/QuickHelpPage.h"
#include "views/quickhelp/QuickHelpView.h"
#include "window/FilesFixture.h"

#include <QLineEdit>
#include <QtTest>

/// The quick help together with the editors: what it is asked about, and what becomes of its
/// answers.
class QuickHelpTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { MayaUtil::RefreshCommandList(); }
    void init() { Start(); }
    void cleanup() { QVERIFY(Finish()); }
    void HelpsWithTheNameAtTheCursor_data();
    void HelpsWithTheNameAtTheCursor();
    void PutsAFlagIntoTheScript();
    void OpensTheLineThatDefinesAFunction();

private:
    template <typename T>
    T* Part(const char* name) const
    {
        return m_window->findChild<T*>(name);
    }
    /// The kind stands behind it or below it.
    QString Title() const
    {
        const QString text = Part<QuickHelpPage>("m_quickHelpPage")->toPlainText();
        return text.section(QRegularExpression("[\t\n]"), 0, 0).mid(2);
    }
    CodeEditor* Open(const QString& file, QString marked);
};

/// "<" is the anchor, "|" the cursor.
CodeEditor* QuickHelpTest::Open(const QString& file, QString marked)
{
    const int anchor = QString(marked).remove('|').indexOf('<');
    const int position = QString(marked).remove('<').indexOf('|');
    CodeEditor* const editor = OpenFile(file, marked.remove('<').remove('|').toUtf8());
    editor->SetCursorSelection(anchor < 0 ? position : anchor, position);
    return editor;
}

void QuickHelpTest::HelpsWithTheNameAtTheCursor_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");
    const auto row = [](const char* name, const char* file, const char* text, const char* title) {
        QTest::newRow(name) << QString(file) << QString(text) << QString(title);
    };
    row("MEL", "a.mel", "but|ton -label \"x\";", "button");
    row("command behind a dot", "a.py", "cmds.but|ton(label='x')", "button");
    row("function behind dots", "a.py", "import os\nos.path.jo|in('a')", "os.path.join");
    row("what stands before it", "a.py", "import os\nos.pa|th.join('a')", "os.path");
    row("a selected word keeps what it belongs to", "a.py", "import os\nos.path.<join|",
        "os.path.join");
    row("selection in MEL", "a.mel", "<button| window", "button");
}

void QuickHelpTest::HelpsWithTheNameAtTheCursor()
{
    QFETCH(QString, file);
    QFETCH(QString, text);
    // As from the editor's menu, which tells of the selection only.
    Open(file, text)->QuickHelp();
    QTEST(Title(), "title");
    QVERIFY(Part<QLineEdit>("m_quickHelpSearch")->hasFocus());
    QTest::keyClick(Part<QLineEdit>("m_quickHelpSearch"), Qt::Key_Escape);
    QVERIFY(m_window->GetCodeEditorWithFocus());
}

void QuickHelpTest::PutsAFlagIntoTheScript()
{
    CodeEditor* const editor = Open("a.py", "cmds.button(label='x'|)");
    m_window->OnQuickHelpChanged("button", true);
    QTest::keyClicks(Part<QLineEdit>("m_quickHelpSearch"), "-width");
    QTest::keyClick(Part<QLineEdit>("m_quickHelpSearch"), Qt::Key_Down);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(editor->GetText(), QString("cmds.button(label='x', width=)"));
    QVERIFY(editor->hasFocus());
    editor->undo();
    QCOMPARE(editor->GetText(), QString("cmds.button(label='x')"));
}

void QuickHelpTest::OpensTheLineThatDefinesAFunction()
{
    const QString path = MakeFile("te_module.py", "# One\n# Two\ndef te_walk():\n    pass\n");
    QVERIFY(MayaUtil::ExecutePython(
        QString("import sys\nsys.path.insert(0, '%1')\nimport te_module\ndel sys.path[0]")
            .arg(m_folder->path())));
    Open("a.py", "import te_module\nte_module.te_wa|lk()")->QuickHelp();
    QCOMPARE(Title(), QString("te_module.te_walk"));
    auto* const page = Part<QuickHelpPage>("m_quickHelpPage");
    page->setFocus(Qt::TabFocusReason);
    QTest::keyClick(page, Qt::Key_Tab);
    QTest::keyClick(page, Qt::Key_Return);
    QCOMPARE(m_window->GetActiveCodeEditor()->GetFilePath(), path);
    QCOMPARE(m_window->GetActiveCodeEditor()->GetCurrentLine(), 3);
}

TE2_TEST(QuickHelpTest)
#include "QuickHelpTest.moc"

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "editor/FindReplaceWidget.h"
#include "output/OutputTextEdit.h"
#include "support/TestMain.h"
#include "window/TarnwickEditor.h"
#include "window/WindowFixture.h"
#include "window/chrome/ToolLineEdit.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QtTest>

#include <memory>

class FindCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_fixture = std::make_unique<WindowFixture>(); }
    void init();
    void cleanup() { m_window.reset(); }
    void cleanupTestCase() { m_fixture.reset(); }
    void OpensTheBarByKeys();
    void AsksForTheFieldsBeforeReplacing();
    void SeeksTheWordWhenNothingWasSought();
    void WorksInTheConsoleThatHasTheFocus();

private:
    CodeEditorGroup& Group() const { return *m_window->GetActiveCodeEditorGroup(); }
    CodeEditor& Editor() const { return *m_window->GetActiveCodeEditor(); }
    ToolLineEdit* Field(const char* name) const
    {
        return Group().GetFindReplace()->findChild<ToolLineEdit*>(name);
    }
    QAction* Action(const char* text, int occurrence = 0) const;

    std::unique_ptr<WindowFixture> m_fixture;
    std::unique_ptr<TarnwickEditor> m_window;
};

void FindCommandsTest::init()
{
    m_window = std::make_unique<TarnwickEditor>();
    m_window->resize(1200, 800);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_window->FocusActiveCodeEditor();
    Editor().SetText("one two\none two");
}

/// The window's action of that text; the replacing ones share theirs.
QAction* FindCommandsTest::Action(const char* text, int occurrence) const
{
    for (QAction* action : m_window->actions()) {
        if (action->text() == QLatin1String(text) && occurrence-- == 0)
            return action;
    }
    return nullptr;
}

void FindCommandsTest::OpensTheBarByKeys()
{
    QTest::keyClick(&Editor(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(Group().IsFindReplaceVisible());
    QVERIFY(!Group().GetFindReplace()->IsReplaceVisible());
    QVERIFY(Field("m_searchLineEdit")->hasFocus());
    QCOMPARE(Field("m_searchLineEdit")->text(), "one");
    // From the search field on, the other field is what is missing.
    QTest::keyClick(Field("m_searchLineEdit"), Qt::Key_H, Qt::ControlModifier);
    QVERIFY(Field("m_replaceLineEdit")->hasFocus());
    // What stands in the field was typed there and is kept.
    Field("m_searchLineEdit")->setText("two");
    QTest::keyClick(Field("m_replaceLineEdit"), Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(Field("m_searchLineEdit")->text(), "two");
    QVERIFY(Field("m_searchLineEdit")->hasFocus());
    QTest::keyClick(Field("m_searchLineEdit"), Qt::Key_Escape);
    QVERIFY(Editor().hasFocus());
}

void FindCommandsTest::AsksForTheFieldsBeforeReplacing()
{
    Editor().SetCursorSelection(0, 3);
    Action("Replace", 1)->trigger();
    QVERIFY(Group().GetFindReplace()->IsReplaceVisible());
    QCOMPARE(Editor().GetText(), "one two\none two");
    Field("m_replaceLineEdit")->setText("1");
    Action("Replace Next")->trigger();
    QCOMPARE(Editor().GetText(), "1 two\none two");
    Action("Replace", 1)->trigger();
    QCOMPARE(Editor().GetText(), "1 two\n1 two");
}

void FindCommandsTest::SeeksTheWordWhenNothingWasSought()
{
    Editor().SetCursorPosition(5, false, false);
    QTest::keyClick(&Editor(), Qt::Key_F3);
    QCOMPARE(Editor().GetSelectedStartPosition(), 12);
    QCOMPARE(Editor().GetSelectedText(), "two");
}

void FindCommandsTest::WorksInTheConsoleThatHasTheFocus()
{
    auto* output = m_window->findChild<OutputTextEdit*>();
    output->ClearAll();
    m_window->AppendToOutput("one two\none two\n");
    output->setFocus();
    output->moveCursor(QTextCursor::Start);
    QTest::keyClick(output, Qt::Key_F3, Qt::ControlModifier);
    QCOMPARE(output->textCursor().selectedText(), "one");
    QCOMPARE(output->textCursor().selectionStart(), 8);
    QTest::keyClick(output, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(output->IsFindReplaceVisible());
    QVERIFY(!Group().IsFindReplaceVisible());
    // Nothing of the console is replaced, and nothing behind one's back.
    Editor().SetCursorSelection(0, 3);
    Action("Replace", 1)->trigger();
    Action("Replace Next")->trigger();
    QCOMPARE(Editor().GetText(), "one two\none two");
    auto* field = output->GetFindReplace()->findChild<ToolLineEdit*>("m_searchLineEdit");
    QVERIFY(field->hasFocus());
    QTest::keyClick(field, Qt::Key_F3);
    QCOMPARE(output->textCursor().selectionStart(), 0);
}

TE2_TEST(FindCommandsTest)
#include "FindCommandsTest.moc"

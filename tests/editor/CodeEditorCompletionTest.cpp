#include "editor/CodeEditor.h"
#include "language/AutoCompleter.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"

#include <QListView>
#include <QSignalSpy>
#include <QTextBlock>
#include <QtTest>

Q_DECLARE_METATYPE(CodeEditorLanguage)

namespace {

using Language = CodeEditorLanguage;

/// "<" and ">" stand for the keys Left and Backspace, "^" for Ctrl+Space, "~" for Down, a line
/// feed for Return.
void TypeKeys(CodeEditor& editor, const QString& text)
{
    for (const QChar character : text) {
        switch (character.unicode()) {
        case '<': QTest::keyClick(&editor, Qt::Key_Left); break;
        case '>': QTest::keyClick(&editor, Qt::Key_Backspace); break;
        case '^': QTest::keyClick(&editor, Qt::Key_Space, Qt::ControlModifier); break;
        case '~': QTest::keyClick(&editor, Qt::Key_Down); break;
        case '\n': QTest::keyClick(&editor, Qt::Key_Return); break;
        default: QTest::keyClick(&editor, character.toLatin1());
        }
        // A list that comes by itself comes behind the keys.
        QCoreApplication::processEvents();
    }
}

} // namespace

/// The host is not there: MEL knows its keywords only, and Python the words of the text.
class CodeEditorCompletionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void OpensWhereNamesAreTyped_data();
    void OpensWhereNamesAreTyped();
    void ObeysTheOptions_data();
    void ObeysTheOptions();
    void WaitsForTheKeysThatWerePressed();
    void TakesComposedCharactersForKeys();
    void ReplacesTheTypedPartInOneStep();
    void ClosesWithoutTheFocus();
    void TellsQuickHelpOfARestingSelection();
    void ForgetsTheListOfAnotherLanguage();

private:
    CodeEditor& Open(Language language);
    bool IsShown() const
    {
        const auto* completer = m_editor->findChild<AutoCompleter*>();
        return completer && completer->isVisible();
    }

    KeyBindings m_bindings;
    std::unique_ptr<CodeEditor> m_editor;
};

CodeEditor& CodeEditorCompletionTest::Open(Language language)
{
    CodeEditorProperties properties;
    properties.language = language;
    m_editor = std::make_unique<CodeEditor>(properties, &m_bindings);
    m_editor->show();
    m_editor->activateWindow();
    m_editor->setFocus();
    (void)QTest::qWaitForWindowActive(m_editor.get());
    return *m_editor;
}

void CodeEditorCompletionTest::cleanup()
{
    m_editor.reset();
    for (bool* option : {&Settings::melCompleteOnLetters, &Settings::melCompleteOnUser,
             &Settings::pythonCompleteOnLetters, &Settings::pythonCompleteOnDot,
             &Settings::melAutoCompleteToQuickHelp})
        *option = true;
}

void CodeEditorCompletionTest::OpensWhereNamesAreTyped_data()
{
    Columns<Language, QString, bool>("language", "keys", "isShown");
    Row("letters", Language::Mel, "glo", true);
    Row("a name with a digit", Language::Mel, "glo1", false);
    Row("a blank", Language::Mel, "g ", false);
    Row("a bracket", Language::Mel, "g(", false);
    Row("taken back", Language::Mel, "glob>", true);
    Row("all taken back", Language::Mel, "g>", false);
    Row("left", Language::Mel, "glo<", false);
    Row("a variable", Language::Mel, "$glo", false);
    Row("a flag of nothing known", Language::Mel, "a -q", false);
    Row("within a string", Language::Mel, "\"glo", false);
    Row("within a string, asked for", Language::Mel, "\"s^", true);
    Row("within a comment", Language::Mel, "// glo", false);
    Row("in a text", Language::Text, "glo glo^", false);
    Row("words of the source", Language::Python, "one = on", true);
    Row("Python within a string", Language::Python, "one = 'on^", false);
    Row("Python behind a comment sign", Language::Python, "one = 1 # on^", false);
    Row("behind a string", Language::Python, "one = 'a'+on", true);
    Row("attributes of nothing known", Language::Python, "one = on.", false);
    Row("on an empty line, asked for", Language::Python, "one = two\n^", true);
}

void CodeEditorCompletionTest::OpensWhereNamesAreTyped()
{
    QFETCH(Language, language);
    QFETCH(QString, keys);
    TypeKeys(Open(language), keys);
    QTEST(IsShown(), "isShown");
}

void CodeEditorCompletionTest::ObeysTheOptions_data()
{
    Columns<bool, bool, QString, bool>("letters", "user", "keys", "isShown");
    Row("no letters", false, true, "glo", false);
    Row("no letters, asked for", false, true, "s^", false);
    Row("no asking", true, false, "s", true);
    Row("no asking, asked for", true, false, "s < ^", false);
}

void CodeEditorCompletionTest::ObeysTheOptions()
{
    QFETCH(bool, letters);
    QFETCH(bool, user);
    QFETCH(QString, keys);
    CodeEditor& editor = Open(Language::Mel);
    Settings::melCompleteOnLetters = letters;
    Settings::melCompleteOnUser = user;
    TypeKeys(editor, keys);
    QTEST(IsShown(), "isShown");
}

void CodeEditorCompletionTest::WaitsForTheKeysThatWerePressed()
{
    CodeEditor& editor = Open(Language::Mel);
    QTest::keyClicks(&editor, "glo");
    QVERIFY(!IsShown());
    QTRY_VERIFY(IsShown());
    TypeKeys(editor, ">>>");
    QVERIFY(!IsShown());
    QTest::keyClicks(&editor, "g");
    QTest::keyClick(&editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    QVERIFY(!IsShown());
    QCOMPARE(editor.GetText(), "g\n");
}

/// Of dead keys and input methods.
void CodeEditorCompletionTest::TakesComposedCharactersForKeys()
{
    CodeEditor& editor = Open(Language::Mel);
    const auto compose = [&editor](const QString& preedit, const QString& text) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(text);
        QApplication::sendEvent(&editor, &event);
        QCoreApplication::processEvents();
        return editor.textCursor().block().layout()->preeditAreaText();
    };
    QCOMPARE(compose("'", ""), "'");
    QCOMPARE(editor.GetText(), QString());
    QCOMPARE(compose("", "\""), QString());
    QCOMPARE(editor.GetText(), "\"\"");
    compose("", "\"");
    compose("", "(");
    QCOMPARE(editor.GetText(), "\"\"()");
    compose("", "g");
    QVERIFY(IsShown());
    QCOMPARE(compose("l", ""), "l");
    QVERIFY(!IsShown());
    compose("", "lo (");
    QCOMPARE(editor.GetText(), "\"\"(glo ()");
    compose("", ")");
    QCOMPARE(editor.GetText(), "\"\"(glo ()");
}

void CodeEditorCompletionTest::ReplacesTheTypedPartInOneStep()
{
    CodeEditor& editor = Open(Language::Mel);
    editor.SetText("x;");
    editor.SetCursorPosition(0, false, false);
    TypeKeys(editor, "s~~\n");
    QCOMPARE(editor.GetText(), "switchx;");
    QCOMPARE(editor.GetCursorPosition(), 6);
    editor.undo();
    QCOMPARE(editor.GetText(), "sx;");
    QCOMPARE(editor.GetCursorPosition(), 1);
    editor.SetText("tru");
    editor.SetCursorPosition(3, false, false);
    TypeKeys(editor, "^");
    QCOMPARE(editor.GetText(), "true");
}

void CodeEditorCompletionTest::ClosesWithoutTheFocus()
{
    CodeEditor& editor = Open(Language::Mel);
    TypeKeys(editor, "s");
    QVERIFY(IsShown());
    editor.clearFocus();
    QVERIFY(!IsShown());
    editor.setFocus();
    TypeKeys(editor, "t");
    QVERIFY(IsShown());
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, QPoint(100, 100));
    QVERIFY(!IsShown());
    QSignalSpy escape(&editor, &CodeEditor::EscapeKeyPressed);
    TypeKeys(editor, "r");
    QVERIFY(IsShown());
    QTest::keyClick(&editor, Qt::Key_Escape);
    QVERIFY(!IsShown());
    QCOMPARE(escape.size(), 0);
}

void CodeEditorCompletionTest::TellsQuickHelpOfARestingSelection()
{
    CodeEditor& editor = Open(Language::Mel);
    QSignalSpy told(&editor, &CodeEditor::QuickHelpChanged);
    TypeKeys(editor, "s~");
    QTRY_COMPARE(told.size(), 1);
    QCOMPARE(told[0], QVariantList({"switch", false}));
}

void CodeEditorCompletionTest::ForgetsTheListOfAnotherLanguage()
{
    CodeEditor& editor = Open(Language::Mel);
    TypeKeys(editor, "s");
    QVERIFY(IsShown());
    CodeEditorProperties properties;
    editor.GetProperties(properties);
    properties.language = Language::Text;
    editor.SetProperties(properties, false);
    QVERIFY(!IsShown());
    TypeKeys(editor, "w");
    QVERIFY(!IsShown());
}

TE2_TEST(CodeEditorCompletionTest)
#include "CodeEditorCompletionTest.moc"

#include "NaiveHighlighting.h"
#include "editor/CodeEditorBlockData.h"
#include "language/MelHighlighter.h"
#include "language/PythonHighlighter.h"
#include "settings/ColorSettings.h"
#include "settings/SettingsFixture.h"
#include "support/TestMain.h"

#include <QPlainTextDocumentLayout>
#include <QRandomGenerator>
#include <QTextBlock>
#include <QTextDocument>
#include <QtTest>

namespace {

using Language = NaiveHighlighting::Language;

/// A document with the layout that editors use, and its highlighter.
class Script
{
public:
    explicit Script(Language language)
    {
        document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
        if (language == NaiveHighlighting::Python)
            highlighter = new PythonHighlighter(&document);
        else
            highlighter = new MelHighlighter(&document);
    }

    const CodeEditorBlockData& Data(int line) const
    {
        return *static_cast<CodeEditorBlockData*>(document.findBlockByNumber(line).userData());
    }

    QTextDocument document;
    Highlighter* highlighter = nullptr;
};

QStringList ShownRoles(const QTextBlock& block)
{
    QStringList roles;
    for (int i = 0; i < block.length() - 1; ++i)
        roles += QString();
    for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
        for (const QString& key : ColorSettings::codeEditorHighlightOrderedKeys) {
            if (ColorSettings::GetCodeEditorFormat(key, false) != range.format)
                continue;
            for (int i = range.start; i < range.start + range.length; ++i)
                roles[i] = key;
        }
    }
    return roles;
}

/// The first line that looks other than the plain rules have it; empty when there is none.
QString Difference(const QTextDocument& document, Language language)
{
    const NaiveHighlighting naive(language);
    int state = -1;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QStringList expected = naive.RolesOf(block.text(), state);
        const QStringList shown = ShownRoles(block);
        if (shown == expected && block.userState() == state)
            continue;
        return QString("line %1 \"%2\": state %3, expected %4\n%5\n%6")
            .arg(block.blockNumber())
            .arg(block.text())
            .arg(block.userState())
            .arg(state)
            .arg(shown.join(','), expected.join(','));
    }
    return QString();
}

/// Texts made of the pieces that matter, always the same ones.
QString RandomScript(QRandomGenerator& random, Language language, int pieces)
{
    static const QStringList PYTHON{"\"", "'", "\"\"\"", "'''", "#", "\\", "\n", "\n", " ", "if",
        "class ", "def ", "A", "(", ")", "self", "cls", "1", "2.5", ".", "open", "os.open", "ls",
        "-", "$", "@", "\t", "_x", "\u00e4", "\\\n", "len (", "0x1F", "[", "]", "{", "}", ":"};
    static const QStringList MEL{"\"", "//", "/*", "*/", "/", "*", "\\", "\n", "\n", " ", "if",
        "proc ", "global ", "$a", "$", "-query", "-", "ls", "(", ")", "1", ".", "polyCube", "_x",
        "SelectAll", "source_me", "\u00e4", "\\\n", "foo(", "{", "}", "[", "]", ";"};
    const QStringList& alphabet = language == NaiveHighlighting::Python ? PYTHON : MEL;
    QString text;
    for (int i = 0; i < pieces; ++i)
        text += alphabet.at(int(random.bounded(quint32(alphabet.size()))));
    return text;
}

} // namespace

class HighlighterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void Lines_data();
    void Lines();
    void AgreesWithThePlainRules_data();
    void AgreesWithThePlainRules();
    void EditsAgreeWithAFullPass_data() { AgreesWithThePlainRules_data(); }
    void EditsAgreeWithAFullPass();
    void LongTextsAreFinishedLater();
    void LongCascadesAreFinishedLater();
    void AnEditMeetsUnfinishedLines();
    void ManyLinesChangedInOneStep();
    void DataWithinAnEditBlock();
    void OnlyTheViewOfAVeryLongText();
    void ColoursWhatIsAskedFor();
    void AttachesToAFilledDocument();
    void FollowsTheColours();
    void ColoursVisibleWhitespace();
    void BlockData_data();
    void BlockData();
    void PlainTextHasDataToo();

private:
    SettingsFixture m_settings;
};

void HighlighterTest::initTestCase()
{
    ColorSettings::Initialize();
    // Roles that look alike could not be told apart.
    int hue = 0;
    for (const QString& key : ColorSettings::codeEditorHighlightOrderedKeys) {
        QTextCharFormat format;
        format.setForeground(QColor::fromHsv(hue++ * 11, 200, 200));
        ColorSettings::SetCodeEditorFormat(key, format);
    }
}

void HighlighterTest::init()
{
    for (const QString& key : ColorSettings::codeEditorHighlightOrderedKeys)
        QVERIFY(ColorSettings::GetCodeEditorFormat(key, false)
                    .hasProperty(QTextFormat::ForegroundBrush));
}

void HighlighterTest::Lines_data()
{
    // "line": the last line's roles, a letter each, "." for none
    Columns<int, QString, QString>("language", "text", "line");
    const auto row = [](Language language, const char* name, const char* text, const char* line) {
        Row(name, int(language), QString(text), QString(line));
    };
    // K keyword, B builtin, M host command, s string, d docstring, n number, C class, m method,
    // c comment, @ decorator, S self, v variable
    const Language p = NaiveHighlighting::Python;
    row(p, "unterminated string", "x = 'abc\ny", ".");
    row(p, "continued string", "x = 'abc\\\ny' z", "ss..");
    row(p, "hash in a string", "'#' #'", "sss.cc");
    row(p, "docstring over empty lines", "\"\"\"a\n\nx\"\"\"y", "dddd.");
    row(p, "escaped docstring end", "'''\\'''' x", "dddddddd..");
    row(p, "dotted name", "os.open open", "..n.....BBBB");
    row(p, "definitions", "class A(B): def f(x)", "KKKKKCC.....KKKmm...");
    row(p, "decorator", "  @a.b('x') #", "@@@@@@@sss@@c");
    row(p, "self and command", "self.ls ls in", "SSSSnMM.MM.KK");
    const Language m = NaiveHighlighting::Mel;
    row(m, "flag and variable", "ls -ls $ls;", "MM.....vvv.");
    row(m, "block comment", "/* a\nb */ if", "cccc.KK");
    row(m, "proc", "global proc int f (", "KKKKKK.KKKK.KKK.m..");
    row(m, "flag that looks like a call", "-f(1) g(2.)", "...n..m.nn.");
}

void HighlighterTest::Lines()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    const QHash<QString, QChar> letters{{ColorSettings::PYTHON_KEYWORDS, 'K'},
        {ColorSettings::PYTHON_BUILTINS, 'B'}, {ColorSettings::PYTHON_MEL_COMMANDS, 'M'},
        {ColorSettings::PYTHON_STRINGS, 's'}, {ColorSettings::PYTHON_DOC_STRINGS, 'd'},
        {ColorSettings::PYTHON_NUMBERS, 'n'}, {ColorSettings::PYTHON_CLASSES, 'C'},
        {ColorSettings::PYTHON_METHODS, 'm'}, {ColorSettings::PYTHON_COMMENTS, 'c'},
        {ColorSettings::PYTHON_DECORATORS, '@'}, {ColorSettings::PYTHON_SELF_CLS, 'S'},
        {ColorSettings::MEL_KEYWORDS, 'K'}, {ColorSettings::MEL_COMMANDS, 'M'},
        {ColorSettings::MEL_STRINGS, 's'}, {ColorSettings::MEL_NUMBERS, 'n'},
        {ColorSettings::MEL_VARIABLES, 'v'}, {ColorSettings::MEL_PROCS, 'm'},
        {ColorSettings::MEL_COMMENTS, 'c'}};
    Script script{Language(language)};
    script.document.setPlainText(text);
    QString shown;
    for (const QString& role : ShownRoles(script.document.lastBlock()))
        shown += letters.value(role, '.');
    QTEST(shown, "line");
}

void HighlighterTest::AgreesWithThePlainRules_data()
{
    Columns<int>("language");
    Row("Python", int(NaiveHighlighting::Python));
    Row("MEL", int(NaiveHighlighting::Mel));
}

void HighlighterTest::AgreesWithThePlainRules()
{
    QFETCH(int, language);
    QRandomGenerator random(20);
    for (int i = 0; i < 80; ++i) {
        Script script{Language(language)};
        script.document.setPlainText(RandomScript(random, Language(language), 60));
        QCOMPARE(Difference(script.document, Language(language)), QString());
    }
}

void HighlighterTest::EditsAgreeWithAFullPass()
{
    QFETCH(int, language);
    QRandomGenerator random(21);
    Script script{Language(language)};
    script.document.setPlainText(RandomScript(random, Language(language), 120));
    for (int i = 0; i < 150; ++i) {
        QTextCursor cursor(&script.document);
        const int length = script.document.characterCount();
        cursor.setPosition(int(random.bounded(quint32(length))));
        const int end = cursor.position() + int(random.bounded(8u));
        cursor.setPosition(qMin(end, length - 1), QTextCursor::KeepAnchor);
        cursor.insertText(RandomScript(random, Language(language), int(random.bounded(5u))));
        if (i % 10 == 3)
            script.document.undo();
        QCOMPARE(Difference(script.document, Language(language)), QString());
        QVERIFY(script.highlighter->IsComplete());
    }
}

void HighlighterTest::LongTextsAreFinishedLater()
{
    QRandomGenerator random(22);
    Script script(NaiveHighlighting::Python);
    script.document.setPlainText(
        RandomScript(random, NaiveHighlighting::Python, 60).replace('\n', ' ')
        + QString("x = '''open\n# y\n").repeated(4000));
    QVERIFY(!script.highlighter->IsComplete());
    QTRY_VERIFY(script.highlighter->IsComplete());
    QCOMPARE(Difference(script.document, NaiveHighlighting::Python), QString());
}

void HighlighterTest::LongCascadesAreFinishedLater()
{
    Script script(NaiveHighlighting::Mel);
    script.document.setPlainText(QString("ls;\n").repeated(6000));
    QTRY_VERIFY(script.highlighter->IsComplete());
    for (const QString& opening : {QString("/*"), QString()}) {
        QTextCursor cursor(&script.document);
        cursor.setPosition(2, QTextCursor::KeepAnchor);
        cursor.insertText(opening);
        QCOMPARE(script.document.findBlockByNumber(1000).userState(), opening.isEmpty() ? -1 : 1);
        QTRY_VERIFY(script.highlighter->IsComplete());
        QCOMPARE(Difference(script.document, NaiveHighlighting::Mel), QString());
    }
}

void HighlighterTest::AnEditMeetsUnfinishedLines()
{
    Script script(NaiveHighlighting::Mel);
    script.document.setPlainText(QString("ls;\n").repeated(9000));
    const auto insert = [&script](int line, const QString& text) {
        QTextCursor(script.document.findBlockByNumber(line)).insertText(text);
    };
    insert(8000, "*/ \"");
    insert(5000, "/* \n\n");
    insert(100, "\"\\\n\\\n");
    insert(7000, QString("/*\n").repeated(2500));
    QTextCursor removal(script.document.findBlockByNumber(90));
    removal.setPosition(script.document.findBlockByNumber(140).position(), QTextCursor::KeepAnchor);
    removal.removeSelectedText();
    QTRY_VERIFY(script.highlighter->IsComplete());
    QCOMPARE(Difference(script.document, NaiveHighlighting::Mel), QString());
}

void HighlighterTest::ManyLinesChangedInOneStep()
{
    Script script(NaiveHighlighting::Python);
    script.document.setPlainText(QString("if x: # y\n").repeated(5000));
    QTRY_VERIFY(script.highlighter->IsComplete());
    QTextCursor cursor(&script.document);
    cursor.beginEditBlock();
    for (QTextBlock block = script.document.begin(); block.isValid(); block = block.next()) {
        cursor.setPosition(block.position());
        cursor.insertText(block.blockNumber() % 2 ? "'" : "  ");
    }
    cursor.endEditBlock();
    QTRY_VERIFY(script.highlighter->IsComplete());
    QCOMPARE(Difference(script.document, NaiveHighlighting::Python), QString());
}

// Aids to typing ask for the data of lines that they are just changing.
void HighlighterTest::DataWithinAnEditBlock()
{
    Script script(NaiveHighlighting::Python);
    script.document.setPlainText("a\nb\nc");
    QSignalSpy changes(&script.document, &QTextDocument::contentsChange);
    QTextCursor cursor(&script.document);
    cursor.beginEditBlock();
    cursor.insertText("f(");
    QCOMPARE(script.highlighter->GetBlockData(cursor.block())->GetBraces('(').size(), 1);
    script.highlighter->EnsureHighlighted(0, 2);
    cursor.movePosition(QTextCursor::End);
    cursor.insertText("'''");
    cursor.endEditBlock();
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.at(0).at(0).toInt(), 0);
    QCOMPARE(Difference(script.document, NaiveHighlighting::Python), QString());
    QVERIFY(!script.highlighter->GetBlockData(QTextBlock()));
}

void HighlighterTest::OnlyTheViewOfAVeryLongText()
{
    Script script(NaiveHighlighting::Python);
    script.document.setPlainText(QString("x = '''if\nif\n").repeated(30000));
    script.highlighter->EnsureHighlighted(50000, 50010);
    QTRY_VERIFY(script.highlighter->IsComplete());
    QCOMPARE(script.document.findBlockByNumber(50003).userState(), -1);
    QCOMPARE(ShownRoles(script.document.findBlockByNumber(50001)).value(0),
        ColorSettings::PYTHON_DOC_STRINGS);
    QVERIFY(!script.document.findBlockByNumber(40000).userData());
    script.highlighter->EnsureHighlighted(40000, 40000);
    QVERIFY(script.document.findBlockByNumber(40000).userData());
    QVERIFY(!ShownRoles(script.document.findBlockByNumber(40000)).value(4).isEmpty());
}

void HighlighterTest::ColoursWhatIsAskedFor()
{
    Script script(NaiveHighlighting::Python);
    script.document.setPlainText(QString("if x\n").repeated(5000));
    QVERIFY(ShownRoles(script.document.findBlockByNumber(4000)).value(0).isEmpty());
    script.highlighter->EnsureHighlighted(3990, 99999);
    QCOMPARE(ShownRoles(script.document.findBlockByNumber(4000)).value(0),
        ColorSettings::PYTHON_KEYWORDS);
    QTRY_VERIFY(script.highlighter->IsComplete());
    QCOMPARE(Difference(script.document, NaiveHighlighting::Python), QString());
}

void HighlighterTest::AttachesToAFilledDocument()
{
    QTextDocument document;
    document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
    document.setPlainText("'''if\nif '''\nif");
    auto* mel = new MelHighlighter(&document);
    QTRY_VERIFY(mel->IsComplete());
    QCOMPARE(Difference(document, NaiveHighlighting::Mel), QString());
    delete mel;
    auto* python = new PythonHighlighter(&document);
    QTRY_VERIFY(python->IsComplete());
    QCOMPARE(Difference(document, NaiveHighlighting::Python), QString());
}

void HighlighterTest::FollowsTheColours()
{
    Script script(NaiveHighlighting::Python);
    script.document.setPlainText("if x");
    const auto colour = [&script] {
        return script.document.begin().layout()->formats().value(0).format.foreground().color();
    };
    const QTextCharFormat before
        = ColorSettings::GetCodeEditorFormat(ColorSettings::PYTHON_KEYWORDS, false);
    QTextCharFormat format;
    format.setForeground(QColor(1, 2, 3));
    ColorSettings::SetCodeEditorFormat(ColorSettings::PYTHON_KEYWORDS, format);
    script.highlighter->Rehighlight();
    QCOMPARE(colour(), QColor(1, 2, 3));
    ColorSettings::SetCodeEditorFormat(ColorSettings::PYTHON_KEYWORDS, before);
    script.highlighter->rehighlight();
    QCOMPARE(colour(), before.foreground().color());
}

void HighlighterTest::ColoursVisibleWhitespace()
{
    Script script(NaiveHighlighting::Python);
    script.document.setPlainText("if x # y");
    QTextOption option;
    option.setFlags(QTextOption::ShowTabsAndSpaces);
    script.document.setDefaultTextOption(option);
    script.highlighter->EnsureHighlighted(0, 0);
    const QStringList roles = ShownRoles(script.document.begin());
    QCOMPARE(roles.value(2), ColorSettings::WHITESPACES);
    QCOMPARE(roles.value(6), ColorSettings::WHITESPACES);
    QCOMPARE(roles.value(7), ColorSettings::PYTHON_COMMENTS);
}

void HighlighterTest::BlockData_data()
{
    // "text": the last line counts; "ignored": one "x" for each such column, the line's end
    // included; "numbers": indent, smart indent, non-comment length, empty
    Columns<int, QString, QString, QString, QVector<int>>(
        "language", "text", "ignored", "braces", "numbers");
    const auto row = [](Language language, const char* name, const char* text, const char* ignored,
                         const char* braces, const QVector<int>& numbers) {
        Row(name, int(language), QString(text), QString(ignored), QString(braces), numbers);
    };
    const Language p = NaiveHighlighting::Python;
    row(p, "nothing", "", ".", "", {0, 0, 0, 1});
    row(p, "blanks", " \t", "...", "", {2, 0, 2, 1});
    row(p, "string", "  f('(', [", "....xxx....", "(3[9", {2, 1, 10, 0});
    row(p, "unterminated", "'(", "xxx", "", {0, 0, 2, 0});
    row(p, "comment", "x: # ):", "...xxxxx", "", {0, 1, 3, 0});
    row(p, "comment alone", " # )", ".xxxx", "", {1, 0, 1, 1});
    row(p, "in a docstring", "'''\n  (:", "xxxxx", "", {2, 0, 4, 0});
    row(p, "empty in a docstring", "'''\n", "x", "", {0, 0, 0, 1});
    row(p, "behind a docstring", "'''\n'''{", "xxx..", "{3", {0, 1, 4, 0});
    const Language m = NaiveHighlighting::Mel;
    row(m, "braces", "}} {", ".....", "}0}1{3", {0, -1, 4, 0});
    row(m, "comments behind", "a; /* { */ // x", "...xxxxxxx.xxxxx", "", {0, 0, 3, 0});
    row(m, "comment between", "/* */ {", "xxxxx...", "{6", {0, 1, 7, 0});
    row(m, "open comment", "a /* {", "..xxxxx", "", {0, 0, 2, 0});
}

void HighlighterTest::BlockData()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    Script script{Language(language)};
    script.document.setPlainText(text);
    const CodeEditorBlockData& data = script.Data(script.document.blockCount() - 1);
    const QString line = script.document.lastBlock().text();
    QString ignored;
    for (int column = 0; column <= line.size(); ++column)
        ignored += data.IsIgnoredPosition(column) ? 'x' : '.';
    QTEST(ignored, "ignored");
    QMap<int, QString> braces;
    for (const char kind : {'(', '[', '{'}) {
        for (const MatchingCharInfo& brace : data.GetBraces(kind))
            braces[brace.position] = line.at(brace.position) + QString::number(brace.position);
    }
    QTEST(QStringList(braces.values()).join(QString()), "braces");
    QTEST((QVector<int>{data.GetIndent().size(), data.GetSmartIndentCount(),
              data.GetNonCommentLength(), int(data.IsEmpty())}),
        "numbers");
}

void HighlighterTest::PlainTextHasDataToo()
{
    QTextDocument document;
    document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
    new Highlighter(&document);
    document.setPlainText("  a # (");
    const auto* data = static_cast<CodeEditorBlockData*>(document.begin().userData());
    QVERIFY(data);
    QCOMPARE(data->GetIndent(), "  ");
    QCOMPARE(data->GetBraces('(').size(), 1);
    QVERIFY(document.begin().layout()->formats().isEmpty());
}

TE2_TEST(HighlighterTest)
#include "HighlighterTest.moc"

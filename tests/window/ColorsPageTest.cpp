#include "settings/pages/ColorsPage.h"

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "output/OutputTextEdit.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"
#include "settings/pages/ColorRoleList.h"
#include "settings/pages/ColorSampleView.h"
#include "support/Rows.h"
#include "support/TestMain.h"
#include "window/DialogAnswers.h"
#include "window/PanelGroup.h"
#include "window/PreferencesDialog.h"
#include "window/TarnwickEditor.h"
#include "window/WindowFixture.h"
#include "window/chrome/ColorLabel.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QPushButton>
#include <QScreen>
#include <QtTest>

#include <algorithm>
#include <memory>

namespace {

using C = ColorSettings;
using Part = ColorScheme::Part;

ColorRole CodeRole(const QString& key)
{
    return {ColorRole::CodeEditor, key};
}

QStringList UsedParts(const ColorScheme& scheme, const ColorRole& role)
{
    static const QVector<QPair<Part, QString>> PARTS{{Part::Foreground, "foreground"},
        {Part::Background, "background"}, {Part::Bold, "bold"}, {Part::Italic, "italic"},
        {Part::Underline, "underline"}};
    QStringList used;
    for (const auto& part : PARTS) {
        if (scheme.Uses(role, part.first))
            used += part.second;
    }
    return used;
}

} // namespace

/// The copy of the colours, and the page on which it is edited.
class ColorsPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host = std::make_unique<WindowFixture>(); }
    void cleanupTestCase() { m_host.reset(); }
    void init() { C::Initialize(); }
    void cleanup();
    void RolesHaveThePartsTheyUse_data();
    void RolesHaveThePartsTheyUse();
    void AChangeHoldsWhenItIsApplied_data();
    void AChangeHoldsWhenItIsApplied();
    void ResetBringsTheBuiltInLookBack();
    void SamplesShowEveryRole();
    void AClickInTheSampleChoosesARole();
    void ChangesARoleByKeyboard();
    void TheListsShareOneChoice();
    void NewColorsAreOnTheScreenAtOnce_data();
    void NewColorsAreOnTheScreenAtOnce();

private:
    std::unique_ptr<WindowFixture> m_host;
};

void ColorsPageTest::cleanup()
{
    QFile::remove(C::GetUserConfigPath());
    C::Initialize();
}

void ColorsPageTest::RolesHaveThePartsTheyUse_data()
{
    Columns<QString, QStringList>("key", "parts");
    const QStringList all{"foreground", "background", "bold", "italic", "underline"};
    Row("syntax", C::PYTHON_KEYWORDS, all);
    Row("both colours", C::MATCHING_BRACES, QStringList(all.mid(0, 2)));
    Row("foreground alone", C::WHITESPACES, QStringList(all.mid(0, 1)));
    Row("background alone", C::CURRENT_LINE, QStringList(all.mid(1, 1)));
    Row("no role", "nonsense", QStringList());
}

void ColorsPageTest::RolesHaveThePartsTheyUse()
{
    QFETCH(QString, key);
    QFETCH(QStringList, parts);
    ColorScheme scheme;
    QCOMPARE(UsedParts(scheme, CodeRole(key)), parts);
    // What is not used cannot be set either.
    scheme.SetColor(CodeRole(key), Part::Background, Qt::red);
    scheme.SetOn(CodeRole(key), Part::Bold, true);
    QCOMPARE(scheme.IsModified(CodeRole(key)), parts.contains("background"));
    QCOMPARE(scheme.IsOn(CodeRole(key), Part::Bold), parts.contains("bold"));
}

void ColorsPageTest::AChangeHoldsWhenItIsApplied_data()
{
    Columns<int>("part");
    Row("foreground", int(Part::Foreground));
    Row("background", int(Part::Background));
    Row("bold", int(Part::Bold));
    Row("italic", int(Part::Italic));
    Row("underline", int(Part::Underline));
}

/// Also in the next session.
void ColorsPageTest::AChangeHoldsWhenItIsApplied()
{
    QFETCH(int, part);
    const ColorRole role = CodeRole(C::PYTHON_KEYWORDS);
    ColorScheme scheme;
    scheme.SetColor(role, Part(part), QColor(1, 2, 3, 4));
    scheme.SetOn(role, Part(part), true);
    QVERIFY(scheme.IsChanged());
    QVERIFY(!ColorScheme().IsModified(role));
    scheme.Apply();
    QVERIFY(!scheme.IsChanged());
    C::WriteUserConfig();
    C::ReadUserConfig();
    const ColorScheme read;
    QVERIFY(read.IsModified(role));
    QVERIFY(!scheme.IsChanged());
    QVERIFY(read.IsOn(role, Part(part)));
    QVERIFY(!read.IsModified(CodeRole(C::MEL_KEYWORDS)));
}

void ColorsPageTest::ResetBringsTheBuiltInLookBack()
{
    const ColorRole selected{ColorRole::Output, C::SELECTED_TEXT};
    const QColor fromPalette = C::GetOutputFormat(C::SELECTED_TEXT, true).background().color();
    ColorScheme scheme;
    scheme.SetColor(selected, Part::Background, Qt::magenta);
    scheme.SetColor(CodeRole(C::PYTHON_KEYWORDS), Part::Background, Qt::magenta);
    QVERIFY(!scheme.IsModified(CodeRole(C::SELECTED_TEXT)));
    scheme.Apply();
    scheme.Reset(selected);
    QCOMPARE(scheme.GetColor(selected, Part::Background), fromPalette);
    QVERIFY(scheme.IsModified(CodeRole(C::PYTHON_KEYWORDS)));
    scheme.ResetAll();
    QVERIFY(!scheme.GetColor(CodeRole(C::PYTHON_KEYWORDS), Part::Background).isValid());
    QVERIFY(scheme.IsChanged());
}

/// Who changes a role wants to see it, whichever text is shown before.
void ColorsPageTest::SamplesShowEveryRole()
{
    const QStringList paintedElsewhere{C::LINE_NUMBERS, C::GUTTER, C::INDENTATION_GUIDES};
    for (const auto surface : {ColorRole::CodeEditor, ColorRole::Output}) {
        for (const QString& key : ColorScheme::GetKeys(surface)) {
            for (const auto before :
                {ColorSample::Text::Python, ColorSample::Text::Mel, ColorSample::Text::Console}) {
                const auto text = ColorSample::TextWith({surface, key}, before);
                QSet<QString> shown;
                for (const ColorSample::Line& line : ColorSample::GetLines(text)) {
                    for (int column = -1; column < line.GetText().size(); ++column)
                        shown += ColorSample::RoleAt(line, column);
                }
                QCOMPARE(ColorSample::GetSurface(text), surface);
                if (!paintedElsewhere.contains(key))
                    QVERIFY2(shown.contains(key), qPrintable(key));
            }
        }
    }
}

void ColorsPageTest::AClickInTheSampleChoosesARole()
{
    ColorsPage page(nullptr);
    page.resize(540, 440);
    page.show();
    auto* const sample = page.findChild<ColorSampleView*>();
    QSet<QString> reached;
    for (int y = 0; y < sample->height(); y += 3) {
        for (int x = 0; x < sample->width(); x += 3)
            reached += sample->RoleAt({x, y}).key;
    }
    for (const QString& key : {C::LINE_NUMBERS, C::GUTTER, C::INDENTATION_GUIDES, C::CURRENT_LINE,
             C::PYTHON_KEYWORDS, C::MATCHING_BRACES, C::SELECTED_TEXT, C::WHITESPACES})
        QVERIFY2(reached.contains(key), qPrintable(key));
    QTest::mouseClick(sample, Qt::LeftButton, Qt::NoModifier, {1, 1});
    const auto* const list = page.findChild<ColorRoleList*>("m_codeEditorRoles");
    QCOMPARE(list->currentItem()->text(), QString("Line Numbers"));
    QVERIFY(page.findChild<ColorLabel*>("m_foreground")->isVisible());
    QVERIFY(!page.findChild<QCheckBox*>("m_bold")->isVisible());
}

void ColorsPageTest::ChangesARoleByKeyboard()
{
    ColorsPage page(nullptr);
    page.show();
    page.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    page.ShowRole(CodeRole(C::PYTHON_COMMENTS));
    QSignalSpy changed(&page, &PreferencesPage::Changed);
    QTest::keyClick(page.findChild<QCheckBox*>("m_bold"), Qt::Key_Space);
    QCOMPARE(changed.size(), 1);
    DialogAnswers answers;
    answers.Do([](QDialog* picker) {
        static_cast<QColorDialog*>(picker)->setCurrentColor(Qt::yellow);
        picker->accept();
    });
    QTest::keyClick(page.findChild<ColorLabel*>("m_background"), Qt::Key_Return);
    QCOMPARE(answers.Take().value(0).title, QString("Python Comments: Background"));
    QVERIFY(page.IsChanged());
    page.Apply();
    const QTextCharFormat format = C::GetCodeEditorFormat(C::PYTHON_COMMENTS, false);
    QCOMPARE(format.background().color(), QColor(Qt::yellow));
    QCOMPARE(format.fontWeight(), int(QFont::Bold));
    QVERIFY(!page.IsChanged());
    auto* const reset = page.findChild<QPushButton*>("m_resetButton");
    QTest::keyClick(reset, Qt::Key_Space);
    QVERIFY(page.IsChanged());
    QVERIFY(!reset->isEnabled());
}

void ColorsPageTest::TheListsShareOneChoice()
{
    ColorsPage page(nullptr);
    page.show();
    page.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    auto* const code = page.findChild<ColorRoleList*>("m_codeEditorRoles");
    auto* const output = page.findChild<ColorRoleList*>("m_outputRoles");
    code->setFocus();
    QTest::keyClick(code, Qt::Key_Down);
    QCOMPARE(code->selectedItems().value(0)->text(), QString("Selected Text"));
    // Passing through the other list chooses nothing.
    output->setFocus(Qt::TabFocusReason);
    QCOMPARE(code->selectedItems().size(), 1);
    QTest::keyClick(output, Qt::Key_Down);
    QVERIFY(code->selectedItems().isEmpty());
    QCOMPARE(output->selectedItems().value(0)->text(), QString("Plain Text"));
    QCOMPARE(page.findChild<ColorSampleView*>()->GetText(), ColorSample::Text::Console);
    QCOMPARE(page.MarkMatches("FIND"), 5);
}

void ColorsPageTest::NewColorsAreOnTheScreenAtOnce_data()
{
    Columns<int, QString, QString>("surface", "key", "label");
    const auto row = [](ColorRole::Surface surface, const QString& key, const char* label) {
        const QString text
            = QString("%1 %2").arg(surface == ColorRole::Output ? "output" : "editor", key);
        Row(qPrintable(text), int(surface), key, label);
    };
    row(ColorRole::CodeEditor, C::PLAIN_TEXT, "m_background");
    row(ColorRole::CodeEditor, C::CURRENT_LINE, "m_background");
    row(ColorRole::CodeEditor, C::MATCHING_BRACES, "m_background");
    row(ColorRole::CodeEditor, C::MATCHING_SELECTION, "m_background");
    row(ColorRole::CodeEditor, C::SELECTED_TEXT, "m_background");
    row(ColorRole::CodeEditor, C::INDENTATION_GUIDES, "m_foreground");
    row(ColorRole::CodeEditor, C::LINE_NUMBERS, "m_background");
    row(ColorRole::CodeEditor, C::GUTTER, "m_background");
    row(ColorRole::CodeEditor, C::PYTHON_KEYWORDS, "m_background");
    row(ColorRole::Output, C::PLAIN_TEXT, "m_background");
    row(ColorRole::Output, C::MATCHING_SELECTION, "m_background");
    row(ColorRole::Output, C::SELECTED_TEXT, "m_background");
}

/// In the editor that is shown and in one that is behind it, without a key or a click.
void ColorsPageTest::NewColorsAreOnTheScreenAtOnce()
{
    QFETCH(int, surface);
    QFETCH(QString, key);
    QFETCH(QString, label);
    const QColor color(12, 250, 34);
    TarnwickEditor window;
    window.resize(900, 700);
    window.show();
    auto* const output = window.findChild<PanelGroup*>()->GetOutput();
    output->setPlainText("mesh mesh");
    output->moveCursor(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
    for (int i = 0; i < 2; ++i) {
        window.NewPythonBuffer();
        CodeEditor* const editor = window.GetActiveCodeEditor();
        editor->setPlainText("if mesh:\n    print(mesh)\n");
        editor->moveCursor(QTextCursor::End);
        editor->find("mesh", QTextDocument::FindBackward);
        if (key == C::MATCHING_BRACES)
            editor->moveCursor(QTextCursor::EndOfLine);
    }
    const auto isOnScreen = [&] {
        const QImage picture = window.screen()
                                   ->grabWindow(window.winId())
                                   .toImage()
                                   .convertToFormat(QImage::Format_ARGB32);
        const auto* const pixels = reinterpret_cast<const QRgb*>(picture.constBits());
        const auto* const end = pixels + picture.width() * picture.height();
        return std::find(pixels, end, color.rgb()) != end;
    };
    QVERIFY(!isOnScreen());
    window.ShowPreferencesDialog();
    auto* const dialog = window.findChild<PreferencesDialog*>();
    auto* const page = dialog->findChild<ColorsPage*>();
    dialog->ShowPage(page->GetTitle());
    page->ShowRole({ColorRole::Surface(surface), key});
    DialogAnswers answers;
    answers.Do([&](QDialog* picker) {
        static_cast<QColorDialog*>(picker)->setCurrentColor(color);
        picker->accept();
    });
    QTest::keyClick(page->findChild<ColorLabel*>(label), Qt::Key_Space);
    dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    QTRY_VERIFY(isOnScreen());
    auto* const group = window.GetActiveCodeEditorGroup();
    group->SetCurrentIndex(group->GetCurrentIndex() - 1);
    QTRY_VERIFY(isOnScreen());
}

TE2_TEST(ColorsPageTest)
#include "ColorsPageTest.moc"

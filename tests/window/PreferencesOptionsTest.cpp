#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "output/OutputTextEdit.h"
#include "settings/ExtraSettings.h"
#include "settings/Settings.h"
#include "settings/pages/OptionCopies.h"
#include "settings/pages/OptionField.h"
#include "settings/pages/OptionTable.h"
#include "settings/pages/ProgramProbe.h"
#include "support/TestMain.h"
#include "window/DialogAnswers.h"
#include "window/PanelGroup.h"
#include "window/PreferencesDialog.h"
#include "window/TarnwickEditor.h"
#include "window/WindowFixture.h"
#include "window/chrome/ElidedLabel.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QProcessEnvironment>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

namespace {

using Look = std::function<QVariant(TarnwickEditor&)>;

QVector<const OptionRow*> AllRows()
{
    QVector<const OptionRow*> rows;
    for (const OptionPage* page : OptionTable::GetPages()) {
        for (const OptionGroup& group : page->groups) {
            for (const OptionRow& row : group.rows)
                rows.append(&row);
        }
    }
    return rows;
}

QVariant AnotherValue(const OptionRow& row, const QVariant& value)
{
    using K = OptionRow::Kind;
    switch (row.kind) {
    case K::Check: return !value.toBool();
    case K::Number: return value.toInt() + 1;
    case K::FontFamily: return "Inter";
    case K::Folder:
    case K::Paths: return "/tmp";
    case K::Lines: return "import os";
    default: return "/bin/sh";
    }
}

int CountPixels(QWidget& widget, const QColor& color)
{
    const QImage image = widget.grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color;
    }
    return count;
}

/// As a file that somebody may run.
bool WriteScript(const QString& path, const QByteArray& body)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write("#!/bin/sh\n" + body) > 0
        && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace

Q_DECLARE_METATYPE(Look)

/// What is set in the preferences reaches the options, the files and whatever shows them.
class PreferencesOptionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host = std::make_unique<WindowFixture>(); }
    void cleanupTestCase() { m_host.reset(); }
    void init();
    void cleanup();
    void EveryStoredPreferenceHasOneRow();
    void EveryOptionIsAppliedAndStored();
    void OpenWidgetsFollow_data();
    void OpenWidgetsFollow();
    void CancelChangesNothing();
    void DefaultsOfThePageComeBack();
    void WrongInputHoldsTheDialogOpen_data();
    void WrongInputHoldsTheDialogOpen();
    void OptionsWithoutEffectAreGrey();
    void SearchThinsOutThePages_data();
    void SearchThinsOutThePages();
    void ProgramsAnswer_data();
    void ProgramsAnswer();
    void PylintIsTriedInPlace();
    void TypedPathsMayBeginAtHome();

private:
    PreferencesDialog* Open();
    OptionField* Field(const char* key) const { return m_dialog->findChild<OptionField*>(key); }
    void Press(QDialogButtonBox::StandardButton button);
    QVariant Stored(const char* key) const;

    std::unique_ptr<WindowFixture> m_host;
    std::unique_ptr<TarnwickEditor> m_window;
    QPointer<PreferencesDialog> m_dialog;
    QTemporaryDir m_directory;
};

void PreferencesOptionsTest::init()
{
    Settings::ResetToDefaults();
    ExtraSettings::keepEncodingAndLineEnds = false;
    Settings::recentFiles = QStringList{"/a.py", "/b.py"};
    m_window = std::make_unique<TarnwickEditor>();
    m_window->resize(1000, 700);
    m_window->show();
    m_window->SetActiveCodeEditor(0, 1, true);
    CodeEditor* const editor = m_window->GetActiveCodeEditor();
    editor->SetText("if iffy:\n    def f():\n        return 1)\n");
    m_window->UpdateParser();
    editor->SetCursorSelection(0, 2);
    auto* const panel = m_window->findChild<PanelGroup*>();
    panel->OutputClearAll();
    panel->OutputAppendText(QString("# Error: a #\n").repeated(200));
    QVERIFY(WriteScript(m_directory.filePath("pylint"), "echo pylint 9.9\n"));
}

void PreferencesOptionsTest::cleanup()
{
    m_window.reset();
    QFile::remove(Settings::GetUserConfigPath());
    QFile::remove(ExtraSettings::GetUserConfigPath());
    m_host->RunIdle();
}

PreferencesDialog* PreferencesOptionsTest::Open()
{
    m_window->ShowPreferencesDialog();
    m_dialog = m_window->findChild<PreferencesDialog*>();
    return m_dialog;
}

void PreferencesOptionsTest::Press(QDialogButtonBox::StandardButton button)
{
    m_dialog->findChild<QDialogButtonBox*>()->button(button)->click();
}

QVariant PreferencesOptionsTest::Stored(const char* key) const
{
    const QSettings file(Settings::GetUserConfigPath(), QSettings::IniFormat);
    const QSettings extra(ExtraSettings::GetUserConfigPath(), QSettings::IniFormat);
    for (const char* group : {"preferences/%1", "main/%1"}) {
        const QString path = QString(group).arg(key);
        if (file.contains(path))
            return file.value(path);
    }
    return extra.value(key);
}

void PreferencesOptionsTest::EveryStoredPreferenceHasOneRow()
{
    Settings::WriteUserConfig();
    QSettings file(Settings::GetUserConfigPath(), QSettings::IniFormat);
    file.beginGroup("preferences");
    QStringList stored = file.childKeys();
    QVERIFY(stored.size() > 60);
    QStringList shown;
    for (const OptionRow* row : AllRows()) {
        shown.append(row->key);
        QVERIFY2(OptionTable::GetDefault(*row).isValid(), row->key);
    }
    // What is kept elsewhere, or not at all by this host.
    stored += {"showCodeEditorExecuteBtn", "showCodeEditorExecuteAllBtn",
        "showCodeEditorExecuteLineBtn", "numRecentFiles", "executeScriptOnIdle",
        "files/keepEncodingAndLineEnds"};
    stored.sort();
    shown.sort();
    QCOMPARE(shown, stored);
}

void PreferencesOptionsTest::EveryOptionIsAppliedAndStored()
{
    QVERIFY(Open());
    QVariantHash values;
    for (const OptionRow* row : AllRows()) {
        const QVariant value = AnotherValue(*row, Field(row->key)->GetValue());
        values.insert(row->key, value);
        Field(row->key)->SetValue(value);
        QVERIFY2(OptionCopies(OptionTable::GetPages()).Get(*row) != value, row->key);
    }
    Press(QDialogButtonBox::Apply);
    // What reads the members has the new value, and so has the next session.
    const OptionCopies options(OptionTable::GetPages());
    for (const OptionRow* row : AllRows()) {
        QVERIFY2(options.Get(*row) == values[row->key], row->key);
        if (Settings::IsStored(row->key) || ExtraSettings::GetDefault(row->key).isValid())
            QVERIFY2(Stored(row->key).toString() == values[row->key].toString(), row->key);
    }
}

void PreferencesOptionsTest::OpenWidgetsFollow_data()
{
    QTest::addColumn<QVariantMap>("values");
    QTest::addColumn<Look>("look");
    const auto editor = [](auto look) {
        return Look([look](TarnwickEditor& window) { return look(*window.GetActiveCodeEditor()); });
    };
    const auto output = [](auto look) {
        return Look(
            [look](TarnwickEditor& window) { return look(*window.findChild<OutputTextEdit*>()); });
    };
    const auto shown = [](const char* name) {
        return Look([name](TarnwickEditor& window) {
            return window.GetActiveCodeEditorGroup()->findChild<QWidget*>(name)->isVisible();
        });
    };
    const auto picture = [](const char* name) {
        return Look([name](TarnwickEditor& window) {
            const QImage image
                = window.GetActiveCodeEditorGroup()->findChild<QWidget*>(name)->grab().toImage();
            return QByteArray(reinterpret_cast<const char*>(image.bits()), image.sizeInBytes());
        });
    };
    const Look tabSize = editor([](CodeEditor& e) { return e.SpacesForTab().size(); });
    const Look marks = editor([](CodeEditor& e) { return e.GetNumberOfErrors(); });
    const Look editorFont = editor([](CodeEditor& e) { return e.font().toString(); });
    const Look outputFont = output([](OutputTextEdit& o) { return o.font().toString(); });
    const QString pylint = m_directory.filePath("pylint");
    // clang-format off
    QTest::newRow("default tab size") << QVariantMap{{"tabsSizeDefault", 7}} << tabSize;
    QTest::newRow("own tab size") << QVariantMap{{"tabsUseDefaultsPython", false}, {"tabsSizePython", 2}} << tabSize;
    QTest::newRow("editor font family") << QVariantMap{{"codeEditorFontFamily", "Inter"}} << editorFont;
    QTest::newRow("editor font size") << QVariantMap{{"codeEditorFontSize", 14}} << editorFont;
    QTest::newRow("indentation guides") << QVariantMap{{"codeEditorDisplayIndentationGuides", false}} << editor([](CodeEditor& e) { return CountPixels(*e.viewport(), QColor("#404040")); });
    QTest::newRow("whole words") << QVariantMap{{"codeEditorMatchedSelectionWordsOnly", true}} << editor([](CodeEditor& e) { return e.extraSelections().size(); });
    QTest::newRow("output font family") << QVariantMap{{"outputFontFamily", "Inter"}} << outputFont;
    QTest::newRow("output font size") << QVariantMap{{"outputFontSize", 14}} << outputFont;
    QTest::newRow("output lines") << QVariantMap{{"outputBufferSize", 100}} << output([](OutputTextEdit& o) { return o.GetText().count('\n'); });
    QTest::newRow("output wrapping") << QVariantMap{{"outputWordWrapEnabled", true}} << output([](OutputTextEdit& o) { return int(o.document()->defaultTextOption().wrapMode()); });
    QTest::newRow("output highlighting") << QVariantMap{{"outputSyntaxHighlightingEnabled", false}} << output([](OutputTextEdit& o) { return o.extraSelections().size(); });
    QTest::newRow("verbosity") << QVariantMap{{"outputMinimalTrace", true}} << Look([](TarnwickEditor& w) { return w.findChild<QComboBox*>("m_verbosity")->currentText(); });
    QTest::newRow("tab bar") << QVariantMap{{"showTabBar", false}} << shown("tabRow");
    QTest::newRow("close buttons") << QVariantMap{{"showCloseButtonOnTabs", false}} << picture("m_tabBar");
    QTest::newRow("tool bar") << QVariantMap{{"showTabBarMiniToolbar", true}} << shown("m_miniToolbar");
    QTest::newRow("errors") << QVariantMap{{"pythonDisplayErrors", false}} << marks;
    QTest::newRow("pylint") << QVariantMap{{"pylintEnabled", true}, {"pylintPath", pylint}} << marks;
    QTest::newRow("recent files") << QVariantMap{{"numRecentFiles", 1}} << Look([](TarnwickEditor&) { return Settings::recentFiles; });
    // clang-format on
}

/// At once, not with the next text or the next start.
void PreferencesOptionsTest::OpenWidgetsFollow()
{
    QFETCH(QVariantMap, values);
    QFETCH(Look, look);
    const QVariant before = look(*m_window);
    QVERIFY(Open());
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        Field(value.key().toLatin1())->SetValue(value.value());
    QCOMPARE(look(*m_window), before);
    Press(QDialogButtonBox::Ok);
    QTRY_VERIFY(look(*m_window) != before);
    QVERIFY(!m_dialog || !m_dialog->isVisible());
}

void PreferencesOptionsTest::CancelChangesNothing()
{
    QVERIFY(Open());
    for (const OptionRow* row : AllRows())
        Field(row->key)->SetValue(AnotherValue(*row, Field(row->key)->GetValue()));
    Press(QDialogButtonBox::Cancel);
    for (const OptionRow* row : AllRows())
        QCOMPARE(OptionCopies(OptionTable::GetPages()).Get(*row), OptionTable::GetDefault(*row));
    QVERIFY(!QFile::exists(ExtraSettings::GetUserConfigPath()));
}

void PreferencesOptionsTest::DefaultsOfThePageComeBack()
{
    Settings::tabsSizeMel = 3;
    Settings::tabsSizeDefault = 3;
    Settings::melSmartIndent = false;
    Open()->ShowPage("Indentation");
    DialogAnswers answers;
    answers.Press("Yes");
    Press(QDialogButtonBox::RestoreDefaults);
    QCOMPARE(Settings::tabsSizeMel, 3);
    Press(QDialogButtonBox::Ok);
    QCOMPARE(Settings::tabsSizeMel, 4);
    QCOMPARE(Settings::tabsSizeDefault, 4);
    // Of another page.
    QVERIFY(!Settings::melSmartIndent);
}

void PreferencesOptionsTest::WrongInputHoldsTheDialogOpen_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("pylint");
    QTest::newRow("no such file") << QByteArray("pylintConfigPath") << "/no/such/file" << false;
    QTest::newRow("a folder as file") << QByteArray("pylintConfigPath") << "/tmp" << false;
    QTest::newRow("a file as folder") << QByteArray("pylintPythonHomePath") << "/bin/sh" << true;
    QTest::newRow("not to be run") << QByteArray("pylintPath") << "/etc/passwd" << true;
    QTest::newRow("nothing to run") << QByteArray("pylintPath") << "" << true;
    QTest::newRow("no font") << QByteArray("outputFontFamily") << " " << false;
    QTest::newRow("no import") << QByteArray("pythonForcedImports") << "import os\n1 + 1" << false;
}

void PreferencesOptionsTest::WrongInputHoldsTheDialogOpen()
{
    QFETCH(QByteArray, key);
    QFETCH(QString, value);
    QFETCH(bool, pylint);
    QVERIFY(Open());
    Field("pylintEnabled")->SetValue(pylint);
    Field("pylintPath")->SetValue(pylint ? "/bin/sh" : "");
    Field("saveAllOnExit")->SetValue(false);
    Field(key)->SetValue(value);
    QVERIFY(!Field(key)->GetFault().isEmpty());
    Press(QDialogButtonBox::Ok);
    QVERIFY(m_dialog && m_dialog->isVisible());
    QVERIFY(Field(key)->GetControl()->isVisible());
    QCOMPARE(m_dialog->focusWidget(), Field(key)->GetControl());
    QVERIFY(Settings::saveAllOnExit);
    Field(key)->SetValue(OptionTable::GetDefault(Field(key)->GetRow()));
    Field("pylintEnabled")->SetValue(false);
    Press(QDialogButtonBox::Ok);
    QVERIFY(!Settings::saveAllOnExit);
}

void PreferencesOptionsTest::OptionsWithoutEffectAreGrey()
{
    QVERIFY(Open());
    OptionField* const asks = Field("showUnsavedFileDialogOnMayaExit");
    QVERIFY(!asks->isEnabled());
    QVERIFY(asks->toolTip().contains("saved"));
    Field("saveAllOnExit")->SetValue(false);
    QVERIFY(asks->isEnabled());
    // What another page says counts as well.
    QVERIFY(Field("pylintEnabled")->isEnabled());
    Field("pythonDisplayErrors")->SetValue(false);
    QVERIFY(!Field("pylintEnabled")->isEnabled());
}

void PreferencesOptionsTest::SearchThinsOutThePages_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("pages");
    QTest::addColumn<QStringList>("marked");
    QTest::newRow("a label") << "keep at MOST" << QStringList{"Output"}
                             << QStringList{"outputBufferSize"};
    QTest::newRow("a key") << "melTrim" << QStringList{"MEL"}
                           << QStringList{"melTrimTrailingWhiteSpacesOnSave"};
    QTest::newRow("a page") << "indentation" << QStringList{"Code Editor", "Indentation", "Colors"}
                            << QStringList{"codeEditorDisplayIndentationGuides"};
    QTest::newRow("no match") << "zebra" << QStringList{} << QStringList{};
}

void PreferencesOptionsTest::SearchThinsOutThePages()
{
    QFETCH(QString, text);
    QFETCH(QStringList, pages);
    QFETCH(QStringList, marked);
    Open()->ShowPage("General");
    QApplication::setActiveWindow(m_dialog);
    QTest::keyClick(m_dialog, Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(m_dialog->focusWidget(), text);
    auto* const list = m_dialog->findChild<QListWidget*>("m_pageList");
    QStringList shown;
    for (int row = 0; row < list->count(); ++row) {
        if (!list->item(row)->isHidden())
            shown.append(list->item(row)->text());
    }
    QCOMPARE(shown, pages);
    QStringList found;
    for (const OptionField* field : m_dialog->findChildren<OptionField*>()) {
        if (field->IsMatched())
            found.append(field->GetRow().key);
    }
    QCOMPARE(found, marked);
    auto* const nothing = m_dialog->findChild<QLabel*>("m_nothingFound");
    QCOMPARE(nothing->isVisible(), pages.isEmpty());
    // The list has what is left.
    QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Down);
    QCOMPARE(m_dialog->focusWidget(), list);
    const QListWidgetItem* const current = list->currentItem();
    QCOMPARE(pages.value(0), current->isHidden() ? QString() : current->text());
}

void PreferencesOptionsTest::ProgramsAnswer_data()
{
    QTest::addColumn<QByteArray>("script"); // null: there is none
    QTest::addColumn<bool>("answers");
    QTest::addColumn<QString>("text");
    QTest::newRow("version") << QByteArray("echo pylint $1") << true << "pylint --version";
    QTest::newRow("error") << QByteArray("echo first >&2; echo no module >&2; exit 1") << false
                           << "no module";
    QTest::newRow("silent") << QByteArray("exit 0") << false << "nothing";
    QTest::newRow("endless") << QByteArray("exec sleep 600") << false << "No answer";
    QTest::newRow("missing") << QByteArray() << false << "such file";
}

void PreferencesOptionsTest::ProgramsAnswer()
{
    QFETCH(QByteArray, script);
    QFETCH(bool, answers);
    QFETCH(QString, text);
    const QString path = m_directory.filePath("program");
    QFile::remove(path);
    QVERIFY(script.isNull() || WriteScript(path, script));
    ProgramProbe probe(1000, nullptr);
    QSignalSpy finished(&probe, &ProgramProbe::Finished);
    probe.Start(path, QProcessEnvironment::systemEnvironment());
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(finished[0][0].toBool(), answers);
    QVERIFY2(finished[0][1].toString().contains(text), qPrintable(finished[0][1].toString()));
    QVERIFY(!probe.IsRunning());
}

void PreferencesOptionsTest::PylintIsTriedInPlace()
{
    Open()->ShowPage("Pylint");
    auto* const test = m_dialog->findChild<QPushButton*>("m_testButton");
    QVERIFY(!test->isEnabled());
    Field("pylintEnabled")->SetValue(true);
    Field("pylintPath")->SetValue(m_directory.filePath("pylint"));
    QVERIFY(test->isEnabled());
    test->click();
    const auto* const remark = Field("pylintPath")->findChild<ElidedLabel*>("m_remark");
    QTRY_COMPARE(remark->GetText(), QString("Works: pylint 9.9"));
    // Another program has not answered yet.
    Field("pylintPath")->SetValue("/bin/sh");
    QVERIFY(!remark->isVisible());
}

void PreferencesOptionsTest::TypedPathsMayBeginAtHome()
{
    Open()->ShowPage("Pylint");
    Field("pylintEnabled")->SetValue(true);
    QWidget* const field = Field("pylintPath")->GetControl();
    Field("pylintPath")->SetValue("");
    QTest::keyClicks(field, "~/pylint");
    QCOMPARE(Field("pylintPath")->GetValue().toString(), QString("~/pylint"));
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(Field("pylintPath")->GetValue().toString(), QDir::homePath() + "/pylint");
}

TE2_TEST(PreferencesOptionsTest)
#include "PreferencesOptionsTest.moc"

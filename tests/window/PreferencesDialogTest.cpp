#include "window/PreferencesDialog.h"

#include "output/OutputHighlightingWidget.h"
#include "output/OutputTextEdit.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/DialogAnswers.h"
#include "window/PanelGroup.h"
#include "window/TarnwickEditor.h"
#include "window/WindowFixture.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

/// The preferences in a window: when what is changed there counts.
class PreferencesDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host = std::make_unique<WindowFixture>(); }
    void cleanupTestCase() { m_host.reset(); }
    void init();
    void cleanup();
    void ChangesCountWhenTheyAreApplied_data();
    void ChangesCountWhenTheyAreApplied();
    void RestoringDefaultsAsksFirst();

private:
    PreferencesDialog* Open();
    QPushButton* Button(QDialogButtonBox::StandardButton button) const;
    QListWidget* List() const { return m_window->findChild<QListWidget*>("m_list"); }
    int CountMarks() const;

    std::unique_ptr<WindowFixture> m_host;
    std::unique_ptr<TarnwickEditor> m_window;
};

void PreferencesDialogTest::init()
{
    Settings::ResetToDefaults();
    ColorSettings::Initialize();
    m_window = std::make_unique<TarnwickEditor>();
    m_window->resize(900, 700);
    m_window->show();
    auto* const panel = m_window->findChild<PanelGroup*>();
    panel->OutputClearAll();
    panel->OutputAppendText("# Error: a #\n# Warning: b #\n");
}

void PreferencesDialogTest::cleanup()
{
    m_window.reset();
    QFile::remove(ColorSettings::GetUserConfigPath());
    m_host->RunIdle();
}

PreferencesDialog* PreferencesDialogTest::Open()
{
    for (QAction* action : m_window->actions()) {
        if (action->text() == "Preferences...")
            action->trigger();
    }
    return m_window->findChild<PreferencesDialog*>();
}

QPushButton* PreferencesDialogTest::Button(QDialogButtonBox::StandardButton button) const
{
    return m_window->findChild<PreferencesDialog*>()->findChild<QDialogButtonBox*>()->button(
        button);
}

int PreferencesDialogTest::CountMarks() const
{
    return m_window->findChild<OutputTextEdit*>()->extraSelections().size();
}

void PreferencesDialogTest::ChangesCountWhenTheyAreApplied_data()
{
    Columns<int, int, bool>("button", "marks", "closes");
    Row("OK", int(QDialogButtonBox::Ok), 1, true);
    Row("Apply", int(QDialogButtonBox::Apply), 1, false);
    Row("Cancel", int(QDialogButtonBox::Cancel), 2, true);
}

void PreferencesDialogTest::ChangesCountWhenTheyAreApplied()
{
    QFETCH(int, button);
    QFETCH(int, marks);
    const QPointer<PreferencesDialog> dialog = Open();
    QVERIFY(dialog);
    QVERIFY(!Button(QDialogButtonBox::Apply)->isEnabled());
    List()->item(0)->setCheckState(Qt::Unchecked);
    QVERIFY(Button(QDialogButtonBox::Apply)->isEnabled());
    QCOMPARE(CountMarks(), 2);
    Button(QDialogButtonBox::StandardButton(button))->click();
    QTRY_COMPARE(CountMarks(), marks);
    QTEST(!dialog || !dialog->isVisible(), "closes");
    // What was applied comes back with the next session.
    ColorSettings::ReadUserConfig();
    QCOMPARE(ColorSettings::outputUserDefinedSelections.first().enabled, marks == 2);
}

void PreferencesDialogTest::RestoringDefaultsAsksFirst()
{
    ColorSettings::outputUserDefinedSelections.resize(2);
    PreferencesDialog* const dialog = Open();
    QVERIFY(dialog);
    dialog->ShowPage("Output Highlighting");
    DialogAnswers answers;
    answers.Press("No");
    Button(QDialogButtonBox::RestoreDefaults)->click();
    QCOMPARE(List()->count(), 2);
    answers.Press("Yes");
    Button(QDialogButtonBox::RestoreDefaults)->click();
    QCOMPARE(answers.Take().size(), 2);
    QCOMPARE(List()->count(), 6);
    QCOMPARE(ColorSettings::outputUserDefinedSelections.size(), 2);
}

TE2_TEST(PreferencesDialogTest)
#include "PreferencesDialogTest.moc"

#include "output/OutputHighlightingDialog.h"
#include "output/OutputHighlightingWidget.h"
#include "settings/ColorSettings.h"
#include "support/TestMain.h"
#include "window/DialogAnswers.h"
#include "window/chrome/ColorLabel.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QtTest>

namespace {

ExtraSelectionProperties MakeRule(const QString& name)
{
    return {name, Qt::red, QColor(), name, false, false, true};
}

template <typename Widget>
Widget* Child(const QWidget& parent, const char* name)
{
    return parent.findChild<Widget*>(name);
}

} // namespace

/// Editing the rules that highlight text in the console.
class OutputHighlightingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void RefusesWhatTheConsoleCannotUse_data();
    void RefusesWhatTheConsoleCannotUse();
    void KeepsWhatIsNotChanged();
    void ChosenColorIsUsed();
    void KeysEditTheList_data();
    void KeysEditTheList();
    void NewRuleComesLast();
    void CheckBoxWaitsForApply();

private:
    QStringList Names() const;
};

void OutputHighlightingTest::init()
{
    ColorSettings::Initialize();
    ColorSettings::outputUserDefinedSelections
        = {MakeRule("one"), MakeRule("two"), MakeRule("three")};
}

QStringList OutputHighlightingTest::Names() const
{
    QStringList names;
    for (const ExtraSelectionProperties& rule : ColorSettings::outputUserDefinedSelections)
        names += rule.enabled ? rule.name : "(" + rule.name + ")";
    return names;
}

void OutputHighlightingTest::RefusesWhatTheConsoleCannotUse_data()
{
    // "refusal": empty: none
    Columns<QString, QString, bool, QString>("name", "pattern", "isExpression", "refusal");
    Row("no name", "", "x", false, "Name field is empty");
    Row("no text", "n", "", false, "Text matching field is empty");
    Row("neither", "", "", true, "Name field is empty");
    Row("faulty expression", "n", "a(b", true,
        "Text matching field is not a regular expression: missing closing parenthesis at "
        "character 4");
    Row("the same as a text", "n", "a(b", false, "");
    Row("blanks are a text", "n", "  ", false, "");
}

void OutputHighlightingTest::RefusesWhatTheConsoleCannotUse()
{
    QFETCH(QString, refusal);
    QFETCH(QString, name);
    QFETCH(QString, pattern);
    QFETCH(bool, isExpression);
    OutputHighlightingDialog dialog("New Highlight", nullptr);
    dialog.show();
    Child<QLineEdit>(dialog, "nameLineEdit")->setText(name);
    Child<QLineEdit>(dialog, "matchLineEdit")->setText(pattern);
    Child<QCheckBox>(dialog, "regExpCB")->setChecked(isExpression);
    DialogAnswers answers;
    if (!refusal.isEmpty())
        answers.Press("OK");
    QTest::keyClick(&dialog, Qt::Key_Return);
    const auto seen = answers.Take();
    QCOMPARE(dialog.isVisible(), !refusal.isEmpty());
    QCOMPARE(seen.isEmpty() ? QString() : seen[0].text, refusal);
    if (!seen.isEmpty())
        QCOMPARE(seen[0].title, "Invalid");
    QCOMPARE(dialog.GetSelectionProperties().pattern, pattern);
}

void OutputHighlightingTest::KeepsWhatIsNotChanged()
{
    OutputHighlightingDialog dialog("Edit Highlight", nullptr);
    const ExtraSelectionProperties defaults = dialog.GetSelectionProperties();
    QCOMPARE(defaults.foreground, QColor(Qt::green));
    QVERIFY(!defaults.hasBackground && defaults.enabled);
    for (const int flags : {0, 1, 2, 3, 4, 8, 16, 31}) {
        const ExtraSelectionProperties rule("n;;;,\"\\\U0001F642", flags & 1 ? Qt::blue : QColor(),
            flags & 2 ? QColor(Qt::gray) : QColor(), "^a;;;\\d\"", flags & 4, flags & 8,
            flags & 16);
        dialog.SetSelectionProperties(rule);
        QCOMPARE(ColorSettings::GetExtraSelectionString(dialog.GetSelectionProperties()),
            ColorSettings::GetExtraSelectionString(rule));
    }
}

void OutputHighlightingTest::ChosenColorIsUsed()
{
    OutputHighlightingDialog dialog("Edit Highlight", nullptr);
    dialog.show();
    DialogAnswers answers;
    answers.Do([](QDialog* picker) {
        static_cast<QColorDialog*>(picker)->setCurrentColor(Qt::yellow);
        picker->accept();
    });
    answers.Dismiss();
    ColorLabel* const label = Child<ColorLabel>(dialog, "backgroundColor");
    QTest::keyClick(label, Qt::Key_Space);
    QCOMPARE(answers.Take().value(0).title, "Select Color");
    QCOMPARE(dialog.GetSelectionProperties().background, QColor(Qt::yellow));
    QTest::mouseClick(label, Qt::LeftButton);
    QCOMPARE(dialog.GetSelectionProperties().background, QColor(Qt::yellow));
}

void OutputHighlightingTest::KeysEditTheList_data()
{
    Columns<QList<QKeySequence>, QStringList>("keys", "names");
    const QKeySequence up(Qt::ALT + Qt::Key_Up);
    const QKeySequence down(Qt::ALT + Qt::Key_Down);
    const QKeySequence undo(Qt::CTRL + Qt::Key_Z);
    using Keys = QList<QKeySequence>;
    using Names = QStringList;
    Row("nothing above", Keys{up}, Names{"one", "two", "three"});
    Row("down twice and once more", Keys{down, down, down}, Names{"two", "three", "one"});
    Row("down and up", Keys{down, up, Qt::Key_Delete}, Names{"two", "three"});
    Row("delete goes on with the next", Keys{Qt::Key_Delete, Qt::Key_Delete}, Names{"three"});
    Row("delete the last", Keys{Qt::Key_End, Qt::Key_Delete, Qt::Key_Delete}, Names{"one"});
    Row("all, and one more", Keys{Qt::Key_Delete, Qt::Key_Delete, Qt::Key_Delete, Qt::Key_Delete},
        Names());
    Row("undo", Keys{Qt::Key_Delete, down, undo, undo}, Names{"one", "two", "three"});
    Row("off, and undone with the move", Keys{down, Qt::Key_Space, down, undo},
        Names{"two", "(one)", "three"});
}

void OutputHighlightingTest::KeysEditTheList()
{
    QFETCH(QList<QKeySequence>, keys);
    const QStringList before = Names();
    OutputHighlightingWidget widget(nullptr);
    widget.show();
    widget.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&widget));
    QListWidget* const list = widget.findChild<QListWidget*>();
    Child<QWidget>(widget, "m_deleteButton")->setFocus();
    QTest::keyClick(qApp->focusWidget(), Qt::Key_Tab); // over what cannot be done: move up
    QTest::keyClick(qApp->focusWidget(), Qt::Key_Tab);
    QVERIFY(list->hasFocus());
    for (const QKeySequence& key : keys) {
        QTest::keyClick(list, Qt::Key(key[0] & ~Qt::KeyboardModifierMask),
            Qt::KeyboardModifiers(key[0] & Qt::KeyboardModifierMask));
    }
    QCOMPARE(Names(), before);
    widget.Apply();
    QTEST(Names(), "names");
    QVERIFY(!widget.IsChanged());
}

void OutputHighlightingTest::NewRuleComesLast()
{
    OutputHighlightingWidget widget(nullptr);
    QListWidget* const list = widget.findChild<QListWidget*>();
    DialogAnswers answers;
    answers.Do([](QDialog* dialog) {
        Child<QLineEdit>(*dialog, "matchLineEdit")->setText("x");
        dialog->accept();
    });
    widget.NewItem();
    QCOMPARE(answers.Take().value(0).title, "New Highlight");
    QCOMPARE(list->currentRow(), 3);
    answers.Dismiss();
    widget.EditItem(list->item(3));
    QCOMPARE(answers.Take().value(0).title, "Edit Highlight");
    widget.Apply();
    QCOMPARE(Names(), QStringList({"one", "two", "three", "Unnamed"}));
    QCOMPARE(ColorSettings::outputUserDefinedSelections.last().pattern, "x");
}

void OutputHighlightingTest::CheckBoxWaitsForApply()
{
    OutputHighlightingWidget widget(nullptr);
    QListWidget* const list = widget.findChild<QListWidget*>();
    const QSignalSpy changes(&widget, &OutputHighlightingWidget::Changed);
    list->item(1)->setCheckState(Qt::Unchecked);
    QCOMPARE(changes.size(), 1);
    QVERIFY(widget.IsChanged());
    widget.Reset();
    QCOMPARE(list->item(1)->checkState(), Qt::Checked);
    QVERIFY(!widget.IsChanged());
}

TE2_TEST(OutputHighlightingTest)
#include "OutputHighlightingTest.moc"

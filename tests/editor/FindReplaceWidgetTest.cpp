#include "editor/FindReplaceWidget.h"

#include "settings/KeyBindings.h"
#include "support/TestMain.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/ToolLineEdit.h"

#include <QLabel>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QtTest>

namespace {

/// A bar over a plain widget, in a window that is shown.
struct Bar
{
    explicit Bar(bool replaceAvailable = true)
        : widget(replaceAvailable, &window)
        , search(widget.findChild<ToolLineEdit*>("m_searchLineEdit"))
        , replace(widget.findChild<ToolLineEdit*>("m_replaceLineEdit"))
        , changes(&widget, &FindReplaceWidget::SearchChanged)
    {
        SearchHistory::Clear();
        window.resize(900, 300);
        window.show();
        widget.SetParentWidth(window.width());
        widget.Appear();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window);
        widget.FocusSearchText();
    }
    FlatButton* Button(const char* name) const { return widget.findChild<FlatButton*>(name); }
    QString Results() const { return widget.findChild<QLabel*>("m_resultsLabel")->text(); }
    QRegularExpression Announced() const
    {
        return changes.isEmpty() ? QRegularExpression()
                                 : changes.last().at(0).value<QRegularExpression>();
    }

    QWidget window;
    FindReplaceWidget widget;
    ToolLineEdit* search;
    ToolLineEdit* replace;
    QSignalSpy changes;
};

} // namespace

class FindReplaceWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void AnnouncesEveryChange();
    void AnnouncesAnUnchangedTextAgain();
    void TakesTextFromADocumentAsItStands();
    void RetakesTheRegionOnlyWhenSwitchedOn();
    void TurnsKeysIntoRequests_data();
    void TurnsKeysIntoRequests();
    void KeepsItsKeysFromShortcuts();
    void TakesNoTextThroughItsButtons();
    void HasTheSizesOfItsForms_data();
    void HasTheSizesOfItsForms();
    void KeepsItsRightEdge();
    void ShowsTheCount_data();
    void ShowsTheCount();
    void ShowsAFaultAndFindsNothing();
    void RemembersWhatWasSought();
    void NamesShortcutsInToolTips();
    void ClosesOnce();
    void HandsTheFocusOfTheReplaceRowBack();
};

void FindReplaceWidgetTest::AnnouncesEveryChange()
{
    Bar bar;
    QTest::keyClicks(bar.search, "ab");
    QCOMPARE(bar.changes.count(), 2);
    const QList<QVariant> typed = bar.changes.last();
    QCOMPARE(typed.at(1).toBool(), false);
    QCOMPARE(typed.at(2).toBool(), true);
    QCOMPARE(typed.at(3).toBool(), false);
    QVERIFY(bar.Announced().match("xABx").hasMatch());

    bar.Button("m_matchCaseButton")->click();
    QVERIFY(!bar.Announced().match("xABx").hasMatch());
    bar.Button("m_matchWordButton")->click();
    QVERIFY(!bar.Announced().match("xabx").hasMatch());
    QVERIFY(bar.Announced().match("x ab").hasMatch());
    bar.widget.SetSearchText("a|b");
    bar.Button("m_regularExpressionButton")->click();
    QCOMPARE(bar.Announced().match("x b").captured(), "b");
    QCOMPARE(bar.changes.count(), 6);
    bar.search->clear();
    QVERIFY(bar.Announced().pattern().isEmpty());
}

void FindReplaceWidgetTest::AnnouncesAnUnchangedTextAgain()
{
    Bar bar;
    bar.widget.SetSearchText("again");
    bar.widget.SetSearchText("again");
    QCOMPARE(bar.changes.count(), 2);
    QCOMPARE(bar.changes.at(0).at(0), bar.changes.at(1).at(0));
    // The owner shows what is there; only typing moves.
    QCOMPARE(bar.changes.at(1).at(2).toBool(), false);
}

void FindReplaceWidgetTest::TakesTextFromADocumentAsItStands()
{
    Bar bar;
    bar.Button("m_regularExpressionButton")->click();
    bar.widget.SeedSearchText("f(x)");
    QCOMPARE(bar.Announced().match("f(x) fx").captured(), "f(x)");
    bar.Button("m_regularExpressionButton")->click();
    bar.widget.SeedSearchText("f(x)");
    QCOMPARE(bar.search->text(), "f(x)");
}

void FindReplaceWidgetTest::RetakesTheRegionOnlyWhenSwitchedOn()
{
    Bar bar;
    FlatButton* inSelection = bar.Button("m_findInSelectionButton");
    inSelection->click();
    QCOMPARE(bar.changes.last().mid(1), (QList<QVariant>{true, false, true}));
    QTest::keyClicks(bar.search, "a");
    QCOMPARE(bar.changes.last().mid(1), (QList<QVariant>{true, true, false}));
    inSelection->click();
    QCOMPARE(bar.changes.last().mid(1), (QList<QVariant>{false, false, false}));
    const int announced = bar.changes.count();
    bar.widget.SetFindInSelectionEnabled(true, false);
    QVERIFY(bar.widget.IsFindInSelection());
    QCOMPARE(bar.changes.count(), announced);
    bar.widget.SetFindInSelectionEnabled(false, true);
    QCOMPARE(bar.changes.count(), announced + 1);
}

void FindReplaceWidgetTest::TurnsKeysIntoRequests_data()
{
    Columns<bool, int, int, QString>("inReplaceField", "key", "modifiers", "requested");
    const int shift = int(Qt::ShiftModifier);
    const int keypad = int(Qt::KeypadModifier);
    Row("Return", false, int(Qt::Key_Return), 0, "next");
    Row("Shift+Return", false, int(Qt::Key_Return), shift, "previous");
    Row("keypad", false, int(Qt::Key_Enter), keypad, "next");
    Row("keypad with shift", false, int(Qt::Key_Enter), (shift | keypad), "previous");
    Row("Escape", false, int(Qt::Key_Escape), 0, "closed");
    Row("in the replace field", true, int(Qt::Key_Return), 0, "next");
    Row("back from the replace field", true, int(Qt::Key_Return), shift, "previous");
    Row("Escape in the replace field", true, int(Qt::Key_Escape), 0, "closed");
    Row("Ctrl+Return is the window's", false, int(Qt::Key_Return), int(Qt::ControlModifier), "");
}

void FindReplaceWidgetTest::TurnsKeysIntoRequests()
{
    QFETCH(bool, inReplaceField);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    Bar bar;
    bar.widget.SetReplaceVisible(true);
    QString requested;
    connect(&bar.widget, &FindReplaceWidget::FindNextRequested, this, [&] { requested += "next"; });
    connect(&bar.widget, &FindReplaceWidget::FindPreviousRequested, this,
        [&] { requested += "previous"; });
    connect(&bar.widget, &FindReplaceWidget::Closed, this, [&] { requested += "closed"; });
    ToolLineEdit* field = inReplaceField ? bar.replace : bar.search;
    field->setFocus();
    QTest::keyClick(field, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QTEST(requested, "requested");
    QCOMPARE(bar.widget.isHidden(), requested == "closed");
}

void FindReplaceWidgetTest::KeepsItsKeysFromShortcuts()
{
    Bar bar;
    QKeyEvent enter(QEvent::ShortcutOverride, Qt::Key_Enter, Qt::KeypadModifier);
    enter.ignore();
    QCoreApplication::sendEvent(bar.search, &enter);
    QVERIFY(enter.isAccepted());
    QKeyEvent execute(QEvent::ShortcutOverride, Qt::Key_Return, Qt::ControlModifier);
    execute.ignore();
    QCoreApplication::sendEvent(bar.search, &execute);
    QVERIFY(!execute.isAccepted());
}

/// The buttons stand in the field, which so gets what they have no use for.
void FindReplaceWidgetTest::TakesNoTextThroughItsButtons()
{
    Bar bar;
    FlatButton* const button = bar.Button("m_matchCaseButton");
    button->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(button, "ab ");
    QCOMPARE(bar.search->text(), "");
    QVERIFY(button->isChecked());
    bar.search->setFocus();
    QTest::keyClicks(bar.search, "c");
    QCOMPARE(bar.search->text(), "c");
}

void FindReplaceWidgetTest::HasTheSizesOfItsForms_data()
{
    Columns<bool, bool, int, QSize>("replaceAvailable", "replaceVisible", "parentWidth", "size");
    Row("replacing", true, true, 900, QSize(452, 71));
    Row("collapsed", true, false, 900, QSize(400, 40));
    Row("finding only", false, true, 900, QSize(380, 40));
    Row("over little room", true, true, 400, QSize(360, 71));
    Row("over hardly any room", true, false, 100, QSize(60, 40));
}

void FindReplaceWidgetTest::HasTheSizesOfItsForms()
{
    QFETCH(bool, replaceAvailable);
    QFETCH(bool, replaceVisible);
    QFETCH(int, parentWidth);
    Bar bar(replaceAvailable);
    bar.widget.SetReplaceVisible(replaceVisible);
    QCOMPARE(bar.widget.IsReplaceVisible(), replaceVisible && replaceAvailable);
    QCOMPARE(bar.replace->isVisible(), bar.widget.IsReplaceVisible());
    bar.widget.SetParentWidth(parentWidth);
    QTEST(bar.widget.size(), "size");
}

void FindReplaceWidgetTest::KeepsItsRightEdge()
{
    Bar bar;
    bar.widget.move(300, 10);
    const QPoint corner = bar.widget.geometry().topRight();
    bar.Button("m_toggleReplaceButton")->click();
    QVERIFY(bar.widget.IsReplaceVisible());
    QCOMPARE(bar.widget.geometry().topRight(), corner);
    bar.widget.SetMessage("gave up");
    QCOMPARE(bar.widget.geometry().topRight(), corner);
    QVERIFY(bar.widget.height() > 71);
}

void FindReplaceWidgetTest::ShowsTheCount_data()
{
    // "counts": current, total
    Columns<QVector<QPoint>, QString>("counts", "shown");
    using Counts = QVector<QPoint>;
    Row("none", Counts{{-1, 0}}, "No Results");
    Row("first", Counts{{1, 3}}, "1 of 3");
    Row("unknown at first", Counts{{-1, 3}}, "1 of 3");
    Row("unknown keeps the last", Counts{{2, 3}, {-1, 4}}, "2 of 4");
    Row("the last kept is clamped", Counts{{5, 5}, {-1, 2}}, "2 of 2");
    Row("too large", Counts{{9, 2}}, "2 of 2");
    Row("none again", Counts{{2, 3}, {-1, 0}}, "No Results");
}

void FindReplaceWidgetTest::ShowsTheCount()
{
    QFETCH(QVector<QPoint>, counts);
    Bar bar;
    for (const QPoint& count : counts)
        bar.widget.SetResults(count.x(), count.y());
    QTEST(bar.Results(), "shown");
    const bool found = bar.Results() != "No Results";
    for (const char* name :
        {"m_previousButton", "m_nextButton", "m_replaceButton", "m_replaceAllButton"})
        QCOMPARE(bar.Button(name)->isEnabled(), found);
}

void FindReplaceWidgetTest::ShowsAFaultAndFindsNothing()
{
    Bar bar;
    bar.Button("m_regularExpressionButton")->click();
    bar.widget.SetSearchText("(");
    QVERIFY(bar.Announced().pattern().isEmpty());
    QVERIFY(bar.search->property("invalid").toBool());
    QVERIFY(bar.search->toolTip().contains("parenthes"));
    const auto* message = bar.widget.findChild<QLabel*>("m_messageLabel");
    QCOMPARE(message->text(), bar.search->toolTip());
    QVERIFY(message->isVisible());
    bar.widget.SetSearchText("()");
    QVERIFY(!bar.Announced().pattern().isEmpty());
    QVERIFY(!bar.search->property("invalid").toBool());
    QVERIFY(bar.search->toolTip().isEmpty());
    QVERIFY(!message->isVisible());
}

void FindReplaceWidgetTest::RemembersWhatWasSought()
{
    Bar bar;
    for (const char* text : {"one", "two"}) {
        bar.widget.SetSearchText(text);
        QTest::keyClick(bar.search, Qt::Key_Return);
    }
    bar.search->setText("dra");
    QTest::keyClick(bar.search, Qt::Key_Up);
    QTest::keyClick(bar.search, Qt::Key_Up);
    QCOMPARE(bar.search->text(), "one");
    QVERIFY(bar.Announced().match("one").hasMatch());
    QTest::keyClick(bar.search, Qt::Key_Down);
    QTest::keyClick(bar.search, Qt::Key_Down);
    QCOMPARE(bar.search->text(), "dra");
}

void FindReplaceWidgetTest::NamesShortcutsInToolTips()
{
    Bar bar;
    const KeyBindings keyBindings;
    bar.widget.UpdateKeyBindings(&keyBindings);
    QCOMPARE(bar.Button("m_nextButton")->toolTip(), "Next Match (F3)");
    QCOMPARE(bar.Button("m_previousButton")->toolTip(), "Previous Match (Shift+F3)");
    QCOMPARE(bar.Button("m_matchCaseButton")->toolTip(), "Match Case");
    QCOMPARE(bar.Button("m_nextButton")->accessibleName(), "Next Match");
}

void FindReplaceWidgetTest::ClosesOnce()
{
    Bar bar;
    QSignalSpy closed(&bar.widget, &FindReplaceWidget::Closed);
    bar.widget.Close();
    bar.widget.Close();
    QCOMPARE(closed.count(), 1);
    QVERIFY(bar.widget.isHidden());
}

void FindReplaceWidgetTest::HandsTheFocusOfTheReplaceRowBack()
{
    Bar bar;
    bar.widget.SetReplaceVisible(true);
    bar.widget.FocusReplaceText();
    QVERIFY(bar.replace->hasFocus());
    bar.widget.SetReplaceVisible(false);
    QVERIFY(bar.search->hasFocus());
}

TE2_TEST(FindReplaceWidgetTest)
#include "FindReplaceWidgetTest.moc"

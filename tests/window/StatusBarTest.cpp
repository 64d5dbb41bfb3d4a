#include "window/chrome/StatusBar.h"

#include "editor/CodeEditor.h"
#include "language/ParserMessage.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/TarnwickEditor.h"
#include "window/WindowFixture.h"
#include "window/chrome/StatusItem.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QSignalSpy>
#include <QStatusTipEvent>
#include <QtTest>

class StatusBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host = std::make_unique<WindowFixture>(); }
    void cleanupTestCase() { m_host.reset(); }
    void init() { Settings::ResetToDefaults(); }
    void SaysWhatItShows_data();
    void SaysWhatItShows();
    void FieldsKeepTheirWidthWhileTyping();
    void LongMessagesAreElided();
    void ATipStandsInPlaceOfTheInfo();
    void ContextMenuChoosesTheFields();
    void OnlyWhatLeadsSomewhereIsPressed();
    void PaintsOnceForManyUpdates();
    void LeadsFromMessageToMessage();

private:
    static StatusItem* Item(const QWidget& parent, const char* name)
    {
        return parent.findChild<StatusItem*>(name);
    }

    std::unique_ptr<WindowFixture> m_host;
};

void StatusBarTest::SaysWhatItShows_data()
{
    // "numbers": errors, warnings, line, column, selected
    Columns<QVector<int>, QString, QString, QString>("numbers", "counts", "position", "sentences");
    using Numbers = QVector<int>;
    Row("no editor", Numbers{0, 0, 0, 0, 0}, "0 0", "", "0 errors, 0 warnings|");
    Row("singular", Numbers{1, 1, 1, 1, 0}, "1 1", "Ln 1, Col 1",
        "1 error, 1 warning|Line 1, column 1");
    Row("plural", Numbers{1, 2, 52, 59, 4}, "1 2", "Ln 52, Col 59 (4 selected)",
        "1 error, 2 warnings|Line 52, column 59, 4 selected");
    Row("no grouping", Numbers{1200, 0, 10000, 1, 0}, "1200 0", "Ln 10000, Col 1",
        "1200 errors, 0 warnings|Line 10000, column 1");
}

void StatusBarTest::SaysWhatItShows()
{
    QFETCH(QVector<int>, numbers);
    StatusBar bar(nullptr);
    bar.SetErrorAndWarningCount(numbers[0], numbers[1]);
    bar.SetCursorPosition(numbers[2], numbers[3], numbers[4]);
    QTEST(Item(bar, "m_counts")->GetText(), "counts");
    QTEST(Item(bar, "m_position")->GetText(), "position");
    QTEST(Item(bar, "m_counts")->accessibleName() + "|" + Item(bar, "m_position")->accessibleName(),
        "sentences");
}

void StatusBarTest::FieldsKeepTheirWidthWhileTyping()
{
    StatusBar bar(nullptr);
    StatusItem* const position = Item(bar, "m_position");
    bar.SetCursorPosition(100, 100, 0);
    const int width = position->sizeHint().width();
    for (int column = 9; column < 15; ++column) {
        bar.SetCursorPosition(1, column, 0);
        QCOMPARE(position->sizeHint().width(), width);
    }
    // Long after the wide text the room is given back, without an editor at once.
    for (int i = 0; i < 100; ++i)
        bar.SetCursorPosition(1, 1, 0);
    QVERIFY(position->sizeHint().width() < width);
    bar.SetCursorPosition(100, 100, 0);
    bar.SetCursorPosition(0, 0, 0);
    bar.SetCursorPosition(1, 1, 0);
    QVERIFY(position->sizeHint().width() < width);
}

void StatusBarTest::LongMessagesAreElided()
{
    StatusBar bar(nullptr);
    const QString text = QString("a <b>long</b> message ").repeated(50);
    bar.SetCursorPosition(1, 1, 0);
    bar.SetInterpreter(2);
    bar.SetInfo(text, StatusBar::Severity::Error);
    bar.resize(500, bar.height());
    bar.show();
    StatusItem* const info = Item(bar, "m_info");
    QVERIFY(info->geometry().right() < Item(bar, "m_position")->x());
    QCOMPARE(Item(bar, "m_interpreter")->geometry().right(), bar.width() - 5);
    QVERIFY(info->toolTip().contains("&lt;b&gt;long"));
    QCOMPARE(info->accessibleName(), text);
}

void StatusBarTest::ATipStandsInPlaceOfTheInfo()
{
    StatusBar bar(nullptr);
    StatusItem* const info = Item(bar, "m_info");
    bar.SetInfo("message", StatusBar::Severity::Warning);
    bar.ShowTip("New Buffer");
    QCOMPARE(info->GetText(), "New Buffer");
    bar.SetInfo("other message", StatusBar::Severity::Warning);
    QCOMPARE(info->GetText(), "New Buffer");
    bar.ShowTip(QString());
    QCOMPARE(info->GetText(), "other message");
    // Tips are shown also where messages are not.
    Settings::statusBarLineMessageVisible = false;
    bar.UpdateFields();
    QCOMPARE(info->GetText(), QString());
    bar.ShowTip("New Buffer");
    QCOMPARE(info->GetText(), "New Buffer");
}

void StatusBarTest::ContextMenuChoosesTheFields()
{
    StatusBar bar(nullptr);
    bar.SetInfo("message", StatusBar::Severity::Error);
    const std::unique_ptr<QMenu> menu(bar.CreateContextMenu());
    const QList<QAction*> actions = menu->actions();
    QStringList texts;
    for (const QAction* action : actions)
        texts += action->isSeparator() ? "-" : action->text();
    QCOMPARE(
        texts, (QStringList{"Interpreter", "Error Count", "Line Message", "-", "Hide Status Bar"}));
    for (int i = 0; i < 3; ++i) {
        QVERIFY(actions[i]->isChecked());
        actions[i]->trigger();
    }
    QVERIFY(!Settings::statusBarInterpreterVisible && !Settings::statusBarErrorCountVisible
        && !Settings::statusBarLineMessageVisible);
    QVERIFY(Item(bar, "m_interpreter")->isHidden() && Item(bar, "m_counts")->isHidden());
    QCOMPARE(Item(bar, "m_info")->GetText(), QString());
    QSignalSpy hide(&bar, &StatusBar::HideRequested);
    actions.last()->trigger();
    QCOMPARE(hide.count(), 1);
}

void StatusBarTest::OnlyWhatLeadsSomewhereIsPressed()
{
    StatusBar bar(nullptr);
    bar.resize(600, bar.height());
    bar.show();
    QSignalSpy counts(&bar, &StatusBar::CountsPressed);
    QSignalSpy info(&bar, &StatusBar::InfoPressed);
    const auto press = [&bar](const char* name) {
        StatusItem* const item = Item(bar, name);
        QTest::mouseClick(
            bar.windowHandle(), Qt::LeftButton, {}, item->mapTo(&bar, item->rect().center()));
        return item->focusPolicy();
    };
    QCOMPARE(press("m_counts"), Qt::NoFocus);
    QCOMPARE(press("m_info"), Qt::NoFocus);
    QCOMPARE(counts.count() + info.count(), 0);
    bar.SetErrorAndWarningCount(0, 1);
    bar.SetInfo("message", StatusBar::Severity::Warning);
    QCoreApplication::processEvents();
    QCOMPARE(press("m_counts"), Qt::TabFocus);
    QCOMPARE(press("m_info"), Qt::TabFocus);
    QCOMPARE(counts.count(), 1);
    QCOMPARE(info.count(), 1);
}

void StatusBarTest::PaintsOnceForManyUpdates()
{
    StatusBar bar(nullptr);
    bar.resize(600, bar.height());
    bar.show();
    bar.SetCursorPosition(10, 10, 0);
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QCoreApplication::processEvents();
    struct Counter : QObject
    {
        int paints = 0;
        bool eventFilter(QObject*, QEvent* event) override
        {
            paints += event->type() == QEvent::Paint;
            return false;
        }
    } counter;
    Item(bar, "m_position")->installEventFilter(&counter);
    for (int column = 1; column < 50; ++column)
        bar.SetCursorPosition(1, column, column);
    QCOMPARE(counter.paints, 0);
    QTRY_VERIFY(counter.paints > 0);
    QCOMPARE(counter.paints, 1);
}

void StatusBarTest::LeadsFromMessageToMessage()
{
    QMainWindow frame;
    auto* window = new TarnwickEditor;
    frame.setCentralWidget(window);
    frame.resize(1000, 700);
    frame.show();
    frame.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    CodeEditor* const editor = window->GetActiveCodeEditor();
    editor->SetText("one\ntwo\nthree\nfour\n");
    const auto message = [](const QString& text, int start) {
        return ParserMessage{text, start, start + 2, -1, -1};
    };
    editor->UpdateErrorsAndWarnings({message("bad", 14)}, {message("odd", 4)}, {});
    StatusItem* const counts = window->findChild<StatusItem*>("m_counts");
    StatusItem* const info = window->findChild<StatusItem*>("m_info");
    QCOMPARE(counts->GetText(), "1 1");
    QStringList messages;
    for (int i = 0; i < 3; ++i) {
        counts->click();
        messages += info->GetText();
    }
    QCOMPARE(messages, (QStringList{"odd", "bad", "odd"}));
    editor->SetCursorPosition(7, false, false);
    QCOMPARE(info->GetText(), "odd");
    info->click();
    QCOMPARE(editor->GetCursorPosition(), 4);
    QVERIFY(editor->hasFocus());
    m_host->RunIdle();
}

TE2_TEST(StatusBarTest)
#include "StatusBarTest.moc"

#include "host/ui/UiFixture.h"
#include "support/TestMain.h"
#include "ui/commands/controls/ReporterView.h"

#include <QtTest>

#include <thread>

using namespace host;

class ReporterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_host = std::make_unique<UiFixture>(); }
    void cleanup() { m_host.reset(); }

    void TheWholeHistoryIsAnswered();
    void FiltersHideWhatTheyName_data();
    void FiltersHideWhatTheyName();
    void ClearingEmptiesEveryView();
    void ManyLinesArriveInOrderAndBounded();
    void OtherThreadsMayPrint();
    void ATemporaryReporterReadsAndClearsTheHistory();
    void TheExecuterRunsItsText();

private:
    ui::ReporterView* View() { return m_host->Widget<ui::ReporterView>("r"); }

    std::unique_ptr<UiFixture> m_host;
};

void ReporterTest::TheWholeHistoryIsAnswered()
{
    OutputStream& output = m_host->GetEngine().output;
    output.Display("before\n");
    m_host->Run("window w; columnLayout c; cmdScrollFieldReporter -fst \"\" r");
    m_host->Run("showWindow w");
    output.Warning("after");
    QCOMPARE(m_host->Run("cmdScrollFieldReporter -q -t r"), "before\n// Warning: after //\n");
    QTRY_COMPARE(View()->toPlainText(), "before\n// Warning: after //\n");
}

void ReporterTest::FiltersHideWhatTheyName_data()
{
    Columns<QString, QString>("flag", "hidden");
    Row("info", "-si 1", "i");
    Row("warnings", "-sw 1", "w");
    Row("errors", "-se 1", "e");
    Row("results", "-sr 1", "r");
    Row("stack traces", "-sst 1", "s");
    Row("MEL", "-fst \"mel\"", "iwersd");
    Row("Python", "-fst \"python\"", "p");
    Row("two at once", "-se 1 -sr 1", "er");
}

void ReporterTest::FiltersHideWhatTheyName()
{
    QFETCH(QString, flag);
    QFETCH(QString, hidden);
    m_host->Run("window w; columnLayout c; cmdScrollFieldReporter " + flag + " r");
    m_host->Run("showWindow w");
    OutputStream& output = m_host->GetEngine().output;
    output.Info("i");
    output.Warning("w");
    output.Error("e");
    output.Write(MessageType::Result, "r");
    output.Write(MessageType::StackTrace, "s");
    output.Display("d\n");
    {
        const LanguageScope python(Language::Python);
        output.Display("p\n");
    }
    const QString all = m_host->Run("cmdScrollFieldReporter -q -t r");
    QTRY_COMPARE(View()->toPlainText(), all);
    const QStringList lines = all.split('\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 7 - hidden.size());
    for (const QString& line : lines) {
        const QString letter = line.contains(": ") ? line.section(": ", 1).left(1)
            : line.startsWith("//")                ? line.mid(3, 1)
                                                   : line.left(1);
        QVERIFY2(!hidden.contains(letter), qPrintable(line));
    }
}

void ReporterTest::ClearingEmptiesEveryView()
{
    m_host->Run("window w; columnLayout c; cmdScrollFieldReporter r; cmdScrollFieldReporter other");
    m_host->Run("showWindow w");
    m_host->GetEngine().output.Display("waiting\n");
    m_host->Run("cmdScrollFieldReporter -e -clear other");
    m_host->GetEngine().output.Display("new\n");
    QTRY_COMPARE(View()->toPlainText(), "new\n");
    QCOMPARE(m_host->Run("cmdScrollFieldReporter -q -t r"), "new\n");
}

void ReporterTest::ManyLinesArriveInOrderAndBounded()
{
    m_host->Run("window w; columnLayout c; cmdScrollFieldReporter r");
    m_host->Run("showWindow w");
    const int lines = ui::ReporterView::MAXIMUM_LINES + 1000;
    for (int i = 0; i < lines; ++i)
        m_host->GetEngine().output.Display(QString::number(i) + '\n');
    QTRY_VERIFY(View()->toPlainText().endsWith(QString("%1\n%2\n").arg(lines - 2).arg(lines - 1)));
    QVERIFY(View()->blockCount() <= ui::ReporterView::MAXIMUM_LINES);
}

void ReporterTest::OtherThreadsMayPrint()
{
    m_host->Run("window w; columnLayout c; cmdScrollFieldReporter r");
    m_host->Run("showWindow w");
    std::thread printer([this] {
        for (int i = 0; i < 1000; ++i)
            m_host->GetEngine().output.Display("x\n");
    });
    printer.join();
    QTRY_COMPARE(View()->toPlainText().count('x'), 1000);
}

/// How plug-ins take over what was printed before they came.
void ReporterTest::ATemporaryReporterReadsAndClearsTheHistory()
{
    m_host->GetEngine().output.Display("old\n");
    const QString read = "window qhTempReporterWnd; columnLayout;"
                         "string $r = `cmdScrollFieldReporter -fst \"\"`;";
    QCOMPARE(m_host->Run(read
                 + "string $t = `cmdScrollFieldReporter -q -t $r`;"
                   "deleteUI -window qhTempReporterWnd; string $result = $t;"),
        "old\n");
    m_host->Run(read + "cmdScrollFieldReporter -e -clear $r; deleteUI -window qhTempReporterWnd");
    QCOMPARE(m_host->GetEngine().history.Text(), QString());
    QVERIFY(!m_host->Find("qhTempReporterWnd"));
}

void ReporterTest::TheExecuterRunsItsText()
{
    m_host->Run("window w; columnLayout c; cmdScrollFieldExecuter -st \"mel\" -t \"print 42\" e");
    m_host->Run("showWindow w");
    QTest::keyClick(m_host->Find("e")->GetWidget(), Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(m_host->TakePrinted(), "42");
    QCOMPARE(m_host->Run("cmdScrollFieldExecuter -q -t e"), QString());
    m_host->Run("cmdScrollFieldExecuter -e -t \"print 1; fred\" -execute 1 e");
    QCOMPARE(m_host->Run("cmdScrollFieldExecuter -q -t e"), "print 1; fred");
    QVERIFY(m_host->Run("cmdScrollFieldExecuter -e -ldf \"/nothing/here.mel\" e")
                .startsWith("error: Cannot read file \"/nothing/here.mel\":"));
}

TE2_TEST(ReporterTest)
#include "ReporterTest.moc"

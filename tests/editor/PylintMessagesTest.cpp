#include "editor/PylintMessages.h"

#include "support/TestMain.h"

#include <QtTest>

namespace {

QString Dump(const QVector<ParserMessage>& messages)
{
    QStringList lines;
    for (const ParserMessage& message : messages) {
        const bool hasSpan = message.start != -1 || message.end != -1;
        lines += QString("%1,%2 %3%4")
                     .arg(message.line)
                     .arg(message.column)
                     .arg(message.message, hasSpan ? " with a span" : "");
    }
    return lines.join('|');
}

} // namespace

class PylintMessagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void FilesEveryLine_data();
    void FilesEveryLine();
    void KeepsTheOrder();
};

void PylintMessagesTest::FilesEveryLine_data()
{
    Columns<QString, QString, QString, QString>("line", "errors", "warnings", "infos");
    const QString none;
    Row("error", "E:3:4:[E1]: no x ", "2,4 [E1] no x", none, none);
    Row("fatal", "F:1:0:[F1]:stop", "0,0 [F1] stop", none, none);
    Row("warning", "W:3:4:[W1]:x", none, "2,4 [W1] x", none);
    Row("convention", "C:3:4:[C1]:x", none, none, "2,4 [C1] x");
    Row("refactoring", "R:3:4:[R1]:x", none, none, "2,4 [R1] x");
    Row("empty parts do not count", "E::3:4:[E1]::x", "2,4 [E1] x", none, none);
    Row("placeholders in the message", "E:3:4:[%2]:%1", "2,4 [%2] %1", none, none);
    Row("a file without a line", "F:0:-1:[F1]:x", "0,0 [F1] x", none, none);
    Row("the least number", "E:-2147483648:0:[E1]:x", "0,0 [E1] x", none, none);
    for (const char* line : {"I:3:4:[I1]:x", "e:3:4:[E1]:x", "E:three:4:[E1]:x", "E:3:-:[E1]:x",
             "E:3:4:[E1]", "E:3:4:[E1]:a: b", "\n", "", "************* Module x"})
        Row(qPrintable(QString("left out: \"%1\"").arg(line)), QString(line), none, none, none);
}

void PylintMessagesTest::FilesEveryLine()
{
    QFETCH(QString, line);
    const PylintMessages messages = ReadPylintMessages({line}, 5);
    QTEST(Dump(messages.errors), "errors");
    QTEST(Dump(messages.warnings), "warnings");
    QTEST(Dump(messages.infos), "infos");
}

void PylintMessagesTest::KeepsTheOrder()
{
    const QStringList lines{"E:9:0:[E1]:a", "\n", "E:1:0:[E2]:b", "F:5:0:[F1]:c"};
    QCOMPARE(Dump(ReadPylintMessages(lines, 5).errors), "8,0 [E1] a|0,0 [E2] b|4,0 [F1] c");
    // Fewer fields than a message has are no messages, whatever was announced.
    QVERIFY(ReadPylintMessages({"E:1:0:[E1]"}, 4).errors.isEmpty());
}

TE2_TEST(PylintMessagesTest)
#include "PylintMessagesTest.moc"

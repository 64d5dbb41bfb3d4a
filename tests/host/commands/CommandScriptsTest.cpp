#include "CommandsFixture.h"
#include "support/TestMain.h"

#include <QDir>
#include <QRegularExpression>
#include <QtTest>

namespace {

/// The texts of the script's comments "// kind: text".
QStringList Said(const QString& script, const QString& kind)
{
    const QString mark = "// " + kind + ": ";
    QStringList texts;
    for (const QString& line : script.split('\n')) {
        const int position = line.indexOf(mark);
        if (position >= 0)
            texts += line.mid(position + mark.size());
    }
    return texts;
}

} // namespace

/// Every file of the data folder is a script whose comments say what it prints, line by line
/// ("// expect: text"), and which errors and warnings it gives ("// error: text").
class CommandScriptsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ScriptPrintsWhatItSays_data();
    void ScriptPrintsWhatItSays();
};

void CommandScriptsTest::ScriptPrintsWhatItSays_data()
{
    Columns<QString>("path");
    const QFileInfoList files = QDir(TEST_DATA_DIR).entryInfoList({"*.mel"}, QDir::Files);
    QVERIFY(!files.isEmpty());
    for (const QFileInfo& file : files)
        Row(qPrintable(file.completeBaseName()), file.filePath());
}

void CommandScriptsTest::ScriptPrintsWhatItSays()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString script = QString::fromUtf8(file.readAll());
    CommandsFixture host;
    host.Run(script);
    QString printed;
    QStringList messages;
    for (const QString& message : host.TakeMessages()) {
        if (message.startsWith("print: "))
            printed += message.mid(7);
        else
            messages += message;
    }
    QStringList lines = printed.split('\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    for (int i = 0; i < lines.size(); ++i)
        QCOMPARE(lines[i], Said(script, "expect").value(i));
    QCOMPARE(lines.size(), Said(script, "expect").size());
    QCOMPARE(messages.filter("error: "),
        Said(script, "error").replaceInStrings(QRegularExpression("^"), "error: "));
    QCOMPARE(messages.filter("warning: "),
        Said(script, "warning").replaceInStrings(QRegularExpression("^"), "warning: "));
}

TE2_TEST(CommandScriptsTest)
#include "CommandScriptsTest.moc"

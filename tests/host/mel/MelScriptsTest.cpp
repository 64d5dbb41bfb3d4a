#include "host/mel/MelFixture.h"
#include "support/TestMain.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QtTest>

using namespace host;

/// Every file in data/ is a row. Its comments say what running it gives, in order: "// expect:" a
/// printed line, "// error:" and "// warning:" a message, "// result:" the result line.
class MelScriptsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ScriptGivesWhatItsCommentsSay_data();
    void ScriptGivesWhatItsCommentsSay();
};

namespace {

QStringList Expected(const QString& text, const QString& kind)
{
    const QRegularExpression comment("// " + kind + ": ?(.*)");
    QStringList lines;
    auto matches = comment.globalMatch(text);
    while (matches.hasNext())
        lines += matches.next().captured(1);
    return lines;
}

QString WithLineEnd(const QStringList& lines)
{
    return lines.isEmpty() ? QString() : lines.join("\n") + '\n';
}

} // namespace

void MelScriptsTest::ScriptGivesWhatItsCommentsSay_data()
{
    Columns<QString>("path");
    QDirIterator files(TEST_DATA_DIR, {"*.mel"}, QDir::Files);
    while (files.hasNext()) {
        const QString path = files.next();
        Row(qPrintable(files.fileInfo().baseName()), path);
    }
}

void MelScriptsTest::ScriptGivesWhatItsCommentsSay()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    const QStringList errors = Expected(text, "error");

    MelFixture fixture;
    const ScriptResult result = fixture.Run(text);

    QString printed = fixture.Printed();
    if (!printed.isEmpty() && !printed.endsWith('\n'))
        printed += '\n';
    QCOMPARE(printed, WithLineEnd(Expected(text, "expect")));
    QCOMPARE(fixture.Texts(MessageType::Error), errors);
    QCOMPARE(fixture.Texts(MessageType::Warning), Expected(text, "warning"));
    const QStringList results = Expected(text, "result");
    if (!results.isEmpty())
        QCOMPARE(QStringList{result.resultText}, results);
    QCOMPARE(
        result.failed, !errors.isEmpty() && result.errorText == errors.last().section(": ", -1));
}

TE2_TEST(MelScriptsTest)
#include "MelScriptsTest.moc"

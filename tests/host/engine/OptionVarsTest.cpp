#include "engine/OptionVars.h"

#include "support/TestMain.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace host;

/// What scripts keep between two sessions.
class OptionVarsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void EveryKindComesBack();
    void AMissingFileIsNoProblem();
    void ABrokenFileIsReportedAndKept();
    void ABrokenEntryCostsOnlyItself();
    void AFailedSaveLeavesTheOldFile();

private:
    QTemporaryDir m_directory;
    QString Path() const { return m_directory.filePath("vars.json"); }
    void Write(const QByteArray& text) const
    {
        QFile file(Path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
};

void OptionVarsTest::EveryKindComesBack()
{
    const QVector<Value> values = {Value(-5), Value(3.0), Value(0.1), Value(QString()),
        Value(QString::fromUtf8("a \"quote\"\n\xc3\xa4")), Value(IntList{1, -2}),
        Value(FloatList{1, 2.5}), Value(StringList{"", "b"}), Value(StringList()),
        Value(IntList())};
    OptionVars saved;
    for (int i = 0; i < values.size(); ++i)
        saved.Set(QString("v%1").arg(i), values[i]);
    saved.Set("yes", true);
    QCOMPARE(saved.Save(Path()), QString());
    OptionVars loaded;
    QCOMPARE(loaded.Load(Path()), QString());
    QCOMPARE(loaded.Names(), saved.Names());
    for (int i = 0; i < values.size(); ++i)
        QCOMPARE(loaded.Get(QString("v%1").arg(i)), values[i]);
    QCOMPARE(loaded.Get("yes"), Value(1));
}

void OptionVarsTest::AMissingFileIsNoProblem()
{
    OptionVars vars;
    QCOMPARE(vars.Load(m_directory.filePath("none.json")), QString());
    QVERIFY(vars.Get("x").IsNone());
    QVERIFY(!vars.Remove("x"));
}

void OptionVarsTest::ABrokenFileIsReportedAndKept()
{
    Write("{ \"half\": ");
    OptionVars vars;
    const QString problem = vars.Load(Path());
    QVERIFY2(problem.contains(Path()), qPrintable(problem));
    QVERIFY(problem.contains(Path() + ".broken"));
    QCOMPARE(vars.Save(Path()), QString());
    QFile kept(Path() + ".broken");
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), "{ \"half\": ");
}

void OptionVarsTest::ABrokenEntryCostsOnlyItself()
{
    Write(R"({"good": {"type": "int", "value": 4}, "bad": {"type": "colour", "value": 1},
        "array": {"type": "vector[]", "value": [1]}, "text": "x"})");
    OptionVars vars;
    QCOMPARE(vars.Load(Path()), QString());
    QCOMPARE(vars.Names(), QStringList{"good"});
}

void OptionVarsTest::AFailedSaveLeavesTheOldFile()
{
    OptionVars vars;
    vars.Set("a", 1);
    const QString impossible = m_directory.filePath("missing/vars.json");
    QVERIFY(vars.Save(impossible).contains(impossible));
    QVERIFY(!QFile::exists(impossible));
}

TE2_TEST(OptionVarsTest)
#include "OptionVarsTest.moc"

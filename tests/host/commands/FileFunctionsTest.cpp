#include "CommandsFixture.h"
#include "support/TestMain.h"

#include <QtTest>

namespace {

QByteArray Read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

} // namespace

/// Reading and writing files, looking at folders and running other programs.
class FileFunctionsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { m_host.reset(); }

    void WritesAndReadsText();
    void ReadsWordsBetweenSeparators();
    void BinaryValuesComeBack();
    void ReadingAndWritingMayAlternate();
    void OldFilesAreLatin1();
    void WholeFiles();
    void BadFilesAreReported_data();
    void BadFilesAreReported();
    void PipesCarryBothWays();
    void ListsFolders();
    void ChangesFiles();
    void TestsFiles();
    void RunsPrograms();
    void EnvironmentVariables();

private:
    /// Runs the text with $d set to the folder of this test.
    QString Run(const QString& text)
    {
        return m_host->Run("string $d = \"" + m_host->Path("") + "/\"; " + text);
    }
    QString Printed(const QString& text)
    {
        m_host->TakeMessages();
        const QString result = Run(text);
        QString printed;
        for (const QString& message : m_host->TakeMessages())
            printed += message.startsWith("print: ") ? message.mid(7) : message;
        return printed;
    }

    std::unique_ptr<CommandsFixture> m_host;
};

void FileFunctionsTest::init()
{
    m_host = std::make_unique<CommandsFixture>();
}

void FileFunctionsTest::WritesAndReadsText()
{
    Run("int $f = `fopen ($d + \"a.txt\") \"w\"`; fprint $f \"one\\n\"; fprint($f, 1.0 / 3);"
        "fprint $f {\"x\", \"y\"}; fclose $f;");
    QCOMPARE(Read(m_host->Path("a.txt")), "one\n0.3333333333x\ny\n");
    QCOMPARE(Printed("int $f = fopen($d + \"a.txt\", \"r\"); string $l = fgetline($f);"
                     "while (size($l) > 0) { print(\"[\" + $l + \"]\"); $l = fgetline($f); }"
                     "print(feof($f)); fclose($f);"),
        "[one\n][0.3333333333x\n][y\n]1");
    Run("int $f = fopen($d + \"a.txt\", \"a\"); fprint($f, \"z\"); fclose($f);");
    QVERIFY(Read(m_host->Path("a.txt")).endsWith("y\nz"));
    // The end is known only after a read met it.
    QCOMPARE(Printed("int $f = fopen($d + \"a.txt\", \"r\"); print(feof($f)); frewind($f);"
                     "print(fgetword($f)); fclose($f);"),
        "0one");
}

void FileFunctionsTest::ReadsWordsBetweenSeparators()
{
    Run("fwriteAllText($d + \"w\", \"  one two,three\\nfour\");");
    QCOMPARE(Printed("int $f = fopen($d + \"w\", \"r\"); print(fgetword($f) + \"|\");"
                     "print(fgetword($f, \",\") + \"|\" + fgetword($f) + \"|\" + fgetword($f));"
                     "print(\"[\" + fgetword($f) + \"]\"); fclose($f);"),
        "one|two|three|four[]");
}

void FileFunctionsTest::BinaryValuesComeBack()
{
    Run("int $f = fopen($d + \"b\", \"w\"); fwrite($f, -7); fwrite($f, 2.5); fwrite($f, \"txt\");"
        "fwrite($f, <<1, 2, 3>>); fclose($f);");
    QCOMPARE(Read(m_host->Path("b")).size(), 4 + 8 + 4 + 24);
    QCOMPARE(Printed("int $f = fopen($d + \"b\", \"r\"); int $i; float $x; string $s; vector $v;"
                     "$i = fread($f, $i); $x = fread($f, $x); $s = fread($f, $s);"
                     "$v = fread($f, $v); print($i + \" \" + $x + \" \" + $s + \" \" + $v);"
                     "print(\" \" + fread($f, $i)); fclose($f);"),
        "-7 2.5 txt 1 2 3 0");
}

void FileFunctionsTest::ReadingAndWritingMayAlternate()
{
    Run("fwriteAllText($d + \"rw\", \"aaaa\\nbbbb\\n\");");
    QCOMPARE(Printed("int $f = fopen($d + \"rw\", \"r+\"); print(fgetline($f));"
                     "fprint($f, \"XX\"); print(fgetline($f)); fclose($f);"),
        "aaaa\nbb\n");
    QCOMPARE(Read(m_host->Path("rw")), "aaaa\nXXbb\n");
}

void FileFunctionsTest::OldFilesAreLatin1()
{
    QFile file(m_host->Path("old"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("Gr\xfcn");
    file.close();
    QCOMPARE(Run("freadAllText($d + \"old\");"), QString::fromUtf8("Gr\303\274n"));
}

void FileFunctionsTest::WholeFiles()
{
    QCOMPARE(Run("fwriteAllLines($d + \"l\", {\"a\", \"\", \"b\"});"), "1");
    QCOMPARE(Read(m_host->Path("l")), "a\n\nb\n");
    QCOMPARE(Run("size(freadAllLines($d + \"l\"));"), "3");
    Run("fwriteAllText($d + \"l\", \"a\\r\\nb\");");
    QCOMPARE(Printed("print(freadAllLines($d + \"l\"));"), "a\nb\n");
}

void FileFunctionsTest::BadFilesAreReported_data()
{
    Columns<QString, QString>("text", "start");
    Row("opening gives 0", "fopen($d + \"no/file\", \"r\");", "0");
    Row("mode", "fopen($d + \"x\", \"q\");", "error: Invalid file mode \"q\".");
    Row("number never opened", "fgetline(99);", "error: Invalid file identifier: 99.");
    Row("closed twice", "int $f = fopen($d + \"x\", \"w\"); fclose($f); fclose($f);",
        "error: Invalid file identifier: 1.");
    Row("writing to a file open for reading",
        "fclose(fopen($d + \"x\", \"w\")); int $f = fopen($d + \"x\", \"r\"); fprint($f, 1);",
        "error: Cannot write to file 2.");
    Row("whole file", "freadAllText($d + \"none\");", "error: Cannot read file");
    Row("folder missing", "fwriteAllText($d + \"no/file\", \"\");", "error: Cannot write file");
}

void FileFunctionsTest::BadFilesAreReported()
{
    QFETCH(QString, text);
    QFETCH(QString, start);
    const QString result = Run(text);
    QVERIFY2(result.startsWith(start), qPrintable(result));
}

void FileFunctionsTest::PipesCarryBothWays()
{
    QCOMPARE(Printed("int $p = popen(\"printf 'a\\\\nb'\", \"r\"); print(fgetline($p));"
                     "print(fgetline($p)); print(feof($p)); pclose($p);"),
        "a\nb1");
    Run("int $p = popen(\"cat > '\" + $d + \"piped'\", \"w\"); fprint($p, \"through\");"
        "pclose($p);");
    QCOMPARE(Read(m_host->Path("piped")), "through");
}

void FileFunctionsTest::ListsFolders()
{
    Run("int $i; string $names[] = {\"b.mel\", \"a.mel\", \"c.txt\", \"B.MEL\"};"
        "for ($n in $names) fwriteAllText($d + $n, \"\"); sysFile -makeDir ($d + \"sub/deep\");");
    QCOMPARE(Run("string $l[] = `getFileList -folder $d -filespec \"*.mel\"`;"), "a.mel b.mel");
    QCOMPARE(Run("string $l[] = `getFileList -fld $d -fs \"[bs]*\"`;"), "b.mel sub");
    QCOMPARE(Run("size(`getFileList -folder ($d + \"none\")`);"), "0");
}

void FileFunctionsTest::ChangesFiles()
{
    Run("fwriteAllText($d + \"a\", \"text\"); fwriteAllText($d + \"b\", \"old\");");
    QCOMPARE(Run("sysFile -copy ($d + \"b\") ($d + \"a\");"), "1");
    QCOMPARE(Read(m_host->Path("b")), "text");
    QCOMPARE(Run("sysFile -copy ($d + \"a\") ($d + \"a\");"), "0");
    QCOMPARE(Run("sysFile -copy ($d + \"b\") ($d + \"none\");"), "0");
    QCOMPARE(Read(m_host->Path("b")), "text");
    QCOMPARE(Run("sysFile -rename ($d + \"c\") ($d + \"a\");"), "1");
    QCOMPARE(Run("sysFile -move ($d + \"c\") ($d + \"a\");"), "0");
    QCOMPARE(Run("sysFile -makeDir ($d + \"x/y\");"), "1");
    QCOMPARE(Run("sysFile -delete ($d + \"x\");"), "0");
    QCOMPARE(Run("sysFile -removeEmptyDir ($d + \"x\");"), "0");
    QCOMPARE(Run("sysFile -red ($d + \"x/y\");"), "1");
    QCOMPARE(Run("sysFile -delete ($d + \"c\");"), "1");
    QVERIFY(Run("sysFile ($d + \"c\");").startsWith("error: "));
}

void FileFunctionsTest::TestsFiles()
{
    Run("fwriteAllText($d + \"full\", \"x\"); fwriteAllText($d + \"empty\", \"\");");
    QFile::link(m_host->Path("full"), m_host->Path("link"));
    const char* const rows[] = {"-f full 1", "-f none 0", "-d full 0", "-d . 1", "-s full 1",
        "-s empty 0", "-L link 1", "-L full 0", "-e none 0", "-r full 1", "-x full 0"};
    for (const char* row : rows) {
        const QStringList parts = QString(row).split(' ');
        QVERIFY2(
            Run(QString("filetest %1 ($d + \"%2\");").arg(parts[0], parts[1])) == parts[2], row);
    }
}

void FileFunctionsTest::RunsPrograms()
{
    QCOMPARE(Run("system(\"printf 'a b'; exit 3\");"), "a b");
    QCOMPARE(Run("system(\"cat < /dev/null\");"), QString());
    Run("exec(\"echo done > '\" + $d + \"background'\");");
    QTRY_COMPARE(Read(m_host->Path("background")), "done\n");
}

void FileFunctionsTest::EnvironmentVariables()
{
    QCOMPARE(Run("putenv(\"TARNWICK_TEST\", \"a=b\");"), "a=b");
    QCOMPARE(Run("getenv(\"TARNWICK_TEST\");"), "a=b");
    QCOMPARE(Run("getenv(\"TARNWICK_NONE\");"), QString());
    QVERIFY(Run("putenv(\"A=B\", \"x\");").startsWith("error: "));
    qunsetenv("TARNWICK_TEST");
}

TE2_TEST(FileFunctionsTest)
#include "FileFunctionsTest.moc"

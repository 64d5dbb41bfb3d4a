#include "engine/Modules.h"

#include "engine/Paths.h"
#include "engine/StartEnvironment.h"
#include "support/TestMain.h"

#include <QTemporaryDir>
#include <QtTest>

#include <optional>

using namespace host;

/// Module files and Maya.env, and what they make of the environment.
class ModulesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void BlocksJoinTheSearchPaths_data();
    void BlocksJoinTheSearchPaths();
    void MistakesAreNamedAndPassedOver_data();
    void MistakesAreNamedAndPassedOver();
    void TheFirstFolderWithANameCounts();
    void FoldersAreFoundInTheirOrder();
    void EnvironmentFile_data();
    void EnvironmentFile();
    void TheEnvironmentIsPutBack();

private:
    void Write(const QString& name, const QString& text);
    QStringList Read(const QStringList& folders) { return m_modules.Read(folders, *m_environment); }
    /// "NAME=value" for those variables that have one, with "@" for the test's folder.
    QString Changes() const;

    std::unique_ptr<QTemporaryDir> m_directory;
    std::optional<StartEnvironment> m_environment;
    Modules m_modules;
};

namespace {

const char* const VARIABLES[] = {"MAYA_PLUG_IN_PATH", "MAYA_SCRIPT_PATH", "PYTHONPATH",
    "XBMLANGPATH", "MAYA_PRESET_PATH", "TE2_A", "TE2_B"};

} // namespace

void ModulesTest::init()
{
    for (const char* variable : VARIABLES)
        qunsetenv(variable);
    m_directory = std::make_unique<QTemporaryDir>();
    for (const char* folder : {"tool/plug-ins", "tool/scripts/rig/arm", "tool/icons", "other/bin",
             "my tools/scripts", "none"})
        QVERIFY(QDir(m_directory->path()).mkpath(folder));
    m_environment.emplace();
    m_modules = {};
}

void ModulesTest::cleanup()
{
    m_environment.reset();
    for (const char* variable : VARIABLES)
        QVERIFY(!qEnvironmentVariableIsSet(variable));
}

void ModulesTest::Write(const QString& name, const QString& text)
{
    const QString path = m_directory->filePath(name);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
}

QString ModulesTest::Changes() const
{
    QStringList changes;
    for (const char* variable : VARIABLES) {
        if (qEnvironmentVariableIsSet(variable))
            changes += QString("%1=%2").arg(variable, qEnvironmentVariable(variable));
    }
    return changes.join(' ').replace(m_directory->path(), "@");
}

void ModulesTest::BlocksJoinTheSearchPaths_data()
{
    Columns<QString, QString, QString>("text", "modules", "changes");
    const QString plugins = "MAYA_PLUG_IN_PATH=@/tool/plug-ins";
    const QString scripts = "MAYA_SCRIPT_PATH=@/tool/scripts PYTHONPATH=@/tool/scripts";
    const QString all = plugins + ' ' + scripts + " XBMLANGPATH=@/tool/icons/%B";
    Row("the usual folders", "+ tool 1.0 ./tool", "tool", all);
    Row("a bare folder", "+ tool 1.0 tool\r\n", "tool", all);
    Row("conditions in any order", "+ LOCALE:C PLATFORM:linux MAYAVERSION:2024 tool 1 tool", "tool",
        all);
    Row("blanks in a folder", "+ my 1 my tools", "my",
        "MAYA_SCRIPT_PATH=@/my tools/scripts PYTHONPATH=@/my tools/scripts");
    Row("disabled", "- tool 1.0 ./tool", "", "");
    Row("another release", "+ MAYAVERSION:2023 tool 1 tool", "", "");
    Row("another system", "+ PLATFORM:win64 MAYAVERSION:2024 tool 1 tool", "", "");
    Row("another language", "+ LOCALE:ja_JP tool 1 tool", "", "");
    Row("a block that fits among others",
        "+ PLATFORM:win64 tool 1 nowhere\nplug-ins: bin\n\n+ PLATFORM:linux tool 1 tool\n\n"
        "+ tool 2 other\nplug-ins: bin",
        "tool", all);
    Row("blocks without a line between", "+ none 1 none\n+ other 1 other\nplug-ins: bin",
        "none other", "MAYA_PLUG_IN_PATH=@/other/bin");
    Row("a folder of its own", "# notes\n+ tool 1 tool\nplug-ins: ../other/bin\n// more", "tool",
        "MAYA_PLUG_IN_PATH=@/other/bin " + scripts + " XBMLANGPATH=@/tool/icons/%B");
    Row("with all below", "+ tool 1 tool\n[r] scripts: scripts", "tool",
        plugins
            + QString(" MAYA_SCRIPT_PATH=%1 PYTHONPATH=%1 XBMLANGPATH=@/tool/icons/%B")
                  .arg("@/tool/scripts:@/tool/scripts/rig:@/tool/scripts/rig/arm"));
    Row("variables", "+ none 1 none\nTE2_A=one two\nTE2_B+=1\nTE2_B+=2\nTE2_B+=1", "none",
        "TE2_A=one two TE2_B=1:2");
    Row("variables with paths", "+ none 1 none\nTE2_A:=data\nTE2_B+:=a\nTE2_B+:=/b", "none",
        "TE2_A=@/none/data TE2_B=@/none/a:/b");
}

void ModulesTest::BlocksJoinTheSearchPaths()
{
    QFETCH(QString, text);
    Write("a.mod", text);
    QCOMPARE(Read({m_directory->path()}).join('\n'), "");
    QStringList names;
    for (const Module& module : m_modules.All())
        names += module.name;
    QTEST(names.join(' '), "modules");
    QTEST(Changes(), "changes");
}

void ModulesTest::MistakesAreNamedAndPassedOver_data()
{
    Columns<QString, QString, QString>("text", "problem", "changes");
    Row("no folder", "\n+ tool 1.0\nTE2_A=1", "2: A module needs a name, a version and a folder.",
        "");
    Row("a folder that is not there", "+ tool 1 gone\nTE2_A=1", "1: There is no folder \"@/gone\".",
        "");
    Row("an unknown condition", "+ MOON:full tool 1 tool", "1: \"MOON\" is not a known condition.",
        "");
    Row("no block", "TE2_A=1\n\n+ none 1 none\nTE2_B=2", "1: \"TE2_A=1\" belongs to no module.",
        "TE2_B=2");
    Row("after an empty line", "+ none 1 none\n\nTE2_A=1", "3: \"TE2_A=1\" belongs to no module.",
        "");
    Row("a line of no kind", "+ none 1 none\nwhatever\nTE2_A=1",
        "2: \"whatever\" is neither a folder nor a variable.", "TE2_A=1");
    Row("a stated folder that is not there",
        "+ tool 1 tool\nplug-ins: gone\nicons: ..\nscripts: ..",
        "2: There is no folder \"@/tool/gone\".",
        "MAYA_SCRIPT_PATH=@ PYTHONPATH=@ XBMLANGPATH=@/%B");
}

void ModulesTest::MistakesAreNamedAndPassedOver()
{
    QFETCH(QString, text);
    QFETCH(QString, problem);
    Write("a.mod", text);
    QString problems = Read({m_directory->path()}).join('\n');
    QCOMPARE(problems.replace(m_directory->path(), "@"), "@/a.mod, line " + problem);
    QTEST(Changes(), "changes");
}

void ModulesTest::TheFirstFolderWithANameCounts()
{
    Write("one/a.mod", "+ tool 1 ../tool");
    Write("two/a.mod", "+ tool 2 ../other\nplug-ins: bin\n\n+ other 2 ../other");
    Write("two/b.txt", "+ none 2 ../none");
    QCOMPARE(
        Read({"/nowhere", m_directory->filePath("one"), m_directory->filePath("two")}).size(), 0);
    QCOMPARE(m_modules.All().size(), size_t(2));
    QCOMPARE(m_modules.Find("tool")->version, "1");
    QCOMPARE(m_modules.Find("other")->folder, m_directory->filePath("other"));
    QCOMPARE(m_modules.Find("other")->file, m_directory->filePath("two/a.mod"));
    QVERIFY(!m_modules.Find("none"));
}

void ModulesTest::FoldersAreFoundInTheirOrder()
{
    m_environment->Set("MAYA_MODULE_PATH", "/b::/a");
    const QStringList path = Paths("/home/me/maya").ModulePath();
    const QStringList wanted{"/b", "/a", "/home/me/maya/2024/modules", "/home/me/maya/modules"};
    QCOMPARE(path.mid(0, 4), wanted);
}

void ModulesTest::EnvironmentFile_data()
{
    Columns<QString, QString, QString>("text", "problem", "changes");
    Row("values", "# mine\nTE2_A = one two\n\n//\nTE2_B=/x:/y\r\n", "",
        "TE2_A=one two TE2_B=/x:/y");
    Row("built upon others", "TE2_A=$TE2_GIVEN/a\nTE2_A=$TE2_A:${TE2_GIVEN}b\nTE2_B=$TE2_NONE$", "",
        "TE2_A=/given$TE2_B/a:/given$TE2_Bb TE2_B=$");
    Row("what is there stays", "TE2_GIVEN=other\nTE2_A=$TE2_GIVEN", "", "TE2_A=/given$TE2_B");
    QString doubled = "TE2_A=x\n";
    for (int i = 0; i < 17; ++i)
        doubled += "TE2_A=$TE2_A$TE2_A\n";
    Row("grown too long", doubled + "TE2_B=${TE2_A}",
        "line 18: The value of \"TE2_A\" is too long.",
        QString("TE2_A=%1 TE2_B=%1").arg(QString(1 << 16, 'x')));
    Row("no assignment", "TE2_A\nTE2_B=1", "line 1: \"TE2_A\" is not NAME = value.", "TE2_B=1");
}

void ModulesTest::EnvironmentFile()
{
    QFETCH(QString, text);
    QFETCH(QString, problem);
    qputenv("TE2_GIVEN", "/given$TE2_B");
    Write("Maya.env", text);
    const QStringList problems = m_environment->ReadFile(m_directory->filePath("Maya.env"));
    QCOMPARE(problems.join('\n'),
        problem.isEmpty() ? "" : m_directory->filePath("Maya.env") + ", " + problem);
    QTEST(Changes(), "changes");
    QVERIFY(m_environment->ReadFile(m_directory->filePath("gone")).isEmpty());
}

void ModulesTest::TheEnvironmentIsPutBack()
{
    qputenv("TE2_A", "");
    m_environment->Set("TE2_A", "1");
    m_environment->Append("TE2_A", "2");
    m_environment->Append("TE2_B", "3");
    m_environment.reset();
    QVERIFY(qEnvironmentVariableIsSet("TE2_A"));
    QCOMPARE(qgetenv("TE2_A"), "");
    QVERIFY(!qEnvironmentVariableIsSet("TE2_B"));
    qunsetenv("TE2_A");
}

TE2_TEST(ModulesTest)
#include "ModulesTest.moc"

#include "engine/Plugins.h"

#include "engine/Paths.h"
#include "support/TestMain.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace host;

namespace {

/// Says yes or no as the test tells it, and looks at the record as an entry point would.
class FakeLoader : public PluginLoader
{
public:
    explicit FakeLoader(Plugins& plugins)
        : m_plugins(plugins)
    { }
    Outcome Load(Plugin& plugin) override
    {
        seenInEntryPoint = m_plugins.Find(plugin.name) == &plugin;
        return plugin.name.startsWith("bad") ? Outcome(Error{"no"}) : Outcome();
    }
    Outcome Unload(Plugin& plugin, bool force) override
    {
        ++unloads;
        nested = m_plugins.Unload(plugin.name, force);
        return busy && !force ? Outcome(Error{"busy"}) : Outcome();
    }

    bool seenInEntryPoint = false;
    bool busy = false;
    int unloads = 0;
    Outcome nested;

private:
    Plugins& m_plugins;
};

void Touch(const QString& path)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

} // namespace

/// Where plug-ins and scripts are found, and the list of what is loaded.
class PluginsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void FindsFilesAlongThePath();
    void NamesAFileWithoutItsSuffix_data();
    void NamesAFileWithoutItsSuffix();
    void LoadsOnce();
    void AFailedLoadLeavesNothing();
    void UnloadsOnlyWhatLetsGo();
    void ScriptsAreFoundUserFirst();

private:
    std::unique_ptr<QTemporaryDir> m_directory;
    QString At(const QString& name) const { return m_directory->filePath(name); }
};

void PluginsTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    Touch(At("one/tool.so"));
    Touch(At("two/tool.so"));
    Touch(At("two/other.so"));
    Touch(At("two/bad.so"));
    qputenv("MAYA_PLUG_IN_PATH", (At("missing") + ':' + At("one") + "::" + At("two")).toUtf8());
}

void PluginsTest::cleanup()
{
    qunsetenv("MAYA_PLUG_IN_PATH");
    qunsetenv("MAYA_SCRIPT_PATH");
    qunsetenv("MAYA_LOCATION");
}

void PluginsTest::FindsFilesAlongThePath()
{
    QCOMPARE(Plugins::FindFile("tool"), At("one/tool.so"));
    QCOMPARE(Plugins::FindFile("other.so"), At("two/other.so"));
    QCOMPARE(Plugins::FindFile(At("two/tool")), At("two/tool.so"));
    QCOMPARE(Plugins::FindFile("nothing"), QString());
    QCOMPARE(Plugins::FindFile(""), QString());
    QCOMPARE(Plugins::FindFile(At("one")), QString());
}

void PluginsTest::NamesAFileWithoutItsSuffix_data()
{
    Columns<QString, QString>("path", "name");
    Row("path", "/a/b/tool.so", "tool");
    Row("name alone", "tool", "tool");
    Row("dots inside", "/a/tool.v2.so", "tool.v2");
    Row("of a script", "/a/tool.py", "tool");
    Row("other suffix stays", "tool.txt", "tool.txt");
}

void PluginsTest::NamesAFileWithoutItsSuffix()
{
    QFETCH(QString, path);
    QTEST(Plugins::NameOf(path), "name");
}

void PluginsTest::LoadsOnce()
{
    Plugins plugins;
    QVERIFY(!plugins.Load("tool").Ok());
    auto loader = std::make_unique<FakeLoader>(plugins);
    const FakeLoader* fake = loader.get();
    plugins.SetLoader(std::move(loader));
    bool already = true;
    QCOMPARE(plugins.Load("tool", &already).GetValue(), Value(QString("tool")));
    QVERIFY(!already);
    QVERIFY(fake->seenInEntryPoint);
    QVERIFY(plugins.Load("tool.so", &already).Ok());
    QVERIFY(already);
    QCOMPARE(plugins.Names(), QStringList{"tool"});
    QCOMPARE(plugins.Find(At("one/tool.so"))->path, At("one/tool.so"));
    const Outcome missing = plugins.Load("nothing");
    QVERIFY(!missing.Ok());
    QCOMPARE(missing.GetError().text, "Plug-in, \"nothing\", was not found on MAYA_PLUG_IN_PATH.");
}

void PluginsTest::AFailedLoadLeavesNothing()
{
    Plugins plugins;
    plugins.SetLoader(std::make_unique<FakeLoader>(plugins));
    QVERIFY(!plugins.Load("bad").Ok());
    QVERIFY(!plugins.Find("bad"));
    QCOMPARE(plugins.Names(), QStringList());
}

void PluginsTest::UnloadsOnlyWhatLetsGo()
{
    Plugins plugins;
    auto loader = std::make_unique<FakeLoader>(plugins);
    FakeLoader* fake = loader.get();
    plugins.SetLoader(std::move(loader));
    plugins.Load("tool");
    plugins.Load("other");
    fake->busy = true;
    QVERIFY(!plugins.Unload("tool", false).Ok());
    QVERIFY(plugins.Find("tool"));
    // The exit point asked for its own end: refused instead of run twice.
    QVERIFY(!fake->nested.Ok());
    QCOMPARE(fake->unloads, 1);
    QCOMPARE(plugins.Unload("tool", true).GetValue(), Value(QString("tool")));
    QCOMPARE(plugins.Names(), QStringList{"other"});
    QVERIFY(!plugins.Unload("tool", false).Ok());
}

void PluginsTest::ScriptsAreFoundUserFirst()
{
    qputenv("MAYA_LOCATION", At("host").toUtf8());
    qputenv("MAYA_SCRIPT_PATH", At("studio").toUtf8());
    Touch(At("host/scripts/others/tool.mel"));
    Touch(At("host/scripts/deep.mel"));
    const Paths paths(At("app"));
    QCOMPARE(paths.FindScript("tool"), At("host/scripts/others/tool.mel"));
    QCOMPARE(paths.FindScript("deep.mel"), At("host/scripts/deep.mel"));
    Touch(At("studio/tool"));
    QCOMPARE(paths.FindScript("tool"), At("studio/tool"));
    Touch(At("studio/tool.mel"));
    QCOMPARE(paths.FindScript("tool"), At("studio/tool.mel"));
    Touch(At("app/2024/scripts/tool.mel"));
    QCOMPARE(paths.FindScript("tool"), At("app/2024/scripts/tool.mel"));
    QCOMPARE(paths.FindScript(At("host/scripts/deep")), At("host/scripts/deep.mel"));
    QCOMPARE(paths.FindScript(""), QString());
    QCOMPARE(paths.FindScript("others"), QString());
}

TE2_TEST(PluginsTest)
#include "PluginsTest.moc"

#include "host/api/ApiFixture.h"
#include "support/TestMain.h"

#define MNoVersionString
#define MNoPluginEntry
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>

#include <QtTest>

#include <dlfcn.h>

using host::Value;

/// Loading and unloading, above all when something goes wrong.
class PluginLoadTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_host = std::make_unique<ApiFixture>(); }
    void cleanup() { m_host.reset(); }

    void KnowsWhoMadeIt();
    void RenamesOnlyBeforeItRegisters();
    void RefusesFilesThatAreNoPlugins_data();
    void RefusesFilesThatAreNoPlugins();
    void UndoesAFailedStart_data();
    void UndoesAFailedStart();
    void StartsAfreshAfterUnloading();
    void RemovesWhatWasLeftBehind();
    void StaysLoadedWhenItRefuses();
    void IsNotUnloadedUnderItsOwnFeet_data();
    void IsNotUnloadedUnderItsOwnFeet();
    void UndoKeepsItLoaded();
    void CommandsKeptBeyondUnloadingFail();
    void NamesAreRegisteredOnce();
    void RunsItsProceduresByHostState();

private:
    bool IsMapped(const QString& plugin) const;
    int Count(const char* variable) const { return MGlobal::optionVarIntValue(variable); }

    std::unique_ptr<ApiFixture> m_host;
};

bool PluginLoadTest::IsMapped(const QString& plugin) const
{
    const QByteArray path = QByteArray(TEST_PLUGIN_DIR "/") + plugin.toLocal8Bit() + ".so";
    void* library = dlopen(path.constData(), RTLD_LAZY | RTLD_NOLOAD);
    if (library)
        dlclose(library);
    return library != nullptr;
}

void PluginLoadTest::KnowsWhoMadeIt()
{
    QVERIFY(m_host->Load("TypedCommand").Ok());
    MObject object = MFnPlugin::findPlugin("TypedCommand");
    MStatus status;
    MFnPlugin plugin(object, "Someone else", "9", "Any", &status);
    QVERIFY(status);
    QCOMPARE(plugin.vendor().asChar(), "A. N. Author");
    QCOMPARE(plugin.version().asChar(), "1.5");
    QCOMPARE(plugin.name().asChar(), "TypedCommand");
    QCOMPARE(plugin.loadPath().asChar(), TEST_PLUGIN_DIR);
    QVERIFY(plugin.object() == object && object.hasFn(MFn::kPlugin));
    MObject nothing;
    MFnPlugin detached(nothing, "x", "1", "Any", &status);
    QCOMPARE(status.statusCode(), MS::kInvalidParameter);
    QVERIFY(!detached.registerCommand("x", [] { return static_cast<void*>(nullptr); }));
    QVERIFY(MFnPlugin::findPlugin("Nobody").isNull());
}

void PluginLoadTest::RenamesOnlyBeforeItRegisters()
{
    QVERIFY(m_host->Load("TypedCommand").Ok());
    QVERIFY(m_host->Load("RawCommand").Ok());
    MObject object = MFnPlugin::findPlugin("RawCommand");
    MFnPlugin plugin(object);
    QVERIFY(!plugin.setName("Other"));
    QVERIFY(!plugin.deregisterCommand("typedCommand"));
    QVERIFY(plugin.deregisterCommand("rawCommand"));
    QCOMPARE(plugin.setName("TypedCommand", false).errorString().asChar(),
        "(kInvalidParameter): Object already exists");
    QVERIFY(plugin.setName("TypedCommand"));
    QCOMPARE(plugin.name().asChar(), "TypedCommand1");
}

void PluginLoadTest::RefusesFilesThatAreNoPlugins_data()
{
    Columns<QString, QString>("file", "error");
    const QString noEntry
        = "No initializePlugin\\(\\) or initializePlugin2\\(\\) function \\(%1\\)";
    Row("no entry points", "NoEntry", noEntry.arg("NoEntry"));
    Row("hidden entry points", "HiddenEntry", noEntry.arg("HiddenEntry"));
    Row("another release's entry points", "OtherRelease", noEntry.arg("OtherRelease"));
    Row("a missing library", "MissingDependency",
        "Unable to dynamically load : .*/MissingDependency\\.so\nlibapi_dependency\\.so: cannot "
        "open .*");
    Row("a missing symbol", "MissingSymbol",
        "Unable to dynamically load : .*/MissingSymbol\\.so\n.*undefined symbol: "
        ".*SoldElsewhere.*");
    Row("no library", "", "Unable to dynamically load : .*/text\\.so\n.*text\\.so.*");
}

void PluginLoadTest::RefusesFilesThatAreNoPlugins()
{
    QFETCH(QString, file);
    QFETCH(QString, error);
    QFile text(m_host->directory.filePath("text.so"));
    QVERIFY(text.open(QFile::WriteOnly) && text.write("just a text") > 0);
    text.close();
    const host::Outcome outcome
        = file.isEmpty() ? m_host->engine.plugins.Load(text.fileName()) : m_host->Load(file);
    QVERIFY(!outcome.Ok());
    const QRegularExpression wanted(QRegularExpression::anchoredPattern(error));
    QVERIFY2(wanted.match(outcome.GetError().text).hasMatch(), qPrintable(outcome.GetError().text));
    QVERIFY(m_host->engine.plugins.Names().isEmpty());
    QVERIFY(!IsMapped(file));
}

void PluginLoadTest::UndoesAFailedStart_data()
{
    Columns<bool>("byException");
    Row("by its status", false);
    Row("by an exception", true);
}

void PluginLoadTest::UndoesAFailedStart()
{
    QFETCH(bool, byException);
    MGlobal::setOptionVarValue("failingPluginThrows", byException);
    const host::Outcome outcome = m_host->Load("FailingPlugin");
    QVERIFY(!outcome.Ok());
    QCOMPARE(outcome.GetError().text, "initializePlugin function failed (FailingPlugin)");
    MGlobal::removeOptionVar("failingPluginHeard");
    m_host->engine.output.Display("hello");
    QVERIFY(!MGlobal::optionVarExists("failingPluginHeard"));
    QVERIFY(!MGlobal::optionVarExists("failingPluginUninitialized"));
    QVERIFY(!m_host->engine.commands.Contains("failingCommand"));
    QVERIFY(!IsMapped("FailingPlugin"));
    QCOMPARE(m_host->Texts(host::MessageType::Error)
                 .contains("FailingPlugin: unhandled exception: no start today"),
        byException);
}

void PluginLoadTest::StartsAfreshAfterUnloading()
{
    for (int round = 0; round < 2; ++round) {
        QVERIFY(m_host->Load("TypedCommand").Ok());
        m_host->Run("typedCommand");
        QCOMPARE(m_host->Run("typedCommand -q -count").value, Value(2));
        QVERIFY(m_host->engine.plugins.Unload("TypedCommand", false).Ok());
        QVERIFY(!IsMapped("TypedCommand"));
    }
    QCOMPARE(m_host->Texts(host::MessageType::Warning), QStringList{});
}

void PluginLoadTest::RemovesWhatWasLeftBehind()
{
    QVERIFY(m_host->Load("UntidyPlugin").Ok());
    m_host->Run("untidyCommand");
    QVERIFY(m_host->engine.plugins.Unload("UntidyPlugin", false).Ok());
    QVERIFY(!IsMapped("UntidyPlugin"));
    QCOMPARE(m_host->Texts(host::MessageType::Warning),
        (QStringList{"Plug-in, \"UntidyPlugin\", left behind the command untidyCommand; removed.",
            "Plug-in, \"UntidyPlugin\", left behind 2 callback(s); removed."}));
    const int heard = Count("untidyOutput");
    m_host->engine.output.Display("hello");
    m_host->engine.events.Fire("quitApplication");
    m_host->engine.idle.Drain();
    QCOMPARE(Count("untidyOutput"), heard);
    QVERIFY(!MGlobal::optionVarExists("untidyQuit"));
    QVERIFY(!MGlobal::optionVarExists("untidyIdle"));
}

void PluginLoadTest::StaysLoadedWhenItRefuses()
{
    QVERIFY(m_host->Load("UntidyPlugin").Ok());
    MGlobal::setOptionVarValue("untidyRefuses", 1);
    const host::Outcome outcome = m_host->engine.plugins.Unload("UntidyPlugin", false);
    QVERIFY(!outcome.Ok());
    QCOMPARE(outcome.GetError().text, "uninitializePlugin function failed (UntidyPlugin)");
    QVERIFY(!m_host->Run("untidyCommand").failed);
    m_host->engine.idle.Drain();
    QCOMPARE(Count("untidyIdle"), 1);
    QVERIFY(m_host->engine.plugins.Unload("UntidyPlugin", true).Ok());
    QCOMPARE(Count("untidyExit"), 2);
    QVERIFY(!IsMapped("UntidyPlugin"));
}

void PluginLoadTest::IsNotUnloadedUnderItsOwnFeet_data()
{
    Columns<QString, bool>("plugin", "fromCallback");
    Row("from its command", "TypedCommand", false);
    Row("from its callback", "UntidyPlugin", true);
}

void PluginLoadTest::IsNotUnloadedUnderItsOwnFeet()
{
    QFETCH(QString, plugin);
    QFETCH(bool, fromCallback);
    QVERIFY(m_host->Load(plugin).Ok());
    if (fromCallback)
        m_host->engine.output.Display("unload it");
    else
        QVERIFY(m_host->Run("typedCommand -bad \"unload me\"").failed);
    QVERIFY(m_host->Texts(host::MessageType::Error)
                .contains(QString("Plug-in, \"%1\", cannot be unloaded because it is still in use: "
                                  "its code is running.")
                              .arg(plugin)));
    QCOMPARE(m_host->engine.plugins.Names(), QStringList{plugin});
    QVERIFY(m_host->engine.plugins.Unload(plugin, false).Ok());
}

void PluginLoadTest::UndoKeepsItLoaded()
{
    QVERIFY(m_host->Load("TypedCommand").Ok());
    m_host->Run("typedCommand -u");
    QVERIFY(!m_host->engine.plugins.Unload("TypedCommand", false).Ok());
    m_host->engine.undoQueue.Undo();
    QVERIFY(!m_host->engine.plugins.Unload("TypedCommand", false).Ok());
    m_host->engine.undoQueue.Clear();
    m_host->Run("typedCommand -u");
    QVERIFY(m_host->engine.plugins.Unload("TypedCommand", true).Ok());
    QVERIFY(!IsMapped("TypedCommand"));
}

void PluginLoadTest::CommandsKeptBeyondUnloadingFail()
{
    QVERIFY(m_host->Load("TypedCommand").Ok());
    const auto command = m_host->engine.commands.FindCommand("typedCommand");
    QVERIFY(m_host->engine.plugins.Unload("TypedCommand", false).Ok());
    QVERIFY(command->GetFlags().isEmpty());
    const host::Outcome outcome = host::CommandRegistry::Run(host::ReadWords(*command, {}));
    QCOMPARE(outcome.GetError().text, "Cannot find procedure \"typedCommand\".");
}

void PluginLoadTest::NamesAreRegisteredOnce()
{
    QVERIFY(m_host->Load("TypedCommand").Ok());
    MObject object = MFnPlugin::findPlugin("TypedCommand");
    MFnPlugin plugin(object);
    const auto create = [] { return static_cast<void*>(nullptr); };
    for (const char* taken : {"typedCommand", "unloadPlugin"}) {
        const MStatus status = plugin.registerCommand(taken, create);
        QCOMPARE(status.errorString().asChar(), "(kInvalidParameter): Object already exists");
    }
    QCOMPARE(m_host->Texts(host::MessageType::Warning).size(), 2);
    QVERIFY(!plugin.registerCommand("two words", create));
    QVERIFY(!plugin.deregisterCommand("unloadPlugin"));
    QVERIFY(m_host->engine.commands.Contains("unloadPlugin"));
    QVERIFY(plugin.registerCommand("makesNothing", create));
    QVERIFY(m_host->Run("makesNothing").failed);
}

void PluginLoadTest::RunsItsProceduresByHostState()
{
    for (const host::RunState state : {host::RunState::Interactive, host::RunState::Batch}) {
        m_host.reset();
        m_host = std::make_unique<ApiFixture>(state);
        QVERIFY(m_host->Load("RawCommand").Ok());
        MObject object = MFnPlugin::findPlugin("RawCommand");
        MFnPlugin plugin(object);
        QVERIFY(plugin.registerUI("rawMenu", "rawMenuOff", "", "rawBatchOff"));
        QVERIFY(m_host->engine.plugins.Unload("RawCommand", false).Ok());
        QCOMPARE(m_host->mel.texts,
            QStringList{state == host::RunState::Batch ? "rawBatchOff()" : "rawMenuOff()"});
    }
}

TE2_TEST(PluginLoadTest)
#include "PluginLoadTest.moc"

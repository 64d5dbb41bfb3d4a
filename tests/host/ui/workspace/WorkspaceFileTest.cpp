#include "ui/workspace/WorkspaceFile.h"

#include "support/TestMain.h"

#include <QtTest>

using namespace host;
using namespace host::ui;

/// The layout file: what is written comes back, and what makes no sense costs only itself.
class WorkspaceFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ComesBackAsWritten();
    void BadEntriesCostOnlyThemselves_data();
    void BadEntriesCostOnlyThemselves();
    void BadValuesKeepTheDefault_data();
    void BadValuesKeepTheDefault();
    void StateStringKeepsTheName();
};

void WorkspaceFileTest::ComesBackAsWritten()
{
    SavedWorkspace saved;
    ControlRecord record;
    record.name = "Tool";
    record.label = QString::fromUtf8("Werkzeug \xc3\xbc \"x\"");
    record.floating = true;
    record.visible = false;
    record.side = DockSide::Bottom;
    record.tabIndex = 2;
    record.minimumSize = {120, 80};
    record.requiredPlugins = QStringList{"A", "B"};
    record.uiScript = {Language::Python, "import a\na.build()", {}};
    record.others.insert("widthProperty", Value(QString("free")));
    saved.controls.append(record);
    FrameRecord frame;
    frame.geometry = {-40, 15, 640, 480};
    frame.hasPosition = true;
    frame.hasSize = true;
    saved.frames.insert("Tool", frame);
    saved.sideSizes.insert(DockSide::Left, 240);
    saved.windowGeometry = {1, 2, 800, 600};
    QStringList problems;
    const SavedWorkspace read = ReadWorkspace(WriteWorkspace(saved), problems);
    QCOMPARE(problems, QStringList());
    QCOMPARE(read.controls.size(), 1);
    QCOMPARE(WriteControlState(read.controls[0]), WriteControlState(record));
    QCOMPARE(read.controls[0].uiScript.text, record.uiScript.text);
    QVERIFY(read.controls[0].uiScript.language == Language::Python);
    QCOMPARE(read.frames["Tool"].geometry, frame.geometry);
    QCOMPARE(read.sideSizes, saved.sideSizes);
    QCOMPARE(read.windowGeometry, saved.windowGeometry);
}

void WorkspaceFileTest::BadEntriesCostOnlyThemselves_data()
{
    Columns<QString>("entry");
    Row("a number", "7");
    Row("no name", "{\"label\": \"x\"}");
    Row("a name that no script could use", R"({"name": "a|b; quit"})");
    Row("the same name again", R"({"name": "Good", "label": "Other"})");
    Row("null", "null");
}

void WorkspaceFileTest::BadEntriesCostOnlyThemselves()
{
    QFETCH(QString, entry);
    const QString text = R"({"controls": [{"name": "Good", "label": "G"}, %1, {"name": "Last"}]})";
    QStringList problems;
    const SavedWorkspace read = ReadWorkspace(text.arg(entry).toUtf8(), problems);
    QCOMPARE(problems.size(), 1);
    QCOMPARE(read.controls.size(), 2);
    QCOMPARE(read.controls[0].label, "G");
    QCOMPARE(read.controls[1].name, "Last");
}

void WorkspaceFileTest::BadValuesKeepTheDefault_data()
{
    Columns<QString>("field");
    Row("side", R"("side": "middle of nowhere")");
    Row("flag", R"("visible": "maybe")");
    Row("index", R"("tabIndex": 1e30)");
    Row("size", R"("minimumSize": [1e9, -1e9])");
    Row("script", R"("uiScript": ["rm"])");
    Row("list", R"("requiredPlugins": {"a": 1})");
}

void WorkspaceFileTest::BadValuesKeepTheDefault()
{
    QFETCH(QString, field);
    QStringList problems;
    const QString text = QString(R"({"controls": [{"name": "Tool", %1}]})").arg(field);
    const SavedWorkspace read = ReadWorkspace(text.toUtf8(), problems);
    QCOMPARE(read.controls.size(), 1);
    ControlRecord plain;
    plain.name = "Tool";
    QCOMPARE(WriteControlState(read.controls[0]), WriteControlState(plain));
}

void WorkspaceFileTest::StateStringKeepsTheName()
{
    ControlRecord record;
    record.name = "Mine";
    record.label = "before";
    QVERIFY(!ReadControlState("no state", record));
    QCOMPARE(record.label, "before");
    QVERIFY(ReadControlState(R"({"name": "Other", "label": "after"})", record));
    QCOMPARE(record.name, "Mine");
    QCOMPARE(record.label, "after");
}

TE2_TEST(WorkspaceFileTest)
#include "WorkspaceFileTest.moc"

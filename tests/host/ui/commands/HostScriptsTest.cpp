#include "host/ui/UiFixture.h"
#include "support/TestMain.h"
#include "ui/commands/windows/Prompts.h"

#include <QCheckBox>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

using namespace host::ui;

class HostScriptsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_host.reset(); }

    void AScriptPutOnTheShelfRuns();
    void ShelvesComeBackAfterARestart();
    void ADamagedShelfHarmsNoOther();
    void ShelfButtonsSpeakTheirLanguage();
    void TheScriptEditorOpensOnce();
    void ThePluginManagerListsWhatThereIs();
    void QuestionsAreAnswered_data();
    void QuestionsAreAnswered();
    void TheDialogItselfAsks();
    void OneProgressWindowAtATime();

private:
    void BuildShelves();
    QStringList Buttons(const QString& shelf);

    std::unique_ptr<UiFixture> m_host;
};

void HostScriptsTest::init()
{
    m_host = std::make_unique<UiFixture>();
    BuildShelves();
}

void HostScriptsTest::BuildShelves()
{
    m_host->Run("window main; global string $gShelfTopLevel = \"\"; $gShelfTopLevel = `tabLayout "
                "ShelfLayout`;"
                "shelfLayout General; symbolButton -c \"builtIn\" own; setParent ..;"
                "loadShelves $gShelfTopLevel; setParent $gShelfTopLevel");
}

QStringList HostScriptsTest::Buttons(const QString& shelf)
{
    QStringList labels;
    for (const Element* child : m_host->Find("ShelfLayout|" + shelf)->GetChildren()) {
        if (child->GetType() == "shelfButton")
            labels += child->values.value("label").ToText();
    }
    return labels;
}

void HostScriptsTest::AScriptPutOnTheShelfRuns()
{
    m_host->Run(
        "scriptToShelf(\"Say \\\"it\\\"\", \"print \\\"a\\\\\\\\b\\\";\\nprint \\\"c\\\";\", 1)");
    QCOMPARE(Buttons("General"), (QStringList{"Say \"it\""}));
    const Element* button = m_host->Model().List(ControlKind, "shelfButton").value(0);
    QVERIFY(button);
    static_cast<QToolButton*>(button->GetWidget())->click();
    QCOMPARE(m_host->TakePrinted(), "a\\bc");
    QCOMPARE(m_host->Run("shelfButton -q -stp " + button->FullName()), "mel");
}

void HostScriptsTest::ShelvesComeBackAfterARestart()
{
    m_host->Run("shelfLayout Mine; setParent ..; shelfLayout \"odd-name\"; setParent ..;"
                "tabLayout -e -tl Mine \"My Shelf\" -st Mine $gShelfTopLevel;"
                "scriptToShelf(\"One\", \"print \\\"tab\\tquote\\\\\\\"\\\"\", 1);"
                "scriptToShelf(\"Two\", \"x = 'a'\\nprint(x)\", 0)");
    m_host->Restart();
    BuildShelves();
    QCOMPARE(Buttons("Mine"), (QStringList{"One", "Two"}));
    QCOMPARE(m_host->Run("tabLayout -q -tl $gShelfTopLevel"), "General My Shelf odd-name");
    const QVector<Element*> buttons = m_host->Model().List(ControlKind, "shelfButton");
    static_cast<QToolButton*>(buttons.value(0)->GetWidget())->click();
    QCOMPARE(m_host->TakePrinted(), "tab\tquote\"");
    QCOMPARE(buttons.value(1)->GetCallback("command").text, "x = 'a'\nprint(x)");
    QCOMPARE(m_host->Model().List(ControlKind, "symbolButton").size(), 1);
}

void HostScriptsTest::ADamagedShelfHarmsNoOther()
{
    m_host->Run("scriptToShelf(\"One\", \"print 1\", 1)");
    QFile broken(m_host->Run("internalVar -userShelfDir") + "shelf_Broken.mel");
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("global proc shelf_Broken() { shelfButton");
    broken.close();
    m_host->Restart();
    BuildShelves();
    QCOMPARE(Buttons("General"), (QStringList{"One"}));
    QVERIFY(m_host->GetEngine().history.Text().contains("shelf_Broken.mel\" could not be read."));
}

void HostScriptsTest::ShelfButtonsSpeakTheirLanguage()
{
    const QString button = "ShelfLayout|General|b";
    m_host->Run("shelfButton -p General -stp \"python\" -c \"print(1)\" b");
    QCOMPARE(m_host->Find(button)->GetCallback("command").language, host::Language::Python);
    m_host->Run("shelfButton -e -c \"print(2)\" b");
    QCOMPARE(m_host->Find(button)->GetCallback("command").language, host::Language::Python);
    m_host->Run("shelfButton -e -stp \"mel\" b");
    QCOMPARE(m_host->Find(button)->GetCallback("command").language, host::Language::Mel);
    QCOMPARE(m_host->Run("shelfButton -q -c b"), "print(2)");
}

void HostScriptsTest::TheScriptEditorOpensOnce()
{
    QCOMPARE(m_host->Run("ScriptEditor"), QString());
    QCOMPARE(m_host->Run("ScriptEditor"), QString());
    QVERIFY(m_host->Widget<QMainWindow>("scriptEditorWindow")->isVisible());
    QCOMPARE(m_host->Run("cmdScrollFieldReporter -exists $gCommandReporter"), "1");
    QMenu* history = m_host->Find("scriptEditorHistory")->GetMenu();
    Q_EMIT history->aboutToShow();
    history->actions().first()->trigger();
    QVERIFY(m_host->GetEngine().echo.echoAll);
    m_host->GetEngine().echo.echoAll = false;
    m_host->TakePrinted();
    m_host->Run("cmdScrollFieldExecuter -e -t \"print 7\" scriptEditorMel; scriptEditorExecute");
    QCOMPARE(m_host->TakePrinted(), "7");
    QCOMPARE(m_host->Run("whatIs ScriptEditor"), "Run Time Command");
}

void HostScriptsTest::ThePluginManagerListsWhatThereIs()
{
    QTemporaryDir folder;
    QFile plugin(folder.filePath("someTool.so"));
    QVERIFY(plugin.open(QIODevice::WriteOnly));
    qputenv("MAYA_PLUG_IN_PATH", folder.path().toLocal8Bit());
    QCOMPARE(m_host->Run("PluginManager"), QString());
    qunsetenv("MAYA_PLUG_IN_PATH");
    const QMainWindow* window = m_host->Widget<QMainWindow>("pluginManagerWindow");
    QVERIFY(window && window->isVisible());
    QCOMPARE(m_host->Run("text -q -l (`lsUI -type \"text\"`)"), "someTool");
    QCheckBox* autoload = window->findChildren<QCheckBox*>().value(1);
    autoload->click();
    QCOMPARE(m_host->GetEngine().plugins.autoload, QStringList{"someTool"});
}

void HostScriptsTest::QuestionsAreAnswered_data()
{
    Columns<QString, QString, QString>("command", "pressed", "result");
    Row("button", "confirmDialog -b \"Yes\" -b \"No\" -db \"Yes\" -m \"Sure?\"", "No", "No");
    Row("default button", "confirmDialog -b \"Yes\" -b \"No\" -db \"No\"", "", "No");
    Row("no buttons named", "confirmDialog -m \"Done\"", "", "Confirm");
    Row("typed text", "promptDialog -b \"OK\" -tx \"old\"; promptDialog -q -text", "OK", "old!");
}

void HostScriptsTest::QuestionsAreAnswered()
{
    QFETCH(QString, command);
    QFETCH(QString, pressed);
    SetPromptFunction([&](const Prompt& prompt) {
        PromptAnswer answer = AnswerWithDefault(prompt);
        if (!pressed.isEmpty())
            answer = {pressed, prompt.text + "!"};
        return answer;
    });
    QTEST(m_host->Run(command), "result");
}

void HostScriptsTest::TheDialogItselfAsks()
{
    const auto whenOpen = [](auto act) {
        QTimer::singleShot(
            0, qApp, [act] { act(static_cast<QDialog*>(QApplication::activeModalWidget())); });
    };
    whenOpen([](QDialog* dialog) {
        dialog->findChild<QLineEdit*>()->setText("typed");
        dialog->findChildren<QPushButton*>().value(1)->click();
    });
    const QString ask
        = "promptDialog -m \"Name?\" -b \"OK\" -b \"Later\" -cb \"Later\" -ds \"closed\"";
    QCOMPARE(m_host->Run(ask), "Later");
    QCOMPARE(m_host->Run("promptDialog -q -text"), "typed");
    whenOpen([](QDialog* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    QCOMPARE(m_host->Run(ask), "Later");
    whenOpen([](QDialog* dialog) { dialog->reject(); });
    QCOMPARE(m_host->Run("promptDialog -b \"OK\" -ds \"closed\""), "closed");
}

void HostScriptsTest::OneProgressWindowAtATime()
{
    QCOMPARE(m_host->Run("progressWindow -max 10 -status \"Busy\""), "1");
    QCOMPARE(m_host->Run("progressWindow -max 10"), "0");
    QCOMPARE(m_host->Run("progressWindow -e -step 4; progressWindow -q -pr"), "4");
    QCOMPARE(m_host->Run("progressWindow -ep; progressWindow -e -pr 1"),
        "error: No progress window is open.");
}

TE2_TEST(HostScriptsTest)
#include "HostScriptsTest.moc"

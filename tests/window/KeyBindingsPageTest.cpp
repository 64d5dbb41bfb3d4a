#include "settings/pages/KeyBindingsPage.h"

#include "editor/CodeEditor.h"
#include "output/OutputTextEdit.h"
#include "settings/KeyBindings.h"
#include "settings/pages/KeyBindingsModel.h"
#include "settings/pages/KeyBindingsTable.h"
#include "support/Rows.h"
#include "support/TestMain.h"
#include "window/PanelGroup.h"
#include "window/PreferencesDialog.h"
#include "window/TarnwickEditor.h"
#include "window/WindowFixture.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>

#include <memory>
#include <vector>

namespace {

using K = KeyBindings;
using M = KeyBindingsModel;

constexpr int RowOf(int id)
{
    return id - 1;
}

QList<QKeySequence> Sequences(const QStringList& texts)
{
    QList<QKeySequence> sequences;
    for (const QString& text : texts)
        sequences += QKeySequence(text);
    return sequences;
}

} // namespace

/// The page with the keys: what it says about contested ones, and how it is worked with by keyboard
/// alone.
class KeyBindingsPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host = std::make_unique<WindowFixture>(); }
    void cleanupTestCase() { m_host.reset(); }
    void init();
    void cleanup();
    void SaysWhoGetsAKey_data();
    void SaysWhoGetsAKey();
    void KeysOfARow_data();
    void KeysOfARow();
    void SaysWhichKeysTypeText_data();
    void SaysWhichKeysTypeText();
    void EscapeTakesACaptureBack();
    void ReturnDoesNothingToAFixedRow();
    void FiltersByTextAndByKeys_data();
    void FiltersByTextAndByKeys();
    void KeepsWhatItAppliesInTheFile();
    void NewKeysAreShownEverywhere();

private:
    void Select(int id);
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    QStringList ShownCommands() const;
    const M& Model() const { return *static_cast<const M*>(m_table->model()); }

    std::unique_ptr<WindowFixture> m_host;
    std::unique_ptr<KeyBindings> m_bindings;
    std::vector<std::unique_ptr<QAction>> m_actions;
    std::unique_ptr<KeyBindingsPage> m_page;
    KeyBindingsTable* m_table = nullptr;
};

void KeyBindingsPageTest::init()
{
    m_bindings = std::make_unique<KeyBindings>();
    for (int id = 1; id < K::Escape; ++id) {
        m_actions.push_back(std::make_unique<QAction>());
        m_bindings->SetAction(id, m_actions.back().get());
    }
    m_bindings->ReadUserKeyBindings();
    m_page = std::make_unique<KeyBindingsPage>(m_bindings.get(), nullptr);
    m_page->resize(540, 420);
    m_page->show();
    m_page->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    m_table = m_page->findChild<KeyBindingsTable*>();
    m_table->setFocus();
}

void KeyBindingsPageTest::cleanup()
{
    m_page.reset();
    m_bindings.reset();
    m_actions.clear();
    QFile::remove(KeyBindings::GetUserKeyBindingsPath());
}

void KeyBindingsPageTest::Select(int id)
{
    m_table->setCurrentIndex(Model().index(RowOf(id), M::COMMAND));
}

void KeyBindingsPageTest::Press(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
}

QStringList KeyBindingsPageTest::ShownCommands() const
{
    QStringList names;
    for (int row = 0; row < Model().rowCount(); ++row) {
        if (!m_table->isRowHidden(row, {}))
            names += Model().GetBindings()[row].name;
    }
    return names;
}

void KeyBindingsPageTest::SaysWhoGetsAKey_data()
{
    Columns<int, QString, QString, int, QString>("id", "keys", "mark", "otherId", "otherMark");
    Row("an earlier one keeps it", int(K::ToggleComment), "Ctrl+F", "also Find, which keeps it",
        int(K::Find), "");
    Row("a later one loses it", int(K::NewMelBuffer), "Ctrl+S", "also Save, which loses it",
        int(K::Save), "fixed, also New MEL Buffer");
    Row("a fixed one keeps it", int(K::SaveAs), "Ctrl+S", "also Save, which keeps it", int(K::Save),
        "fixed");
    Row("one of several", int(K::ExecuteAlt), "Ctrl+Enter", "also Execute, which keeps it",
        int(K::Execute), "fixed");
    Row("the beginning of another", int(K::SaveAs), "Ctrl+K, X",
        "also Toggle Code Editor, which loses it", int(K::ToggleCodeEditor), "also Save As");
    Row("Escape", int(K::Find), "Esc", "also Reserved, which keeps it", int(K::Escape), "fixed");
    Row("nobody's", int(K::SaveAs), "F12", "changed", int(K::Save), "fixed");
}

void KeyBindingsPageTest::SaysWhoGetsAKey()
{
    QFETCH(int, id);
    QFETCH(QString, keys);
    QFETCH(int, otherId);
    M model(m_bindings->GetKeySequences(), nullptr);
    model.SetEditedRow(RowOf(id));
    model.SetSequences(RowOf(id), Sequences({keys}));
    QTEST(model.index(RowOf(id), M::MARK).data().toString(), "mark");
    QTEST(model.index(RowOf(otherId), M::MARK).data().toString(), "otherMark");
    // It has to come true.
    const bool loses = model.index(RowOf(id), M::MARK).data(M::IS_LOSING).toBool();
    m_bindings->UpdateUserSequences(model.GetBindings());
    QCOMPARE(m_bindings->GetShortcut(id).isEmpty(), loses);
}

void KeyBindingsPageTest::KeysOfARow_data()
{
    Columns<int, QVector<int>, QStringList>("id", "presses", "keys");
    const int capture = Qt::Key_F7;
    Row("changed", int(K::Find), QVector<int>{Qt::Key_F2, capture, Qt::Key_Return},
        QStringList("F7"));
    Row("captured twice", int(K::Find),
        QVector<int>{Qt::Key_Return, Qt::Key_Delete, capture, Qt::Key_Return}, QStringList("F7"));
    Row("added", int(K::Find), QVector<int>{Qt::Key_Insert, capture, Qt::Key_Return},
        QStringList({"Ctrl+F", "F7"}));
    Row("added but not pressed", int(K::Find), QVector<int>{Qt::Key_Insert, Qt::Key_Return},
        QStringList("Ctrl+F"));
    Row("the second of two changed", int(K::ExecuteAll),
        QVector<int>{Qt::Key_Right, Qt::Key_F2, capture, Qt::Key_Return},
        QStringList({"Ctrl+Shift+Return", "F7"}));
    Row("the first of two removed", int(K::ExecuteAll), QVector<int>{Qt::Key_Delete},
        QStringList("Ctrl+Shift+Enter"));
    Row("emptied in the field", int(K::Find), QVector<int>{Qt::Key_F2, Qt::Key_Tab, Qt::Key_Space},
        QStringList());
    Row("the same twice", int(K::ExecuteAll),
        QVector<int>{Qt::Key_F2, Qt::CTRL + Qt::SHIFT + Qt::Key_Enter, Qt::Key_Return},
        QStringList("Ctrl+Shift+Enter"));
    Row("cleared", int(K::ExecuteAll), QVector<int>{Qt::CTRL + Qt::Key_Delete}, QStringList());
    Row("reset", int(K::Find), QVector<int>{Qt::Key_Delete, Qt::CTRL + Qt::Key_Backspace},
        QStringList("Ctrl+F"));
    Row("fixed", int(K::Save), QVector<int>{Qt::Key_F2, Qt::Key_Delete, Qt::Key_Down},
        QStringList("Ctrl+S"));
}

void KeyBindingsPageTest::KeysOfARow()
{
    QFETCH(int, id);
    QFETCH(QVector<int>, presses);
    QFETCH(QStringList, keys);
    Select(id);
    for (const int press : presses) {
        const auto modifiers = Qt::KeyboardModifiers(press & int(Qt::KeyboardModifierMask));
        Press(press & ~int(Qt::KeyboardModifierMask), modifiers);
    }
    QCOMPARE(Model().GetSequences(RowOf(id)), Sequences(keys));
    const bool isDefault = Model().GetBindings()[RowOf(id)].defaultSequences == Sequences(keys);
    QCOMPARE(m_page->IsChanged(), !isDefault);
    if (presses.last() == Qt::Key_Return) {
        QVERIFY(!m_table->IsEditing());
        QVERIFY(m_table->hasFocus());
    }
}

void KeyBindingsPageTest::SaysWhichKeysTypeText_data()
{
    Columns<QString, QString>("keys", "expected");
    const QString typesText = "%1 alone goes on typing text in an editor.";
    Row("letter", "A", typesText.arg("A"));
    Row("with Shift", "Shift+A", typesText.arg("Shift+A"));
    Row("with Alt", "Alt+A", "");
    Row("function key", "F12", "");
}

void KeyBindingsPageTest::SaysWhichKeysTypeText()
{
    QFETCH(QString, keys);
    M model(m_bindings->GetKeySequences(), nullptr);
    model.SetSequences(RowOf(K::SaveAs), Sequences({keys}));
    QTEST(model.Describe(RowOf(K::SaveAs)), "expected");
}

void KeyBindingsPageTest::EscapeTakesACaptureBack()
{
    Select(K::ExecuteAll);
    Press(Qt::Key_Return);
    Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(m_page->IsChanged());
    Press(Qt::Key_Escape);
    QVERIFY(!m_table->IsEditing());
    QVERIFY(m_table->hasFocus());
    QVERIFY(!m_page->IsChanged());
    QVERIFY(m_page->isVisible());
}

/// In a dialog it would press the button OK.
void KeyBindingsPageTest::ReturnDoesNothingToAFixedRow()
{
    Select(K::Save);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(m_table, &press);
    QVERIFY(press.isAccepted());
    QVERIFY(!m_table->IsEditing());
}

void KeyBindingsPageTest::FiltersByTextAndByKeys_data()
{
    Columns<QString, QKeySequence, QStringList>("text", "pressed", "commands");
    Row("label", "toggle word", QKeySequence(), QStringList("toggleWordWrap"));
    Row("name", "MODULESTATEONEXECUTE", QKeySequence(),
        QStringList("pythonRevertModuleStateOnExecute"));
    Row("key text", "ctrl+shift+k", QKeySequence(), QStringList("deleteLine"));
    Row("pressed", "", QKeySequence("Ctrl+F"), QStringList("find"));
    Row("pressed, of a fixed one", "", QKeySequence("Ctrl+S"), QStringList("save"));
    Row("nothing", "no such thing", QKeySequence(), QStringList());
}

void KeyBindingsPageTest::FiltersByTextAndByKeys()
{
    QFETCH(QString, text);
    QFETCH(QKeySequence, pressed);
    m_page->findChild<QLineEdit*>("m_filter")->setText(text);
    auto* const button = m_page->findChild<QToolButton*>("m_pressKeysButton");
    if (!pressed.isEmpty()) {
        button->setFocus();
        Press(Qt::Key_Space);
        Press(pressed[0] & ~int(Qt::KeyboardModifierMask),
            Qt::KeyboardModifiers(pressed[0] & int(Qt::KeyboardModifierMask)));
    }
    QTEST(ShownCommands(), "commands");
    QCOMPARE(m_table->GetCurrentRow() >= 0, !ShownCommands().isEmpty());
    if (button->isChecked())
        Press(Qt::Key_Escape);
    QVERIFY(!button->isChecked());
    auto* const filter = m_page->findChild<QLineEdit*>("m_filter");
    filter->setFocus();
    Press(Qt::Key_Return);
    QVERIFY(m_table->hasFocus());
    QVERIFY(!m_table->IsEditing());
    filter->clear();
    QCOMPARE(ShownCommands().size(), Model().rowCount());
}

void KeyBindingsPageTest::KeepsWhatItAppliesInTheFile()
{
    Select(K::Find);
    Press(Qt::Key_Delete);
    Select(K::SaveAs);
    Press(Qt::Key_Insert);
    Press(Qt::Key_F, Qt::ControlModifier);
    // Applying ends what is being edited.
    m_page->Apply();
    QVERIFY(!m_page->IsChanged());
    QVERIFY(!m_table->IsEditing());
    QCOMPARE(m_bindings->GetShortcut(K::SaveAs), QKeySequence("Ctrl+F"));
    m_bindings->WriteUserKeyBindings();
    KeyBindings read;
    read.ReadUserKeyBindings();
    const KeyBindingsPage again(&read, nullptr);
    const auto* const table = again.findChild<KeyBindingsTable*>();
    const M& model = *static_cast<const M*>(table->model());
    QCOMPARE(model.index(RowOf(K::Find), M::SHORTCUT).data().toString(), QString("none"));
    QCOMPARE(model.GetSequences(RowOf(K::SaveAs)), Sequences({"Ctrl+F"}));
    m_page->RestoreDefaults();
    m_page->Apply();
    QCOMPARE(m_bindings->GetShortcut(K::Find), QKeySequence("Ctrl+F"));
    QCOMPARE(m_bindings->GetShortcut(K::SaveAs), QKeySequence());
}

void KeyBindingsPageTest::NewKeysAreShownEverywhere()
{
    const QVector<QPair<int, QString>> keys{{K::ExecuteAll, "F5"}, {K::ClearOutput, "F6"},
        {K::FindNext, "F7"}, {K::FindInFiles, "F8"}, {K::ToggleWriteOutputToFile, "F9"},
        {K::ReplaceInFiles, "F10"}, {K::Preferences, "F11"}, {K::NewPythonBuffer, "F12"}};
    TarnwickEditor window;
    window.show();
    window.ShowPreferencesDialog();
    auto* const dialog = window.findChild<PreferencesDialog*>();
    auto* const table = dialog->findChild<KeyBindingsTable*>();
    auto* const model = static_cast<M*>(table->model());
    for (const auto& key : keys)
        model->SetSequences(RowOf(key.first), Sequences({key.second}));
    dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    QStringList toolTips;
    for (const QWidget* widget : window.findChildren<QWidget*>())
        toolTips += widget->toolTip();
    for (const char* const toolTip : {"Execute All (F5)", "Clear (F6)", "Next Match (F7)",
             "Write to File (F9)", "Toggle Replace (F10)", "Search (F8)", "Preferences (F11)"})
        QVERIFY2(toolTips.contains(toolTip), toolTip);
    QVERIFY(!toolTips.contains("Execute All (Ctrl+Shift+Return)"));
    QStringList shortcuts;
    const auto readMenu = [&] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        for (const QAction* action : menu->actions())
            shortcuts += action->text() + " " + action->shortcut().toString();
        menu->close();
    };
    CodeEditor* const editor = window.GetActiveCodeEditor();
    Q_EMIT editor->customContextMenuRequested({5, 5});
    readMenu();
    QVERIFY2(shortcuts.contains("Execute All F5"), qPrintable(shortcuts.join('\n')));
    OutputTextEdit* const output = window.findChild<PanelGroup*>()->GetOutput();
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, output->mapToGlobal({5, 5}));
    QApplication::sendEvent(output->viewport(), &event);
    readMenu();
    QVERIFY2(shortcuts.contains("Clear Output F6"), qPrintable(shortcuts.join('\n')));
    KeyBindings read;
    read.ReadUserKeyBindings();
    for (const auto& key : keys)
        QCOMPARE(read.GetShortcut(key.first), QKeySequence(key.second));
}

TE2_TEST(KeyBindingsPageTest)
#include "KeyBindingsPageTest.moc"

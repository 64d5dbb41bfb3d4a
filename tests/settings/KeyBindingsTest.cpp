#include "settings/KeyBindings.h"

#include "settings/FakeHost.h"
#include "settings/KeySequenceLineEdit.h"
#include "settings/SettingsFixture.h"
#include "support/TestMain.h"

#include <QAction>
#include <QDir>
#include <QSettings>
#include <QtTest>

#include <memory>

/// Which keys lead to which command, what the bindings file keeps of it, and the field for keys.
class KeyBindingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void ContestedKeys_data();
    void ContestedKeys();
    void TellsALostKeyOnceAndGivesItBack();
    void KeysComeAndGoTogether();
    void ReadsWhatTheFileHolds_data();
    void ReadsWhatTheFileHolds();
    void KeepsAFileThatItCannotRead();
    void WritesEveryBindingAndLeavesTheRest();
    void CapturesKeys_data();
    void CapturesKeys();
    void CharactersTypedWithShift_data();
    void CharactersTypedWithShift();
    void NothingElseGetsIntoTheField();
    void TheUserGuideTellsTheKeys();

private:
    using Keys = QMap<int, QStringList>;

    void Bind(const Keys& keys);
    QStringList KeysOf(int id) const;
    QString FilePath() const { return KeyBindings::GetUserKeyBindingsPath(); }
    void WriteFile(const QByteArray& text) const;

    std::unique_ptr<SettingsFixture> m_files;
    std::unique_ptr<KeyBindings> m_bindings;
    std::vector<std::unique_ptr<QAction>> m_actions; ///< one for each binding but Escape
};

namespace {

using K = KeyBindings;

QStringList Texts(const QList<QKeySequence>& sequences)
{
    QStringList texts;
    for (const QKeySequence& sequence : sequences)
        texts += sequence.toString(QKeySequence::PortableText);
    return texts;
}

QString Duplicate(const char* what)
{
    return QStringLiteral("Duplicate hotkey detected: ") + what;
}

} // namespace

void KeyBindingsTest::init()
{
    m_files = std::make_unique<SettingsFixture>();
    m_bindings = std::make_unique<KeyBindings>();
    m_actions.clear();
    for (int id = 0; id < K::Escape; ++id) {
        m_actions.push_back(std::make_unique<QAction>());
        m_bindings->SetAction(id, m_actions.back().get());
    }
    m_bindings->SetAction(K::Escape + 1, m_actions[0].get());
    m_bindings->ReadUserKeyBindings();
    QCOMPARE(FakeHost::warnings, QStringList());
    QVERIFY(m_actions[0]->shortcuts().isEmpty());
}

void KeyBindingsTest::Bind(const Keys& keys)
{
    QList<KeyBinding> edited = m_bindings->GetKeySequences();
    for (auto it = keys.begin(); it != keys.end(); ++it) {
        edited[it.key() - 1].userSequences.clear();
        for (const QString& text : it.value())
            edited[it.key() - 1].userSequences += QKeySequence(text);
    }
    m_bindings->UpdateUserSequences(edited);
}

/// As pressed; the first of them is what is shown beside the command.
QStringList KeyBindingsTest::KeysOf(int id) const
{
    const QStringList keys = Texts(m_actions[size_t(id)]->shortcuts());
    if (m_bindings->GetShortcut(id).toString() != keys.value(0))
        return {"shown: " + m_bindings->GetShortcut(id).toString()};
    return keys;
}

void KeyBindingsTest::WriteFile(const QByteArray& text) const
{
    QDir().mkpath(m_files->ConfigDirectory());
    QFile file(FilePath());
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

void KeyBindingsTest::ContestedKeys_data()
{
    Columns<Keys, Keys, QStringList>("bound", "expected", "warnings");
    Row("the lower id", Keys{{K::ToggleComment, {"Ctrl+F", "F12"}}},
        Keys{{K::Find, {"Ctrl+F"}}, {K::ToggleComment, {"F12"}}},
        QStringList(Duplicate("Toggle Comment (Ctrl+F)")));
    Row("a fixed one above", Keys{{K::NewMelBuffer, {"Ctrl+S"}}},
        Keys{{K::NewMelBuffer, {"Ctrl+S"}}, {K::Save, {}}},
        QStringList(Duplicate("Save (Ctrl+S)")));
    Row("a fixed one below", Keys{{K::SaveAs, {"Ctrl+S"}}},
        Keys{{K::Save, {"Ctrl+S"}}, {K::SaveAs, {}}}, QStringList(Duplicate("Save As (Ctrl+S)")));
    Row("a fixed one's own", Keys{{K::Execute, {"F5"}}},
        Keys{{K::Execute, {"Ctrl+Return", "Ctrl+Enter", "Enter"}}}, QStringList());
    Row("Escape", Keys{{K::Find, {"Esc"}}}, Keys{{K::Find, {}}},
        QStringList(Duplicate("Find (Esc)")));
    Row("twice", Keys{{K::Find, {"F5", "F5"}}}, Keys{{K::Find, {"F5"}}}, QStringList());
    Row("a longer one", Keys{{K::ToggleCodeEditor, {"Ctrl+F, Ctrl+K"}}},
        Keys{{K::Find, {"Ctrl+F"}}, {K::ToggleCodeEditor, {}}},
        QStringList(Duplicate("Toggle Code Editor (Ctrl+F, Ctrl+K)")));
    Row("a shorter one", Keys{{K::Find, {"Ctrl+F, X"}}, {K::GotoFile, {"Ctrl+F"}}},
        Keys{{K::Find, {"Ctrl+F, X"}}, {K::GotoFile, {}}},
        QStringList(Duplicate("Go to File (Ctrl+F)")));
}

void KeyBindingsTest::ContestedKeys()
{
    QFETCH(Keys, bound);
    QFETCH(Keys, expected);
    Bind(bound);
    for (auto it = expected.begin(); it != expected.end(); ++it)
        QCOMPARE(KeysOf(it.key()), it.value());
    QTEST(FakeHost::warnings, "warnings");
}

void KeyBindingsTest::TellsALostKeyOnceAndGivesItBack()
{
    Bind({{K::ToggleComment, {"Ctrl+F"}}});
    m_bindings->SetBindingsEnabled(false);
    m_bindings->SetBindingsEnabled(true);
    QCOMPARE(FakeHost::warnings.size(), 1);
    m_bindings->WriteUserKeyBindings();
    m_bindings->ReadUserKeyBindings();
    Bind({{K::Find, {}}});
    QCOMPARE(KeysOf(K::ToggleComment), QStringList("Ctrl+F"));
    Bind({{K::Find, {"Ctrl+F"}}});
    QCOMPARE(FakeHost::warnings.size(), 2);
}

void KeyBindingsTest::KeysComeAndGoTogether()
{
    const QStringList keys = KeysOf(K::Execute);
    QCOMPARE(keys.size(), 3);
    m_bindings->SetBindingsEnabled(false);
    for (const auto& action : m_actions)
        QVERIFY(action->shortcuts().isEmpty());
    m_bindings->SetBindingsEnabled(true);
    QCOMPARE(KeysOf(K::Execute), keys);
}

void KeyBindingsTest::ReadsWhatTheFileHolds_data()
{
    // "keys": of Find
    Columns<QByteArray, QStringList, int>("line", "keys", "warnings");
    Row("absent", QByteArray(), QStringList("Ctrl+F"), 0);
    Row("undefined", QByteArray("find=UndefinedKey"), QStringList("Ctrl+F"), 0);
    Row("removed", QByteArray("find="), QStringList(), 0);
    Row("two", QByteArray("find=F5, , Ctrl+F6"), QStringList({"F5", "Ctrl+F6"}), 0);
    Row("two strokes", QByteArray("find=\"Ctrl+Q, F5\""), QStringList("Ctrl+Q, F5"), 0);
    Row("no key", QByteArray("find=Ctrl+Nonsense, F5"), QStringList("F5"), 2);
    Row("unknown command", QByteArray("fly=F5"), QStringList("Ctrl+F"), 0);
    Row("no line", QByteArray("what is this"), QStringList("Ctrl+F"), 1);
}

void KeyBindingsTest::ReadsWhatTheFileHolds()
{
    QFETCH(QByteArray, line);
    const QByteArray text = "[user_bindings]\n" + line + "\nreplace=F9\n";
    WriteFile(text);
    m_bindings->ReadUserKeyBindings();
    QTEST(KeysOf(K::Find), "keys");
    QCOMPARE(KeysOf(K::Replace), QStringList("F9"));
    QTEST(FakeHost::warnings.size(), "warnings");
    QFile copy(FilePath() + ".broken");
    QCOMPARE(copy.open(QIODevice::ReadOnly), !FakeHost::warnings.isEmpty());
    if (copy.isOpen())
        QCOMPARE(copy.readAll(), text);
}

void KeyBindingsTest::KeepsAFileThatItCannotRead()
{
    QDir().mkpath(FilePath());
    m_bindings->ReadUserKeyBindings();
    QCOMPARE(KeysOf(K::Find), QStringList("Ctrl+F"));
    m_bindings->WriteUserKeyBindings();
    QCOMPARE(FakeHost::errors.last(), "Failed to write key bindings: " + FilePath());
    QVERIFY(QFileInfo(FilePath()).isDir());
}

void KeyBindingsTest::WritesEveryBindingAndLeavesTheRest()
{
    WriteFile("[user_bindings]\nfly=F8\n[mine]\nkey=1\n");
    Bind({{K::Find, {}}, {K::ExecuteAlt, {"F5", "Ctrl+Shift+/"}}});
    m_bindings->WriteUserKeyBindings();
    QSettings file(FilePath(), QSettings::IniFormat);
    QCOMPARE(file.value("mine/key").toInt(), 1);
    file.beginGroup("user_bindings");
    QCOMPARE(file.allKeys().size(), int(K::Escape) + 1);
    QCOMPARE(file.value("fly").toString(), "F8");
    QCOMPARE(file.value("find").toStringList(), QStringList(""));
    QCOMPARE(file.value("executeAlt").toStringList(), QStringList({"F5", "Ctrl+Shift+/"}));
    QCOMPARE(file.value("escape").toString(), "Esc");
    KeyBindings read;
    read.ReadUserKeyBindings();
    QCOMPARE(Texts(read.GetKeySequences()[K::ExecuteAlt - 1].userSequences),
        QStringList({"F5", "Ctrl+Shift+/"}));
    QVERIFY(read.GetShortcut(K::Find).isEmpty());
}

void KeyBindingsTest::CapturesKeys_data()
{
    // "text": the field has "F1" before
    Columns<int, int, QString>("key", "modifiers", "text");
    constexpr int CTRL_SHIFT = Qt::ControlModifier | Qt::ShiftModifier;
    Row("combination", int(Qt::Key_K), CTRL_SHIFT, "Ctrl+Shift+K");
    Row("all modifiers", int(Qt::Key_F2), int(CTRL_SHIFT | Qt::AltModifier | Qt::MetaModifier),
        "Meta+Ctrl+Alt+Shift+F2");
    Row("letter", int(Qt::Key_A), 0, "A");
    Row("keypad", int(Qt::Key_Enter), int(Qt::KeypadModifier), "Enter");
    Row("Backspace", int(Qt::Key_Backspace), 0, "Backspace");
    Row("Escape", int(Qt::Key_Escape), 0, "Esc");
    Row("Ctrl+Tab", int(Qt::Key_Tab), int(Qt::ControlModifier), "Ctrl+Tab");
    Row("Backtab", int(Qt::Key_Backtab), CTRL_SHIFT, "Ctrl+Shift+Tab");
    Row("paste", int(Qt::Key_V), int(Qt::ControlModifier), "Ctrl+V");
    Row("a command's", int(Qt::Key_F), int(Qt::ControlModifier), "Ctrl+F");
    Row("Ctrl alone", int(Qt::Key_Control), int(Qt::ControlModifier), "F1");
    Row("Tab", int(Qt::Key_Tab), 0, "F1");
}

void KeyBindingsTest::CapturesKeys()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, text);
    QWidget window;
    KeySequenceLineEdit field(&window);
    QLineEdit next(&window);
    window.addAction(m_actions[K::Find].get());
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    field.setText("F1");
    field.setFocus();
    const QSignalSpy edited(&field, &QLineEdit::textEdited);
    const QSignalSpy triggered(m_actions[K::Find].get(), &QAction::triggered);
    QTest::keyClick(&field, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(field.text(), text);
    QCOMPARE(edited.size(), text == "F1" ? 0 : 1);
    if (!edited.isEmpty())
        QCOMPARE(edited[0][0].toString(), text);
    QCOMPARE(triggered.size(), 0);
    QCOMPARE(next.hasFocus(), key == Qt::Key_Tab && modifiers == 0);
}

/// As a keyboard sends them, which tells the key that was pressed.
void KeyBindingsTest::CharactersTypedWithShift_data()
{
    Columns<int, int, QString>("key", "scanCode", "text");
    Row("symbol", int(Qt::Key_At), 11, "Ctrl+@");
    Row("letter", int(Qt::Key_K), 45, "Ctrl+Shift+K");
    Row("function key", int(Qt::Key_F2), 68, "Ctrl+Shift+F2");
    Row("not from a keyboard", int(Qt::Key_Slash), 0, "Ctrl+Shift+/");
}

void KeyBindingsTest::CharactersTypedWithShift()
{
    QFETCH(int, key);
    QFETCH(int, scanCode);
    KeySequenceLineEdit field;
    QKeyEvent press(
        QEvent::KeyPress, key, Qt::ControlModifier | Qt::ShiftModifier, quint32(scanCode), 0, 0);
    QApplication::sendEvent(&field, &press);
    QTEST(field.text(), "text");
}

void KeyBindingsTest::NothingElseGetsIntoTheField()
{
    KeySequenceLineEdit field;
    field.setText("F1");
    QInputMethodEvent input;
    input.setCommitString("x");
    QApplication::sendEvent(&field, &input);
    field.paste();
    for (const int key : {int(Qt::Key_unknown), int(Qt::Key_AltGr), 0}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, "x");
        QApplication::sendEvent(&field, &press);
    }
    QCOMPARE(field.text(), "F1");
}

/// But for those that the platform decides.
void KeyBindingsTest::TheUserGuideTellsTheKeys()
{
    QFile guide(QStringLiteral(TEST_DATA_DIR "/../../../docs/guide.md"));
    QVERIFY(guide.open(QIODevice::ReadOnly));
    const QString text = guide.readAll();
    for (const KeyBinding& binding : m_bindings->GetKeySequences()) {
        const QStringList keys = Texts(binding.defaultSequences);
        if (keys.isEmpty()) {
            QVERIFY2(text.contains(binding.label), qPrintable(binding.label));
        } else if (!binding.fixed) {
            const QString row = QString("| %1 | %2 |").arg(binding.label, keys.join(", "));
            QVERIFY2(text.contains(row), qPrintable(row));
        }
    }
}

TE2_TEST(KeyBindingsTest)
#include "KeyBindingsTest.moc"

#include "editor/CodeEditorGroup.h"

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroupTabBar.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"

#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace {

CodeEditorProperties Script(const QString& name, CodeEditorType type = CodeEditorType::Buffer)
{
    return {type, CodeEditorLanguage::Mel, "/scripts/" + name, name};
}

} // namespace

class CodeEditorGroupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void TabsAndEditorsKeepStep();
    void OperationsWithoutAnEditorAreEmpty();
    void OrdersEditorsByTheirLastUse();
    void RelaysItsEditorsUntilTheyLeave();
    void TurnsTheWheelOnlyWhenAskedTo();

private:
    QString Tabs() const;

    KeyBindings m_keyBindings;
    std::unique_ptr<CodeEditorGroup> m_group;
    CodeEditorGroupTabBar* m_tabBar = nullptr;
};

void CodeEditorGroupTest::init()
{
    m_group = std::make_unique<CodeEditorGroup>(1, &m_keyBindings, nullptr);
    m_tabBar = m_group->findChild<CodeEditorGroupTabBar*>();
    for (const char* name : {"a", "b", "c"})
        m_group->InsertCodeEditor(-1, Script(name), QString("text of %1").arg(name));
}

void CodeEditorGroupTest::cleanup()
{
    m_group.reset();
    Settings::mouseWheelChangesActiveTab = false;
}

/// Labels as the tabs and as the editors have them, the current one in brackets.
QString CodeEditorGroupTest::Tabs() const
{
    QStringList labels;
    for (int i = 0; i < m_group->GetCount(); ++i) {
        const bool same = m_tabBar->GetTabText(i) == m_group->GetLabel(i);
        const QString label = same ? m_group->GetLabel(i) : QString("?");
        labels += i == m_group->GetCurrentIndex() ? "[" + label + "]" : label;
    }
    return labels.join(' ');
}

void CodeEditorGroupTest::TabsAndEditorsKeepStep()
{
    QCOMPARE(Tabs(), QString("[a] b c"));
    QCOMPARE(m_group->InsertCodeEditor(0, Script("d"), QString()), 0);
    QCOMPARE(Tabs(), QString("d [a] b c"));
    QCOMPARE(m_group->GetCurrent()->GetText(), QString("text of a"));
    m_group->SetCurrentIndex(2);
    const std::unique_ptr<CodeEditor> removed(m_group->RemoveCodeEditor(2));
    QCOMPARE(removed->GetLabel(), QString("b"));
    QCOMPARE(Tabs(), QString("d a [c]"));
    m_group->DeleteCodeEditor(2);
    QCOMPARE(Tabs(), QString("d [a]"));
    m_group->DeleteCodeEditor(0);
    m_group->DeleteCodeEditor(0);
    QCOMPARE(m_group->GetCount(), 0);
    QCOMPARE(m_group->GetCurrentIndex(), -1);
    QVERIFY(!m_group->GetCurrent());
}

void CodeEditorGroupTest::OperationsWithoutAnEditorAreEmpty()
{
    for (const int index : {-1, 3}) {
        m_group->SetText(index, "x");
        m_group->SetModified(index, true);
        m_group->SetCurrentIndex(index);
        m_group->DeleteCodeEditor(index);
        QVERIFY(!m_group->RemoveCodeEditor(index));
        QVERIFY(m_group->GetText(index).isEmpty());
        QVERIFY(!m_group->IsModified(index));
        QCOMPARE(m_group->GetLanguage(index), CodeEditorLanguage::Text);
    }
    QCOMPARE(Tabs(), QString("[a] b c"));
}

void CodeEditorGroupTest::OrdersEditorsByTheirLastUse()
{
    m_group->SetCurrentIndex(2);
    m_group->SetCurrentIndex(0);
    m_group->InsertCodeEditor(-1, Script("d"), QString());
    QStringList labels;
    for (const CodeEditorProperties& properties : m_group->GetLastUsedEditors())
        labels += properties.label;
    QCOMPARE(labels, QStringList({"a", "c", "b", "d"}));
}

void CodeEditorGroupTest::RelaysItsEditorsUntilTheyLeave()
{
    QSignalSpy executed(m_group.get(), &CodeEditorGroup::ExecuteLinePressed);
    QSignalSpy moved(m_group.get(), &CodeEditorGroup::CursorPositionChanged);
    CodeEditor* editor = m_group->GetCodeEditor(1);
    editor->ExecuteLine();
    editor->SetCursorSelection(0, 4);
    QCOMPARE(executed.count(), 1);
    QVERIFY(!moved.isEmpty());
    const std::unique_ptr<CodeEditor> removed(m_group->RemoveCodeEditor(1));
    moved.clear();
    removed->ExecuteLine();
    removed->SetCursorSelection(0, 0);
    QCOMPARE(executed.count(), 1);
    QVERIFY(moved.isEmpty());
}

void CodeEditorGroupTest::TurnsTheWheelOnlyWhenAskedTo()
{
    const auto turn = [this](int delta) {
        QWheelEvent event({5, 5}, m_tabBar->mapToGlobal({5, 5}), {}, {0, delta}, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_tabBar->viewport(), &event);
    };
    turn(-120);
    QCOMPARE(Tabs(), QString("[a] b c"));
    Settings::mouseWheelChangesActiveTab = true;
    turn(-112); // 14 degrees are too few
    QCOMPARE(Tabs(), QString("[a] b c"));
    turn(-120);
    turn(-120);
    turn(-120);
    QCOMPARE(Tabs(), QString("a b [c]"));
    turn(120);
    QCOMPARE(Tabs(), QString("a [b] c"));
}

TE2_TEST(CodeEditorGroupTest)
#include "CodeEditorGroupTest.moc"

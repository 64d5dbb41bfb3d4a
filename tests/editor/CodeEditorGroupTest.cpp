#include "editor/CodeEditorGroup.h"

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroupTabBar.h"
#include "editor/EmptyGroupHint.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/chrome/OverlayWidget.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace {

CodeEditorProperties Script(const QString& name, CodeEditorType type = CodeEditorType::Buffer)
{
    return {type, CodeEditorLanguage::Mel, "/scripts/" + name, name};
}

} // namespace

Q_DECLARE_METATYPE(CodeEditorType)

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
    void MovesEditorsWithTheirTabs();
    void TakesAnEditorOverFromAnotherGroup();
    void FollowsAFileToItsNewName();
    void MarksChangesOfFilesOnly();
    void OffersWhatFitsTheTab_data();
    void OffersWhatFitsTheTab();
    void PassesRequestsOn();
    void ListsItsEditors();
    void ChoosesItsExecuteButtons();
    void FollowsTheInterfaceScale();
    void TakesDrops_data();
    void TakesDrops();
    void ShowsAHintWhileItIsEmpty();

private:
    QString Tabs() const;
    QStringList LastUsed() const;
    QStringList OpenMenu(QObject* sender, const QPoint& point);
    bool Drop(const QMimeData& payload, const QPoint& position);

    KeyBindings m_keyBindings;
    std::unique_ptr<CodeEditorGroup> m_group;
    CodeEditorGroupTabBar* m_tabBar = nullptr;
};

void CodeEditorGroupTest::init()
{
    m_group = std::make_unique<CodeEditorGroup>(1, &m_keyBindings, nullptr, nullptr);
    m_tabBar = m_group->findChild<CodeEditorGroupTabBar*>();
    for (const char* name : {"a", "b", "c"})
        m_group->InsertCodeEditor(-1, Script(name), QString("text of %1").arg(name));
}

void CodeEditorGroupTest::cleanup()
{
    m_group.reset();
    Settings::mouseWheelChangesActiveTab = false;
    Settings::showTabBarMiniToolbar = false;
    Settings::showCodeEditorExecuteAllBtn = true;
    Settings::codeEditorOrientVertical = false;
    Settings::customScaleValue = 1.0;
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

QStringList CodeEditorGroupTest::LastUsed() const
{
    QStringList labels;
    for (const CodeEditorProperties& properties : m_group->GetLastUsedEditors())
        labels += properties.label;
    return labels;
}

void CodeEditorGroupTest::TabsAndEditorsKeepStep()
{
    QCOMPARE(Tabs(), "[a] b c");
    QCOMPARE(m_group->InsertCodeEditor(0, Script("d"), QString()), 0);
    QCOMPARE(Tabs(), "d [a] b c");
    QCOMPARE(m_group->GetCurrent()->GetText(), "text of a");
    m_group->SetCurrentIndex(2);
    const std::unique_ptr<CodeEditor> removed(m_group->RemoveCodeEditor(2));
    QCOMPARE(removed->GetLabel(), "b");
    QCOMPARE(Tabs(), "d a [c]");
    m_group->DeleteCodeEditor(2);
    QCOMPARE(Tabs(), "d [a]");
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
    QCOMPARE(Tabs(), "[a] b c");
}

void CodeEditorGroupTest::OrdersEditorsByTheirLastUse()
{
    m_group->SetCurrentIndex(2);
    m_group->SetCurrentIndex(0);
    m_group->InsertCodeEditor(-1, Script("d"), QString());
    QCOMPARE(LastUsed(), QStringList({"a", "c", "b", "d"}));
    // Nothing is kept of an editor that went: it comes back like any other.
    m_group->DeleteCodeEditor(2);
    m_group->InsertCodeEditor(-1, Script("c"), QString());
    QCOMPARE(LastUsed(), QStringList({"a", "b", "d", "c"}));
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
    QCOMPARE(Tabs(), "[a] b c");
    Settings::mouseWheelChangesActiveTab = true;
    turn(-112); // 14 degrees are too few
    QCOMPARE(Tabs(), "[a] b c");
    turn(-120);
    turn(-120);
    turn(-120);
    QCOMPARE(Tabs(), "a b [c]");
    turn(120);
    QCOMPARE(Tabs(), "a [b] c");
}

void CodeEditorGroupTest::MovesEditorsWithTheirTabs()
{
    m_group->SetCurrentIndex(1);
    CodeEditor* const editor = m_group->GetCurrent();
    m_group->MoveCodeEditor(1, 2);
    QCOMPARE(Tabs(), "a c [b]");
    QCOMPARE(m_group->GetCurrent(), editor);
    m_group->MoveCodeEditor(0, 2);
    QCOMPARE(Tabs(), "c [b] a");
    m_group->MoveCodeEditor(2, 0);
    QCOMPARE(Tabs(), "a c [b]");
    m_group->MoveCodeEditor(0, 3);
    m_group->MoveCodeEditor(-1, 0);
    QCOMPARE(Tabs(), "a c [b]");
}

void CodeEditorGroupTest::TakesAnEditorOverFromAnotherGroup()
{
    CodeEditorGroup other(2, &m_keyBindings, nullptr, nullptr);
    other.InsertCodeEditor(-1, Script("x", CodeEditorType::File), "x");
    CodeEditor* const editor = m_group->GetCodeEditor(1);
    editor->insertPlainText("new ");
    other.MoveCodeEditor(m_group.get(), 1, 0);
    QCOMPARE(Tabs(), "[a] c");
    QCOMPARE(other.GetCodeEditor(0), editor);
    QCOMPARE(other.GetLabel(0), "b");
    QVERIFY(editor->IsModified());
    editor->undo();
    QCOMPARE(other.GetText(0), "text of b");
    // Its signals belong to the new group.
    QSignalSpy here(m_group.get(), &CodeEditorGroup::ExecutePressed);
    QSignalSpy there(&other, &CodeEditorGroup::ExecutePressed);
    editor->Execute();
    QCOMPARE(here.count(), 0);
    QCOMPARE(there.count(), 1);
    // What is searched in its old group is not marked in it any more.
    m_group->SetFindReplaceVisible(true);
    m_group->SetSearchText("text");
    CodeEditor* const searched = m_group->GetCurrent();
    QVERIFY(!searched->GetSearchRegEx().pattern().isEmpty());
    other.MoveCodeEditor(m_group.get(), 0, 0);
    QVERIFY(searched->GetSearchRegEx().pattern().isEmpty());
    QVERIFY(!m_group->GetCurrent()->GetSearchRegEx().pattern().isEmpty());
    other.MoveCodeEditor(m_group.get(), 7, 0);
    other.MoveCodeEditor(nullptr, 0, 0);
    QCOMPARE(other.GetCount(), 3);
}

void CodeEditorGroupTest::FollowsAFileToItsNewName()
{
    const int index = m_group->InsertCodeEditor(-1, Script("f.mel", CodeEditorType::File), "f");
    m_group->SetCurrentIndex(index);
    m_group->SetCurrentIndex(0);
    m_group->UpdateFilePath("/scripts/f.mel", "/other/g.py", CodeEditorLanguage::Python);
    QCOMPARE(m_tabBar->GetTabText(index), "g.py");
    QCOMPARE(m_tabBar->GetTabToolTip(index), "/other/g.py");
    QCOMPARE(m_group->GetLanguage(index), CodeEditorLanguage::Python);
    QCOMPARE(m_group->GetCodeEditorIndex("/other/g.py"), index);
    // It keeps its place in the order of use.
    QCOMPARE(m_group->GetLastUsedEditors().at(1).label, "g.py");
    m_group->UpdateFilePath("/not/open", "/x", CodeEditorLanguage::Mel);
    QCOMPARE(Tabs(), "[a] b c g.py");

    m_group->SetCurrentIndex(2);
    m_group->DeleteCodeEditor(2);
    m_group->SetProperties(2, Script("d"));
    m_group->SetProperties(0, Script("c")); // as the closed one was called
    QCOMPARE(LastUsed(), QStringList({"d", "c", "b"}));
}

void CodeEditorGroupTest::MarksChangesOfFilesOnly()
{
    const int file = m_group->InsertCodeEditor(-1, Script("f", CodeEditorType::File), "f");
    for (const int index : {0, file}) {
        m_group->SetCurrentIndex(index);
        m_group->GetCodeEditor(index)->insertPlainText("x");
        const bool shown = m_tabBar->accessibleDescription().contains("modified");
        QCOMPARE(shown, index == file);
        QVERIFY(m_group->IsModified(index));
    }
    m_group->SetModified(file, false);
    QVERIFY(!m_tabBar->accessibleDescription().contains("modified"));
}

/// The labels of the menu that a right click opens, "-" for a separator, "+" before a checked one.
QStringList CodeEditorGroupTest::OpenMenu(QObject* target, const QPoint& point)
{
    auto* const widget = qobject_cast<QWidget*>(target);
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, widget->mapToGlobal(point));
    QCoreApplication::sendEvent(widget, &event);
    QStringList labels;
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        return labels;
    for (const QAction* action : menu->actions())
        labels += action->isSeparator() ? "-" : (action->isChecked() ? "+" : "") + action->text();
    return labels;
}

void CodeEditorGroupTest::OffersWhatFitsTheTab_data()
{
    Columns<int, int, CodeEditorType, QString>("tabs", "index", "type", "entries");
    Row("the only buffer", 1, 0, CodeEditorType::Buffer,
        "Close,-,Rename,-,Copy Path,Reveal in Folder");
    Row("the only file", 1, 0, CodeEditorType::File,
        "Close,-,Rename,-,Copy Path,Reveal in Folder,Reveal in Side Bar");
    Row("a buffer before others", 2, 0, CodeEditorType::Buffer,
        "Close,Close Other Tabs,Close Tabs to the Right,-,Rename,-,Copy Path,Reveal in Folder");
    Row("the last file", 2, 1, CodeEditorType::File,
        "Close,Close Other Tabs,-,Rename,-,Copy Path,Reveal in Folder,Reveal in Side Bar");
}

void CodeEditorGroupTest::OffersWhatFitsTheTab()
{
    QFETCH(int, tabs);
    QFETCH(int, index);
    QFETCH(CodeEditorType, type);
    CodeEditorGroup group(0, &m_keyBindings, nullptr, nullptr);
    for (int i = 0; i < tabs; ++i)
        group.InsertCodeEditor(-1, Script(QString::number(i), type), QString());
    group.resize(600, 400);
    group.show();
    auto* const bar = group.findChild<CodeEditorGroupTabBar*>();
    const QStringList entries = OpenMenu(bar->viewport(), bar->GetTabRect(index).center());
    QTEST(entries.join(','), "entries");
}

void CodeEditorGroupTest::PassesRequestsOn()
{
    QSignalSpy closed(m_group.get(), &CodeEditorGroup::CloseTabRequested);
    QSignalSpy right(m_group.get(), &CodeEditorGroup::CloseTabsToRightRequested);
    QSignalSpy moved(m_group.get(), &CodeEditorGroup::MoveTabRequested);
    QSignalSpy opened(m_group.get(), &CodeEditorGroup::OpenFileRequested);
    // Of three files the second one is open already and gets no tab.
    connect(m_group.get(), &CodeEditorGroup::OpenFileRequested, m_group.get(),
        [this](int, int index, const QString& path) {
            if (path != "/2")
                m_group->InsertCodeEditor(index, Script(path), QString());
        });
    Q_EMIT m_tabBar->CloseRequested(1);
    Q_EMIT m_tabBar->CloseToRightRequested(2);
    Q_EMIT m_tabBar->MoveRequested(0, 4, 2);
    Q_EMIT m_tabBar->OpenFilesRequested(1, {"/1", "/2", "/3"});
    QCOMPARE(closed.at(0).at(0).value<CodeEditorGroup*>(), m_group.get());
    QCOMPARE(closed.at(0).at(1).toInt(), 1);
    QCOMPARE(right.at(0).at(1).toInt(), 2);
    QCOMPARE(moved.at(0), QVariantList({0, 4, 1, 2}));
    QCOMPARE(opened.at(2), QVariantList({1, 2, "/3"}));
    QCOMPARE(Tabs(), "[a] /1 /3 b c");

    QApplication::clipboard()->setText("before");
    Q_EMIT m_tabBar->CopyPathRequested(9);
    QCOMPARE(QApplication::clipboard()->text(), "before");
    Q_EMIT m_tabBar->CopyPathRequested(0);
    QCOMPARE(QApplication::clipboard()->text(), "/scripts/a");
}

void CodeEditorGroupTest::ListsItsEditors()
{
    Settings::showTabBarMiniToolbar = true;
    m_group->UpdatePreferences();
    m_group->InsertCodeEditor(
        1, {CodeEditorType::File, CodeEditorLanguage::Mel, "/tools/a", "a"}, QString());
    m_group->InsertCodeEditor(-1, Script("x&y"), QString());
    m_group->resize(600, 400);
    m_group->show();
    m_group->findChild<QAbstractButton*>("m_openEditorsButton")->click();
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QStringList labels;
    for (const QAction* action : menu->actions())
        labels += (action->isChecked() ? "+" : "") + action->text();
    QCOMPARE(labels, QStringList({"+a - scripts", "a - tools", "b", "c", "x&&y"}));
    menu->actions().at(3)->trigger();
    QCOMPARE(m_group->GetCurrentIndex(), 3);
    menu->close();
}

void CodeEditorGroupTest::ChoosesItsExecuteButtons()
{
    m_group->resize(600, 400);
    m_group->show();
    const QPoint empty(m_tabBar->width() - 5, 5);
    QVERIFY(OpenMenu(m_tabBar->viewport(), empty).isEmpty()); // there is no tool bar to fill
    Settings::showTabBarMiniToolbar = true;
    Settings::showCodeEditorExecuteAllBtn = false;
    m_group->UpdatePreferences();
    const auto shown
        = [this] { return m_group->findChild<QWidget*>("m_executeAllButton")->isVisible(); };
    QVERIFY(!shown());
    QSignalSpy modified(m_group.get(), &CodeEditorGroup::MiniToolbarDisplayModified);
    QCOMPARE(OpenMenu(m_tabBar->viewport(), QPoint(m_tabBar->width() - 5, 5)),
        QStringList({"+Execute", "Execute All", "+Execute Line"}));
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    menu->actions().at(1)->trigger();
    QVERIFY(shown());
    m_group->resize(150, 400);
    QVERIFY(!shown()); // no room for more than a tab
    m_group->resize(600, 400);
    QVERIFY(shown());
    QVERIFY(Settings::showCodeEditorExecuteAllBtn);
    QCOMPARE(modified.count(), 1);
    menu->close();
}

void CodeEditorGroupTest::FollowsTheInterfaceScale()
{
    const auto toolBar = [](const CodeEditorGroup& group) {
        return group.findChild<QWidget*>("m_miniToolbar")->sizeHint();
    };
    const QSize before = toolBar(*m_group);
    Settings::customScaleValue = 2.0;
    const CodeEditorGroup made(2, &m_keyBindings, nullptr, nullptr);
    m_group->setStyleSheet("QWidget { }");
    QVERIFY(toolBar(*m_group) != before);
    QCOMPARE(toolBar(*m_group), toolBar(made));
}

/// Over the editors; `position` is in the group.
bool CodeEditorGroupTest::Drop(const QMimeData& payload, const QPoint& position)
{
    QDragEnterEvent enter(position, Qt::MoveAction, &payload, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_group.get(), &enter);
    QDropEvent drop(position, Qt::MoveAction, &payload, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_group.get(), &drop);
    return enter.isAccepted();
}

void CodeEditorGroupTest::TakesDrops_data()
{
    // "tab": else files
    Columns<QByteArray, QPoint, bool, QString>("tab", "point", "edges", "asked");
    const QByteArray tab("\x01\x02", 2);
    const QByteArray files;
    const QPoint middle(300, 200);
    const QPoint left(5, 200);
    const QPoint right(595, 200);
    Row("tab, middle", tab, middle, true, "move 1 2 1 0");
    Row("tab, left", tab, left, true, "move 1 2 1 1");
    Row("tab, right", tab, right, true, "move 1 2 1 2");
    Row("tab, left, no splitting", tab, left, false, "move 1 2 1 0");
    Row("tab, mini tool bar", tab, QPoint(595, 5), true, "");
    Row("files, middle", files, middle, true, "open 1 2 /1 open 1 2 /2");
    Row("files, right", files, right, true, "open all 1 2 /1 /2");
    Row("a tab that is not there", QByteArray("\x01\x03", 2), middle, true, "");
    Row("a group that is not there", QByteArray("\xfe\x00", 2), middle, true, "");
    Row("one byte", QByteArray("\x01", 1), middle, true, "");
}

void CodeEditorGroupTest::TakesDrops()
{
    QFETCH(QByteArray, tab);
    QFETCH(QPoint, point);
    QFETCH(bool, edges);
    using G = CodeEditorGroup;
    m_group->SetTabDropOtherGroupsEnabled(edges);
    m_group->SetCurrentIndex(1);
    m_group->resize(600, 400);
    m_group->show();
    QStringList asked;
    connect(m_group.get(), &G::MoveTabToZoneRequested, this,
        [&asked](int source, int index, int target, TabDropZone zone) {
            asked += QString("move %1 %2 %3 %4").arg(source).arg(index).arg(target).arg(int(zone));
        });
    connect(m_group.get(), &G::OpenFileRequested, this,
        [&asked](int group, int index, const QString& path) {
            asked += QString("open %1 %2 %3").arg(group).arg(index).arg(path);
        });
    connect(m_group.get(), &G::OpenFilesRequested, this,
        [&asked](int group, TabDropZone zone, const QStringList& paths) {
            asked += QString("open all %1 %2 %3").arg(group).arg(int(zone)).arg(paths.join(' '));
        });
    QMimeData payload;
    if (tab.isEmpty())
        payload.setUrls({QUrl::fromLocalFile("/1"), QUrl("http://x/y"), QUrl::fromLocalFile("/2")});
    else
        payload.setData("quenholt-te2/move-code-editor", tab);
    Drop(payload, point);
    QTEST(asked.join(' '), "asked");
    // Nothing of the drag stays.
    QVERIFY(!m_group->GetCurrent()->findChild<OverlayWidget*>()->isVisible());
}

void CodeEditorGroupTest::ShowsAHintWhileItIsEmpty()
{
    QAction newBuffer("New...");
    CodeEditorGroup group(4, &m_keyBindings, &newBuffer, nullptr);
    group.SetTabDropOtherGroupsEnabled(true);
    group.resize(600, 400);
    group.show();
    auto* const hint = group.findChild<EmptyGroupHint*>();
    QVERIFY(hint->isVisible());
    QCOMPARE(hint->accessibleDescription(), QString());
    QTest::mouseClick(hint, Qt::LeftButton);
    QVERIFY(group.focusWidget() == hint); // the window's keys work after a click
    QSignalSpy asked(&group, &CodeEditorGroup::NewTabRequested);
    QTest::mouseDClick(hint, Qt::LeftButton);
    QCOMPARE(asked.count(), 1);
    QCOMPARE(OpenMenu(hint, {5, 5}), QStringList("New..."));
    QApplication::activePopupWidget()->close();

    QAction open;
    m_keyBindings.SetAction(KeyBindings::OpenFile, &open);
    group.UpdateKeyBindings();
    QCOMPARE(hint->accessibleDescription(), "Open File (Ctrl+O)");
    m_keyBindings.SetAction(KeyBindings::OpenFile, nullptr);

    // All of it is the middle.
    QSignalSpy moved(&group, &CodeEditorGroup::MoveTabToZoneRequested);
    const TabDragData payload({1, 0});
    const QPoint left(3, 200);
    QDragEnterEvent enter(left, Qt::MoveAction, &payload, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&group, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(left, Qt::MoveAction, &payload, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&group, &drop);
    QCOMPARE(moved.count(), 1);
    QCOMPARE(moved.at(0).at(3).value<TabDropZone>(), TabDropZone::Center);

    const auto* const execute = group.findChild<QAbstractButton*>("m_executeButton");
    group.MoveCodeEditor(m_group.get(), 0, 0);
    QVERIFY(!hint->isVisible() && execute->isEnabled());
    group.DeleteCodeEditor(0);
    QVERIFY(hint->isVisible() && !execute->isEnabled());
}

TE2_TEST(CodeEditorGroupTest)
#include "CodeEditorGroupTest.moc"

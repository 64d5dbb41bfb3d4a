#include "editor/CodeEditor.h"
#include "support/TestMain.h"
#include "window/FilesFixture.h"

#include <QAction>
#include <QMenu>
#include <QWindow>
#include <QtTest>

/// The keys and menus that lead to the commands of the window.
class ActionKeysTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { QVERIFY(Finish()); }
    void KeysReachTheirCommands_data();
    void KeysReachTheirCommands();
    void KeysOfOthersAreNotDead();
    void MenusRenameTheSearch();
    void TornOffMenusLeaveTheFocus();

private:
    QAction* Action(const QString& text) const;

    CodeEditor* m_editor = nullptr;
};

void ActionKeysTest::init()
{
    Start();
    m_editor = OpenFile("script.py");
}

QAction* ActionKeysTest::Action(const QString& text) const
{
    for (QAction* action : m_window->actions()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

void ActionKeysTest::KeysReachTheirCommands_data()
{
    // "own": keys that the pane has a use of its own for
    Columns<QString, QStringList>("pane", "own");
    const QStringList editing = {"Undo", "Redo", "Cut", "Copy", "Paste", "Select All"};
    Row("editor", "editor", editing);
    Row("console", "m_output", editing);
    Row("find field", "m_searchLineEdit", editing + QStringList("Execute"));
    Row("outline", "m_outlineTree", QStringList({"Copy", "Execute"}));
    Row("open editors", "m_openEditorsTree", QStringList({"Copy", "Execute"}));
}

void ActionKeysTest::KeysReachTheirCommands()
{
    QFETCH(QString, pane);
    QFETCH(QStringList, own);
    m_window->Find();
    QWidget* const widget = pane == "editor" ? m_editor : m_window->findChild<QWidget*>(pane);
    QVERIFY(widget);
    QStringList deaf;
    for (QAction* action : m_window->actions()) {
        action->disconnect(m_window); // only the key counts here
        for (const QKeySequence& sequence : action->shortcuts()) {
            widget->setFocus();
            const QSignalSpy spy(action, &QAction::triggered);
            const int key = sequence[0];
            QTest::keyClick(widget, Qt::Key(key & ~Qt::KeyboardModifierMask),
                Qt::KeyboardModifiers(key & Qt::KeyboardModifierMask));
            if (spy.count() != 1 && !own.contains(action->text()))
                deaf += action->text() + ' ' + sequence.toString();
        }
    }
    QCOMPARE(deaf.join(", "), QString());
}

void ActionKeysTest::MenusRenameTheSearch()
{
    const auto open = [this](const QString& title) {
        for (QMenu* menu : m_window->findChildren<QMenu*>()) {
            if (menu->title() == title)
                Q_EMIT menu->aboutToShow();
        }
    };
    QAction* const action = Action("Find in Files");
    for (const char* text : {"Search", "Find in Files"}) {
        open(text == QString("Search") ? "View" : "Edit");
        QCOMPARE(action->text(), QString(text));
        QCOMPARE(action->statusTip(), QString(text));
    }
}

void ActionKeysTest::TornOffMenusLeaveTheFocus()
{
    QStringList without;
    for (QMenu* menu : m_window->findChildren<QMenu*>()) {
        if (!menu->isTearOffEnabled()) {
            if (!menu->title().isEmpty()) // those of others have none
                without += menu->title();
            continue;
        }
        menu->showTearOffMenu(QPoint());
        const QMenu* torn = nullptr;
        for (const QMenu* child : m_window->findChildren<QMenu*>()) {
            if (child->isVisible() && child->inherits("QTornOffMenu"))
                torn = child;
        }
        QVERIFY2(torn, qPrintable(menu->title()));
        QVERIFY(torn->windowHandle()->flags() & Qt::WindowDoesNotAcceptFocus);
        menu->hideTearOffMenu();
    }
    QCOMPARE(without.join(","), "Verbosity");
}

void ActionKeysTest::KeysOfOthersAreNotDead()
{
    QAction* const ours = Action("Go to Line...");
    ours->disconnect(m_window);
    QAction others;
    others.setShortcut(ours->shortcut());
    m_frame->addAction(&others);
    const QSignalSpy triggered(ours, &QAction::triggered);
    // Each of the two is asked in turn.
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(m_editor, Qt::Key_G, Qt::ControlModifier);
    QCOMPARE(triggered.size(), 1);
    QCOMPARE(TakeLog(host::MessageType::Warning).size(), 1);
}

TE2_TEST(ActionKeysTest)
#include "ActionKeysTest.moc"

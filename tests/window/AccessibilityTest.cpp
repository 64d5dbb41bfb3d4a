#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "editor/FindReplaceWidget.h"
#include "output/OutputHighlightingDialog.h"
#include "output/OutputTextEdit.h"
#include "plugin/MayaUtil.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "views/SideBar.h"
#include "views/explorer/WorkspaceView.h"
#include "views/goto/GoToWidget.h"
#include "views/search/SearchResultsView.h"
#include "views/search/SearchView.h"
#include "window/ControlFaults.h"
#include "window/DialogAnswers.h"
#include "window/FilesFixture.h"
#include "window/PanelGroup.h"
#include "window/RecoveryNotice.h"

#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QtTest>

namespace {

constexpr QSize WINDOW_SIZE(1300, 900); // design pixels
constexpr QSize DIALOG_SIZE(736, 514); // design pixels, of the largest one
constexpr int FONT_SIZE = 12; // design pixels

} // namespace

/// Opens every part of the window and looks at its controls: whether each has a name, can be
/// reached by keys and hit with the pointer, and is whole at every scale of the interface.
class AccessibilityTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void PartsAreWholeAndUsable_data();
    void PartsAreWholeAndUsable();

private:
    /// Shows a part of the window; what to look at. Null for a dialog, which is found by itself.
    using Open = std::function<QWidget*()>;
    struct Place
    {
        const char* name;
        Open open;
    };
    using Check = std::function<QStringList(QWidget&)>;

    QVector<Place> Places();
    void StartAt(double scale);
    /// Opens the place and looks at it.
    QStringList FaultsOf(const Place& place, const Check& check);
    static QStringList FaultsIn(QWidget& root, const Check& check);
    QWidget* Trigger(const char* action) const;
    void AddFolder() const { Find<WorkspaceView>()->AddFolder(m_folder->path()); }
    QWidget* ShowFindBar(bool replace) const;
    QWidget* ShowOutputFindBar() const;
    QWidget* Search(const QString& text) const;
    static QWidget* Put(QWidget* widget);
    template <typename T>
    T* Find(const char* name = nullptr) const
    {
        return name ? m_window->findChild<T*>(name) : m_window->findChild<T*>();
    }

    QFont m_font;
};

void AccessibilityTest::initTestCase()
{
    m_font = QApplication::font();
    MayaUtil::RefreshCommandList();
}

void AccessibilityTest::cleanup()
{
    m_dialogs.Take();
    QVERIFY(Finish());
    QApplication::setFont(m_font);
    Settings::customScaleValue = 1.0;
}

/// Every part has a line; a new view or dialog needs one more.
QVector<AccessibilityTest::Place> AccessibilityTest::Places()
{
    const auto bar = [this] { return Find<SideBar>(); };
    // clang-format off
    return {
        {"activity bar",        [=] { return Find<QWidget>("m_activityBar"); }},
        {"explorer",            [=] { AddFolder(); m_window->ShowExplorer(); return bar(); }},
        {"empty explorer",      [=] { m_window->ShowExplorer(); return bar(); }},
        {"search",              [=] { m_window->ReplaceInFiles(); return bar(); }},
        {"search results",      [=] { return Search("mirror"); }},
        {"first quick help",    [=] { m_window->ShowQuickHelp(); return bar(); }},
        {"help on a command",   [=] { m_window->OnQuickHelpChanged("button", true); return bar(); }},
        {"help on a procedure", [=] { m_window->OnQuickHelpChanged("qhGetMelInfo", true); return bar(); }},
        {"help on nothing",     [=] { m_window->OnQuickHelpChanged("teNobody", true); return bar(); }},
        {"tab row",             [=] { return Group()->findChild<QWidget*>("tabRow"); }},
        {"find bar",            [=] { return ShowFindBar(false); }},
        {"replace bar",         [=] { return ShowFindBar(true); }},
        {"output find bar",     [=] { return ShowOutputFindBar(); }},
        {"output title",        [=] { return Find<PanelGroup>()->findChild<QWidget*>("m_titleBar"); }},
        {"status bar",          [=] { return Find<QWidget>("m_statusBar"); }},
        {"recovery notice",     [=] { return Put(new RecoveryNotice({"script.py, 12 lines", "MEL"}, m_window)); }},
        {"highlight rule",      [=] { return Put(new OutputHighlightingDialog("Edit Highlight", m_window)); }},
        {"preferences",         [=] { return Trigger("Preferences..."); }},
        {"insert path",         [=] { return Trigger("Insert Path..."); }},
        {"go to file",          [=] { Trigger("Go to File..."); return Find<GoToWidget>(); }},
        {"go to symbol",        [=] { Trigger("Go to Symbol in File..."); return Find<GoToWidget>(); }},
        {"go to line",          [=] { Trigger("Go to Line..."); return Find<GoToWidget>(); }},
        {"about",               [=] { return Trigger("About..."); }},
    };
    // clang-format on
}

void AccessibilityTest::PartsAreWholeAndUsable_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<double>("scale");
    const QVector<Place> places = Places();
    for (int i = 0; i < places.size(); ++i) {
        for (const double scale : {1.0, 1.5, 2.0})
            QTest::addRow("%s at %g", places[i].name, scale) << i << scale;
    }
}

void AccessibilityTest::StartAt(double scale)
{
    Settings::ResetToDefaults();
    Settings::customScaleValue = scale;
    Settings::showTabBarMiniToolbar = true;
    QFont font = m_font;
    font.setPixelSize(qRound(FONT_SIZE * scale));
    QApplication::setFont(font);
    m_folder = std::make_unique<QTemporaryDir>();
    CreateWindow();
    m_frame->resize(WINDOW_SIZE * scale);
    OpenFile("a_script_with_a_name.py", "class Rig:\n    def mirror(self):\n        pass\n");
    QCoreApplication::processEvents();
}

QStringList AccessibilityTest::FaultsOf(const Place& place, const Check& check)
{
    QStringList faults;
    bool isDone = false;
    m_dialogs.Do([&](QDialog* dialog) {
        faults = FaultsIn(*dialog, check);
        isDone = true;
        dialog->reject();
    });
    QWidget* const root = place.open();
    QCoreApplication::processEvents();
    if (isDone)
        return faults;
    return root && root->isVisible() ? FaultsIn(*root, check) : QStringList("it did not come up");
}

QStringList AccessibilityTest::FaultsIn(QWidget& root, const Check& check)
{
    // As on a screen that has room for it, which the offscreen one has not.
    if (root.isWindow())
        root.resize(root.size()
                        .expandedTo(root.sizeHint())
                        .expandedTo(DIALOG_SIZE * Settings::customScaleValue));
    root.activateWindow();
    if (!QTest::qWaitFor([&root] { return root.isActiveWindow(); }))
        return {"it does not become active"};
    auto* const pages = root.findChild<QListWidget*>("m_pageList");
    QStringList faults;
    for (int row = 0; row < (pages ? pages->count() : 1); ++row) {
        if (pages)
            pages->setCurrentRow(row);
        QCoreApplication::processEvents();
        for (const QString& fault : check(root))
            faults.append(pages ? pages->currentItem()->text() + ": " + fault : fault);
    }
    return faults;
}

QWidget* AccessibilityTest::Trigger(const char* name) const
{
    for (QAction* action : m_window->actions()) {
        if (action->text() == name)
            action->trigger();
    }
    for (QDialog* dialog : m_window->findChildren<QDialog*>()) {
        if (dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

QWidget* AccessibilityTest::ShowFindBar(bool replace) const
{
    if (replace)
        m_window->Replace();
    else
        m_window->Find();
    return Group()->findChild<FindReplaceWidget*>();
}

QWidget* AccessibilityTest::ShowOutputFindBar() const
{
    auto* const output = Find<OutputTextEdit>();
    output->setFocus();
    output->ShowFindReplace(false, true);
    return output->GetFindReplace();
}

QWidget* AccessibilityTest::Search(const QString& text) const
{
    Settings::workspaceFolders = QStringList{m_folder->path()};
    m_window->FindInFiles();
    auto* const view = Find<SearchView>();
    view->SetSearchText(text);
    view->ShowFilters();
    view->Refresh();
    const bool isFound = QTest::qWaitFor([view] { return view->GetResults()->isVisible(); });
    return isFound ? Find<SideBar>() : nullptr;
}

/// What the window makes only when something has happened.
QWidget* AccessibilityTest::Put(QWidget* widget)
{
    widget->adjustSize();
    widget->show();
    return widget;
}

void AccessibilityTest::PartsAreWholeAndUsable()
{
    QFETCH(int, place);
    QFETCH(double, scale);
    StartAt(scale);
    const QStringList faults = FaultsOf(Places()[place], [scale](QWidget& root) {
        QStringList found = ControlFaults::OfSizes(root);
        // What does not depend on the scale is looked at once.
        if (scale == 1.0)
            found += ControlFaults::OfNames(root) + ControlFaults::OfTabChain(root);
        return found;
    });
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
}

TE2_TEST(AccessibilityTest)
#include "AccessibilityTest.moc"

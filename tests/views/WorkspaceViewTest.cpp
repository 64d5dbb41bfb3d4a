#include "views/WorkspaceView.h"

#include "settings/Settings.h"
#include "support/TestMain.h"
#include "views/FolderListing.h"
#include "views/SubViewHeader.h"
#include "views/WorkspaceTree.h"
#include "window/WindowFixture.h"

#include <QAbstractButton>
#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

class WorkspaceViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host = std::make_unique<WindowFixture>(); }
    void cleanupTestCase() { m_host.reset(); }
    void init();
    void cleanup();
    void ReadsFoldersWhenTheyAreExpanded();
    void RemembersExpandedFolders();
    void FollowsTheDisk();
    void AFolderComesBack();
    void OpensFilesAndTogglesFolders();
    void ShowsWhatIsOpen();
    void FindsAFileDeepDown();
    void SwitchesWorkspaces();
    void ABrokenWorkspaceChangesNothing();
    void ABrokenDefaultIsKeptBeside();
    void ANewerWorkspaceIsNotWritten();
    void RootsAreAddedMovedAndRemoved();

private:
    QString Tools() const { return m_directory->filePath("tools"); }
    void Touch(const QString& relative) const;
    void Restart();
    /// The visible rows, two blanks a level.
    QStringList Rows() const;
    void AppendRows(const QTreeWidgetItem* parent, const QString& indent, QStringList& rows) const;
    QTreeWidgetItem* Item(const QString& name) const;
    QTreeWidget* Tree() const { return m_tree; }

    std::unique_ptr<WindowFixture> m_host;
    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<WorkspaceView> m_view;
    WorkspaceTree* m_tree = nullptr;
};

void WorkspaceViewTest::init()
{
    Settings::ResetToDefaults();
    Settings::workspaceFolders.clear();
    Settings::workspaceExpandedFolderHashes.clear();
    const QString path = Settings::GetDefaultWorkspacePath();
    QFile::remove(path);
    QFile::remove(path + ".broken");
    m_directory = std::make_unique<QTemporaryDir>();
    for (const char* name : {"tools/rigs/deep/x.py", "tools/a10.mel", "tools/a2.py", "other/o.txt"})
        Touch(name);
    Restart();
    m_view->AddFolder(Tools());
    m_host->TakeMessages(host::MessageType::Error);
}

void WorkspaceViewTest::cleanup()
{
    m_view.reset();
}

void WorkspaceViewTest::Touch(const QString& relative) const
{
    const QString path = m_directory->filePath(relative);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QVERIFY(QFile(path).open(QIODevice::WriteOnly));
}

void WorkspaceViewTest::Restart()
{
    m_view = std::make_unique<WorkspaceView>(nullptr);
    m_view->resize(300, 400);
    m_view->show();
    m_tree = m_view->findChild<WorkspaceTree*>();
}

QStringList WorkspaceViewTest::Rows() const
{
    QStringList rows;
    AppendRows(Tree()->invisibleRootItem(), QString(), rows);
    return rows;
}

void WorkspaceViewTest::AppendRows(
    const QTreeWidgetItem* parent, const QString& indent, QStringList& rows) const
{
    for (int i = 0; i < parent->childCount(); ++i) {
        rows += indent + parent->child(i)->text(0);
        if (parent->child(i)->isExpanded())
            AppendRows(parent->child(i), indent + "  ", rows);
    }
}

QTreeWidgetItem* WorkspaceViewTest::Item(const QString& name) const
{
    return Tree()->findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0);
}

void WorkspaceViewTest::ReadsFoldersWhenTheyAreExpanded()
{
    QCOMPARE(Rows(), (QStringList{"tools", "  rigs", "  a2.py", "  a10.mel"}));
    QCOMPARE(Item("rigs")->childCount(), 0);
    Item("rigs")->setExpanded(true);
    QCOMPARE(Rows(), (QStringList{"tools", "  rigs", "    deep", "  a2.py", "  a10.mel"}));
}

void WorkspaceViewTest::RemembersExpandedFolders()
{
    Item("rigs")->setExpanded(true);
    Item("deep")->setExpanded(true);
    const QStringList rows = Rows();
    QCOMPARE(rows.size(), 6);
    QVERIFY(Settings::workspaceExpandedFolderHashes.contains(
        FolderListing::Hash(Tools() + "/rigs/deep")));
    m_view->SaveWorkspace();
    Settings::workspaceFolders.clear();
    Restart();
    QCOMPARE(Settings::workspaceFolders, QStringList(Tools()));
    QCOMPARE(Rows(), rows);
    m_tree->CollapseFolders();
    QCOMPARE(Rows(), QStringList("tools"));
    QVERIFY(Settings::workspaceExpandedFolderHashes.isEmpty());
}

void WorkspaceViewTest::FollowsTheDisk()
{
    Item("rigs")->setExpanded(true);
    Tree()->setCurrentItem(Item("a10.mel"));
    const QTreeWidgetItem* const rigs = Item("rigs");
    Touch("tools/a9.py");
    Touch("tools/rigs/new.py");
    QVERIFY(QFile::remove(Tools() + "/a2.py"));
    QTRY_COMPARE(
        Rows(), (QStringList{"tools", "  rigs", "    deep", "    new.py", "  a9.py", "  a10.mel"}));
    QCOMPARE(Item("rigs"), rigs);
    QCOMPARE(Tree()->currentItem()->text(0), QString("a10.mel"));
    // Nothing is done while nobody looks.
    m_view->SetExpanded(false);
    Touch("tools/a11.py");
    QSignalSpy changes(m_tree, &WorkspaceTree::ChangesFound);
    QVERIFY(changes.wait());
    QVERIFY(!Item("a11.py"));
    m_view->SetExpanded(true);
    QVERIFY(Item("a11.py"));
    // A file in place of a folder is another thing.
    QVERIFY(QDir(Tools() + "/rigs").removeRecursively());
    Touch("tools/rigs");
    QTRY_VERIFY(Item("rigs") && WorkspaceTree::GetKind(Item("rigs")) == WorkspaceTree::Kind::File);
}

void WorkspaceViewTest::AFolderComesBack()
{
    QVERIFY(QDir().rename(Tools(), Tools() + "-away"));
    QTRY_COMPARE(Item("tools")->toolTip(0), QString("not found"));
    QCOMPARE(Rows(), QStringList("tools"));
    QVERIFY(QDir().rename(Tools() + "-away", Tools()));
    QTRY_COMPARE(Rows().size(), 4);
    QCOMPARE(Item("tools")->toolTip(0), Tools());
}

void WorkspaceViewTest::OpensFilesAndTogglesFolders()
{
    QSignalSpy opened(m_view.get(), &WorkspaceView::OpenFileRequested);
    Tree()->setCurrentItem(Item("rigs"));
    QTest::keyClick(Tree(), Qt::Key_Return);
    QVERIFY(Item("rigs")->isExpanded());
    QTest::keyClick(Tree(), Qt::Key_Return);
    QVERIFY(!Item("rigs")->isExpanded());
    QVERIFY(opened.isEmpty());
    const QPoint place = Tree()->visualItemRect(Item("a2.py")).center();
    QTest::mouseClick(Tree()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QVERIFY(opened.isEmpty());
    QTest::mouseDClick(Tree()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    Tree()->setCurrentItem(Item("a10.mel"));
    QTest::keyClick(Tree(), Qt::Key_Return);
    QCOMPARE(opened.size(), 2);
    QCOMPARE(opened[0].first().toString(), Tools() + "/a2.py");
    QCOMPARE(opened[1].first().toString(), Tools() + "/a10.mel");
}

void WorkspaceViewTest::ShowsWhatIsOpen()
{
    const auto look = [this](const QString& name) {
        const QTreeWidgetItem* const item = Item(name);
        return (item->font(0).bold() ? QString("bold") : QString("plain"))
            + (item->data(0, SideBarTree::ModifiedRole).toBool() ? "*" : "");
    };
    m_view->SetOpenFiles({{Tools() + "/a2.py", true}, {Tools() + "/rigs/deep/x.py", false}});
    QCOMPARE(look("a2.py"), QString("bold*"));
    QCOMPARE(look("a10.mel"), QString("plain"));
    Item("rigs")->setExpanded(true);
    Item("deep")->setExpanded(true);
    QCOMPARE(look("x.py"), QString("bold"));
    m_view->SetOpenFiles({{Tools() + "/rigs/deep/x.py", true}});
    QCOMPARE(look("a2.py"), QString("plain"));
    QCOMPARE(look("x.py"), QString("bold*"));
}

void WorkspaceViewTest::FindsAFileDeepDown()
{
    QVERIFY(m_view->SelectPath(Tools() + "/rigs/deep/x.py"));
    QCOMPARE(Tree()->currentItem()->text(0), QString("x.py"));
    QVERIFY(!m_view->SelectPath(Tools() + "/rigs/deep/y.py"));
    QVERIFY(!m_view->SelectPath(Tools() + "-beside/x.py"));
}

void WorkspaceViewTest::SwitchesWorkspaces()
{
    const QString path = m_directory->filePath("Rigs.te2-workspace");
    m_view->SaveWorkspaceAs(path);
    QCOMPARE(Settings::workspacePath, path);
    QCOMPARE(m_view->GetHeader()->GetTitle(), QString("Rigs"));
    m_view->AddFolder(m_directory->filePath("other"));
    QSignalSpy modified(m_view.get(), &WorkspaceView::WorkspaceModified);
    m_view->OpenWorkspace(Settings::GetDefaultWorkspacePath());
    QCOMPARE(modified.size(), 1);
    QCOMPARE(Settings::workspaceFolders, QStringList(Tools()));
    QVERIFY(Settings::workspacePath.isEmpty());
    QCOMPARE(m_view->GetHeader()->GetTitle(), QString("Workspace"));
    m_view->OpenWorkspace(path);
    QCOMPARE(Settings::workspaceFolders, (QStringList{Tools(), m_directory->filePath("other")}));
    QCOMPARE(Tree()->topLevelItemCount(), 2);
    QVERIFY(m_host->TakeMessages(host::MessageType::Error).isEmpty());
}

void WorkspaceViewTest::ABrokenWorkspaceChangesNothing()
{
    Touch("broken.te2-workspace");
    QSignalSpy modified(m_view.get(), &WorkspaceView::WorkspaceModified);
    const QStringList rows = Rows();
    for (const char* name : {"broken.te2-workspace", "missing.te2-workspace"}) {
        m_view->OpenWorkspace(m_directory->filePath(name));
        QCOMPARE(m_host->TakeMessages(host::MessageType::Error),
            QStringList(
                "[TarnwickEditor2] Failed to open workspace: " + m_directory->filePath(name)));
    }
    QCOMPARE(Settings::workspaceFolders, QStringList(Tools()));
    QVERIFY(Settings::workspacePath.isEmpty());
    QCOMPARE(Rows(), rows);
    QVERIFY(modified.isEmpty());
}

void WorkspaceViewTest::ABrokenDefaultIsKeptBeside()
{
    const QString path = Settings::GetDefaultWorkspacePath();
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("{\"folders\": [\"/precious");
    file.close();
    Settings::workspaceFolders.clear();
    Restart();
    QVERIFY(Settings::workspaceFolders.isEmpty());
    // Closing without a change leaves the file alone.
    m_view->SaveWorkspace();
    QCOMPARE(file.size(), qint64(23));
    m_view->AddFolder(Tools());
    QFile kept(path + ".broken");
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QVERIFY(kept.readAll().endsWith("/precious"));
    Restart();
    QCOMPARE(Settings::workspaceFolders, QStringList(Tools()));
}

void WorkspaceViewTest::ANewerWorkspaceIsNotWritten()
{
    const QString path = m_directory->filePath("newer.te2-workspace");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray text = "{\"version\": 9, \"folders\": [\"tools\"], \"roots\": {}}";
    file.write(text);
    file.close();
    m_host->TakeMessages(host::MessageType::Warning);
    m_view->OpenWorkspace(path);
    QCOMPARE(Settings::workspaceFolders, QStringList(Tools()));
    QCOMPARE(m_host->TakeMessages(host::MessageType::Warning).size(), 1);
    m_view->AddFolder(m_directory->filePath("other"));
    m_view->SaveWorkspace();
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), text);
}

void WorkspaceViewTest::RootsAreAddedMovedAndRemoved()
{
    const QString other = m_directory->filePath("other");
    m_view->AddFolder(other + "/");
    m_view->AddFolder(Tools());
    QCOMPARE(Settings::workspaceFolders, (QStringList{Tools(), other}));
    QCOMPARE(Tree()->currentItem()->text(0), QString("tools"));
    m_view->MoveFolder(other, -1);
    m_view->MoveFolder(other, -1);
    QCOMPARE(Rows(), (QStringList{"other", "  o.txt", "tools", "  rigs", "  a2.py", "  a10.mel"}));
    m_view->RemoveFolder(other);
    m_view->RemoveFolder(Tools());
    QVERIFY(Settings::workspaceFolders.isEmpty());
    QVERIFY(!Tree()->isVisible());
    QSignalSpy asked(m_view.get(), &WorkspaceView::OpenWorkspaceRequested);
    auto* const button = m_view->findChild<QAbstractButton*>("m_emptyOpenWorkspaceButton");
    QVERIFY(button->isVisible());
    button->click();
    QCOMPARE(asked.size(), 1);
}

TE2_TEST(WorkspaceViewTest)
#include "WorkspaceViewTest.moc"

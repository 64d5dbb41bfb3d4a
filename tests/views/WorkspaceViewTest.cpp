#include "views/explorer/WorkspaceView.h"

#include "settings/Settings.h"
#include "support/TestMain.h"
#include "views/SubViewHeader.h"
#include "views/explorer/FolderListing.h"
#include "views/explorer/WorkspaceTree.h"
#include "window/WindowFixture.h"

#include <QAbstractButton>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUrl>
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
    void FoldersAreDroppedIn();

private:
    QString Tools() const { return m_directory->filePath("tools"); }
    void Touch(const QString& relative) const;
    void Restart();
    /// The visible rows, two blanks a level.
    QStringList Rows() const;
    void AppendRows(const QModelIndex& parent, const QString& indent, QStringList& rows) const;
    QModelIndex Item(const QString& name) const;
    void Expand(const QString& name);

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
    QTRY_COMPARE(Rows().size(), 4);
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
    AppendRows(QModelIndex(), QString(), rows);
    return rows;
}

void WorkspaceViewTest::AppendRows(
    const QModelIndex& parent, const QString& indent, QStringList& rows) const
{
    for (int i = 0; i < m_tree->model()->rowCount(parent); ++i) {
        const QModelIndex index = m_tree->model()->index(i, 0, parent);
        rows += indent + index.data().toString();
        if (m_tree->isExpanded(index))
            AppendRows(index, indent + "  ", rows);
    }
}

QModelIndex WorkspaceViewTest::Item(const QString& name) const
{
    const QAbstractItemModel* const model = m_tree->model();
    return model
        ->match(model->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive)
        .value(0);
}

void WorkspaceViewTest::Expand(const QString& name)
{
    QTRY_VERIFY(Item(name).isValid());
    m_tree->expand(Item(name));
    QTRY_VERIFY(m_tree->GetModel()->IsRead(Item(name)));
}

void WorkspaceViewTest::ReadsFoldersWhenTheyAreExpanded()
{
    QTRY_COMPARE(Rows(), (QStringList{"tools", "  rigs", "  a2.py", "  a10.mel"}));
    QCOMPARE(m_tree->model()->rowCount(Item("rigs")), 0);
    Expand("rigs");
    QTRY_COMPARE(Rows(), (QStringList{"tools", "  rigs", "    deep", "  a2.py", "  a10.mel"}));
}

void WorkspaceViewTest::RemembersExpandedFolders()
{
    Expand("rigs");
    Expand("deep");
    const QStringList rows = Rows();
    QCOMPARE(rows.size(), 6);
    QVERIFY(Settings::workspaceExpandedFolderHashes.contains(
        FolderListing::Hash(Tools() + "/rigs/deep")));
    m_view->SaveWorkspace();
    Settings::workspaceFolders.clear();
    Restart();
    QCOMPARE(Settings::workspaceFolders, QStringList(Tools()));
    QTRY_COMPARE(Rows(), rows);
    m_tree->CollapseFolders();
    QTRY_COMPARE(Rows(), QStringList("tools"));
    QVERIFY(Settings::workspaceExpandedFolderHashes.isEmpty());
}

void WorkspaceViewTest::FollowsTheDisk()
{
    Expand("rigs");
    m_tree->setCurrentIndex(Item("a10.mel"));
    const QPersistentModelIndex rigs = Item("rigs");
    Touch("tools/a9.py");
    Touch("tools/rigs/new.py");
    QVERIFY(QFile::remove(Tools() + "/a2.py"));
    QTRY_COMPARE(
        Rows(), (QStringList{"tools", "  rigs", "    deep", "    new.py", "  a9.py", "  a10.mel"}));
    QCOMPARE(rigs, QPersistentModelIndex(Item("rigs")));
    QCOMPARE(m_tree->currentIndex().data().toString(), QString("a10.mel"));
    // Nothing is done while nobody looks.
    m_view->SetExpanded(false);
    Touch("tools/a11.py");
    QSignalSpy changes(m_tree, &WorkspaceTree::ChangesFound);
    QVERIFY(changes.wait());
    QVERIFY(!Item("a11.py").isValid());
    m_view->SetExpanded(true);
    QTRY_VERIFY(Item("a11.py").isValid());
    // A file in place of a folder is another thing.
    QVERIFY(QDir(Tools() + "/rigs").removeRecursively());
    Touch("tools/rigs");
    QTRY_VERIFY(Item("rigs").isValid() && !m_tree->GetModel()->IsFolder(Item("rigs")));
}

void WorkspaceViewTest::AFolderComesBack()
{
    QVERIFY(QDir().rename(Tools(), Tools() + "-away"));
    QTRY_COMPARE(Item("tools").data(Qt::ToolTipRole).toString(), QString("not found"));
    QTRY_COMPARE(Rows(), QStringList("tools"));
    QVERIFY(QDir().rename(Tools() + "-away", Tools()));
    QTRY_COMPARE(Rows().size(), 4);
    QCOMPARE(Item("tools").data(Qt::ToolTipRole).toString(), Tools());
}

void WorkspaceViewTest::OpensFilesAndTogglesFolders()
{
    QSignalSpy opened(m_view.get(), &WorkspaceView::OpenFileRequested);
    m_tree->setCurrentIndex(Item("rigs"));
    QTest::keyClick(m_tree, Qt::Key_Return);
    QVERIFY(m_tree->isExpanded(Item("rigs")));
    QTest::keyClick(m_tree, Qt::Key_Return);
    QVERIFY(!m_tree->isExpanded(Item("rigs")));
    QVERIFY(opened.isEmpty());
    const QPoint place = m_tree->visualRect(Item("a2.py")).center();
    QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QVERIFY(opened.isEmpty());
    QTest::mouseDClick(m_tree->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    m_tree->setCurrentIndex(Item("a10.mel"));
    QTest::keyClick(m_tree, Qt::Key_Return);
    QCOMPARE(opened.size(), 2);
    QCOMPARE(opened[0].first().toString(), Tools() + "/a2.py");
    QCOMPARE(opened[1].first().toString(), Tools() + "/a10.mel");
}

void WorkspaceViewTest::ShowsWhatIsOpen()
{
    const auto look = [this](const QString& name) {
        const QModelIndex index = Item(name);
        return (index.data(Qt::FontRole).value<QFont>().bold() ? QString("bold") : QString("plain"))
            + (index.data(SideBarRows::ModifiedRole).toBool() ? "*" : "");
    };
    m_view->SetOpenFiles({{Tools() + "/a2.py", true}, {Tools() + "/rigs/deep/x.py", false}});
    QCOMPARE(look("a2.py"), QString("bold*"));
    QCOMPARE(look("a10.mel"), QString("plain"));
    Expand("rigs");
    Expand("deep");
    QCOMPARE(look("x.py"), QString("bold"));
    m_view->SetOpenFiles({{Tools() + "/rigs/deep/x.py", true}});
    QCOMPARE(look("a2.py"), QString("plain"));
    QCOMPARE(look("x.py"), QString("bold*"));
}

void WorkspaceViewTest::FindsAFileDeepDown()
{
    QVERIFY(m_view->SelectPath(Tools() + "/rigs/deep/x.py"));
    QTRY_COMPARE(m_tree->currentIndex().data().toString(), QString("x.py"));
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
    QCOMPARE(m_tree->model()->rowCount(), 2);
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
    QTRY_COMPARE(Rows(), rows);
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
    QCOMPARE(m_tree->currentIndex().data().toString(), QString("tools"));
    m_view->MoveFolder(other, -1);
    m_view->MoveFolder(other, -1);
    QTRY_COMPARE(
        Rows(), (QStringList{"other", "  o.txt", "tools", "  rigs", "  a2.py", "  a10.mel"}));
    m_view->RemoveFolder(other);
    m_view->RemoveFolder(Tools());
    QVERIFY(Settings::workspaceFolders.isEmpty());
    QVERIFY(!m_tree->isVisible());
    QSignalSpy asked(m_view.get(), &WorkspaceView::OpenWorkspaceRequested);
    auto* const button = m_view->findChild<QAbstractButton*>("m_emptyOpenWorkspaceButton");
    QVERIFY(button->isVisible());
    button->click();
    QCOMPARE(asked.size(), 1);
}

void WorkspaceViewTest::FoldersAreDroppedIn()
{
    const auto drop = [](QWidget* target, const QStringList& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls += QUrl::fromLocalFile(path);
        data.setUrls(urls);
        const QPoint place(5, 5);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &event);
        return event.isAccepted() && event.dropAction() == Qt::CopyAction;
    };
    const QString other = m_directory->filePath("other");
    QVERIFY(!drop(m_tree->viewport(), {other + "/o.txt"}));
    QVERIFY(drop(m_tree->viewport(), {other, other + "/o.txt", Tools()}));
    QCOMPARE(Settings::workspaceFolders, (QStringList{Tools(), other}));
    // Also where there is no tree.
    m_view->RemoveFolder(other);
    m_view->RemoveFolder(Tools());
    QVERIFY(drop(m_view.get(), {other}));
    QCOMPARE(Settings::workspaceFolders, QStringList(other));
}

TE2_TEST(WorkspaceViewTest)
#include "WorkspaceViewTest.moc"

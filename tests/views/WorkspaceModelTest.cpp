#include "views/explorer/WorkspaceModel.h"

#include "settings/Settings.h"
#include "support/TestMain.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

/// Rows of folders that change on the disk while others hold on to them.
class WorkspaceModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void KeepsRowsWhileOthersComeAndGo_data();
    void KeepsRowsWhileOthersComeAndGo();
    void RootsMayLieWithinEachOther();
    void TellsWhyNothingIsShown();
    void HoldsStillForANewName();

private:
    void Read(const QString& path);
    QStringList Names(const QString& path) const;
    void Make(const QString& name) const;

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<WorkspaceModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void WorkspaceModelTest::init()
{
    Settings::ResetToDefaults();
    m_tester.reset();
    m_model = std::make_unique<WorkspaceModel>(nullptr);
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    m_directory = std::make_unique<QTemporaryDir>();
}

void WorkspaceModelTest::Read(const QString& path)
{
    QSignalSpy read(m_model.get(), &WorkspaceModel::FolderRead);
    m_model->Read(m_model->IndexOf(path));
    QVERIFY(!read.isEmpty() || read.wait());
}

QStringList WorkspaceModelTest::Names(const QString& path) const
{
    const QModelIndex folder = m_model->IndexOf(path);
    QStringList names;
    for (int row = 0; row < m_model->rowCount(folder); ++row)
        names += m_model->index(row, 0, folder).data().toString();
    return names;
}

/// A folder when the name ends in "/".
void WorkspaceModelTest::Make(const QString& name) const
{
    const QString path = m_directory->filePath(name);
    if (name.endsWith('/'))
        QVERIFY(QDir().mkpath(path));
    else
        QVERIFY(QFile(path).open(QIODevice::WriteOnly));
}

void WorkspaceModelTest::KeepsRowsWhileOthersComeAndGo_data()
{
    // "count": of entries that may be there
    Columns<int>("count");
    Row("few, row by row", 12);
    Row("many, at once", 400);
}

void WorkspaceModelTest::KeepsRowsWhileOthersComeAndGo()
{
    QFETCH(int, count);
    QRandomGenerator random(count);
    const QString root = m_directory->path();
    m_model->SetRoots({root});
    Read(root);
    QHash<QString, QPersistentModelIndex> held;
    for (int turn = 0; turn < 30; ++turn) {
        for (int i = 0; i < count; ++i) {
            const QString name = QString(i % 3 == 0 ? "d%1/" : "f%1").arg(i);
            const QString path = m_directory->filePath(name);
            if (random.bounded(3) != 0)
                continue;
            if (!QFileInfo::exists(path))
                Make(name);
            else
                QVERIFY(name.endsWith('/') ? QDir(path).removeRecursively() : QFile::remove(path));
        }
        Read(root);
        QStringList expected;
        for (const auto& entry : FolderListing::Read(root, true).entries)
            expected += entry.name;
        QCOMPARE(Names(root), expected);
        for (auto name = held.begin(); name != held.end(); ++name) {
            // One that came back in the same turn may be another one.
            if (name->isValid())
                QCOMPARE(name->data().toString(), name.key());
            else
                QVERIFY(!expected.contains(name.key()) || !name->isValid());
        }
        held.clear();
        for (int row = 0; row < expected.size(); ++row)
            held.insert(expected[row], m_model->index(row, 0, m_model->IndexOf(root)));
    }
}

void WorkspaceModelTest::RootsMayLieWithinEachOther()
{
    Make("in/deep/");
    Make("in/deep/x.py");
    const QString outer = m_directory->path();
    const QString inner = m_directory->filePath("in");
    m_model->SetRoots({outer, inner});
    Read(outer);
    const QPersistentModelIndex below = m_model->index(0, 0, m_model->IndexOf(outer));
    QCOMPARE(m_model->PathOf(below), inner);
    QCOMPARE(m_model->KindOf(m_model->IndexOf(inner)), WorkspaceModel::Kind::Root);
    Read(inner);
    QCOMPARE(Names(inner), QStringList("deep"));
    // Both change places and keep what is known of them.
    m_model->SetRoots({inner, outer});
    QCOMPARE(m_model->PathOf(below), inner);
    QCOMPARE(Names(inner), QStringList("deep"));
    m_model->SetRoots({inner});
    QVERIFY(!below.isValid());
}

void WorkspaceModelTest::TellsWhyNothingIsShown()
{
    Make("gone/inner/");
    const QString root = m_directory->filePath("gone");
    m_model->SetRoots({root});
    Read(root);
    QVERIFY(QDir(root).removeRecursively());
    Read(root);
    QCOMPARE(Names(root), QStringList());
    QCOMPARE(m_model->IndexOf(root).data(Qt::ToolTipRole).toString(), "not found");
    Make("gone/inner/");
    m_model->CheckPresence(m_model->IndexOf(root));
    QCOMPARE(m_model->IndexOf(root).data(Qt::ToolTipRole).toString(), root);
}

void WorkspaceModelTest::HoldsStillForANewName()
{
    Make("a/");
    Make("b.py");
    const QString root = m_directory->path();
    m_model->SetRoots({root});
    Read(root);
    const QPersistentModelIndex row = m_model->BeginNew(m_model->IndexOf(root), false);
    QCOMPARE(Names(root), (QStringList{"a", "", "b.py"}));
    Make("c.py");
    m_model->Read(m_model->IndexOf(root));
    QTest::qWait(0);
    QVERIFY(row.isValid() && m_model->IsNew(row));
    QCOMPARE(Names(root), (QStringList{"a", "", "b.py"}));
    m_model->EndNew();
    QTRY_COMPARE(Names(root), (QStringList{"a", "b.py", "c.py"}));
}

TE2_TEST(WorkspaceModelTest)
#include "WorkspaceModelTest.moc"

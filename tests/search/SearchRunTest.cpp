#include "search/SearchRun.h"

#include "search/PlainSearch.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Remembers what it was told.
class Owner : public SearchRun::Owner
{
public:
    void OnHits(
        const QString& folder, const QString& relative, const QVector<SearchResult>& hits) override
    {
        paths.append(hits.first().filePath);
        places.append(folder + '|' + relative);
        lines.append(hits.first().lineText);
        if (paths.size() == stopAfter)
            QTest::qSleep(40); // longer than the time between two questions
    }
    bool KeepGoing() override { return stopAfter < 0 || paths.size() < stopAfter; }
    QString GetOpenText(const QString&) override { return "needle, not saved"; }

    QStringList paths;
    QStringList places;
    QStringList lines;
    int stopAfter = -1;
};

} // namespace

class SearchRunTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void WalksAsTheToolkitLists();
    void PassesOverWhatIsNoFile();
    void NamesFoldersItCannotRead();
    void KeepsToTheFilter_data();
    void KeepsToTheFilter();
    void PartsPathsFromPatterns();
    void PartsEntriesAtCommasOutsideOfPaths_data();
    void PartsEntriesAtCommasOutsideOfPaths();
    void SearchesOpenTextsInsteadOfTheirFiles();
    void TellsOfAFileOnce();
    void StopsWhenTold();

private:
    QString Write(const QString& name, const QByteArray& bytes = "a needle\n") const;
    QStringList PathsBelowFolder(const QStringList& paths) const;
    SearchRun MakeRun(const SearchFilter& filter = {});

    std::unique_ptr<QTemporaryDir> m_folder;
    Owner m_owner;
};

void SearchRunTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_owner = Owner();
}

QString SearchRunTest::Write(const QString& name, const QByteArray& bytes) const
{
    const QString path = m_folder->filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
    return path;
}

QStringList SearchRunTest::PathsBelowFolder(const QStringList& paths) const
{
    QStringList below;
    for (const QString& path : paths)
        below.append(path.mid(m_folder->path().size() + 1));
    return below;
}

SearchRun SearchRunTest::MakeRun(const SearchFilter& filter)
{
    return SearchRun(QRegularExpression("needle"), filter, nullptr, m_owner);
}

void SearchRunTest::WalksAsTheToolkitLists()
{
    for (const char* name : {"b.py", "A.py", "a2.py", "C/z", "c0", "_x", "\xc3\x89t\xc3\xa9",
             "C/B/x", "C/b2/x", "C/y.mel", ".hidden", ".git/x", "empty/.x", "~x", "C.d/q"})
        Write(QString::fromUtf8(name));
    Write("other", "nothing");
    SearchRun run = MakeRun();
    run.SearchFolder(m_folder->path(), QString());
    QStringList expected;
    for (const SearchResult& hit :
        PlainSearch::InFolder(m_folder->path(), QRegularExpression("needle"), {}))
        expected.append(hit.filePath);
    QCOMPARE(m_owner.paths, expected);
    QCOMPARE(m_owner.paths.size(), 12);
    QVERIFY(m_owner.places.contains(m_folder->path() + "|C/b2/x"));
    QCOMPARE(run.GetFileCount(), 13);
}

void SearchRunTest::PassesOverWhatIsNoFile()
{
    Write("d/a.py");
    QFile::link(m_folder->path(), m_folder->filePath("d/up"));
    QFile::link(m_folder->filePath("d/a.py"), m_folder->filePath("d/b.py"));
    QFile::link("nowhere", m_folder->filePath("d/c.py"));
    QCOMPARE(mkfifo(qPrintable(m_folder->filePath("d/fifo")), 0600), 0);
    SearchRun run = MakeRun();
    run.SearchFolder(m_folder->path(), QString());
    QCOMPARE(PathsBelowFolder(m_owner.paths), QStringList{"d/a.py"});
    // What is searched may itself be reached by a link.
    SearchRun again = MakeRun();
    again.SearchFolder(m_folder->filePath("d/up"), QString());
    QCOMPARE(PathsBelowFolder(m_owner.paths).last(), "d/up/d/a.py");
}

void SearchRunTest::NamesFoldersItCannotRead()
{
    SearchRun run = MakeRun();
    run.SearchFolder(m_folder->filePath("missing"), QString());
    QCOMPARE(run.GetUnreadableFolders(), QStringList{m_folder->filePath("missing")});
    Write("closed/a.py");
    Write("open/a.py");
    QFile::setPermissions(m_folder->filePath("closed"), {});
    SearchRun second = MakeRun();
    second.SearchFolder(m_folder->path(), QString());
    QFile::setPermissions(
        m_folder->filePath("closed"), QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner);
    QVERIFY(PathsBelowFolder(m_owner.paths).contains("open/a.py"));
    if (geteuid() != 0)
        QCOMPARE(second.GetUnreadableFolders(), QStringList{m_folder->filePath("closed")});
}

void SearchRunTest::KeepsToTheFilter_data()
{
    Columns<QStringList, QStringList, QStringList>("include", "exclude", "found");
    using L = QStringList;
    Row("all", L{}, L{}, L{"x.MEL", "x.py", "sub/x.py", "sub2/x.py"});
    Row("ending", L{"*.py"}, L{}, L{"x.py", "sub/x.py", "sub2/x.py"});
    Row("any case", L{"*.mel"}, L{}, L{"x.MEL"});
    Row("the whole path", L{"x.py"}, L{}, L{});
    Row("set", L{"*/x.[pm][ey]*"}, L{}, L{"x.MEL", "x.py", "sub/x.py", "sub2/x.py"});
    Row("both", L{"*.py"}, L{"*sub*"}, L{"x.py"});
    Row("excluded folder", L{}, L{"%1/sub"}, L{"x.MEL", "x.py", "sub2/x.py"});
    Row("excluded file", L{}, L{"%1/x.py"}, L{"x.MEL", "sub/x.py", "sub2/x.py"});
}

void SearchRunTest::KeepsToTheFilter()
{
    QFETCH(QStringList, include);
    QFETCH(QStringList, exclude);
    for (const char* name : {"x.py", "x.MEL", "sub/x.py", "sub2/x.py"})
        Write(name);
    SearchFilter filter;
    filter.includePatterns
        = CreateSearchFilter(include.replaceInStrings("%1", m_folder->path()), filter.includePaths);
    filter.excludePatterns
        = CreateSearchFilter(exclude.replaceInStrings("%1", m_folder->path()), filter.excludePaths);
    SearchRun run = MakeRun(filter);
    run.SearchFolder(m_folder->path(), QString());
    QTEST(PathsBelowFolder(m_owner.paths), "found");
    const QStringList everything = {"x.MEL", "x.py", "sub/x.py", "sub2/x.py"};
    for (const QString& name : everything) {
        const QString path = m_folder->filePath(name);
        QCOMPARE(filter.Reaches(path, {m_folder->path()}), m_owner.paths.contains(path));
    }
}

void SearchRunTest::PartsPathsFromPatterns()
{
    Write("sub/x.py");
    const QString folder = m_folder->filePath("sub");
    QStringList paths;
    const QList<QRegExp> patterns = CreateSearchFilter(
        {" *.py ", folder + "/ ", "", "  ", m_folder->filePath("missing"), folder + "/../sub/x.py"},
        paths);
    QCOMPARE(patterns.size(), 2);
    QCOMPARE(patterns[0].pattern(), "*.py");
    QCOMPARE(patterns[0].caseSensitivity(), Qt::CaseInsensitive);
    QCOMPARE(paths, (QStringList{folder, folder + "/x.py"}));
    QCOMPARE(CreateSearchPaths({" " + folder, "*.py", ""}), QStringList{folder});
}

void SearchRunTest::PartsEntriesAtCommasOutsideOfPaths_data()
{
    Columns<QString, QStringList>("text", "entries");
    using L = QStringList;
    Row("patterns", "*.py,, *.mel", L{"*.py", " *.mel"});
    Row("a path", "%1/a, b", L{"%1/a, b"});
    Row("paths and patterns", "*.py,%1/a, b,%1/a,c", L{"*.py", "%1/a, b", "%1/a", "c"});
    Row("nothing there", "%1/x,y", L{"%1/x", "y"});
}

void SearchRunTest::PartsEntriesAtCommasOutsideOfPaths()
{
    Write("a, b/x.py");
    Write("a/x.py");
    QFETCH(QString, text);
    QFETCH(QStringList, entries);
    entries.replaceInStrings("%1", m_folder->path());
    QCOMPARE(SplitSearchEntries(text.replace("%1", m_folder->path())), entries);
}

void SearchRunTest::SearchesOpenTextsInsteadOfTheirFiles()
{
    const QString open = Write("open.py", "nothing of it\n");
    Write("other.py");
    SearchRun run = MakeRun();
    run.SetOpenPaths({open});
    run.SearchFolder(m_folder->path(), QString());
    QCOMPARE(m_owner.lines, (QStringList{"needle, not saved", "a needle"}));
    run.SearchText("/buffers", "/buffers/a.mel", "MEL", "needle");
    QCOMPARE(m_owner.places.last(), "/buffers|a.mel");
}

void SearchRunTest::TellsOfAFileOnce()
{
    const QString path = Write("sub/a.py");
    SearchRun run = MakeRun();
    run.SearchFolder(m_folder->path(), QString());
    run.SearchFolder(m_folder->filePath("sub"), QString());
    run.SearchFile(path);
    QCOMPARE(m_owner.places, QStringList{m_folder->path() + "|sub/a.py"});
}

void SearchRunTest::StopsWhenTold()
{
    for (int i = 0; i < 20; ++i)
        Write(QString("%1/a.py").arg(i));
    m_owner.stopAfter = 3;
    SearchRun run = MakeRun();
    run.SearchFolder(m_folder->path(), QString());
    QVERIFY(run.IsCancelled());
    QCOMPARE(m_owner.paths.size(), 3);
}

TE2_TEST(SearchRunTest)
#include "SearchRunTest.moc"

// What it costs to look into a folder of very many files: reading it beside the toolkit's own
// listing, and the longest that the interface is kept from anything else meanwhile.

#include "RatioMain.h"
#include "views/explorer/FolderListing.h"
#include "views/explorer/WorkspaceTree.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <ctime>
#include <functional>

namespace {

constexpr int FILES = 50000;
constexpr int RUNS = 10;
constexpr int CHANGED = 500; ///< of them, all over the folder
constexpr double NS_PER_MS = 1e6;
constexpr double MS_PER_S = 1000.0;
constexpr double GOAL_OF_TURN = 50; // ms

const QString& Folder()
{
    static const QTemporaryDir directory;
    static const QString path = [] {
        for (int i = 0; i < FILES; ++i) {
            QFile file(directory.filePath(QStringLiteral("shot_%1_layout.py").arg(i)));
            if (!file.open(QIODevice::WriteOnly))
                qFatal("no room for the files");
        }
        return directory.path();
    }();
    return path;
}

void List(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(FolderListing::Read(Folder(), true));
}

/// The floor: names and kinds in any order that has case and kind in it.
void ListBare(benchmark::State& state)
{
    for (auto _ : state) {
        QVector<QPair<bool, QString>> entries;
        QDirIterator iterator(Folder(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        while (iterator.hasNext()) {
            iterator.next();
            entries.append({!iterator.fileInfo().isDir(), iterator.fileName().toLower()});
        }
        std::sort(entries.begin(), entries.end());
        benchmark::DoNotOptimize(entries);
    }
}

/// What this thread has computed so far, in ms: other programs do not count.
double Computed()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return time.tv_sec * MS_PER_S + time.tv_nsec / NS_PER_MS;
}

double Cost(const std::function<void()>& act)
{
    const double before = Computed();
    act();
    return Computed() - before;
}

/// Turns the event loop until the folder has `count` rows; the longest turn, in ms.
double LongestTurn(const WorkspaceTree& tree, int count)
{
    double longest = 0;
    const QModelIndex root = tree.GetModel()->index(0, 0);
    bool isDone = false;
    // And once more, for what waits to be laid out and painted.
    while (!isDone) {
        isDone = tree.GetModel()->IsRead(root) && tree.GetModel()->rowCount(root) == count;
        longest = std::max(longest, Cost([] { QCoreApplication::processEvents(); }));
    }
    return longest;
}

/// The longest turn of all while the folder is opened in a tree that can be seen.
void Open(benchmark::State& state)
{
    Folder();
    for (auto _ : state) {
        WorkspaceTree tree(nullptr);
        tree.resize(288, 900);
        tree.show();
        tree.SetRoots({Folder()});
        tree.CollapseFolders();
        QCoreApplication::processEvents();
        const double first = Cost([&tree] { tree.expand(tree.GetModel()->index(0, 0)); });
        state.SetIterationTime(std::max(first, LongestTurn(tree, FILES)) / MS_PER_S);
    }
}

/// The longest turn while files that came and went all over the folder are shown.
void Refresh(benchmark::State& state)
{
    WorkspaceTree tree(nullptr);
    tree.resize(288, 900);
    tree.show();
    tree.SetRoots({Folder()});
    tree.expand(tree.GetModel()->index(0, 0));
    LongestTurn(tree, FILES);
    bool isAway = false;
    for (auto _ : state) {
        isAway = !isAway;
        for (int i = 0; i < FILES; i += FILES / CHANGED) {
            const QString path = Folder() + QStringLiteral("/shot_%1_layout.py").arg(i);
            const QString other = path + QLatin1Char('~');
            QFile::rename(isAway ? path : other, isAway ? other : path);
        }
        const double first = Cost([&tree] { tree.RefreshFolder(Folder()); });
        state.SetIterationTime(std::max(first, LongestTurn(tree, FILES)) / MS_PER_S);
    }
}

void Register()
{
    const auto add = [](const char* name, void (*function)(benchmark::State&)) {
        return benchmark::RegisterBenchmark(name, function)->Unit(benchmark::kMillisecond);
    };
    add("list", List)->Iterations(RUNS);
    add("list/floor", ListBare)->Iterations(RUNS);
    RatioGoal("list", 1.5);
    add("open", Open)->Iterations(RUNS)->UseManualTime();
    TimeGoal("open", GOAL_OF_TURN);
    add("refresh", Refresh)->Iterations(RUNS)->UseManualTime();
    TimeGoal("refresh", GOAL_OF_TURN);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    Register();
    return RunBenchmarks(argc, argv);
}

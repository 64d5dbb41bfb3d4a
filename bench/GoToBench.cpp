// What going to one of 20,000 files costs: each key against one plain search of the same texts, and
// the longest time that gathering them keeps a key waiting.

#include "RatioMain.h"
#include "settings/Settings.h"
#include "views/goto/GoToEntries.h"
#include "views/goto/GoToFilter.h"
#include "views/goto/WorkspaceFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cstdlib>

namespace {

constexpr int FILES = WorkspaceFiles::MAXIMUM_FILES;
constexpr int FILES_PER_FOLDER = 250;

const QVector<GoToEntry>& Entries()
{
    static const QVector<GoToEntry> entries = [] {
        static const char* const WORDS[]
            = {"rigging", "layout", "Scatter", "shelf", "utils", "export", "maya", "Curve"};
        const QStringList folders = {QStringLiteral("/projects/show/tools")};
        QVector<GoToEntry> made;
        for (int i = 0; i < FILES; ++i) {
            const auto word = [i](int step) { return QString::fromLatin1(WORDS[i / step % 8]); };
            made.append(GoToEntries::OfFile(
                QStringLiteral("/projects/show/tools/%1/%2_%3/deep_folder/%4_%5.py")
                    .arg(word(64), word(8), word(512), word(1))
                    .arg(i),
                folders));
        }
        return made;
    }();
    return entries;
}

/// One key behind what was typed before it.
void Key(benchmark::State& state, const char* before, const char* typed)
{
    for (auto _ : state) {
        state.PauseTiming();
        GoToFilter filter;
        filter.SetText(QLatin1String(before), Entries());
        state.ResumeTiming();
        filter.SetText(QLatin1String(typed), Entries());
        QVector<int> best = filter.GetBest();
        benchmark::DoNotOptimize(best);
    }
}

void Contains(benchmark::State& state, const char* typed)
{
    const QString text = QLatin1String(typed);
    for (auto _ : state) {
        int found = 0;
        for (const GoToEntry& entry : Entries())
            found += entry.text.contains(text, Qt::CaseInsensitive);
        benchmark::DoNotOptimize(found);
    }
}

/// Half of the files in one folder, the others in many.
const QString& Workspace()
{
    static const QTemporaryDir directory;
    static const QString path = [] {
        const QDir folder(directory.path());
        for (int i = 0; i < FILES; ++i) {
            const int number = i < FILES / 2 ? 0 : i / FILES_PER_FOLDER;
            const QString place = QString::number(number);
            folder.mkpath(place);
            QFile(folder.filePath(QStringLiteral("%1/script_%2.py").arg(place).arg(i)))
                .open(QIODevice::WriteOnly);
        }
        return directory.path();
    }();
    return path;
}

/// The longest turn of the event loop while all files are found and filtered.
void Gather(benchmark::State& state)
{
    Settings::workspaceFolders = QStringList{Workspace()};
    for (auto _ : state) {
        WorkspaceFiles files(nullptr);
        GoToFilter filter;
        filter.SetText(QStringLiteral("sc"), {});
        QObject::connect(
            &files, &WorkspaceFiles::Grown, &files, [&] { filter.Extend(files.GetEntries()); });
        files.Start();
        qint64 longest = 0;
        while (files.IsGathering()) {
            QElapsedTimer clock;
            clock.start();
            QCoreApplication::processEvents();
            longest = qMax(longest, clock.nsecsElapsed());
        }
        if (files.GetEntries().size() != FILES)
            std::abort();
        state.SetIterationTime(longest / 1e9);
    }
}

void RegisterKey(const char* name, const char* before, const char* typed, double ratio)
{
    static std::vector<std::string> names;
    names.reserve(16);
    const std::string& floor = names.emplace_back(std::string(name) + "/floor");
    benchmark::RegisterBenchmark(
        name, [before, typed](benchmark::State& state) { Key(state, before, typed); })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RegisterBenchmark(
        floor.c_str(), [typed](benchmark::State& state) { Contains(state, typed); })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    RatioGoal(name, ratio);
    TimeGoal(name, 30);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    RegisterKey("first_letter", "", "s", 15);
    RegisterKey("more_letters", "sca", "scat", 5);
    RegisterKey("no_match", "", "zzz", 2);
    RegisterKey("two_words", "", "rig lay", 5);
    RegisterKey("all_match_long", "", "tools/deep_folder", 8);
    benchmark::RegisterBenchmark("gather_longest_turn", Gather)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(1);
    TimeGoal("gather_longest_turn", 16);
    return RunBenchmarks(argc, argv);
}

// The search in files against the plain procedure it stands for and, where it is installed, against
// ripgrep on one thread. Trees are made once per run and are in the system's cache.

#include "RatioMain.h"
#include "editor/SearchExpression.h"
#include "search/PlainSearch.h"
#include "search/SearchRun.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cstdio>
#include <functional>

namespace {

constexpr int RUNS = 5;
constexpr int SMALL_FILES = 200000;
constexpr int FILES_PER_FOLDER = 200;
constexpr int LARGE_FILES = 30;
constexpr int LARGE_SIZE = 1024 * 1024; // bytes
constexpr int MEDIUM_FILES = 1790;
constexpr int MEDIUM_SIZE = 17600; // bytes

struct Query
{
    const char* name;
    const char* typed;
    bool matchCase;
    bool matchWord;
    bool isExpression;
    double goal; ///< against ripgrep
};

// clang-format off
constexpr Query QUERIES[] = {
    {"absent",     "nowhere_to_be_found", true,  false, false, 1.2},
    {"rare",       "rareName",            true,  false, false, 1.2},
    {"no_case",    "rarename",            false, false, false, 1.2},
    {"frequent",   "value",               true,  false, false, 1.6},
    {"word",       "self",                true,  true,  false, 1.1},
    {"expression", "def\\s+_\\w+\\(self", true,  false, true,  1.5},
};
// clang-format on

QByteArray MakeScript(int size, int number)
{
    static const QByteArray LINES[] = {"import maya.cmds as cmds\n", "class Shelf(object):\n",
        "    def build(self, value):\n", "        self.items = [item for item in value if item]\n",
        "        # a remark\n", "\n", "        return cmds.polyCube(name='cube', width=3.5)[0]\n",
        "    def _layout(self, columns=3):\n", "        for row in range(columns):\n",
        "            print('%s: %d' % (row, columns))\n"};
    QByteArray script;
    for (int i = number; script.size() < size; ++i) {
        script += LINES[i % static_cast<int>(std::size(LINES))];
        if (i % 1500 == 7)
            script += "    rareName = 1\n";
    }
    return script;
}

void MakeTree(const QString& folder, int files, int size)
{
    for (int i = 0; i < files; ++i) {
        const QString below = QStringLiteral("%1/%2").arg(folder).arg(i / FILES_PER_FOLDER);
        if (i % FILES_PER_FOLDER == 0)
            QDir().mkpath(below);
        QFile file(QStringLiteral("%1/script%2.py").arg(below).arg(i));
        if (!file.open(QIODevice::WriteOnly))
            std::perror("the tree could not be made");
        file.write(MakeScript(size, i));
    }
}

struct Counter : SearchRun::Owner
{
    void OnHits(const QString&, const QString&, const QVector<SearchResult>& found) override
    {
        hits += found.size();
    }
    bool KeepGoing() override { return true; }
    QString GetOpenText(const QString&) override { return {}; }

    int hits = 0;
};

QRegularExpression Expression(const Query& query)
{
    return CreateSearchRegEx(
        QString::fromLatin1(query.typed), query.matchCase, query.matchWord, query.isExpression);
}

int CountPlainly(const QString& folder, const Query& query)
{
    return PlainSearch::InFolder(folder, Expression(query), {}).size();
}

void Search(benchmark::State& state, const QString& folder, const Query& query, int expected)
{
    for (auto _ : state) {
        Counter counter;
        SearchRun run(Expression(query), {}, nullptr, counter);
        run.SearchFolder(folder, QString());
        if (expected >= 0 && counter.hits != expected)
            return state.SkipWithError("the hits are others than those of the plain search");
    }
}

void SearchWithRipgrep(benchmark::State& state, const QString& folder, const Query& query)
{
    QStringList arguments{QStringLiteral("-j1"), QStringLiteral("--no-ignore"),
        QStringLiteral("--no-config"), QStringLiteral("-n"), QStringLiteral("--column")};
    arguments.append(query.matchCase ? QStringLiteral("-s") : QStringLiteral("-i"));
    if (query.matchWord)
        arguments.append(QStringLiteral("-w"));
    if (!query.isExpression)
        arguments.append(QStringLiteral("-F"));
    arguments << QStringLiteral("-e") << QString::fromLatin1(query.typed) << folder;
    for (auto _ : state) {
        QProcess process;
        process.setStandardOutputFile(QProcess::nullDevice());
        process.start(QStringLiteral("rg"), arguments);
        if (!process.waitForFinished(-1) || process.exitCode() > 1)
            return state.SkipWithError("ripgrep failed");
    }
}

void Register(const std::string& name, const std::function<void(benchmark::State&)>& run)
{
    benchmark::RegisterBenchmark(name.c_str(), run)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(1)
        ->Repetitions(RUNS);
}

void RegisterQuery(const std::string& tree, const QString& folder, const Query& query, double goal)
{
    static const bool hasRipgrep = !QStandardPaths::findExecutable(QStringLiteral("rg")).isEmpty();
    const std::string name = tree + "_" + query.name;
    const int expected = tree == "small" ? -1 : CountPlainly(folder, query);
    std::printf("%s: %d hits\n", name.c_str(), expected);
    Register(name, [=](auto& state) { Search(state, folder, query, expected); });
    if (hasRipgrep) {
        Register(name + "/floor", [=](auto& state) { SearchWithRipgrep(state, folder, query); });
        RatioGoal(name.c_str(), goal);
    } else {
        std::printf("ripgrep is not installed: no ratio for %s\n", name.c_str());
    }
}

/// Against the plain procedure.
void RegisterPlain(const std::string& name, const QString& folder, const Query& query, double goal)
{
    Register(name, [=](auto& state) { Search(state, folder, query, -1); });
    Register(name + "/floor", [=](benchmark::State& state) {
        for (auto _ : state)
            benchmark::DoNotOptimize(CountPlainly(folder, query));
    });
    RatioGoal(name.c_str(), goal);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString small = folder.filePath(QStringLiteral("small"));
    const QString medium = folder.filePath(QStringLiteral("medium"));
    const QString large = folder.filePath(QStringLiteral("large"));
    MakeTree(small, SMALL_FILES, 300);
    MakeTree(medium, MEDIUM_FILES, MEDIUM_SIZE);
    MakeTree(large, LARGE_FILES, LARGE_SIZE);
    for (const Query& query : QUERIES) {
        RegisterQuery("medium", medium, query, query.goal);
        RegisterQuery("large", large, query, query.goal);
    }
    RegisterQuery("small", small, QUERIES[0], 0.8);
    RegisterPlain("plain_rare", medium, QUERIES[1], 0.2);
    static constexpr Query NO_LITERAL = {"no_literal", "[A-Z]\\w+\\d", true, false, true, 0};
    RegisterPlain("plain_no_literal", medium, NO_LITERAL, 0.6);
    return RunBenchmarks(argc, argv);
}

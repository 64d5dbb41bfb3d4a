// How fast scripts are read for the outline and the messages, also those that mean harm.

#include "RatioMain.h"
#include "language/MelParser.h"
#include "language/PythonParser.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <ctime>
#include <memory>
#include <stdexcept>

namespace {

constexpr int LONG_TEXT = 10 * 1000 * 1000; // characters
constexpr int HOSTILE_TEXT = 1000 * 1000;
constexpr int QUICK_RUNS = 5;

QString FolderText(const QString& folder, const QString& pattern)
{
    QString text;
    QDirIterator files(folder, {pattern}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext() && text.size() < LONG_TEXT) {
        QFile file(files.next());
        if (file.open(QIODevice::ReadOnly))
            text += QString::fromUtf8(file.readAll()) + QLatin1Char('\n');
    }
    if (text.isEmpty())
        throw std::runtime_error("nothing to read in " + folder.toStdString());
    while (text.size() < LONG_TEXT)
        text += text;
    text.truncate(LONG_TEXT);
    return text;
}

const QString& PythonText()
{
    static const QString text
        = FolderText(QStringLiteral("/usr/lib/python3.11"), QStringLiteral("*.py"));
    return text;
}

const QString& MelText()
{
    static const QString text = FolderText(QStringLiteral(BENCH_SOURCES), QStringLiteral("*.mel"));
    return text;
}

/// Of the processor: a short text that waits for a busy machine would say nothing.
template <class Parser>
double ParseSeconds(const QString& text)
{
    Parser parser;
    const std::clock_t start = std::clock();
    parser.Parse(text, QString());
    return double(std::clock() - start) / CLOCKS_PER_SEC;
}

template <class Parser>
void Parse(benchmark::State& state, const QString& text)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(ParseSeconds<Parser>(text));
    state.counters["Mchar/s"]
        = benchmark::Counter(text.size() / 1e6, benchmark::Counter::kIsIterationInvariantRate);
}

/// The floor: the tags that the well-known program makes of the same text.
void MakeTags(benchmark::State& state)
{
    const QTemporaryDir folder;
    QFile script(folder.filePath(QStringLiteral("long.py")));
    if (!script.open(QIODevice::WriteOnly) || script.write(PythonText().toUtf8()) < 0)
        return state.SkipWithError("the script could not be written");
    script.close();
    for (auto _ : state) {
        const int result = QProcess::execute(QStringLiteral("ctags"),
            {QStringLiteral("--languages=Python"), QStringLiteral("-f"),
                folder.filePath(QStringLiteral("tags")), script.fileName()});
        if (result != 0)
            return state.SkipWithError("ctags is not here (package universal-ctags)");
    }
}

QString Repeated(const QString& piece)
{
    return piece.repeated(HOSTILE_TEXT / piece.size());
}

QString EverDeeper()
{
    QString text;
    for (int depth = 1; text.size() < HOSTILE_TEXT; ++depth)
        text += QString(depth, QLatin1Char(' ')) + QStringLiteral("if x:\n");
    return text;
}

QStringList HostileTexts()
{
    // clang-format off
    const QStringList pieces{
        "\"", "'", "'''", "\"\"\"x", "(", ")", "([{", "}])", "\\", "\"\\", "\\\n", ":", "::\n", "#",
        "@", "@a\n", "global ", "global proc ", "proc ", "proc int[] f(", "import ", "import a,",
        "from a import ", "from a import (", "class ", "class A(", "def ", "def f(\n", "if x:\n ",
        "if __name__ ==", "\n", "\r\n", "\r", "\t \n", " ", "\u2029", "\U0001F600", "//", "/*", "*/",
        "$a ", "TODO ", "# TODO\n", "// TODO\n", "{", "}", "{\n", "a"};
    // clang-format on
    const QStringList starts{"import ", "from a import ", "from ", "class ", "def ", "@", "if x",
        "proc ", "global proc ", "proc a(", "global string $", "global string ", "#", "\""};
    QStringList texts{EverDeeper()};
    for (const QString& piece : pieces)
        texts += Repeated(piece);
    for (const QString& start : starts) {
        for (const char* piece : {"a", "a, ", " ", "\\", "["})
            texts += start + Repeated(piece);
    }
    return texts;
}

template <class Parser>
double QuickestOfSeveral(const QString& text)
{
    double quickest = ParseSeconds<Parser>(text);
    for (int i = 1; i < QUICK_RUNS; ++i)
        quickest = qMin(quickest, ParseSeconds<Parser>(text));
    return quickest;
}

/// The time of the text that takes the longest.
template <class Parser>
void ParseHostile(benchmark::State& state)
{
    static const QStringList texts = HostileTexts();
    for (auto _ : state) {
        double longest = 0;
        for (const QString& text : texts) {
            const double seconds = QuickestOfSeveral<Parser>(text);
            if (seconds > longest)
                state.SetLabel(text.left(20).simplified().toStdString());
            longest = qMax(longest, seconds);
        }
        state.SetIterationTime(longest);
    }
}

template <class Parser>
void ParseOrdinary(benchmark::State& state, const QString& text)
{
    for (auto _ : state)
        state.SetIterationTime(QuickestOfSeveral<Parser>(text.left(HOSTILE_TEXT)));
}

template <class Run>
benchmark::internal::Benchmark* Register(const char* name, Run run)
{
    return benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond)->Iterations(1);
}

template <class Parser>
void RegisterHostile(const std::string& name, const QString& ordinary)
{
    Register(name.c_str(), ParseHostile<Parser>)->UseManualTime();
    Register((name + "/floor").c_str(), [&ordinary](auto& state) {
        ParseOrdinary<Parser>(state, ordinary);
    })->UseManualTime();
    RatioGoal(name.c_str(), 5);
}

} // namespace

int main(int argc, char** argv)
{
    Register("parse_python_10M", [](auto& state) {
        Parse<PythonParser>(state, PythonText());
    })->UseRealTime();
    Register("parse_python_10M/floor", MakeTags)->UseRealTime();
    RatioGoal("parse_python_10M", 0.2);
    Register("parse_mel_10M", [](auto& state) {
        Parse<MelParser>(state, MelText());
    })->UseRealTime();
    Register("parse_mel_10M/floor", MakeTags)->UseRealTime();
    RatioGoal("parse_mel_10M", 0.2);
    RegisterHostile<PythonParser>("hostile_python", PythonText());
    RegisterHostile<MelParser>("hostile_mel", MelText());
    return RunBenchmarks(argc, argv);
}

// What it costs to read and save a long script beside the bare bytes.

#include "RatioMain.h"
#include "files/FileText.h"
#include "files/TextFormat.h"

#include <QGuiApplication>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTextCodec>

#include <benchmark/benchmark.h>
#include <functional>

namespace {

constexpr int LENGTH = 10 * 1000 * 1000; // bytes
constexpr int RUNS = 10;
constexpr double GOAL_TO_LOOK = 50; // ms

QByteArray Repeated(const QByteArray& line)
{
    return line.repeated(LENGTH / line.size());
}

const QByteArray& Bytes()
{
    static const QByteArray bytes = Repeated("    value = function(name, \xc3\xa9) * 2\n");
    return bytes;
}

/// The old script is replaced, as it is nearly always.
QString MakeScript(const QTemporaryDir& folder)
{
    const QString path = folder.filePath(QStringLiteral("a.py"));
    FileText::WriteBytes(path, Bytes());
    return path;
}

/// As the window saves a file: how it is to stand, the bytes, and what tells them from others'.
void Save(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = MakeScript(folder);
    const QString text = QString::fromUtf8(Bytes());
    const QTextCodec& chosen = FileText::ChosenCodec();
    for (auto _ : state) {
        const TextFormat format = FollowText({}, text, chosen);
        const QByteArray bytes = FormatPlainly(text, chosen);
        if (!format.IsOrdinary() || !FileText::WriteBytes(path, bytes))
            return state.SkipWithError("the script could not be saved");
        benchmark::DoNotOptimize(FileText::FingerprintOf(bytes));
    }
}

/// The floor: the same bytes through the toolkit.
void SaveBare(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString path = MakeScript(folder);
    for (auto _ : state) {
        QSaveFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(Bytes()) != Bytes().size()
            || !file.commit())
            return state.SkipWithError("the bytes could not be written");
    }
}

void Read(benchmark::State& state, const QByteArray& bytes)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadFormatted(bytes, *QTextCodec::codecForName("UTF-8")));
}

void ReadBare(benchmark::State& state, const QByteArray& bytes)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(QString::fromUtf8(bytes));
}

void Register(const std::string& name, const std::function<void(benchmark::State&)>& run)
{
    benchmark::RegisterBenchmark(name.c_str(), run)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(1)
        ->Repetitions(RUNS);
}

void RegisterRead(const char* name, const QByteArray& bytes)
{
    Register(name, [bytes](auto& state) { Read(state, bytes); });
    TimeGoal(name, GOAL_TO_LOOK);
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    Register("save_10_mb", Save);
    Register("save_10_mb/floor", SaveBare);
    RatioGoal("save_10_mb", 2);
    RegisterRead("read_10_mb", Bytes());
    Register("read_10_mb/floor", [](auto& state) { ReadBare(state, Bytes()); });
    RegisterRead("read_10_mb_windows", Repeated("    value = function(name) * 2\r\n"));
    RegisterRead("read_10_mb_mixed", Repeated("    value = function(name)\r\n  * 2\n"));
    RegisterRead("read_10_mb_odd_bytes", Repeated("    value = function(name, \xe9) * 2\n"));
    RegisterRead("read_10_mb_declared",
        "# coding: latin-1\n" + Repeated("    value = function(name, \xe9) * 2\n"));
    return RunBenchmarks(argc, argv);
}

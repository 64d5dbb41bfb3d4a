// What libFuzzer calls: fuzz_te2 --target=<name> [libFuzzer's own options and folders]

#include "fuzz/Fuzz.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

/// Of the processor, for one input. The fuzzer's own limit counts what other programs take as well.
constexpr double MAXIMUM_SECONDS = 5;

const fuzz::Target* chosen = nullptr;

double ProcessorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void ListTargets()
{
    for (const fuzz::Target& target : fuzz::Targets())
        std::printf("%s\n", target.name);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    const QByteArray option("--target=");
    for (int i = 1; i < *argc; ++i) {
        const QByteArray argument((*argv)[i]);
        if (argument.startsWith(option))
            chosen = fuzz::FindTarget(argument.mid(option.size()));
    }
    if (!chosen) {
        ListTargets();
        std::exit(2);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const double start = ProcessorSeconds();
    fuzz::RunTarget(
        *chosen, QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    const double seconds = ProcessorSeconds() - start;
    fuzz::Expect(seconds < MAXIMUM_SECONDS, QStringLiteral("%1 s are not long").arg(seconds));
    return 0;
}

// What libFuzzer calls: fuzz_te2 --target=<name> [libFuzzer's own options and folders]

#include "fuzz/Fuzz.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>

namespace {

const fuzz::Target* chosen = nullptr;

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
    fuzz::RunTarget(
        *chosen, QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    return 0;
}

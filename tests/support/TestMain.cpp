#include "support/TestMain.h"

#ifdef TE2_SANITIZE_THREADS
#include "support/ToolkitThreads.h"
#endif

#include <QApplication>
#include <QtTest>

#include <cstdio>
#include <utility>
#include <vector>

namespace {

using Entry = std::pair<const char*, TestRegistry::Factory>;

#ifdef TE2_SANITIZE_THREADS
class Application : public QApplication
{
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override
    {
        const ToolkitThreads::EventScope scope;
        return QApplication::notify(receiver, event);
    }
};
#else
using Application = QApplication;
#endif

std::vector<Entry>& Entries()
{
    static std::vector<Entry> entries;
    return entries;
}

} // namespace

int TestRegistry::Add(const char* className, Factory factory)
{
    Entries().emplace_back(className, std::move(factory));
    return static_cast<int>(Entries().size());
}

int TestRegistry::Run(int argc, char** argv)
{
    const bool named = argc > 1 && argv[1][0] != '-';
    const QString wanted = named ? QString::fromLocal8Bit(argv[1]) : QString();
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        if (i != 1 || !named)
            arguments += QString::fromLocal8Bit(argv[i]);
    }
    int failures = 0;
    bool found = false;
    for (const Entry& entry : Entries()) {
        if (named && wanted != entry.first)
            continue;
        found = true;
        failures += QTest::qExec(entry.second().get(), arguments);
    }
    if (!found) {
        std::fprintf(stderr, "No test class named \"%s\".\n", qPrintable(wanted));
        return 2;
    }
    return failures;
}

int main(int argc, char** argv)
{
    Application application(argc, argv);
    return TestRegistry::Run(argc, argv);
}

#include "Probe.h"

#include "Sights.h"

#include <maya/MGlobal.h>

#include <QApplication>
#include <QJsonDocument>
#include <QTimer>
#include <QWidget>

#include <csignal>
#include <malloc.h>
#include <unistd.h>

namespace {

constexpr int LEAK = 1 << 20; ///< bytes
constexpr int LEAK_INTERVAL = 1000; ///< ms
constexpr int HANG = 3600; ///< s

int PythonNumber(const char* expression)
{
    int number = 0;
    MGlobal::executePythonCommand(MString(expression), number);
    return number;
}

/// Pages in memory, from the kernel.
double ResidentBytes()
{
    long size = 0, resident = 0;
    FILE* const file = std::fopen("/proc/self/statm", "r");
    if (!file)
        return 0;
    const bool known = std::fscanf(file, "%ld %ld", &size, &resident) == 2;
    std::fclose(file);
    return known ? double(resident) * double(::sysconf(_SC_PAGESIZE)) : 0;
}

QJsonObject Memory()
{
    PythonNumber("__import__('gc').collect()");
    ::malloc_trim(0);
    int objects = 0;
    for (const QWidget* window : QApplication::topLevelWidgets())
        objects += window->findChildren<QObject*>().size();
    const struct mallinfo2 heap = ::mallinfo2();
    return {{"live", double(heap.uordblks + heap.hblkhd)}, {"resident", ResidentBytes()},
        {"python", PythonNumber("__import__('sys').getallocatedblocks()")},
        {"widgets", QApplication::allWidgets().size()}, {"objects", objects}};
}

QJsonObject Provoke(const QByteArray& fault)
{
    if (fault == "crash")
        ::raise(SIGSEGV);
    if (fault == "hang")
        QTimer::singleShot(0, [] { ::sleep(HANG); });
    if (fault == "warning")
        qWarning("QSoakProbe: a warning was asked for");
    if (fault == "quit")
        QCoreApplication::quit();
    if (fault == "leak") {
        auto* const timer = new QTimer(qApp);
        // Written to, so that no optimiser takes it away.
        QObject::connect(timer, &QTimer::timeout, qApp, [] { new QByteArray(LEAK, 'x'); });
        timer->start(LEAK_INTERVAL);
    }
    return {{"provoked", QString::fromLatin1(fault)}};
}

} // namespace

Probe::Probe(int requests, int answers)
    : m_requests(requests)
    , m_answers(answers)
    , m_notifier(requests, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &Probe::Read);
}

void Probe::Read()
{
    char bytes[256];
    const ssize_t count = ::read(m_requests, bytes, sizeof bytes);
    if (count <= 0) {
        m_notifier.setEnabled(false);
        return;
    }
    m_pending.append(bytes, static_cast<int>(count));
    int end = 0;
    while ((end = m_pending.indexOf('\n')) >= 0) {
        const QByteArray request = m_pending.left(end);
        m_pending.remove(0, end + 1);
        Write(Answer(request));
    }
}

QJsonObject Probe::Answer(const QByteArray& request)
{
    if (request == "look")
        return Sights::Look();
    if (request == "areas")
        return Sights::Areas();
    if (request == "memory")
        return Memory();
    if (request.startsWith("provoke "))
        return Provoke(request.mid(int(qstrlen("provoke "))));
    return {{"unknown", QString::fromLatin1(request)}};
}

void Probe::Write(const QJsonObject& answer) const
{
    const QByteArray line = QJsonDocument(answer).toJson(QJsonDocument::Compact) + '\n';
    for (int written = 0; written < line.size();) {
        const ssize_t count = ::write(
            m_answers, line.constData() + written, static_cast<size_t>(line.size() - written));
        if (count <= 0)
            return;
        written += static_cast<int>(count);
    }
}

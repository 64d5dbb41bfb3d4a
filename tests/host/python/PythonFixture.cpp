#include "host/python/PythonFixture.h"

using namespace host;

namespace {

const char* const KINDS[]
    = {"History", "Display", "Info", "Warning", "Error", "Result", "StackTrace"};

} // namespace

PythonFixture::PythonFixture(RunState state)
    : engine(state, directory.path())
    , mel(engine)
    , python(engine)
{
    engine.output.AddListener([this](const Message& message) {
        const QMutexLocker lock(&m_mutex);
        m_messages += message;
    });
}

QVector<Message> PythonFixture::TakeMessages()
{
    const QMutexLocker lock(&m_mutex);
    return std::exchange(m_messages, {});
}

QStringList PythonFixture::TakeTranscript()
{
    QStringList lines;
    bool joining = false;
    for (const Message& message : TakeMessages()) {
        const bool printed = message.type == MessageType::Display;
        if (printed && joining)
            lines.last() += message.text;
        else
            lines += QString(KINDS[static_cast<int>(message.type)]) + ": " + message.text;
        joining = printed;
    }
    return lines;
}

QStringList PythonFixture::Run(const QString& text)
{
    TakeMessages();
    engine.Execute(Language::Python, text, true);
    QStringList lines = TakeTranscript();
    lines.removeFirst(); // the echo
    return lines;
}

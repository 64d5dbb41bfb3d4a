#include "app/ConsoleOutput.h"

#include "engine/Engine.h"

#include <cstdio>

namespace host {

namespace {

void Print(FILE* stream, const char* label, QString text)
{
    if (!text.endsWith(QLatin1Char('\n')))
        text += QLatin1Char('\n');
    const QByteArray bytes = label + text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
    std::fflush(stream);
}

void PrintMessage(const Message& message)
{
    switch (message.type) {
    case MessageType::Warning: Print(stderr, "Warning: ", message.text); break;
    case MessageType::Error: Print(stderr, "Error: ", message.text); break;
    case MessageType::StackTrace: Print(stderr, "", message.text); break;
    case MessageType::Display: {
        // Python writes a line in pieces.
        const QByteArray bytes = message.text.toUtf8();
        std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
        std::fflush(stdout);
        break;
    }
    case MessageType::History: break;
    case MessageType::Info:
    case MessageType::Result: Print(stdout, "", message.text); break;
    }
}

} // namespace

ConsoleOutput::ConsoleOutput(Engine& engine)
    : m_engine(engine)
    , m_displayId(engine.output.AddDisplay(PrintMessage))
{ }

ConsoleOutput::~ConsoleOutput()
{
    m_engine.output.Remove(m_displayId);
}

} // namespace host

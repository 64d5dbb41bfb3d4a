#include "plugin/OutputFraming.h"

namespace {

OutputText Framed(const QString& pattern, bool isMel, const QString& text)
{
    return {pattern.arg(isMel ? QStringLiteral("//") : QStringLiteral("#"), text)};
}

} // namespace

std::optional<OutputText> OutputFraming::Frame(
    const QString& text, MCommandMessage::MessageType type)
{
    switch (type) {
    case MCommandMessage::kHistory:
    case MCommandMessage::kDisplay:
        m_isMel = text.endsWith(QLatin1String(";\n"));
        return OutputText{text, type == MCommandMessage::kHistory};
    case MCommandMessage::kInfo: return Framed(QStringLiteral("%1 %2 %1\n"), m_isMel, text);
    case MCommandMessage::kWarning:
        return Framed(QStringLiteral("%1 Warning: %2 %1\n"), m_isMel, text);
    case MCommandMessage::kError: return Framed(QStringLiteral("%1 Error: %2 %1\n"), m_isMel, text);
    case MCommandMessage::kResult:
        return Framed(QStringLiteral("%1 Result: %2 %1\n"), m_isMel, text);
    case MCommandMessage::kStackTrace: return std::nullopt;
    }
    // A kind that a later host may add.
    return OutputText{text};
}

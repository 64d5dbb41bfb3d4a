#include "plugin/OutputFraming.h"

namespace {

QString Framed(const QString& pattern, bool isMel, const QString& text)
{
    return pattern.arg(isMel ? QStringLiteral("//") : QStringLiteral("#"), text);
}

} // namespace

std::optional<QString> OutputFraming::Frame(
    const QString& text, MCommandMessage::MessageType type, bool minimalTrace)
{
    switch (type) {
    case MCommandMessage::kHistory:
    case MCommandMessage::kDisplay:
        m_isMel = text.endsWith(QLatin1String(";\n"));
        if (type == MCommandMessage::kHistory && minimalTrace)
            return std::nullopt;
        return text;
    case MCommandMessage::kInfo: return Framed(QStringLiteral("%1 %2 %1\n"), m_isMel, text);
    case MCommandMessage::kWarning:
        return Framed(QStringLiteral("%1 Warning: %2 %1\n"), m_isMel, text);
    case MCommandMessage::kError: return Framed(QStringLiteral("%1 Error: %2 %1\n"), m_isMel, text);
    case MCommandMessage::kResult:
        return Framed(QStringLiteral("%1 Result: %2 %1\n"), m_isMel, text);
    case MCommandMessage::kStackTrace: return std::nullopt;
    }
    // A kind that a later host may add.
    return text;
}

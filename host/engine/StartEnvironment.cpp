#include "engine/StartEnvironment.h"

#include <QFile>
#include <QRegularExpression>

namespace host {

namespace {

constexpr QChar SEPARATOR = QLatin1Char(':');
constexpr int LONGEST = 128 * 1024 - 1; // bytes, with the name: the kernel's own limit

QString Expanded(QString text)
{
    static const QRegularExpression variable(
        QStringLiteral("\\$(?:\\{([A-Za-z_]\\w*)\\}|([A-Za-z_]\\w*))"));
    int from = 0;
    for (;;) {
        const QRegularExpressionMatch match = variable.match(text, from);
        if (!match.hasMatch())
            return text;
        const QString name = match.captured(1) + match.captured(2);
        const QString value = qEnvironmentVariable(name.toUtf8().constData());
        text.replace(match.capturedStart(), match.capturedLength(), value);
        // A value is not looked into again.
        from = match.capturedStart() + value.size();
    }
}

} // namespace

QString TooLongForEnvironment(const QString& name)
{
    return QStringLiteral("The value of \"%1\" is too long.").arg(name);
}

QStringList EnvironmentEntries(const char* name)
{
    return qEnvironmentVariable(name).split(SEPARATOR, Qt::SkipEmptyParts);
}

StartEnvironment::~StartEnvironment()
{
    for (auto it = m_before.cbegin(); it != m_before.cend(); ++it) {
        if (it.value().isNull())
            qunsetenv(it.key().constData());
        else
            qputenv(it.key().constData(), it.value());
    }
}

bool StartEnvironment::Set(const QString& name, const QString& value)
{
    const QByteArray key = name.toUtf8();
    const QByteArray bytes = value.toUtf8();
    if (key.size() + bytes.size() + 1 > LONGEST)
        return false;
    if (!m_before.contains(key)) {
        m_before.insert(key,
            qEnvironmentVariableIsSet(key.constData()) ? "" + qgetenv(key.constData())
                                                       : QByteArray());
    }
    qputenv(key.constData(), bytes);
    return true;
}

bool StartEnvironment::Append(const QString& name, const QString& entry)
{
    QStringList entries = EnvironmentEntries(name.toUtf8().constData());
    if (entries.contains(entry))
        return true;
    entries += entry;
    return Set(name, entries.join(SEPARATOR));
}

QStringList StartEnvironment::ReadFile(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly)) {
        return {QStringLiteral("Cannot read the file \"%1\": %2.").arg(path, file.errorString())};
    }
    QStringList problems;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        const QString problem = ReadLine(lines[i].trimmed());
        if (!problem.isEmpty())
            problems += QStringLiteral("%1, line %2: %3").arg(path).arg(i + 1).arg(problem);
    }
    return problems;
}

QString StartEnvironment::ReadLine(const QString& line)
{
    if (line.isEmpty() || line.startsWith(QLatin1Char('#')) || line.startsWith(QLatin1String("//")))
        return {};
    static const QRegularExpression form(QStringLiteral("^([A-Za-z_]\\w*)\\s*=\\s*(.*)$"));
    const QRegularExpressionMatch match = form.match(line);
    if (!match.hasMatch())
        return QStringLiteral("\"%1\" is not NAME = value.").arg(line);
    const QString name = match.captured(1);
    const bool isSet = IsGiven(name.toUtf8()) || Set(name, Expanded(match.captured(2)));
    return isSet ? QString() : TooLongForEnvironment(name);
}

bool StartEnvironment::IsGiven(const QByteArray& name) const
{
    // A line of the file may add to an earlier one.
    const auto before = m_before.constFind(name);
    return before == m_before.cend() ? qEnvironmentVariableIsSet(name.constData())
                                     : !before->isNull();
}

} // namespace host

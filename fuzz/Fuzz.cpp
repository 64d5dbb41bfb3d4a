#include "fuzz/Fuzz.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace fuzz {

namespace {

/// No part of an input is repeated more often.
constexpr int MAXIMUM_REPEATS = 20000;

std::vector<Target>& MutableTargets()
{
    static std::vector<Target> targets;
    return targets;
}

QByteArray Repeated(const QByteArray& bytes, int length)
{
    const int start = bytes.indexOf(Input::REPEAT);
    const int end = start < 0 ? -1 : bytes.indexOf(Input::REPEAT, start + 1);
    if (end <= start + 1)
        return bytes;
    const QByteArray part = bytes.mid(start + 1, end - start - 1);
    const int count = std::min(MAXIMUM_REPEATS, std::max(1, length / part.size()));
    return bytes.left(start) + part.repeated(count) + bytes.mid(end + 1);
}

/// A high or a low half in the place of whatever was no UTF-8.
QString WithHalves(QString text)
{
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == QChar::ReplacementCharacter)
            text[i] = QChar(i % 2 == 0 ? 0xd83d : 0xde00);
    }
    return text;
}

} // namespace

QByteArray Input::Bytes()
{
    const int separator = m_bytes.indexOf(SEPARATOR, m_position);
    const int end = separator < 0 ? m_bytes.size() : separator;
    const QByteArray bytes = m_bytes.mid(m_position, end - m_position);
    m_position = separator < 0 ? end : end + 1;
    return bytes;
}

QByteArray Input::Rest()
{
    const QByteArray bytes = m_bytes.mid(m_position);
    m_position = m_bytes.size();
    return bytes;
}

QString Input::Text(int repeatedLength)
{
    return WithHalves(QString::fromUtf8(Repeated(Bytes(), repeatedLength)));
}

int Input::Number(int limit)
{
    if (AtEnd())
        return 0;
    return static_cast<unsigned char>(m_bytes.at(m_position++)) % limit;
}

int Input::Place(int length)
{
    const int high = Number(256);
    return (high * 256 + Number(256)) % (length + 1);
}

bool Register(const Target& target)
{
    MutableTargets().push_back(target);
    return true;
}

const std::vector<Target>& Targets()
{
    return MutableTargets();
}

const Target* FindTarget(const QByteArray& name)
{
    const auto found = std::find_if(Targets().begin(), Targets().end(),
        [&name](const Target& target) { return name == target.name; });
    return found == Targets().end() ? nullptr : &*found;
}

void RunTarget(const Target& target, const QByteArray& bytes)
{
    Input input(bytes);
    target.run(input);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Expect(bool holds, const QString& text)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", qUtf8Printable(text));
    std::abort();
}

} // namespace fuzz

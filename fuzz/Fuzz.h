#pragma once

#include <QByteArray>
#include <QString>

#include <type_traits>
#include <vector>

/// What the fuzz targets share. A target is one function that takes an input, has the program read
/// it, and ends the process when a property does not hold. The fuzzer and the replay of kept inputs
/// run the same targets.
namespace fuzz {

/// The bytes of one input, cut into values at each 0x1F. Everything is a value of every type: an
/// input never is invalid.
class Input
{
public:
    explicit Input(const QByteArray& bytes)
        : m_bytes(bytes)
    { }

    static constexpr char SEPARATOR = '\x1f';
    /// In a text: what stands between two of them is repeated, to show what grows too fast.
    static constexpr char REPEAT = '\x1d';

    bool AtEnd() const { return m_position >= m_bytes.size(); }
    /// Up to the next separator, or to the end.
    QByteArray Bytes();
    /// All that is left, separators included.
    QByteArray Rest();
    /// Bytes() as UTF-8. What is none becomes half a surrogate pair, as the clipboard and files may
    /// hold. A repeated part makes the text about `repeatedLength` characters long.
    QString Text(int repeatedLength = 20000);
    /// Of the next byte, 0 at the end: in [0, limit).
    int Number(int limit);
    /// A place in a text of that length, from the next two bytes: in [0, length].
    int Place(int length);
    bool Flag() { return Number(2) == 1; }

private:
    QByteArray m_bytes;
    int m_position = 0;
};

using Run = void (*)(Input& input);

struct Target
{
    const char* name;
    Run run;
};

/// For TE2_FUZZ_TARGET; gives something to initialise with.
bool Register(const Target& target);
const std::vector<Target>& Targets();
/// Null without one of that name.
const Target* FindTarget(const QByteArray& name);
/// Runs it and forgets what it left for the event loop to delete.
void RunTarget(const Target& target, const QByteArray& bytes);

/// Ends the process with that text when the property does not hold.
void Expect(bool holds, const QString& text);
/// The same in loops: the text is made only when it is needed.
template <typename Describe, typename = std::enable_if_t<std::is_invocable_r_v<QString, Describe>>>
void Expect(bool holds, const Describe& describe)
{
    if (!holds)
        Expect(false, QString(describe()));
}

} // namespace fuzz

/// The body of a target follows; `input` is what it reads.
#define TE2_FUZZ_TARGET(name)                                                                      \
    static void name(fuzz::Input& input);                                                          \
    static const bool registered##name = fuzz::Register({#name, name});                            \
    static void name(fuzz::Input& input)

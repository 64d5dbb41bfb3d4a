#pragma once

#include <QStringView>
#include <QVarLengthArray>

class WordSet;

/// The colour roles of a line's characters, laid one over the other: later ones win.
class LineRoles
{
public:
    static constexpr uchar NO_ROLE = 255;

    explicit LineRoles(int length);

    void Fill(int start, int end, int role);
    const QVarLengthArray<uchar, 256>& GetRoles() const { return m_roles; }

private:
    QVarLengthArray<uchar, 256> m_roles;
};

/// A run of characters within a line.
struct LineWord
{
    int start = 0;
    int end = 0;
};

/// Cuts one line into words. The classes are ASCII, as all names that are coloured are.
namespace LineWords {

enum Characters {
    Letters = 1, ///< letters, digits and underscores
    Space = 2,
    Digit = 4,
    FlagSigns = 8, ///< "-" and "$"
    Dot = 16,
};

bool Is(QChar character, int characters);
/// First place at or after `from` that holds none of `characters`.
int SkipAll(QStringView text, int from, int characters);
/// The next maximal run of `characters` at or after `from`; empty at the end of the line.
LineWord Next(QStringView text, int from, int characters);
/// Whether an opening parenthesis follows, white space aside.
bool IsCalled(QStringView text, int end);
/// The words made of `characters` that are in the set.
void FillWords(QStringView text, int characters, const WordSet& words, int role, LineRoles& roles);
/// Numbers, and the dot behind every word, which has always been coloured with them.
void FillNumbers(QStringView text, int role, LineRoles& roles);
/// The white space and the called name behind `keyword`, as in "class Name (".
void FillDefinitions(QStringView text, QLatin1String keyword, int role, LineRoles& roles);

} // namespace LineWords

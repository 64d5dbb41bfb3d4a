#pragma once

#include <QStringList>
#include <QVector>

#include <functional>

/// The colouring rules written down as expressions and applied one after the other: slow, and so
/// plain that it can be checked by reading. What the scanners must agree with, and be faster than.
class NaiveHighlighting
{
public:
    enum Language { Python, Mel };

    /// Takes a part of the line in a colour role; later parts lie over earlier ones.
    using Fill = std::function<void(int start, int length, const QString& role)>;

    explicit NaiveHighlighting(Language language);

    /// Colours a line that follows one ended in `state`; the state that this line ends in.
    int Highlight(const QString& line, int state, const Fill& fill) const;

    /// The colour role of each character of a line that follows one ended in `state`, which becomes
    /// the state that this line ends in.
    QStringList RolesOf(const QString& line, int& state) const;

private:
    struct Rule
    {
        QString pattern;
        QString role;
    };
    struct Region
    {
        QString start;
        QString end;
        int startLength;
        bool escapable;
        bool backslashOnly;
        QString role;
    };

    static void Apply(const QVector<Rule>& rules, const QString& line, const Fill& fill);
    void ApplyWords(const QString& line, const Fill& fill) const;
    int FirstRegion(const QString& line, int from, int& start) const;
    int ApplyRegions(const QString& line, int state, const Fill& fill) const;

    QVector<Rule> m_early;
    QVector<Rule> m_rules;
    QVector<Region> m_regions;
    QStringList m_builtins;
    QStringList m_keywords;
    QStringList m_commands;
    QString m_builtinRole;
    QString m_keywordRole;
    QString m_commandRole;
};

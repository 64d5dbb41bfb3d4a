#include "NaiveHighlighting.h"

#include "plugin/MayaUtil.h"
#include "settings/ColorSettings.h"

#include <QHash>
#include <QRegularExpression>

using Colors = ColorSettings;

namespace {

const QRegularExpression& Compiled(const QString& pattern)
{
    static QHash<QString, QRegularExpression> compiled;
    auto found = compiled.find(pattern);
    if (found == compiled.end())
        found = compiled.insert(pattern, QRegularExpression(pattern));
    return *found;
}

} // namespace

NaiveHighlighting::NaiveHighlighting(Language language)
{
    if (language == Python) {
        m_early = {{"\\b[A-Za-z0-9_]+(?=\\s*\\()", Colors::PYTHON_METHODS}};
        m_rules = {{"\\bself\\b", Colors::PYTHON_SELF_CLS}, {"\\bcls\\b", Colors::PYTHON_SELF_CLS},
            {"\\b[0-9]*[.]?[0-9]*", Colors::PYTHON_NUMBERS},
            {"(?<=\\bclass)\\s+[A-Za-z0-9_]+(?=\\s*\\()", Colors::PYTHON_CLASSES},
            {"(?<=\\bdef)\\s+[A-Za-z0-9_]+(?=\\s*\\()", Colors::PYTHON_METHODS},
            {"^[\\s]*[@](.)*", Colors::PYTHON_DECORATORS}};
        m_regions = {{"#", "$", 1, false, false, Colors::PYTHON_COMMENTS},
            {"\"\"\"", "\"\"\"", 3, true, false, Colors::PYTHON_DOC_STRINGS},
            {"'''", "'''", 3, true, false, Colors::PYTHON_DOC_STRINGS},
            {"\"", "\"", 1, true, true, Colors::PYTHON_STRINGS},
            {"'", "'", 1, true, true, Colors::PYTHON_STRINGS}};
        m_builtins = MayaUtil::PythonBuiltins();
        m_keywords = MayaUtil::PythonKeywords();
        m_commands = MayaUtil::MelCommands();
        m_builtinRole = Colors::PYTHON_BUILTINS;
        m_keywordRole = Colors::PYTHON_KEYWORDS;
        m_commandRole = Colors::PYTHON_MEL_COMMANDS;
        return;
    }
    m_early = {{"(?<![A-Za-z0-9_\\-])[A-Za-z0-9_]+(?=\\s*\\()", Colors::MEL_PROCS}};
    m_rules = {{"\\b[0-9]*[.]?[0-9]*", Colors::MEL_NUMBERS},
        {"(?<![A-Za-z0-9_])(\\$)[A-Za-z0-9_]+", Colors::MEL_VARIABLES},
        {"(?<=\\bproc)\\s+[A-Za-z0-9_]+(?=\\s*\\()", Colors::MEL_PROCS}};
    m_regions = {{"//", "$", 2, false, false, Colors::MEL_COMMENTS},
        {"/\\*", "\\*/", 2, false, false, Colors::MEL_COMMENTS},
        {"\"", "\"", 1, true, true, Colors::MEL_STRINGS}};
    m_keywords = MayaUtil::MelKeywords();
    m_commands
        = MayaUtil::MelCommands() + MayaUtil::MelRunTimeCommands() + MayaUtil::MelProcedures();
    m_keywordRole = Colors::MEL_KEYWORDS;
    m_commandRole = Colors::MEL_COMMANDS;
}

int NaiveHighlighting::Highlight(const QString& line, int state, const Fill& fill) const
{
    Apply(m_early, line, fill);
    ApplyWords(line, fill);
    Apply(m_rules, line, fill);
    return ApplyRegions(line, state, fill);
}

QStringList NaiveHighlighting::RolesOf(const QString& line, int& state) const
{
    QStringList roles;
    for (int i = 0; i < line.size(); ++i)
        roles += QString();
    state = Highlight(line, state, [&roles](int start, int length, const QString& role) {
        for (int i = start; i < start + length; ++i)
            roles[i] = role;
    });
    return roles;
}

void NaiveHighlighting::Apply(const QVector<Rule>& rules, const QString& line, const Fill& fill)
{
    for (const Rule& rule : rules) {
        auto matches = Compiled(rule.pattern).globalMatch(line);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            fill(match.capturedStart(), match.capturedLength(), rule.role);
        }
    }
}

void NaiveHighlighting::ApplyWords(const QString& line, const Fill& fill) const
{
    auto builtins = Compiled("[.a-zA-Z0-9_]+").globalMatch(line);
    while (builtins.hasNext()) {
        const QRegularExpressionMatch word = builtins.next();
        if (m_builtins.contains(word.captured()))
            fill(word.capturedStart(), word.capturedLength(), m_builtinRole);
    }
    auto words = Compiled("[-$a-zA-Z0-9_]+").globalMatch(line);
    while (words.hasNext()) {
        const QRegularExpressionMatch word = words.next();
        if (m_keywords.contains(word.captured()))
            fill(word.capturedStart(), word.capturedLength(), m_keywordRole);
        else if (m_commands.contains(word.captured()))
            fill(word.capturedStart(), word.capturedLength(), m_commandRole);
    }
}

int NaiveHighlighting::FirstRegion(const QString& line, int from, int& start) const
{
    int first = -1;
    for (int i = 0; i < m_regions.size(); ++i) {
        const int found = line.indexOf(Compiled(m_regions.at(i).start), from);
        if (found >= 0 && (first < 0 || found < start)) {
            first = i;
            start = found;
        }
    }
    return first;
}

int NaiveHighlighting::ApplyRegions(const QString& line, int state, const Fill& fill) const
{
    int start = 0;
    int searchFrom = 0;
    int open = state;
    if (open < 0) {
        open = FirstRegion(line, 0, start);
        searchFrom = open < 0 ? 0 : start + m_regions.at(open).startLength;
    }
    while (open >= 0) {
        const Region& region = m_regions.at(open);
        const QRegularExpression& endPattern = Compiled(region.end);
        QRegularExpressionMatch end = endPattern.match(line, searchFrom);
        const QRegularExpression& backslashes = Compiled("\\\\*$");
        while (region.escapable && end.hasMatch()
            && backslashes.match(line.left(end.capturedStart())).capturedLength() % 2 != 0)
            end = endPattern.match(line, end.capturedStart() + 1);
        const int regionEnd = end.hasMatch() ? end.capturedEnd() : line.size();
        fill(start, regionEnd - start, region.role);
        if (!end.hasMatch())
            return !region.backslashOnly || line.endsWith('\\') ? open : -1;
        open = FirstRegion(line, regionEnd, start);
        searchFrom = open < 0 ? 0 : start + m_regions.at(open).startLength;
    }
    return -1;
}

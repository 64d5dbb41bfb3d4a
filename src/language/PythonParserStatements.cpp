#include "language/PythonParser.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr QLatin1Char DOT('.');

bool IsBlank(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\t');
}

int SkipBlanks(const QString& text, int from)
{
    while (from < text.length() && IsBlank(text.at(from)))
        ++from;
    return from;
}

/// A part of the script, with where it stands.
struct Part
{
    QStringView text;
    int position = 0;
};

Part Trimmed(const QString& text, int start, int end)
{
    while (start < end && text.at(start).isSpace())
        ++start;
    while (start < end && text.at(end - 1).isSpace())
        --end;
    return {QStringView(text).mid(start, end - start), start};
}

/// The parts between commas that hold anything.
QVector<Part> SplitAtCommas(const QString& text, int start, int end)
{
    QVector<Part> parts;
    while (start <= end) {
        const auto comma = std::find(text.cbegin() + start, text.cbegin() + end, QLatin1Char(','));
        const int partEnd = int(comma - text.cbegin());
        const Part part = Trimmed(text, start, partEnd);
        if (!part.text.isEmpty())
            parts.append(part);
        start = partEnd + 1;
    }
    return parts;
}

/// "name as alias" as the outline shows it, located at the alias; any other part unchanged.
ParserItem FromImport(const Part& part, const QString& origin)
{
    const bool isOneWord
        = std::none_of(part.text.begin(), part.text.end(), [](QChar c) { return c.isSpace(); });
    const QStringList words
        = isOneWord ? QStringList() : part.text.toString().simplified().split(QLatin1Char(' '));
    const bool isAlias = words.size() == 3 && words.at(1) == QLatin1String("as");
    ParserItem item{{}, ParserItemType::PythonFromImport, part.position, 0};
    item.name.reserve(part.text.size() + origin.size());
    if (isAlias) {
        item.name += words.at(2) + QLatin1String(" = ") + words.at(0);
        item.position += int(part.text.size()) - words.at(2).size();
    } else {
        item.name.append(part.text.data(), int(part.text.size()));
    }
    item.name += origin;
    return item;
}

} // namespace

bool PythonParser::ParseDecorator()
{
    const int end = LineEnd(m_position);
    m_decorators.append(QStringView(m_script).mid(m_position + 1, end - m_position - 1));
    m_position = end;
    Newline(false);
    return true;
}

bool PythonParser::ParseImport()
{
    if (!StartsWith(m_position, QLatin1String("import")))
        return false;
    const int keywordEnd = m_position + 6;
    const int module = SkipBlanks(m_script, keywordEnd);
    if (module == keywordEnd)
        return false;
    const int moduleEnd = NameEnd(module, DOT);
    const int as = SkipBlanks(m_script, moduleEnd);
    const int alias = SkipBlanks(m_script, as + 2);
    if (moduleEnd > module && as > moduleEnd && StartsWith(as, QLatin1String("as"))
        && alias > as + 2)
        return ParseImportAs(module, moduleEnd, alias);
    return ParseImportList(module);
}

bool PythonParser::ParseImportAs(int module, int moduleEnd, int alias)
{
    const int lineEnd = LineEnd(alias);
    const int comment = GetLineFromScript(alias).indexOf(QLatin1Char('#'));
    const Part name = Trimmed(m_script, alias, comment < 0 ? lineEnd : alias + comment);
    if (name.text.isEmpty() || NameEnd(name.position, DOT) < name.position + name.text.length())
        return false;
    AppendItem(QStringLiteral("%1 = %2").arg(
                   name.text.toString(), m_script.mid(module, moduleEnd - module)),
        ParserItemType::PythonImportAs, name.position, GetIndentLevel());
    m_position = lineEnd - 1;
    return true;
}

bool PythonParser::ParseImportList(int start)
{
    const int lineEnd = LineEnd(start);
    const int comment = GetLineFromScript(start).indexOf(QLatin1Char('#'));
    const QVector<Part> parts
        = SplitAtCommas(m_script, start, comment < 0 ? lineEnd : start + comment);
    for (const Part& part : parts) {
        if (NameEnd(part.position, DOT) < part.position + part.text.length())
            return false; // nothing we know; listing half of it would mislead
    }
    for (const Part& part : parts)
        AppendItem(
            part.text.toString(), ParserItemType::PythonImport, part.position, GetIndentLevel());
    if (!parts.isEmpty())
        m_position = lineEnd - 1;
    return !parts.isEmpty();
}

bool PythonParser::ParseFromImport()
{
    if (!StartsWith(m_position, QLatin1String("from")))
        return false;
    const int keywordEnd = m_position + 4;
    const int module = SkipBlanks(m_script, keywordEnd);
    const int moduleEnd = NameEnd(module, DOT);
    const int import = SkipBlanks(m_script, moduleEnd);
    const int names = SkipBlanks(m_script, import + 6);
    if (module == keywordEnd || moduleEnd == module || import == moduleEnd
        || !StartsWith(import, QLatin1String("import")) || names == import + 6)
        return false;
    return AppendFromImports(names, m_script.mid(module, moduleEnd - module));
}

bool PythonParser::AppendFromImports(int start, const QString& module)
{
    const int lineEnd = LineEnd(start);
    const int comment = GetLineFromScript(start).indexOf(QLatin1Char('#'));
    const int end = comment < 0 ? lineEnd : start + comment;
    for (int at = start; at < end;) {
        const QChar character = m_script.at(at);
        const bool isBetween = character == QLatin1Char(' ') || character == QLatin1Char(',');
        const int next = isBetween ? at + 1 : NameEnd(at, DOT);
        if (next == at)
            return false;
        at = next;
    }
    const QVector<Part> parts = SplitAtCommas(m_script, start, end);
    const QString origin = QStringLiteral(" (%1)").arg(module);
    for (const Part& part : parts) {
        m_items.append(FromImport(part, origin));
        m_items.last().level = GetIndentLevel();
    }
    if (!parts.isEmpty())
        m_position = lineEnd - 1;
    return !parts.isEmpty();
}

bool PythonParser::ParseMain()
{
    if (!StartsWith(m_position, QLatin1String("if")))
        return false;
    const int name = SkipBlanks(m_script, m_position + 2);
    if (name == m_position + 2 || !StartsWith(name, QLatin1String("__name__")))
        return false;
    const int equals = SkipBlanks(m_script, name + 8);
    if (equals == name + 8 || !StartsWith(equals, QLatin1String("==")))
        return false;
    const int quote = SkipBlanks(m_script, equals + 2);
    if (quote == equals + 2
        || (!StartsWith(quote, QLatin1String("\"__main__\""))
            && !StartsWith(quote, QLatin1String("'__main__'"))))
        return false;
    AppendItem(
        QStringLiteral("__main__"), ParserItemType::PythonMain, quote + 1, GetStatementLevel());
    m_position = quote + 9;
    return true;
}

bool PythonParser::ParseClass()
{
    if (!StartsWith(m_position, QLatin1String("class")))
        return false;
    const int keywordEnd = m_position + 5;
    const int name = SkipSpaceInLine(keywordEnd);
    if (name == keywordEnd)
        return false;
    return ParseDefinition(name, ParserItemType::PythonClass);
}

bool PythonParser::ParseMethod()
{
    if (!StartsWith(m_position, QLatin1String("def")))
        return false;
    const int keywordEnd = m_position + 3;
    const int name = SkipBlanks(m_script, keywordEnd);
    if (name == keywordEnd)
        return false;
    return ParseDefinition(name, MethodType());
}

bool PythonParser::ParseDefinition(int name, ParserItemType type)
{
    const int nameEnd = NameEnd(name);
    if (nameEnd == name)
        return false;
    AppendItem(m_script.mid(name, nameEnd - name), type, name, GetStatementLevel());
    m_position = nameEnd - 1;
    return true;
}

/// The decorator nearest to the definition decides.
ParserItemType PythonParser::MethodType() const
{
    const int staticIndex = m_decorators.lastIndexOf(u"staticmethod");
    const int classIndex = m_decorators.lastIndexOf(u"classmethod");
    if (staticIndex < 0 && classIndex < 0)
        return ParserItemType::PythonMethod;
    return staticIndex > classIndex ? ParserItemType::PythonStaticMethod
                                    : ParserItemType::PythonClassMethod;
}

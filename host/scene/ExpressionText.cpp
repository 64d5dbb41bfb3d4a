#include "scene/ExpressionText.h"

#include <QRegularExpression>

namespace host::scene {

namespace {

/// What a text is made of; anything else stands for itself.
enum class Kind { Word, Number, Reference, Skipped, Other };

struct Token
{
    Kind kind = Kind::Other;
    QString text;
    int end = 0;
};

class Scanner
{
public:
    /// Half characters are replaced: looking for them again at each token would cost the square of
    /// the length.
    explicit Scanner(const QString& text)
        : m_text(QString::fromUtf8(text.toUtf8()))
    { }

    bool AtEnd() const { return m_position >= m_text.size(); }

    Token Next()
    {
        static const QRegularExpression expression(
            QStringLiteral("(?<skipped>//[^\\n]*|/\\*.*?\\*/"
                           "|\"(?:\\\\.|[^\"\\\\])*\"|`[^`]*`|\\$\\w+(?:\\.[xyz]\\b)?|\\s+)"
                           "|(?<number>\\.?\\d[\\w.]*)"
                           "|(?<reference>\\.[IO]\\[\\d+\\])"
                           "|(?<word>\\|?[A-Za-z_][\\w:|]*(?:\\[\\d+\\])?(?:\\.[A-Za-z_]\\w*(?:\\["
                           "\\d+\\])?)*)"),
            QRegularExpression::DotMatchesEverythingOption);
        const auto match = expression.match(m_text, m_position, QRegularExpression::NormalMatch,
            QRegularExpression::AnchoredMatchOption
                | QRegularExpression::DontCheckSubjectStringMatchOption);
        Token token{Kind::Other, m_text.mid(m_position, 1), m_position + 1};
        if (match.hasMatch()) {
            token.text = match.captured();
            token.end = match.capturedEnd();
            token.kind = match.capturedLength(QStringLiteral("skipped")) > 0 ? Kind::Skipped
                : match.capturedLength(QStringLiteral("number")) > 0         ? Kind::Number
                : match.capturedLength(QStringLiteral("word")) > 0           ? Kind::Word
                                                                             : Kind::Reference;
        }
        m_position = token.end;
        return token;
    }

    /// What follows, without white space before it.
    QString Ahead(int length) const
    {
        int from = m_position;
        while (from < m_text.size() && m_text.at(from).isSpace())
            ++from;
        return m_text.mid(from, length);
    }

    /// Everything up to the end of the statement.
    QString TakeStatement()
    {
        QString taken;
        while (!AtEnd() && m_text.at(m_position) != QLatin1Char(';')
            && m_text.at(m_position) != QLatin1Char('}'))
            taken += Next().text;
        return taken;
    }

private:
    const QString m_text;
    int m_position = 0;
};

bool IsKeyword(const QString& word)
{
    static const QSet<QString> words = {
        QStringLiteral("if"),
        QStringLiteral("else"),
        QStringLiteral("for"),
        QStringLiteral("in"),
        QStringLiteral("while"),
        QStringLiteral("do"),
        QStringLiteral("switch"),
        QStringLiteral("case"),
        QStringLiteral("default"),
        QStringLiteral("break"),
        QStringLiteral("continue"),
        QStringLiteral("return"),
        QStringLiteral("float"),
        QStringLiteral("int"),
        QStringLiteral("string"),
        QStringLiteral("vector"),
        QStringLiteral("matrix"),
        QStringLiteral("global"),
        QStringLiteral("on"),
        QStringLiteral("off"),
        QStringLiteral("true"),
        QStringLiteral("false"),
    };
    return words.contains(word);
}

bool IsSet(const QString& ahead)
{
    static const QRegularExpression assignment(
        QStringLiteral("^(=(?!=)|\\+=|-=|\\*=|/=|%=|\\+\\+|--)"));
    return assignment.match(ahead).hasMatch();
}

/// A word at the beginning of a statement with words of a command behind it.
bool StartsCommand(const QString& word, const QString& ahead)
{
    static const QRegularExpression argument(QStringLiteral("^([A-Za-z_$\"`|]|-[A-Za-z]|\\d)"));
    return !word.contains(QLatin1Char('.')) && !IsKeyword(word) && argument.match(ahead).hasMatch();
}

bool EndsStatement(const Token& token)
{
    static const QString ends = QStringLiteral(";{}):");
    return token.kind == Kind::Other
        ? ends.contains(token.text)
        : token.text == QLatin1String("else") || token.text == QLatin1String("do");
}

class Reader
{
public:
    Reader(const QString& text, const PlugFinder& find, Node* object)
        : m_scanner(text)
        , m_find(find)
        , m_object(object)
    { }

    ExpressionParts Read()
    {
        QVector<QPair<QString, Plug>> pieces;
        bool atStart = true;
        while (!m_scanner.AtEnd()) {
            const Token token = m_scanner.Next();
            Plug plug;
            QString text = token.text;
            if (token.kind == Kind::Word && !IsKeyword(token.text)) {
                if (atStart && StartsCommand(token.text, m_scanner.Ahead(2)))
                    text += m_scanner.TakeStatement();
                else
                    plug = PlugNamed(token.text);
            }
            if (plug.IsValid() && IsSet(m_scanner.Ahead(2)) && !m_parts.outputs.contains(plug))
                m_parts.outputs += plug;
            pieces += qMakePair(text, plug);
            atStart = token.kind == Kind::Skipped ? atStart : EndsStatement(token);
        }
        for (const auto& piece : qAsConst(pieces))
            m_parts.text += piece.second.IsValid() ? Reference(piece.second) : piece.first;
        return m_parts;
    }

private:
    Plug PlugNamed(const QString& word)
    {
        if (word == QLatin1String("time") || word == QLatin1String("frame")) {
            m_parts.usesTime = true;
            return {};
        }
        // A function's name is no attribute.
        if (m_scanner.Ahead(1) == QLatin1String("("))
            return {};
        if (!word.contains(QLatin1Char('.')))
            return m_object ? Plug::Find(*m_object, word) : Plug();
        const QVector<Plug> plugs = m_find(word);
        if (plugs.size() != 1 || !plugs.first().attribute->type->IsNumeric()) {
            if (m_parts.unknown.isEmpty())
                m_parts.unknown = word;
            return {};
        }
        return plugs.first();
    }

    QString Reference(const Plug& plug)
    {
        const int output = m_parts.outputs.indexOf(plug);
        if (output >= 0)
            return QStringLiteral(".O[%1]").arg(output);
        if (!m_parts.inputs.contains(plug))
            m_parts.inputs += plug;
        return QStringLiteral(".I[%1]").arg(m_parts.inputs.indexOf(plug));
    }

    Scanner m_scanner;
    const PlugFinder& m_find;
    Node* m_object;
    ExpressionParts m_parts;
};

QString KeptText(const Scene& scene, const Node& node)
{
    return scene.GetStored(Plug::Find(const_cast<Node&>(node), QStringLiteral("expression")))
        .ToText();
}

/// The text with the references, and the words "time" and "frame", replaced.
QString Replaced(const QString& text, const std::function<QString(const Token&)>& replacement)
{
    Scanner scanner(text);
    QString replaced;
    bool atStart = true;
    while (!scanner.AtEnd()) {
        const Token token = scanner.Next();
        replaced += replacement(token);
        if (token.kind == Kind::Word && atStart && StartsCommand(token.text, scanner.Ahead(2)))
            replaced += scanner.TakeStatement();
        atStart = token.kind == Kind::Skipped ? atStart : EndsStatement(token);
    }
    return replaced;
}

QString NumberOf(const QString& reference)
{
    return reference.mid(3, reference.size() - 4);
}

/// The attribute at the other end of ".I[2]" or ".O[2]"; empty when there is none.
QString ConnectedName(const Scene& scene, const Node& node, const QString& reference)
{
    const bool reads = reference.at(1) == QLatin1Char('I');
    const QString key = QStringLiteral("%1[%2]").arg(
        QLatin1String(reads ? "input" : "output"), NumberOf(reference));
    if (reads) {
        const ConnectionPointer source = node.IncomingTo(key);
        return source ? scene.DisplayName(Plug::FromKey(*source->source, source->sourceKey))
                      : QString();
    }
    for (const auto& [serial, connection] : node.GetOutgoing()) {
        if (connection->sourceKey == key)
            return scene.DisplayName(
                Plug::FromKey(*connection->destination, connection->destinationKey));
    }
    return {};
}

QString Declaration(const QString& name, double value)
{
    return QStringLiteral("float $%1 = %2; ").arg(name, QString::number(value, 'g', 17));
}

} // namespace

ExpressionParts ReadExpression(const QString& text, const PlugFinder& find, Node* object)
{
    return Reader(text, find, object).Read();
}

QString ShownExpression(const Scene& scene, const Node& node)
{
    return Replaced(KeptText(scene, node), [&](const Token& token) {
        if (token.kind != Kind::Reference)
            return token.text;
        const QString name = ConnectedName(scene, node, token.text);
        return name.isEmpty() ? token.text : name;
    });
}

int CountOutputs(const QString& keptText)
{
    int count = 0;
    Replaced(keptText, [&](const Token& token) {
        if (token.kind == Kind::Reference && token.text.at(1) == QLatin1Char('O'))
            count = qMax(count, NumberOf(token.text).toInt() + 1);
        return QString();
    });
    return count;
}

QString ExpressionScript(const Scene& scene, const Node& node, const FloatList& outputs)
{
    QMap<QString, double> values;
    const QString lead = QStringLiteral("expression");
    const double frame = scene.EvaluationTime();
    values.insert(lead + QLatin1String("Frame"), frame);
    values.insert(lead + QLatin1String("Time"), frame / scene.FramesPerSecond());
    QStringList results;
    for (int i = 0; i < outputs.size(); ++i) {
        values.insert(lead + QStringLiteral("O%1").arg(i), outputs[i]);
        results += QStringLiteral("$expressionO%1").arg(i);
    }
    const QString body = Replaced(KeptText(scene, node), [&](const Token& token) {
        if (token.kind == Kind::Word && token.text == QLatin1String("frame"))
            return QStringLiteral("$expressionFrame");
        if (token.kind == Kind::Word && token.text == QLatin1String("time"))
            return QStringLiteral("$expressionTime");
        if (token.kind != Kind::Reference)
            return token.text;
        const QString name = lead + token.text.at(1) + NumberOf(token.text);
        if (!values.contains(name)) {
            const Plug input = Plug::Find(
                const_cast<Node&>(node), QStringLiteral("input[%1]").arg(NumberOf(token.text)));
            values.insert(name, scene.GetValue(input).ToFloat());
        }
        return QString(QLatin1Char('$') + name);
    });
    QString declarations;
    for (auto value = values.begin(); value != values.end(); ++value)
        declarations += Declaration(value.key(), value.value());
    const QString answer = results.isEmpty()
        ? QStringLiteral("float $expressionNone[]; return $expressionNone;")
        : QStringLiteral("return {%1};").arg(results.join(QLatin1String(", ")));
    return QStringLiteral("proc float[] runExpression() { %1\n%2\n;%3 } runExpression();")
        .arg(declarations, body, answer);
}

} // namespace host::scene

#include "language/PythonAutoCompleter.h"

#include "language/PrefixFilterModel.h"
#include "language/PythonForcedImports.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"

#include <QPlainTextEdit>
#include <QStandardItemModel>
#include <QTextBlock>

#include <algorithm>

namespace {

constexpr int ANSWER_LIFETIME = 2000; // ms
constexpr int PATIENCE = 150; // ms

/// Public names first, each kind without regard to case.
bool IsListedBefore(const QString& left, const QString& right)
{
    const bool leftIsPrivate = left.startsWith(QLatin1Char('_'));
    if (leftIsPrivate != right.startsWith(QLatin1Char('_')))
        return !leftIsPrivate;
    const int order = left.compare(right, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : left < right;
}

bool IsPrivate(const QString& name)
{
    return name.startsWith(QLatin1Char('_'));
}

const QString& LanguageIcon()
{
    static const QString name = QStringLiteral("lang_python");
    return name;
}

} // namespace

PythonAutoCompleter::PythonAutoCompleter(QPlainTextEdit* editor)
    : AutoCompleter(editor)
    , m_lineCount(editor->blockCount())
{
    Initialize();
    connect(editor->document(), &QTextDocument::contentsChange, this,
        &PythonAutoCompleter::OnContentsChange);
}

void PythonAutoCompleter::UpdateModel()
{
    m_itemModel = new QStandardItemModel(this);
    auto* filterModel = new PrefixFilterModel(this);
    filterModel->setSourceModel(m_itemModel);
    SetFilterModel(filterModel);
}

bool PythonAutoCompleter::ValidateAndSetPrefix(const QTextCursor& cursor)
{
    m_request = PythonCompletion::RequestAt(cursor.block().text().left(cursor.positionInBlock()));
    SetPrefix(m_request.prefix);
    return m_request.isValid;
}

void PythonAutoCompleter::Update(
    const QTextCursor& cursor, const QRect& cursorRect, bool applyIfSingle)
{
    const bool isSame = isVisible() && m_shownObject == m_request.object;
    const bool isNothingTyped = m_request.prefix.isEmpty() && m_request.object.isEmpty();
    if (!isSame)
        hide();
    if ((isNothingTyped && !applyIfSingle) || (!isSame && !FetchNames(cursor, applyIfSingle))) {
        hide();
        return;
    }
    m_shownObject = m_request.object;
    AutoCompleter::Update(cursor, cursorRect, applyIfSingle);
}

/// What is typed into the line that was asked for changes no answer.
void PythonAutoCompleter::OnContentsChange(int position, int /*removed*/, int added)
{
    const QTextDocument& document = *GetEditor().document();
    const bool isWithinLine = document.blockCount() == m_lineCount
        && document.findBlock(position).blockNumber() == m_answersLine
        && document.findBlock(position + added).blockNumber() == m_answersLine;
    m_lineCount = document.blockCount();
    if (!isWithinLine)
        m_answers.clear();
}

void PythonAutoCompleter::DropStaleAnswers(const QTextCursor& cursor)
{
    if (m_answersLine == cursor.blockNumber() && m_answersAge.isValid()
        && !m_answersAge.hasExpired(ANSWER_LIFETIME))
        return;
    m_answers.clear();
    m_answersLine = cursor.blockNumber();
    m_answersAge.start();
}

bool PythonAutoCompleter::FetchNames(const QTextCursor& cursor, bool isExplicit)
{
    const QString& object = m_request.object;
    if (!isExplicit && m_slowObjects.contains(object))
        return false;
    DropStaleAnswers(cursor);
    const QString key = m_request.isImport ? QLatin1String("from ") + object : object;
    if (!m_answers.contains(key)) {
        const bool wasQuick = Ask(key, cursor);
        if (!wasQuick)
            m_slowObjects.insert(object);
        // Nobody waits for what nobody asked for.
        if (!wasQuick && !isExplicit)
            return false;
    }
    ShowAnswer(m_answers.value(key), cursor);
    return true;
}

/// False when it took too long.
bool PythonAutoCompleter::Ask(const QString& key, const QTextCursor& cursor)
{
    const QString& object = m_request.object;
    QStringList imports = PythonForcedImports::Statements();
    if (m_request.isImport)
        imports.append(QLatin1String("import ") + object);
    QElapsedTimer clock;
    clock.start();
    const QString text = GetEditor().toPlainText();
    const QString source = PythonCompletion::SourceFor(text, cursor.blockNumber(), imports);
    Answer answer;
    MayaUtil::PythonAttributesFromSource(
        PythonCompletion::EscapedForPython(source), object, answer.names, false);
    if (object.isEmpty())
        answer.words = PythonCompletion::NamesIn(text, cursor.blockNumber());
    m_answers.insert(key, answer);
    return !clock.hasExpired(PATIENCE);
}

PythonAutoCompleter::Names PythonAutoCompleter::NamesInSource(
    const Answer& answer, const QTextCursor& cursor) const
{
    const QStringList keywords = MayaUtil::PythonKeywords();
    const QStringList builtins = MayaUtil::PythonBuiltins();
    QHash<QString, QString> found = answer.words;
    // The words of the line itself come and go with every key.
    QString line = cursor.block().text();
    line.remove(cursor.positionInBlock() - m_request.prefix.size(), m_request.prefix.size());
    const QHash<QString, QString> nearby = PythonCompletion::NamesIn(line, -1);
    for (auto name = nearby.cbegin(); name != nearby.cend(); ++name)
        found.insert(name.key(), found.value(name.key()));
    QSet<QString> language(keywords.cbegin(), keywords.cend());
    language.unite(QSet<QString>(builtins.cbegin(), builtins.cend()));
    QSet<QString> own(answer.names.cbegin(), answer.names.cend());
    for (auto name = found.cbegin(); name != found.cend(); ++name) {
        if (!language.contains(name.key()) || !name->isEmpty())
            own.insert(name.key());
    }
    QStringList sorted = own.values();
    std::sort(sorted.begin(), sorted.end(), IsListedBefore);
    QStringList ofLanguage = Settings::pythonIncludeKeywords ? keywords : QStringList();
    if (Settings::pythonIncludeBuiltins)
        ofLanguage += builtins;
    ofLanguage.removeDuplicates();
    std::sort(ofLanguage.begin(), ofLanguage.end(), IsListedBefore);

    Names names;
    for (const QString& name : qAsConst(sorted))
        names.append({name, found.value(name).isEmpty() ? LanguageIcon() : found.value(name)});
    for (const QString& name : qAsConst(ofLanguage)) {
        if (!name.isEmpty() && !own.contains(name))
            names.append({name, LanguageIcon()});
    }
    std::stable_partition(
        names.begin(), names.end(), [](const Name& name) { return !IsPrivate(name.text); });
    return names;
}

PythonAutoCompleter::Names PythonAutoCompleter::AttributeNames(const QStringList& attributes)
{
    static const QString FUNCTION = QStringLiteral("python_method");
    const QStringList commands = MayaUtil::MelCommands();
    const QSet<QString> functions(commands.cbegin(), commands.cend());
    Names names;
    for (const QString& name : attributes)
        names.append({name, functions.contains(name) ? FUNCTION : LanguageIcon()});
    return names;
}

void PythonAutoCompleter::ShowAnswer(const Answer& answer, const QTextCursor& cursor)
{
    const Names names
        = m_request.object.isEmpty() ? NamesInSource(answer, cursor) : AttributeNames(answer.names);
    m_itemModel->clear();
    QList<QStandardItem*> rows;
    for (const Name& name : names)
        rows.append(MakeRow(name.text, name.iconName));
    m_itemModel->appendColumn(rows);
}

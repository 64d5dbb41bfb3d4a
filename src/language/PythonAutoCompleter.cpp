#include "language/PythonAutoCompleter.h"

#include "language/PrefixFilterModel.h"
#include "language/PythonForcedImports.h"
#include "language/PythonSource.h"
#include "language/PythonSourceLoader.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"

#include <QPlainTextEdit>
#include <QStandardItemModel>
#include <QTextBlock>

#include <algorithm>
#include <iterator>
#include <limits>

namespace {

constexpr int ANSWER_LIFETIME = 2000; // ms
constexpr int PATIENCE = 150; // ms
/// Characters that the host would not read within the patience.
constexpr int LONGEST_SOURCE = 150000;
constexpr int MAXIMUM_WORDS = 400; ///< of a text that are listed at a time

bool IsPrivate(const QString& name)
{
    return name.startsWith(QLatin1Char('_'));
}

bool IsListedBefore(const QString& left, const QString& right)
{
    return PythonSource::IsListedBefore(left, right);
}

/// Empty where it is not known what the name stands for.
QString IconOf(PythonNameKind kind)
{
    switch (kind) {
    case PythonNameKind::Function: return QStringLiteral("python_method");
    case PythonNameKind::Class: return QStringLiteral("python_class");
    case PythonNameKind::Import: return QStringLiteral("python_import");
    case PythonNameKind::Variable: return QStringLiteral("python_variable");
    case PythonNameKind::Unknown: break;
    }
    return {};
}

const QString& LanguageIcon()
{
    static const QString name = QStringLiteral("lang_python");
    return name;
}

} // namespace

PythonAutoCompleter::PythonAutoCompleter(QPlainTextEdit* editor)
    : AutoCompleter(editor)
    , m_loader(new PythonSourceLoader(editor->document(), this))
{
    Initialize();
    connect(m_loader, &PythonSourceLoader::Loaded, this, &PythonAutoCompleter::OnSourceLoaded);
    connect(m_loader, &PythonSourceLoader::Changed, this, [this] {
        m_answers.clear();
        m_source.reset(); // as large as the text
        m_isAwaited = false;
    });
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
    m_isAwaited = false;
    const bool isSame = isVisible() && m_source && m_shownObject == m_request.object;
    const bool isNothingTyped = m_request.prefix.isEmpty() && m_request.object.isEmpty();
    if (!isSame)
        hide();
    if ((isNothingTyped && !applyIfSingle) || (!isSame && !FetchNames(cursor, applyIfSingle))) {
        hide();
        return;
    }
    const bool isListed = isSame && !m_isListCut
        && m_request.prefix.startsWith(m_listedPrefix, Qt::CaseInsensitive);
    if (!isListed)
        ListNames(cursor);
    AutoCompleter::Update(cursor, cursorRect, applyIfSingle);
}

void PythonAutoCompleter::OnSourceLoaded()
{
    const bool isAwaited = m_isAwaited;
    m_isAwaited = false;
    // Whoever went on without a word does not want the list any more.
    if (isAwaited && GetEditor().textCursor().position() == m_awaitedPosition)
        Q_EMIT NamesArrived(m_awaitedExplicitly);
}

void PythonAutoCompleter::DropStaleAnswers(int line)
{
    if (m_answersLine == line && m_answersAge.isValid()
        && !m_answersAge.hasExpired(ANSWER_LIFETIME))
        return;
    m_answers.clear();
    m_answersLine = line;
    m_answersAge.start();
}

bool PythonAutoCompleter::FetchNames(const QTextCursor& cursor, bool isExplicit)
{
    const QString& object = m_request.object;
    const bool asksHost = isExplicit || !m_slowObjects.contains(object);
    if (!asksHost && !object.isEmpty())
        return false;
    const Source source = m_loader->Fetch(cursor.blockNumber());
    if (!source) {
        m_isAwaited = true;
        m_awaitedExplicitly = isExplicit;
        m_awaitedPosition = cursor.position();
        return false;
    }
    DropStaleAnswers(cursor.blockNumber());
    m_source = source;
    const QString key = m_request.isImport ? QLatin1String("from ") + object : object;
    if (asksHost && !m_answers.contains(key)) {
        const bool wasQuick = Ask(key, cursor.block().text(), isExplicit);
        if (!wasQuick)
            m_slowObjects.insert(object);
        // Nobody waits for what nobody asked for.
        if (!wasQuick && !isExplicit && !object.isEmpty())
            return false;
    }
    m_shownObject = object;
    m_shownNames = m_answers.value(key);
    return true;
}

/// False when it took too long, or would have.
bool PythonAutoCompleter::Ask(const QString& key, const QString& lineText, bool isExplicit)
{
    const QString& object = m_request.object;
    QStringList imports = PythonForcedImports::Statements();
    if (m_request.isImport)
        imports.append(QLatin1String("import ") + object);
    const QString source = PythonCompletion::SourceFor(*m_source, lineText, object, imports,
        isExplicit ? std::numeric_limits<int>::max() : LONGEST_SOURCE);
    if (source.isEmpty())
        return false;
    QElapsedTimer clock;
    clock.start();
    QStringList names;
    MayaUtil::PythonAttributesFromSource(
        PythonCompletion::EscapedForPython(source), object, names, false);
    m_answers.insert(key, names);
    return !clock.hasExpired(PATIENCE);
}

/// Those that begin with the prefix: a long text has more names than a list can show.
void PythonAutoCompleter::AppendWords(
    const PythonSource& source, const QSet<QString>& language, Names& names)
{
    const QVector<PythonSource::Name>& words = source.GetWords();
    const QStringView prefix(m_request.prefix);
    const auto first = std::lower_bound(words.cbegin(), words.cend(), prefix,
        [](const PythonSource::Name& word, QStringView wanted) {
            const bool isPrivate = word.text.startsWith(QLatin1Char('_'));
            if (isPrivate != wanted.startsWith(QLatin1Char('_')))
                return !isPrivate && !wanted.isEmpty();
            return word.text.compare(wanted, Qt::CaseInsensitive) < 0;
        });
    // First what matches the case, which comes first in the list, too.
    int count = 0;
    for (const bool isExact : {true, false}) {
        for (auto word = first; word != words.cend(); ++word) {
            if (!word->text.startsWith(prefix, Qt::CaseInsensitive))
                break;
            if (word->text.startsWith(prefix) != isExact)
                continue;
            const QString icon = IconOf(word->kind);
            if (icon.isEmpty() && language.contains(word->text.toString()))
                continue;
            if (++count > MAXIMUM_WORDS) {
                m_isListCut = true;
                return;
            }
            names.append({word->text.toString(), icon});
        }
    }
}

PythonAutoCompleter::Names PythonAutoCompleter::NamesInSource(const QTextCursor& cursor)
{
    const QStringList keywords = MayaUtil::PythonKeywords();
    const QStringList builtins = MayaUtil::PythonBuiltins();
    QSet<QString> language(keywords.cbegin(), keywords.cend());
    language.unite(QSet<QString>(builtins.cbegin(), builtins.cend()));
    Names found;
    AppendWords(*m_source, language, found);
    // The words of the line itself come and go with every key.
    QString line = cursor.block().text();
    line.remove(cursor.positionInBlock() - m_request.prefix.size(), m_request.prefix.size());
    AppendWords(PythonSource(line), language, found);

    const auto matches = [this](const QString& name) {
        return !name.isEmpty() && name.startsWith(m_request.prefix, Qt::CaseInsensitive);
    };
    QHash<QString, QString> own; // with icons
    for (const QString& name : qAsConst(m_shownNames)) {
        if (matches(name))
            own.insert(name, LanguageIcon());
    }
    for (const Name& name : qAsConst(found)) {
        if (!own.contains(name.text) || !name.iconName.isEmpty())
            own.insert(name.text, name.iconName.isEmpty() ? LanguageIcon() : name.iconName);
    }
    QStringList sorted = own.keys();
    std::sort(sorted.begin(), sorted.end(), IsListedBefore);
    QStringList ofLanguage;
    if (Settings::pythonIncludeKeywords)
        std::copy_if(keywords.cbegin(), keywords.cend(), std::back_inserter(ofLanguage), matches);
    if (Settings::pythonIncludeBuiltins)
        std::copy_if(builtins.cbegin(), builtins.cend(), std::back_inserter(ofLanguage), matches);
    ofLanguage.removeDuplicates();
    std::sort(ofLanguage.begin(), ofLanguage.end(), IsListedBefore);

    Names names;
    for (const QString& name : qAsConst(sorted))
        names.append({name, own.value(name)});
    for (const QString& name : qAsConst(ofLanguage)) {
        if (!own.contains(name))
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

void PythonAutoCompleter::ListNames(const QTextCursor& cursor)
{
    m_isListCut = false;
    const bool isName = m_shownObject.isEmpty();
    m_listedPrefix = isName ? m_request.prefix : QString();
    const Names names = isName ? NamesInSource(cursor) : AttributeNames(m_shownNames);
    m_itemModel->clear();
    QList<QStandardItem*> rows;
    for (const Name& name : names)
        rows.append(MakeRow(name.text, name.iconName));
    m_itemModel->appendColumn(rows);
}

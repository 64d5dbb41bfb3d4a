#include "engine/Modules.h"

#include "engine/Paths.h"
#include "engine/StartEnvironment.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLocale>
#include <QRegularExpression>

#include <algorithm>

namespace host {

namespace {

struct SearchPath
{
    const char* folder; ///< its key, and the folder that joins when the block does not say another
    const char* variables[2];
    const char* suffix;
};

constexpr SearchPath SEARCH_PATHS[] = {
    {"plug-ins", {"MAYA_PLUG_IN_PATH", nullptr}, ""},
    {"scripts", {"MAYA_SCRIPT_PATH", "PYTHONPATH"}, ""},
    {"icons", {"XBMLANGPATH", nullptr}, "/%B"},
    {"presets", {"MAYA_PRESET_PATH", nullptr}, ""},
};

/// A condition of a block's first line, and what this host answers.
struct Condition
{
    const char* name;
    QString (*value)();
};

const Condition CONDITIONS[] = {
    {"MAYAVERSION", [] { return QString(QLatin1String(RELEASE)); }},
    {"PLATFORM", [] { return QStringLiteral("linux"); }},
    {"LOCALE", [] { return QLocale::system().name(); }},
};

/// The first line of a block, taken apart.
struct Heading
{
    bool fits = false;
    Module module;
    QString problem; ///< empty when the line is whole
};

/// The next word, which is taken away.
QString TakeWord(QString& text)
{
    const QString word = text.section(QRegularExpression(QStringLiteral("\\s+")), 0, 0);
    text = text.mid(word.size()).trimmed();
    return word;
}

/// True for a condition that this host meets; `problem` when nobody knows it.
bool Meets(const QString& condition, QString& problem)
{
    const QString name = condition.section(QLatin1Char(':'), 0, 0);
    for (const Condition& known : CONDITIONS) {
        if (name == QLatin1String(known.name))
            return condition.mid(name.size() + 1) == known.value();
    }
    problem = QStringLiteral("\"%1\" is not a known condition.").arg(name);
    return false;
}

Heading ReadHeading(const QString& line, const QDir& directory)
{
    static const QRegularExpression condition(QStringLiteral("^[A-Z]+:\\S*(\\s|$)"));
    Heading heading;
    heading.fits = line.startsWith(QLatin1Char('+'));
    QString rest = line.mid(1).trimmed();
    while (condition.match(rest).hasMatch())
        heading.fits = Meets(TakeWord(rest), heading.problem) && heading.fits;
    heading.module.name = TakeWord(rest);
    heading.module.version = TakeWord(rest);
    if (rest.isEmpty() && heading.problem.isEmpty())
        heading.problem = QStringLiteral("A module needs a name, a version and a folder.");
    heading.module.folder = QDir::cleanPath(directory.absoluteFilePath(rest));
    return heading;
}

QString NoFolder(const QString& folder)
{
    return QStringLiteral("There is no folder \"%1\".").arg(folder);
}

/// Reads one file; what its blocks say goes into the environment.
class Reader
{
public:
    Reader(const QString& path, std::vector<Module>& modules, StartEnvironment& environment)
        : m_path(path)
        , m_modules(modules)
        , m_environment(environment)
    { }

    QStringList Read();

private:
    void ReadLine(const QString& line);
    void BeginBlock(const QString& line);
    void EndBlock();
    QString ReadFolder(const QRegularExpressionMatch& match);
    QString ReadVariable(const QRegularExpressionMatch& match);
    void Join(const SearchPath& path, const QString& folder, bool withSubfolders);
    QString InModule(const QString& folder) const;
    void Complain(const QString& problem);

    enum class Block { None, PassedOver, Read };

    const QString m_path;
    std::vector<Module>& m_modules;
    StartEnvironment& m_environment;
    QStringList m_problems;
    int m_line = 0;
    Block m_block = Block::None;
    QStringList m_stated; ///< folders that the block says itself
};

QStringList Reader::Read()
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {QStringLiteral("Cannot read the module file \"%1\": %2.")
                    .arg(m_path, file.errorString())};
    }
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        ++m_line;
        ReadLine(line.trimmed());
    }
    EndBlock();
    return m_problems;
}

void Reader::ReadLine(const QString& line)
{
    if (line.startsWith(QLatin1Char('#')) || line.startsWith(QLatin1String("//")))
        return;
    if (line.isEmpty())
        return EndBlock();
    if (line.startsWith(QLatin1Char('+')) || line.startsWith(QLatin1Char('-')))
        return BeginBlock(line);
    if (m_block == Block::PassedOver)
        return;
    if (m_block == Block::None)
        return Complain(QStringLiteral("\"%1\" belongs to no module.").arg(line));
    static const QRegularExpression folder(
        QStringLiteral("^(\\[r\\])?\\s*(plug-ins|scripts|icons|presets)\\s*:(?!=)\\s*(.*)$"));
    static const QRegularExpression variable(
        QStringLiteral("^([A-Za-z_]\\w*)\\s*(\\+?)(:?)=\\s*(.*)$"));
    QRegularExpressionMatch match = folder.match(line);
    if (match.hasMatch())
        return Complain(ReadFolder(match));
    match = variable.match(line);
    if (match.hasMatch())
        return Complain(ReadVariable(match));
    Complain(QStringLiteral("\"%1\" is neither a folder nor a variable.").arg(line));
}

void Reader::BeginBlock(const QString& line)
{
    EndBlock();
    m_block = Block::PassedOver;
    Heading heading = ReadHeading(line, QFileInfo(m_path).dir());
    if (!heading.problem.isEmpty())
        return Complain(heading.problem);
    const auto named = [&](const Module& other) { return other.name == heading.module.name; };
    if (!heading.fits || std::any_of(m_modules.cbegin(), m_modules.cend(), named))
        return;
    if (!QFileInfo(heading.module.folder).isDir())
        return Complain(NoFolder(heading.module.folder));
    heading.module.file = m_path;
    m_modules.push_back(heading.module);
    m_stated.clear();
    m_block = Block::Read;
}

void Reader::EndBlock()
{
    if (m_block == Block::Read) {
        for (const SearchPath& path : SEARCH_PATHS) {
            const QString folder = QLatin1String(path.folder);
            if (!m_stated.contains(folder) && QFileInfo(InModule(folder)).isDir())
                Join(path, InModule(folder), false);
        }
    }
    m_block = Block::None;
}

QString Reader::ReadFolder(const QRegularExpressionMatch& match)
{
    const QString folder = InModule(match.captured(3));
    m_stated += match.captured(2);
    if (!QFileInfo(folder).isDir())
        return NoFolder(folder);
    const auto path = std::find_if(std::begin(SEARCH_PATHS), std::end(SEARCH_PATHS),
        [&](const SearchPath& row) { return match.captured(2) == QLatin1String(row.folder); });
    Join(*path, folder, match.capturedLength(1) > 0);
    return {};
}

QString Reader::ReadVariable(const QRegularExpressionMatch& match)
{
    const bool isPath = match.capturedLength(3) > 0;
    const QString value = isPath ? InModule(match.captured(4)) : match.captured(4);
    const QString name = match.captured(1);
    const bool isSet = match.capturedLength(2) > 0 ? m_environment.Append(name, value)
                                                   : m_environment.Set(name, value);
    return isSet ? QString() : TooLongForEnvironment(name);
}

void Reader::Join(const SearchPath& path, const QString& folder, bool withSubfolders)
{
    QStringList folders{folder};
    if (withSubfolders) {
        QDirIterator walk(folder, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (walk.hasNext())
            folders += walk.next();
        std::sort(folders.begin(), folders.end());
    }
    for (const QString& joined : qAsConst(folders)) {
        for (const char* variable : path.variables) {
            const QString entry = joined + QLatin1String(path.suffix);
            if (variable && !m_environment.Append(QLatin1String(variable), entry))
                return Complain(TooLongForEnvironment(QLatin1String(variable)));
        }
    }
}

QString Reader::InModule(const QString& folder) const
{
    return QDir::cleanPath(QDir(m_modules.back().folder).absoluteFilePath(folder));
}

void Reader::Complain(const QString& problem)
{
    if (!problem.isEmpty())
        m_problems += QStringLiteral("%1, line %2: %3").arg(m_path).arg(m_line).arg(problem);
}

} // namespace

QStringList Modules::Read(const QStringList& folders, StartEnvironment& environment)
{
    QStringList problems;
    for (const QString& folder : folders) {
        const QFileInfoList files
            = QDir(folder).entryInfoList({QStringLiteral("*.mod")}, QDir::Files, QDir::Name);
        for (const QFileInfo& file : files)
            problems += Reader(file.absoluteFilePath(), m_modules, environment).Read();
    }
    return problems;
}

const Module* Modules::Find(const QString& name) const
{
    const auto found = std::find_if(m_modules.cbegin(), m_modules.cend(),
        [&](const Module& module) { return module.name == name; });
    return found == m_modules.cend() ? nullptr : &*found;
}

} // namespace host

#include "ui/commands/Tables.h"
#include "ui/window/HostIcons.h"

#include <QFileInfo>
#include <QFont>
#include <QFontDatabase>

namespace host::ui {

bool TakesItems(const Element& element)
{
    return element.GetMenu() || element.GetType() == QLatin1String("optionMenu");
}

QIcon FindIcon(const QString& name)
{
    if (name.isEmpty())
        return {};
    QString base = name;
    if (base.endsWith(QLatin1String(".png")))
        base.chop(4);
    const QIcon own = HostIcon(base);
    if (!own.isNull())
        return own;
    QStringList candidates{name, QLatin1String(":/") + name};
    const QStringList folders
        = qEnvironmentVariable("XBMLANGPATH").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    for (QString folder : folders) {
        folder.remove(QLatin1String("/%B"));
        candidates += folder + QLatin1Char('/') + name;
    }
    for (const QString& candidate : qAsConst(candidates)) {
        if (QFileInfo(candidate).isFile())
            return QIcon(candidate);
    }
    return {};
}

Qt::Alignment AlignmentFromWord(const QString& word, Qt::Alignment fallback)
{
    if (word == QLatin1String("left"))
        return Qt::AlignLeft | Qt::AlignVCenter;
    if (word == QLatin1String("center"))
        return Qt::AlignCenter;
    if (word == QLatin1String("right"))
        return Qt::AlignRight | Qt::AlignVCenter;
    return fallback;
}

QFont FixedFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setFamily(QStringLiteral("Liberation Mono"));
    font.setStyleHint(QFont::Monospace);
    return font;
}

QFont FontFromWord(const QString& word, const QFont& plain)
{
    QFont font = word.contains(QLatin1String("ixedWidth")) ? FixedFont() : plain;
    font.setBold(word.startsWith(QLatin1String("bold")));
    font.setItalic(word.startsWith(QLatin1String("oblique")));
    if (word.startsWith(QLatin1String("small")) && font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * 0.85);
    return font;
}

namespace {

const QString SOURCE_TYPE = QStringLiteral("sourceType");
const QString COMMAND = QStringLiteral("command");

Language LanguageFromWord(const QString& word)
{
    return word == QLatin1String("python") ? Language::Python : Language::Mel;
}

} // namespace

void SetSourceType(Edit& edit)
{
    edit.element.values.insert(SOURCE_TYPE, edit.Text());
    Script script = edit.element.GetCallback(COMMAND);
    script.language = LanguageFromWord(edit.Text());
    if (!script.callable)
        edit.element.SetCallback(COMMAND, script);
}

Value GetSourceType(Element& element)
{
    const bool python = element.GetCallback(COMMAND).language == Language::Python;
    return python ? QStringLiteral("python") : QStringLiteral("mel");
}

void SetCommand(Edit& edit)
{
    Script script = edit.call.GetScript(edit.flag);
    const auto type = edit.element.values.constFind(SOURCE_TYPE);
    if (!script.callable && type != edit.element.values.constEnd())
        script.language = LanguageFromWord(type->ToText());
    edit.element.SetCallback(QString::fromLatin1(edit.flag), script);
}

} // namespace host::ui

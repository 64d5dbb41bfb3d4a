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

QFont FontFromWord(const QString& word, const QFont& plain)
{
    QFont font = word.contains(QLatin1String("ixedWidth"))
        ? QFontDatabase::systemFont(QFontDatabase::FixedFont)
        : plain;
    font.setBold(word.startsWith(QLatin1String("bold")));
    font.setItalic(word.startsWith(QLatin1String("oblique")));
    if (word.startsWith(QLatin1String("small")) && font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * 0.85);
    return font;
}

} // namespace host::ui

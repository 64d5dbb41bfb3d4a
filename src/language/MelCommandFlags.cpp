#include "language/MelCommandFlags.h"

#include "plugin/MayaUtil.h"

#include <QHash>

#include <algorithm>

namespace {

QString WithDash(const QString& name)
{
    return name.isEmpty() || name.startsWith(QLatin1Char('-')) ? name : QLatin1Char('-') + name;
}

QString Detail(const QString& otherName, const QString& type)
{
    return otherName.isEmpty() || type.isEmpty() ? otherName + type
                                                 : otherName + QLatin1String("  ") + type;
}

QVector<MelCommandFlags::Name> NamesOf(const QStringList& triples)
{
    QVector<MelCommandFlags::Name> names;
    for (int i = 0; i + 2 < triples.size(); i += 3) {
        const QString shortName = WithDash(triples[i]);
        const QString longName = WithDash(triples[i + 1]);
        const QString& type = triples[i + 2];
        if (!shortName.isEmpty() && shortName != longName)
            names.append({shortName, Detail(longName, type)});
        if (!longName.isEmpty())
            names.append({longName, Detail(shortName == longName ? QString() : shortName, type)});
    }
    const auto isBefore
        = [](const MelCommandFlags::Name& left, const MelCommandFlags::Name& right) {
              const int order = left.text.compare(right.text, Qt::CaseInsensitive);
              return order != 0 ? order < 0 : left.text < right.text;
          };
    std::sort(names.begin(), names.end(), isBefore);
    return names;
}

} // namespace

const QVector<MelCommandFlags::Name>& MelCommandFlags::Of(const QString& command)
{
    static QHash<QString, QVector<Name>> known;
    auto found = known.find(command);
    if (found == known.end())
        found = known.insert(command, NamesOf(MayaUtil::CommandFlags(command)));
    return *found;
}

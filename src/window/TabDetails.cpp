#include "window/TabDetails.h"

#include "settings/Settings.h"

#include <QStringList>

#include <algorithm>
#include <climits>

namespace {

constexpr int FIELDS = 6;
constexpr int PATH_FIELD = 2;
constexpr int FIELDS_BEHIND_PATH = 3;
const QChar SEPARATOR = QLatin1Char(';');

bool ParseNumber(const QString& field, int maximum, int& number)
{
    bool isNumber = false;
    number = field.toInt(&isNumber);
    return isNumber && number >= 0 && number <= maximum;
}

bool AreNumbers(const QStringList& fields)
{
    int number = 0;
    return std::all_of(fields.begin(), fields.end(),
        [&number](const QString& field) { return ParseNumber(field, INT_MAX, number); });
}

/// A file's path may hold separators itself: then the numbers at the end tell where it stops.
QStringList JoinPath(QStringList fields)
{
    const int behind = fields.size() - FIELDS_BEHIND_PATH;
    if (AreNumbers(fields.mid(PATH_FIELD + 1, FIELDS_BEHIND_PATH))
        || !AreNumbers(fields.mid(behind)))
        return fields;
    const QString path = fields.mid(PATH_FIELD, behind - PATH_FIELD).join(SEPARATOR);
    return fields.mid(0, PATH_FIELD) + QStringList(path) + fields.mid(behind);
}

} // namespace

QString FormatTabDetails(const TabDetails& details)
{
    const QString record
        = QStringLiteral("%1;%2;%3;%4;%5;%6")
              .arg(QString::number(details.group), QString::number(static_cast<int>(details.type)),
                  details.path, QString::number(details.isCurrent),
                  QString::number(details.cursorPosition), QString::number(details.scrollValue));
    return details.type == CodeEditorType::Buffer
        ? record + QStringLiteral(";%1").arg(details.label)
        : record;
}

bool ParseTabDetails(const QString& record, TabDetails& details)
{
    QStringList fields = record.split(SEPARATOR);
    if (fields.size() < FIELDS)
        return false;
    int type = 0;
    if (!ParseNumber(fields[0], Settings::NUM_CODE_EDITOR_GROUPS - 1, details.group)
        || !ParseNumber(fields[1], static_cast<int>(CodeEditorType::File), type))
        return false;
    details.type = static_cast<CodeEditorType>(type);
    if (details.type == CodeEditorType::File)
        fields = JoinPath(fields);
    details.path = fields[PATH_FIELD];
    details.isCurrent = fields[3] == QLatin1String("1");
    if (!ParseNumber(fields[4], INT_MAX, details.cursorPosition))
        details.cursorPosition = 0;
    if (!ParseNumber(fields[5], INT_MAX, details.scrollValue))
        details.scrollValue = 0;
    details.label = fields.value(6);
    return !details.path.isEmpty();
}

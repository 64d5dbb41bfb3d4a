#include "settings/IniValues.h"

namespace {

bool IsText(const QVariant& stored)
{
    return stored.type() == QVariant::String;
}

/// Of texts one of which holds a null character, the toolkit makes a list of anything.
bool IsList(const QVariant& stored)
{
    return stored.type() == QVariant::StringList || stored.type() == QVariant::List;
}

} // namespace

bool IniValues::Parse(const QVariant& stored, bool& value)
{
    const QString text = stored.toString().trimmed().toLower();
    const bool isTrue = text == QLatin1String("true") || text == QLatin1String("1");
    if (!isTrue && text != QLatin1String("false") && text != QLatin1String("0"))
        return false;
    value = isTrue;
    return true;
}

bool IniValues::Parse(const QVariant& stored, int& value)
{
    if (!IsText(stored) && stored.type() != QVariant::Int)
        return false;
    bool isNumber = false;
    const int number = stored.toString().trimmed().toInt(&isNumber);
    if (isNumber)
        value = number;
    return isNumber;
}

bool IniValues::Parse(const QVariant& stored, QString& value)
{
    if (!IsText(stored) && !IsList(stored))
        return false;
    value = IsText(stored) ? stored.toString() : stored.toStringList().join(QLatin1Char(','));
    return true;
}

bool IniValues::Parse(const QVariant& stored, QStringList& value)
{
    if (!stored.isValid() || (IsText(stored) && stored.toString().isEmpty())) {
        value.clear();
        return true;
    }
    if (!IsText(stored) && !IsList(stored))
        return false;
    value = stored.toStringList();
    return true;
}

bool IniValues::Parse(const QVariant& stored, QByteArray& value)
{
    if (IsText(stored) && stored.toString().isEmpty()) {
        value.clear();
        return true;
    }
    if (stored.type() != QVariant::ByteArray || stored.toByteArray().size() > MAXIMUM_BYTES)
        return false;
    value = stored.toByteArray();
    return true;
}

bool IniValues::Parse(const QVariant& stored, QRect& value)
{
    if (stored.type() != QVariant::Rect)
        return false;
    value = stored.toRect();
    return true;
}

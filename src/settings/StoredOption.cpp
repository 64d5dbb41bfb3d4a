#include "settings/StoredOption.h"

#include <QFont>
#include <QSettings>

#include <optional>

namespace {

// A value that was not read from a file of ours but typed by a person may be anything; whatever is
// no value of the type leaves the option as it is.

std::optional<bool> AsBool(const QVariant& stored)
{
    const QString text = stored.toString().trimmed().toLower();
    if (text == QLatin1String("true") || text == QLatin1String("1"))
        return true;
    if (text == QLatin1String("false") || text == QLatin1String("0"))
        return false;
    return std::nullopt;
}

std::optional<int> AsInt(const QVariant& stored)
{
    bool valid = false;
    const int number = stored.toInt(&valid);
    return valid ? std::optional<int>(number) : std::nullopt;
}

struct Reader
{
    const QVariant& stored;

    void operator()(bool* target) const { *target = AsBool(stored).value_or(*target); }
    void operator()(int* target) const { *target = AsInt(stored).value_or(*target); }
    void operator()(QString* target) const
    {
        // An unquoted comma makes a list of what was meant as one text.
        *target = stored.type() == QVariant::StringList
            ? stored.toStringList().join(QLatin1String(", "))
            : stored.toString();
    }
    void operator()(QStringList* target) const
    {
        const QStringList list = stored.toStringList();
        // A list of one empty entry is how an empty list reads back.
        *target = list == QStringList{QString()} ? QStringList() : list;
    }
    void operator()(QByteArray* target) const
    {
        const QByteArray bytes = stored.toByteArray();
        if (bytes.size() <= MAXIMUM_STORED_BYTES)
            *target = bytes;
    }
    void operator()(QRect* target) const
    {
        if (stored.type() == QVariant::Rect)
            *target = stored.toRect();
    }
    void operator()(FontFamily target) const
    {
        if (!stored.toString().isEmpty())
            target.font->setFamily(stored.toString());
    }
    void operator()(FontSize target) const
    {
        const int size = AsInt(stored).value_or(0);
        if (size > 0)
            target.font->setPointSize(size);
    }
};

struct Writer
{
    QVariant operator()(FontFamily source) const { return source.font->family(); }
    QVariant operator()(FontSize source) const { return source.font->pointSize(); }
    template <typename T>
    QVariant operator()(T* source) const
    {
        return QVariant::fromValue(*source);
    }
};

QString FullKey(const StoredOption& option)
{
    return QString::fromLatin1(option.group) + QLatin1Char('/') + QString::fromLatin1(option.key);
}

} // namespace

void StoredOption::Read(const QSettings& ini) const
{
    const QVariant stored = ini.value(FullKey(*this));
    if (stored.isValid())
        std::visit(Reader{stored}, target);
}

void StoredOption::Write(QSettings& ini) const
{
    ini.setValue(FullKey(*this), std::visit(Writer{}, target));
}

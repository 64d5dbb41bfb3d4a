#include "settings/pages/OptionCopies.h"

#include "settings/pages/OptionTable.h"

#include <QDir>
#include <QFileInfo>

#include <type_traits>

namespace {

QVariant Read(const OptionMember& member)
{
    return std::visit(
        [](const auto* value) -> QVariant {
            if constexpr (std::is_same_v<decltype(value), const OptionAccess*>)
                return value->read();
            else
                return *value;
        },
        member);
}

void Write(const OptionMember& member, const QVariant& value)
{
    std::visit(
        [&value](auto* target) {
            using Target = std::remove_pointer_t<decltype(target)>;
            if constexpr (std::is_same_v<Target, const OptionAccess>)
                target->write(value);
            else
                *target = value.value<Target>();
        },
        member);
}

QString PathFault(OptionRow::Kind kind, const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return OptionTable::tr("There is no such path.");
    if (kind == OptionRow::Kind::Folder)
        return info.isDir() ? QString() : OptionTable::tr("This is a file, not a folder.");
    if (info.isDir())
        return OptionTable::tr("This is a folder, not a file.");
    if (kind == OptionRow::Kind::Executable && !info.isExecutable())
        return OptionTable::tr("This file cannot be run.");
    return {};
}

template <typename Function>
void ForEachRow(const OptionPage& page, const Function& function)
{
    for (const OptionGroup& group : page.groups) {
        for (const OptionRow& row : group.rows)
            function(row);
    }
}

} // namespace

OptionCopies::OptionCopies(const QVector<const OptionPage*>& pages, QObject* parent)
    : QObject(parent)
{
    for (const OptionPage* page : pages) {
        ForEachRow(*page, [this](const OptionRow& row) {
            m_values.insert(QLatin1String(row.key), Read(row.member));
        });
    }
}

void OptionCopies::Set(const OptionRow& row, const QVariant& value)
{
    QVariant& copy = m_values[QLatin1String(row.key)];
    if (copy == value)
        return;
    copy = value;
    Q_EMIT Changed();
}

bool OptionCopies::IsChanged(const OptionPage& page) const
{
    bool changed = false;
    ForEachRow(
        page, [&](const OptionRow& row) { changed = changed || Get(row) != Read(row.member); });
    return changed;
}

void OptionCopies::Apply(const OptionPage& page) const
{
    ForEachRow(page, [this](const OptionRow& row) {
        if (Get(row) != Read(row.member))
            Write(row.member, Get(row));
    });
}

void OptionCopies::RestoreDefaults(const OptionPage& page)
{
    ForEachRow(page, [this](const OptionRow& row) { Set(row, OptionTable::GetDefault(row)); });
}

QString OptionCopies::WhyIdle(const OptionRow& row) const
{
    const char* const reason = row.whyIdle ? row.whyIdle(*this) : nullptr;
    return reason ? OptionTable::tr(reason) : QString();
}

QString OptionCopies::GetFault(const OptionRow& row) const
{
    using K = OptionRow::Kind;
    if (!WhyIdle(row).isEmpty())
        return {};
    const QString text = Get(row).toString();
    switch (row.kind) {
    case K::FontFamily:
        return text.trimmed().isEmpty() ? OptionTable::tr("A font has a name.") : QString();
    case K::Executable:
        return text.isEmpty() ? OptionTable::tr("Choose the file to run.")
                              : PathFault(row.kind, text);
    case K::File:
    case K::Folder: return text.isEmpty() ? QString() : PathFault(row.kind, text);
    default: break;
    }
    const Check check = m_checks.value(QLatin1String(row.key));
    return check ? check(text) : QString();
}

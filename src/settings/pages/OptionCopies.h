#pragma once

#include "settings/pages/OptionRow.h"

#include <QHash>
#include <QObject>
#include <QString>

#include <functional>

/// What the pages of the preferences would make of their options. Owned by the dialog; nothing
/// outside changes before Apply. No widgets.
class OptionCopies : public QObject
{
    Q_OBJECT

public:
    explicit OptionCopies(const QVector<const OptionPage*>& pages, QObject* parent = nullptr);

    QVariant Get(const OptionRow& row) const { return m_values.value(QLatin1String(row.key)); }
    bool IsOn(const char* key) const { return m_values.value(QLatin1String(key)).toBool(); }
    void Set(const OptionRow& row, const QVariant& value);

    // Of one page
    bool IsChanged(const OptionPage& page) const;
    void Apply(const OptionPage& page) const;
    void RestoreDefaults(const OptionPage& page);

    /// Empty when the option has an effect at present.
    QString WhyIdle(const OptionRow& row) const;
    /// Asks what is wrong with values of that option; empty when nothing is.
    using Check = std::function<QString(const QString& value)>;
    void SetCheck(const char* key, const Check& check)
    {
        m_checks.insert(QLatin1String(key), check);
    }
    /// What is wrong with the value in one line; empty when it can be applied.
    QString GetFault(const OptionRow& row) const;

Q_SIGNALS:
    /// What has an effect, and what is wrong, may be otherwise now.
    void Changed();

private:
    QHash<QString, QVariant> m_values; ///< by key
    QHash<QString, Check> m_checks; ///< by key
};

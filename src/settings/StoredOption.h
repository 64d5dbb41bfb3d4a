#pragma once

#include <QByteArray>
#include <QRect>
#include <QStringList>

#include <variant>

class QFont;
class QSettings;

/// Larger byte arrays in a settings file are no state of ours and are ignored.
constexpr int MAXIMUM_STORED_BYTES = 16 * 1024 * 1024;

/// Two keys of the file make one font.
struct FontFamily
{
    QFont* font;
};
struct FontSize
{
    QFont* font;
};

/// One key of a settings file and the variable it fills.
struct StoredOption
{
    using Target
        = std::variant<bool*, int*, QString*, QStringList*, QByteArray*, QRect*, FontFamily, FontSize>;

    const char* group;
    const char* key;
    Target target;

    /// Keeps the variable when the key is absent or its value is not of the variable's type.
    void Read(const QSettings& ini) const;
    void Write(QSettings& ini) const;
};

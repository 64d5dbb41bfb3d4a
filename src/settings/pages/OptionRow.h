#pragma once

#include <QVariant>
#include <QVector>

#include <variant>

class OptionCopies;

/// Reaches an option that is no member of its own.
struct OptionAccess
{
    QVariant (*read)();
    void (*write)(const QVariant& value);
    QVariant (*standard)() = nullptr; ///< the default; null for what the settings know by its key
};

using OptionMember = std::variant<bool*, int*, QString*, const OptionAccess*>;

/// What a number may be, and of what.
struct OptionRange
{
    int minimum;
    int maximum;
    const char* unit;
};

/// One option as the preferences show it. The texts are to be translated by OptionTable.
struct OptionRow
{
    enum class Kind {
        Check,
        Number,
        FontFamily,
        Executable, ///< a file that can be run
        File,
        Folder,
        Lines, ///< a text of several lines
        Paths, ///< folders, parted by Settings::PATH_SEP
    };
    /// In the two columns of a group.
    enum class Place { Left, Right, Wide };

    const char* key; ///< in the file that keeps the option
    OptionMember member;
    Kind kind;
    Place place;
    const char* label;
    /// Why the option has no effect while the copies are as they are; null when it has one.
    const char* (*whyIdle)(const OptionCopies& copies) = nullptr;
    OptionRange range = {0, 0, nullptr};
};

struct OptionGroup
{
    enum class Side { Below, Beside }; ///< of the group before

    const char* title;
    Side side;
    QVector<OptionRow> rows;
};

struct OptionPage
{
    const char* title;
    const char* icon;
    QVector<OptionGroup> groups;
};

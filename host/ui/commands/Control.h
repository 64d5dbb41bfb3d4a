#pragma once

#include "engine/CommandRegistry.h"
#include "ui/model/InterfaceModel.h"

namespace host::ui {

/// One flag that is being set on one element. Lives for that one call.
class Edit
{
public:
    Edit(Element& target, const Call& source, const char* flagName)
        : element(target)
        , call(source)
        , flag(flagName)
    { }

    Element& element;
    const Call& call;
    const char* flag; ///< long name of the flag
    /// Set by whoever cannot do what the flag asks for.
    QString error;

    int UseCount() const { return call.UseCount(flag); }
    QString Text(int index = 0, int use = 0) const { return call.Text(flag, index, use); }
    int Int(int index = 0, int use = 0) const { return call.Int(flag, index, use); }
    double Float(int index = 0, int use = 0) const { return call.Float(flag, index, use); }
    bool Bool() const { return call.Bool(flag); }
    /// The widget as what the element's maker made it.
    template <typename T>
    T* As() const
    {
        return static_cast<T*>(element.GetWidget());
    }
};

template <typename T>
T* As(const Element& element)
{
    return static_cast<T*>(element.GetWidget());
}

/// What a flag does. A flag without a row is kept in the element (scripts as callbacks, anything
/// else as a value) and given back when queried.
struct Property
{
    const char* flag; ///< long name
    void (*apply)(Edit&); ///< null: as if there were no row
    Value (*query)(Element&); ///< null: likewise
};

struct Properties
{
    Properties() = default;
    template <size_t N>
    Properties(const Property (&table)[N])
        : rows(table)
        , count(static_cast<int>(N))
    { }
    const Property* begin() const { return rows; }
    const Property* end() const { return rows + count; }

    const Property* rows = nullptr;
    int count = 0;
};

/// Flags that a family of commands shares besides the common ones, such as those of all layouts
/// with columns.
struct Family
{
    const char* flags; ///< notation of CommandRow::flags
    Properties properties; ///< applied after those of the command itself
    const Family* base = nullptr; ///< what the family shares with a larger one
};

enum class CommonFlags { None, Control, MenuPart };

/// A command that makes, changes and queries one type of element.
struct ControlRow
{
    const char* name;
    ElementKind kind;
    /// Gives a new element its widget, menu or action. Null: the command makes nothing.
    void (*make)(Element&, const Call&);
    /// In the order in which they are applied when several are given.
    Properties properties;
    const char* flags; ///< notation of CommandRow::flags
    /// Which elements the command can change and query besides those of its own type; may be null.
    bool (*accepts)(const Element&) = nullptr;
    /// Where a new element goes; null: by -parent, else the current parent. An error when it
    /// cannot go anywhere.
    Outcome (*findParent)(const Call&, Element*& parent) = nullptr;
    /// Flags that the command shares with all others of its sort.
    CommonFlags common = CommonFlags::Control;
    const Family* family = nullptr;
    /// Answers queries that name something of the element; none when the call is no such query.
    /// May be null.
    std::optional<Outcome> (*answer)(Element&, const Call&) = nullptr;
};

/// Registers the rows' commands. The rows must stay where they are.
void RegisterControls(CommandRegistry& commands, const ControlRow* rows, int count);
template <size_t N>
void RegisterControls(CommandRegistry& commands, const ControlRow (&rows)[N])
{
    RegisterControls(commands, rows, static_cast<int>(N));
}

/// The element that a command's argument names, or the error that tells why there is none.
Outcome FindElement(
    const QString& name, int kinds, bool (*accepts)(const Element&), Element*& element);
inline Outcome FindElement(const QString& name, int kinds, Element*& element)
{
    return FindElement(name, kinds, nullptr, element);
}
/// The place that -parent names, or the current parent, for an element of that kind.
Outcome FindParent(const Call& call, ElementKind kind, Element*& parent);
/// Scripts give lengths for an interface of scale 1; these are pixels of the scale at hand.
int Scaled(int length);
int Unscaled(int pixels);
/// Gives the widget the width and height that were asked for, as far as its parent lets it choose.
void ApplySize(Element& element);
/// Tells assistive programs what a control without a text of its own is for: `name`, and its inner
/// field with it.
void NameForAccess(Element& element, const QString& name);
/// Names of the children, in order.
QStringList ChildNames(const Element& element, int kinds = ANY_KIND);
/// True, 1, "title"... for flags that the element itself keeps; `fallback` when never set.
Value Stored(const Element& element, const char* flag, const Value& fallback);

} // namespace host::ui

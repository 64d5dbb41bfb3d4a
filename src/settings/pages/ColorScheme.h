#pragma once

#include "settings/ColorSettings.h"

/// Which colour is meant: roles of the code editors and of the console share their keys.
struct ColorRole
{
    enum Surface { CodeEditor, Output };
    Surface surface = CodeEditor;
    QString key;

    bool operator==(const ColorRole& other) const
    {
        return surface == other.surface && key == other.key;
    }
};

/// A copy of the colour roles to work on. Nothing outside changes before Apply. A value; interface
/// thread, like the colours that it copies.
class ColorScheme
{
public:
    enum class Part { Foreground, Background, Bold, Italic, Underline };

    /// A copy of what is in force.
    ColorScheme();

    /// In the order in which they are shown and stored.
    static const QStringList& GetKeys(ColorRole::Surface surface);
    QString GetLabel(const ColorRole& role) const { return PropertiesOf(role).label; }
    QTextCharFormat GetFormat(const ColorRole& role) const { return PropertiesOf(role).format; }
    /// Whether the role is painted with the part: syntax has all of them, a part of the interface
    /// only the colours that it has by default.
    bool Uses(const ColorRole& role, Part part) const;
    /// Invalid without one.
    QColor GetColor(const ColorRole& role, Part part) const;
    bool IsOn(const ColorRole& role, Part part) const;

    /// What the role does not use, and an invalid colour, change nothing.
    void SetColor(const ColorRole& role, Part part, const QColor& color);
    void SetOn(const ColorRole& role, Part part, bool on);

    /// Whether the role looks otherwise than built in.
    bool IsModified(const ColorRole& role) const;
    void Reset(const ColorRole& role);
    void ResetAll();

    /// Whether Apply would change anything.
    bool IsChanged() const;
    void Apply() const;

private:
    using Roles = QMap<QString, HighlightProperties>;

    HighlightProperties PropertiesOf(const ColorRole& role) const;
    QTextCharFormat* FormatOf(const ColorRole& role, Part part);

    Roles m_roles[2]; ///< by surface
};

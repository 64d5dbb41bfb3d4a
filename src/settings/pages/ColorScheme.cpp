#include "settings/pages/ColorScheme.h"

namespace {

QTextFormat::Property BrushOf(ColorScheme::Part part)
{
    return part == ColorScheme::Part::Foreground ? QTextFormat::ForegroundBrush
                                                 : QTextFormat::BackgroundBrush;
}

/// What is stored of them is all there is.
bool IsSame(const QTextCharFormat& left, const QTextCharFormat& right)
{
    return ColorSettings::GetFormatString(left) == ColorSettings::GetFormatString(right);
}

} // namespace

ColorScheme::ColorScheme()
    : m_roles{ColorSettings::codeEditorHighlights, ColorSettings::outputHighlights}
{ }

const QStringList& ColorScheme::GetKeys(ColorRole::Surface surface)
{
    return surface == ColorRole::CodeEditor ? ColorSettings::codeEditorHighlightOrderedKeys
                                            : ColorSettings::outputHighlightOrderedKeys;
}

HighlightProperties ColorScheme::PropertiesOf(const ColorRole& role) const
{
    return m_roles[role.surface].value(role.key);
}

/// Null when the role does not use the part.
QTextCharFormat* ColorScheme::FormatOf(const ColorRole& role, Part part)
{
    const auto found = m_roles[role.surface].find(role.key);
    return found != m_roles[role.surface].end() && Uses(role, part) ? &found->format : nullptr;
}

bool ColorScheme::Uses(const ColorRole& role, Part part) const
{
    const HighlightProperties properties = PropertiesOf(role);
    if (properties.isSyntax)
        return true;
    return (part == Part::Foreground || part == Part::Background)
        && properties.defaultFormat.hasProperty(BrushOf(part));
}

QColor ColorScheme::GetColor(const ColorRole& role, Part part) const
{
    const QTextCharFormat format = GetFormat(role);
    return format.hasProperty(BrushOf(part)) ? format.brushProperty(BrushOf(part)).color()
                                             : QColor();
}

bool ColorScheme::IsOn(const ColorRole& role, Part part) const
{
    const QTextCharFormat format = GetFormat(role);
    switch (part) {
    case Part::Bold: return format.fontWeight() >= QFont::Bold;
    case Part::Italic: return format.fontItalic();
    case Part::Underline: return format.underlineStyle() != QTextCharFormat::NoUnderline;
    default: return GetColor(role, part).isValid();
    }
}

void ColorScheme::SetColor(const ColorRole& role, Part part, const QColor& color)
{
    QTextCharFormat* const format = FormatOf(role, part);
    if (format && color.isValid())
        format->setProperty(BrushOf(part), QBrush(QColor(color.rgb())));
}

void ColorScheme::SetOn(const ColorRole& role, Part part, bool on)
{
    QTextCharFormat* const format = FormatOf(role, part);
    if (!format)
        return;
    switch (part) {
    case Part::Bold: format->setFontWeight(on ? QFont::Bold : QFont::Normal); break;
    case Part::Italic: format->setFontItalic(on); break;
    case Part::Underline:
        format->setUnderlineStyle(
            on ? QTextCharFormat::SingleUnderline : QTextCharFormat::NoUnderline);
        break;
    default: break;
    }
}

bool ColorScheme::IsModified(const ColorRole& role) const
{
    const HighlightProperties properties = PropertiesOf(role);
    return !IsSame(properties.format, properties.defaultFormat);
}

void ColorScheme::Reset(const ColorRole& role)
{
    const auto found = m_roles[role.surface].find(role.key);
    if (found != m_roles[role.surface].end())
        found->format = found->defaultFormat;
}

void ColorScheme::ResetAll()
{
    for (Roles& roles : m_roles) {
        for (HighlightProperties& properties : roles)
            properties.format = properties.defaultFormat;
    }
}

bool ColorScheme::IsChanged() const
{
    const ColorScheme inForce;
    for (const auto surface : {ColorRole::CodeEditor, ColorRole::Output}) {
        for (const QString& key : GetKeys(surface)) {
            const ColorRole role{surface, key};
            if (!IsSame(GetFormat(role), inForce.GetFormat(role)))
                return true;
        }
    }
    return false;
}

void ColorScheme::Apply() const
{
    for (const QString& key : GetKeys(ColorRole::CodeEditor))
        ColorSettings::SetCodeEditorFormat(key, GetFormat({ColorRole::CodeEditor, key}));
    for (const QString& key : GetKeys(ColorRole::Output))
        ColorSettings::SetOutputFormat(key, GetFormat({ColorRole::Output, key}));
}

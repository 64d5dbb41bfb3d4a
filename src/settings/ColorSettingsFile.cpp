// The user's colours file: its notation, reading and writing.

#include "settings/ColorSettings.h"
#include "settings/IniFile.h"
#include "settings/Settings.h"

#include <QRegularExpression>
#include <QSettings>

namespace {

constexpr int FILE_VERSION = 1;
constexpr int FORMAT_FIELDS = 5;
constexpr int RULE_FIELDS = 9;
constexpr int PATTERN_FIELD = 5;
const QString RULE_SEPARATOR = QStringLiteral(";;;");
const QString NOT_SET = QStringLiteral("Not Set");
const QString CUSTOM_GROUP = QStringLiteral("customhighlighting");
const QString CODE_EDITOR_GROUP = QStringLiteral("codeeditor");
const QString OUTPUT_GROUP = QStringLiteral("output");

QString Digit(bool on)
{
    return on ? QStringLiteral("1") : QStringLiteral("0");
}

/// Fields are numbers of 32 bits; 0 means "no colour". Colours are opaque, as they are written:
/// without its highest byte a number would stand for a text that nobody sees.
QColor FieldColor(const QString& field)
{
    bool valid = false;
    const uint argb = field.toUInt(&valid);
    return valid && argb != 0 ? QColor(argb) : QColor();
}

/// As rules are written. Nobody keeps separators, or parts of them, out of names and patterns: the
/// numbers between them tell where each ends.
QStringList WrittenRuleFields(const QString& text)
{
    static const QRegularExpression WRITTEN(
        QStringLiteral(
            "^(.*?);;;(\\d+);;;(\\d+);;;([01]);;;([01]);;;(.*);;;([01]);;;([01]);;;([01])\\z"),
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = WRITTEN.match(text);
    return match.hasMatch() ? match.capturedTexts().mid(1) : QStringList();
}

/// All nine, or none when the text is no rule.
QStringList RuleFields(const QString& text)
{
    const QStringList written = WrittenRuleFields(text);
    if (!written.isEmpty())
        return written;
    QStringList fields = text.split(RULE_SEPARATOR);
    if (fields.size() < RULE_FIELDS)
        return {};
    while (fields.size() > RULE_FIELDS)
        fields[PATTERN_FIELD] += RULE_SEPARATOR + fields.takeAt(PATTERN_FIELD + 1);
    return fields;
}

/// A format string holds commas, which a file written by hand may leave without quotes: it reads
/// back as a list then.
QString StoredText(const QSettings& ini, const QString& key)
{
    const QVariant stored = ini.value(key, NOT_SET);
    return stored.type() == QVariant::StringList ? stored.toStringList().join(QLatin1Char(','))
                                                 : stored.toString();
}

void ReadGroup(const QSettings& ini, const QString& group, const QStringList& keys,
    QMap<QString, HighlightProperties>& map)
{
    for (const QString& key : keys) {
        const QString text = StoredText(ini, group + QLatin1Char('/') + key);
        if (text != NOT_SET)
            ColorSettings::LoadFormatString(map[key].format, text);
    }
}

void WriteGroup(QSettings& ini, const QString& group, const QStringList& keys,
    const QMap<QString, HighlightProperties>& map)
{
    for (const QString& key : keys) {
        ini.setValue(
            group + QLatin1Char('/') + key, ColorSettings::GetFormatString(map.value(key).format));
    }
}

} // namespace

ExtraSelectionProperties::ExtraSelectionProperties(const QString& ruleName,
    const QColor& ruleForeground, const QColor& ruleBackground, const QString& rulePattern,
    bool isRegularExpression, bool isWholeLine, bool isEnabled)
    : name(ruleName)
    , foreground(ruleForeground)
    , hasForeground(ruleForeground.isValid())
    , background(ruleBackground)
    , hasBackground(ruleBackground.isValid())
    , pattern(rulePattern)
    , regularExpression(isRegularExpression)
    , wholeLine(isWholeLine)
    , enabled(isEnabled)
{
    UpdateFormat();
}

void ExtraSelectionProperties::UpdateFormat()
{
    if (hasForeground)
        format.setForeground(foreground);
    else
        format.clearForeground();
    if (hasBackground)
        format.setBackground(background);
    else
        format.clearBackground();
}

QString ColorSettings::GetFormatString(const QTextCharFormat& format)
{
    const auto argb = [&](QTextFormat::Property brush) {
        return format.hasProperty(brush) ? format.brushProperty(brush).color().rgb() : 0u;
    };
    const int weight = format.hasProperty(QTextFormat::FontWeight) ? format.fontWeight() : 50;
    return QStringLiteral("%1,%2,%3,%4,%5")
        .arg(argb(QTextFormat::ForegroundBrush))
        .arg(argb(QTextFormat::BackgroundBrush))
        .arg(weight)
        .arg(Digit(format.fontItalic()),
            Digit(format.underlineStyle() != QTextCharFormat::NoUnderline));
}

void ColorSettings::LoadFormatString(QTextCharFormat& format, const QString& text)
{
    const QStringList fields = text.split(QLatin1Char(','), Qt::SkipEmptyParts);
    if (fields.size() != FORMAT_FIELDS)
        return;
    const QColor foreground = FieldColor(fields[0]);
    if (foreground.isValid())
        format.setForeground(foreground);
    const QColor background = FieldColor(fields[1]);
    if (background.isValid())
        format.setBackground(background);
    bool valid = false;
    const int weight = fields[2].toInt(&valid);
    if (valid && weight >= 0)
        format.setFontWeight(weight);
    const int italic = fields[3].toInt(&valid);
    if (valid)
        format.setFontItalic(italic != 0);
    const int underline = fields[4].toInt(&valid);
    if (valid && underline >= 0 && underline <= QTextCharFormat::SpellCheckUnderline)
        format.setUnderlineStyle(static_cast<QTextCharFormat::UnderlineStyle>(underline));
}

QString ColorSettings::GetExtraSelectionString(const ExtraSelectionProperties& rule)
{
    const QStringList fields{rule.name, QString::number(rule.foreground.rgb()),
        QString::number(rule.background.rgb()), Digit(rule.hasForeground),
        Digit(rule.hasBackground), rule.pattern, Digit(rule.regularExpression),
        Digit(rule.wholeLine), Digit(rule.enabled)};
    return fields.join(RULE_SEPARATOR);
}

ExtraSelectionProperties ColorSettings::LoadExtraSelectionString(const QString& text)
{
    const QStringList fields = RuleFields(text);
    if (fields.isEmpty())
        return {};
    const auto isOn = [&](int field) { return fields[field].toInt() != 0; };
    const auto color
        = [&](int flag, int field) { return isOn(flag) ? FieldColor(fields[field]) : QColor(); };
    return ExtraSelectionProperties(
        fields[0], color(3, 1), color(4, 2), fields[PATTERN_FIELD], isOn(6), isOn(7), isOn(8));
}

QString ColorSettings::GetUserConfigPath()
{
    const QString directory = Settings::GetUserConfigDirectory();
    return directory.isEmpty() ? QString()
                               : directory + QLatin1String("/tarnwickEditor2_colors.ini");
}

void ColorSettings::ReadUserConfig()
{
    Initialize();
    const QString path = GetUserConfigPath();
    if (path.isEmpty())
        return;
    QSettings ini(path, QSettings::IniFormat);
    IniFile::KeepWhatCannotBeRead(ini);
    ReadGroup(ini, CODE_EDITOR_GROUP, codeEditorHighlightOrderedKeys, codeEditorHighlights);
    ReadGroup(ini, OUTPUT_GROUP, outputHighlightOrderedKeys, outputHighlights);
    ini.beginGroup(CUSTOM_GROUP);
    const QStringList keys = ini.childKeys();
    QVector<ExtraSelectionProperties> rules;
    for (const QString& key : keys) {
        const QString text = StoredText(ini, key);
        if (!RuleFields(text).isEmpty())
            rules += LoadExtraSelectionString(text);
    }
    if (!keys.isEmpty())
        outputUserDefinedSelections = rules;
}

void ColorSettings::WriteUserConfig()
{
    const QString path = GetUserConfigPath();
    if (path.isEmpty())
        return;
    QSettings ini(path, QSettings::IniFormat);
    ini.setValue(QStringLiteral("main/version"), FILE_VERSION);
    WriteGroup(ini, CODE_EDITOR_GROUP, codeEditorHighlightOrderedKeys, codeEditorHighlights);
    WriteGroup(ini, OUTPUT_GROUP, outputHighlightOrderedKeys, outputHighlights);
    // A shorter list must not leave rules with higher numbers behind.
    ini.remove(CUSTOM_GROUP);
    for (int i = 0; i < outputUserDefinedSelections.size(); ++i) {
        ini.setValue(QStringLiteral("%1/%2").arg(CUSTOM_GROUP).arg(i),
            GetExtraSelectionString(outputUserDefinedSelections[i]));
    }
    IniFile::Finish(ini, QStringLiteral("Failed to write colors: %1"));
}

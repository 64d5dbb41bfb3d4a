// Small notations that the settings hold: tabs, rules and formats, expanded states.

#include "fuzz/Fuzz.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"
#include "window/TabDetails.h"

using fuzz::Expect;

namespace {

void ReadTab(const QString& record)
{
    TabDetails details;
    if (!ParseTabDetails(record, details))
        return;
    Expect(details.group >= 0 && details.group < Settings::NUM_CODE_EDITOR_GROUPS
            && details.cursorPosition >= 0 && details.scrollValue >= 0,
        QStringLiteral("a tab that there can be"));
    TabDetails again;
    Expect(ParseTabDetails(FormatTabDetails(details), again), QStringLiteral("is stored again"));
    Expect(again.group == details.group && again.type == details.type && again.path == details.path
            && again.isCurrent == details.isCurrent
            && again.cursorPosition == details.cursorPosition
            && again.scrollValue == details.scrollValue
            && (again.label == details.label || details.type == CodeEditorType::File),
        QStringLiteral("as it was: %1").arg(record));
}

/// Read from what people wrote; then written, read and written, which has to come to rest.
void ReadRule(const QString& text)
{
    const QString once
        = ColorSettings::GetExtraSelectionString(ColorSettings::LoadExtraSelectionString(text));
    const ExtraSelectionProperties read = ColorSettings::LoadExtraSelectionString(once);
    const QString twice = ColorSettings::GetExtraSelectionString(read);
    Expect(once == twice, QStringLiteral("a rule\n%1\nbecame\n%2").arg(once, twice));
}

/// A rule that somebody made. A name that looks like the rest of a rule cannot be told from it.
void WriteRule(QString name, const QString& pattern, int switches)
{
    while (name.contains(QStringLiteral(";;;")))
        name.replace(QStringLiteral(";;;"), QStringLiteral(";;"));
    if (!name.isValidUtf16() || !pattern.isValidUtf16())
        return;
    const ExtraSelectionProperties rule(name, (switches & 1) != 0 ? QColor(1, 2, 3) : QColor(),
        (switches & 2) != 0 ? QColor(4, 5, 6) : QColor(), pattern, (switches & 4) != 0,
        (switches & 8) != 0, (switches & 16) != 0);
    const ExtraSelectionProperties read
        = ColorSettings::LoadExtraSelectionString(ColorSettings::GetExtraSelectionString(rule));
    Expect(read.name == rule.name && read.pattern == rule.pattern
            && read.regularExpression == rule.regularExpression && read.wholeLine == rule.wholeLine
            && read.enabled == rule.enabled && read.foreground == rule.foreground
            && read.background == rule.background,
        QStringLiteral("a rule is read as it was written: %1 | %2").arg(name, pattern));
}

void ReadFormat(const QString& text)
{
    QTextCharFormat format;
    ColorSettings::LoadFormatString(format, text);
    const QString once = ColorSettings::GetFormatString(format);
    QTextCharFormat again;
    ColorSettings::LoadFormatString(again, once);
    const QString twice = ColorSettings::GetFormatString(again);
    Expect(once == twice, QStringLiteral("a format %1 became %2").arg(once, twice));
}

void ReadStates(const QByteArray& bytes)
{
    Settings::RestoreWorkspaceState(bytes);
    Expect(Settings::GetWorkspaceState() == bytes, QStringLiteral("the workspace's state"));
    Settings::outlineExpandedHash.clear();
    Settings::RestoreOutlineExpandedState(bytes);
    const QMultiHash<QString, QString> restored = Settings::outlineExpandedHash;
    Settings::RestoreOutlineExpandedState(Settings::GetOutlineExpandedState());
    Expect(Settings::outlineExpandedHash == restored, QStringLiteral("the outline's state"));
}

} // namespace

TE2_FUZZ_TARGET(StoredRecords)
{
    switch (input.Number(5)) {
    case 0: ReadTab(input.Text()); break;
    case 1: ReadRule(input.Text()); break;
    case 2: {
        const int switches = input.Number(32);
        const QString name = input.Text();
        WriteRule(name, input.Text(), switches);
        break;
    }
    case 3: ReadFormat(input.Text()); break;
    default: ReadStates(input.Rest());
    }
}

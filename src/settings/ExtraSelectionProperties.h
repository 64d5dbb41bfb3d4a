#pragma once

#include <QColor>
#include <QString>
#include <QTextCharFormat>

/// One highlighting rule of the console. The format follows from the colours: build a new record
/// to change them.
struct ExtraSelectionProperties
{
    ExtraSelectionProperties() = default;
    /// An invalid colour means that the rule leaves that side as it is.
    ExtraSelectionProperties(const QString& ruleName, const QColor& foregroundColor,
        const QColor& backgroundColor, const QString& rulePattern, bool isRegularExpression,
        bool isWholeLine, bool isEnabled);

    QString name;
    QTextCharFormat format;
    QColor foreground;
    bool hasForeground = false;
    QColor background;
    bool hasBackground = false;
    QString pattern;
    bool regularExpression = true; ///< otherwise the pattern is a fixed string
    bool wholeLine = true; ///< a matching line is coloured whole
    bool enabled = true;
};

#pragma once

#include <QColor>
#include <QString>
#include <QTextCharFormat>

/// One rule that highlights text in the console. The format follows from the colours.
struct ExtraSelectionProperties
{
    ExtraSelectionProperties() = default;
    /// An invalid colour means that the rule leaves that brush alone.
    ExtraSelectionProperties(const QString& ruleName, const QColor& ruleForeground,
        const QColor& ruleBackground, const QString& rulePattern, bool isRegularExpression,
        bool isWholeLine, bool isEnabled);

    QString name;
    QTextCharFormat format;
    QColor foreground;
    bool hasForeground = false;
    QColor background;
    bool hasBackground = false;
    QString pattern;
    bool regularExpression = false; ///< otherwise a fixed string
    bool wholeLine = false;
    bool enabled = true;

    /// After the colours or their flags changed.
    void UpdateFormat();
};

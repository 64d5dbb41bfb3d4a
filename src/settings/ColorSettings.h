#pragma once

#include "settings/ExtraSelectionProperties.h"

#include <QColor>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QTextCharFormat>

/// One colour role: its name in the preferences, its format and the built-in one.
struct HighlightProperties
{
    QString label;
    QTextCharFormat format;
    QTextCharFormat defaultFormat;
    bool syntax = false; ///< a syntax category rather than a part of the interface
};

/// Every colour and text format of the program. Painters and highlighters hold none of their own:
/// they ask by role key. Interface thread only; the scheme is built at first use, when the
/// application exists.
class ColorSettings
{
public:
    // Role keys
    static const QString PLAIN_TEXT;
    static const QString SELECTED_TEXT;
    static const QString MATCHING_SELECTION;
    static const QString FIND_REPLACE_SELECTED;
    static const QString FIND_REPLACE_MATCHING;
    static const QString FIND_REPLACE_SELECTION;
    static const QString CURRENT_LINE;
    static const QString MATCHING_BRACES;
    static const QString WHITESPACES;
    static const QString INDENTATION_GUIDES;
    static const QString LINE_NUMBERS;
    static const QString GUTTER;
    static const QString MEL_KEYWORDS;
    static const QString MEL_COMMANDS;
    static const QString MEL_STRINGS;
    static const QString MEL_NUMBERS;
    static const QString MEL_VARIABLES;
    static const QString MEL_PROCS;
    static const QString MEL_COMMENTS;
    static const QString PYTHON_KEYWORDS;
    static const QString PYTHON_BUILTINS;
    static const QString PYTHON_STRINGS;
    static const QString PYTHON_DOC_STRINGS;
    static const QString PYTHON_NUMBERS;
    static const QString PYTHON_CLASSES;
    static const QString PYTHON_METHODS;
    static const QString PYTHON_COMMENTS;
    static const QString PYTHON_DECORATORS;
    static const QString PYTHON_SELF_CLS;
    static const QString PYTHON_MEL_COMMANDS;

    /// Rebuilds the built-in scheme.
    static void Initialize();

    // Formats by role key: the current one, or the built-in one when `defaultFormat` is true. An
    // unknown key gives an empty format, a null pointer, or properties with the label "Not Set".
    static QTextCharFormat GetCodeEditorFormat(const QString& key, bool defaultFormat);
    static QTextCharFormat* GetCodeEditorFormatPtr(const QString& key, bool defaultFormat);
    static QTextCharFormat GetOutputFormat(const QString& key, bool defaultFormat);
    static void SetCodeEditorFormat(const QString& key, const QTextCharFormat& format);
    static void SetOutputFormat(const QString& key, const QTextCharFormat& format);
    static HighlightProperties GetCodeEditorHighlightProperties(const QString& key);
    static HighlightProperties GetOutputHighlightProperties(const QString& key);

    // Formats and rules as they are stored
    static QString GetFormatString(const QTextCharFormat& format);
    /// Changes nothing when the string does not have its five fields.
    static void LoadFormatString(QTextCharFormat& format, const QString& text);
    static QString GetExtraSelectionString(const ExtraSelectionProperties& properties);
    static ExtraSelectionProperties LoadExtraSelectionString(const QString& text);

    // The colours file
    static QString GetUserConfigPath();
    static void ReadUserConfig();
    static void WriteUserConfig();

    inline static QMap<QString, HighlightProperties> codeEditorHighlights;
    inline static QStringList codeEditorHighlightOrderedKeys;
    inline static QMap<QString, HighlightProperties> outputHighlights;
    inline static QStringList outputHighlightOrderedKeys;
    /// Later rules paint over earlier ones.
    inline static QList<ExtraSelectionProperties> outputUserDefinedSelections;
    inline static QTextCharFormat errorFormat;
    inline static QTextCharFormat warningFormat;
    inline static QTextCharFormat infoFormat;
    inline static QColor sideBarBaseColor;
    inline static QColor sideBarHighlightColor;
};

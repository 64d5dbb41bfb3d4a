#pragma once

#include "settings/ExtraSelectionProperties.h"

#include <QMap>
#include <QStringList>

class QSettings;

/// A colour role: how the preferences name it, and how it looks now and by default.
struct HighlightProperties
{
    QString label;
    QTextCharFormat format;
    QTextCharFormat defaultFormat;
    bool isSyntax = false; ///< a syntax category rather than a part of the interface
};

/// Every colour and text format of the program: static members like Settings. Painters ask for a
/// format by its role each time they build theirs and hold no colours of their own.
/// Interface thread only.
class ColorSettings
{
public:
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

    /// Clears everything and builds the one scheme there is.
    static void Initialize();
    /// The built-in scheme with the user's file laid over it.
    static void ReadUserConfig();
    static void WriteUserConfig();
    static QString GetUserConfigPath();

    /// An empty format for an unknown role.
    static QTextCharFormat GetCodeEditorFormat(const QString& key, bool defaultFormat);
    static QTextCharFormat GetOutputFormat(const QString& key, bool defaultFormat);
    /// Null for an unknown role. The format stays at its address until Initialize.
    static QTextCharFormat* GetCodeEditorFormatPtr(const QString& key, bool defaultFormat);
    /// Replaces the current format of a role that exists.
    static void SetCodeEditorFormat(const QString& key, const QTextCharFormat& format);
    static void SetOutputFormat(const QString& key, const QTextCharFormat& format);
    /// Labelled "Not Set" for an unknown role.
    static HighlightProperties GetCodeEditorHighlightProperties(const QString& key);
    static HighlightProperties GetOutputHighlightProperties(const QString& key);

    /// The file's notation of a format and of a rule. A text that is none changes nothing.
    static QString GetFormatString(const QTextCharFormat& format);
    static void LoadFormatString(QTextCharFormat& format, const QString& text);
    static QString GetExtraSelectionString(const ExtraSelectionProperties& rule);
    static ExtraSelectionProperties LoadExtraSelectionString(const QString& text);

    /// The rules for the console that there are without a file.
    static QVector<ExtraSelectionProperties> GetBuiltInSelections();

    inline static QMap<QString, HighlightProperties> codeEditorHighlights;
    inline static QStringList codeEditorHighlightOrderedKeys;
    inline static QMap<QString, HighlightProperties> outputHighlights;
    inline static QStringList outputHighlightOrderedKeys;
    inline static QVector<ExtraSelectionProperties> outputUserDefinedSelections;
    inline static QTextCharFormat errorFormat; ///< underlines of the checkers' messages
    inline static QTextCharFormat warningFormat;
    inline static QTextCharFormat infoFormat;
    inline static QColor sideBarBaseColor;
    inline static QColor sideBarHighlightColor;

private:
    // One more role, last in its order. An invalid colour leaves that brush unset.
    static void AppendCodeEditorFormat(const QString& key, const QString& label,
        const QColor& foreground, const QColor& background, bool isSyntax, int weight, bool italic,
        QTextCharFormat::UnderlineStyle underline);
    static void AppendOutputFormat(const QString& key, const QString& label,
        const QColor& foreground, const QColor& background, bool isSyntax, int weight, bool italic,
        QTextCharFormat::UnderlineStyle underline);
};

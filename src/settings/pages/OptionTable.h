#pragma once

#include "settings/pages/OptionRow.h"

#include <QCoreApplication>

/// Every option that a person may change, by the pages of the preferences. No widgets.
class OptionTable
{
    Q_DECLARE_TR_FUNCTIONS(OptionTable)

public:
    /// In the order in which they are shown.
    static QVector<const OptionPage*> GetPages();
    static const OptionPage& General();
    static const OptionPage& Interface();
    static const OptionPage& CodeEditor();
    static const OptionPage& Indentation();
    static const OptionPage& Mel();
    static const OptionPage& Python();
    static const OptionPage& Pylint();
    static const OptionPage& Output();

    static QVariant GetDefault(const OptionRow& row);
    /// Key and default, for a tool tip.
    static QString Describe(const OptionRow& row);
    /// "this session" for what no file keeps.
    static QString GetLabel(const OptionRow& row);
    /// Whether label or key contain the text, whatever its case.
    static bool Matches(const OptionRow& row, const QString& text);
};

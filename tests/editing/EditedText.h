#pragma once

#include "editing/BlockDataSource.h"
#include "editing/EditingOptions.h"
#include "language/Highlighter.h"

#include <QTextCursor>
#include <QTextDocument>

#include <memory>

/// A document with its highlighter and a cursor, written as one text: "|" is the cursor, "<" the
/// anchor on either side of it.
class EditedText
{
public:
    /// `options` names the language and what is on, as "mel smart brackets tabs size=2".
    EditedText(const QString& options, QString marked);

    QString Marked() const;
    BlockDataSource Source();
    /// Empty when undoing takes one step and brings everything back, and redoing too; else what is
    /// wrong. Leaves the text as it was.
    QString FaultOfHistory();

    EditingOptions options;
    QTextDocument document;
    QTextCursor cursor;

private:
    QString MarkedRecalled() const;

    std::unique_ptr<Highlighter> m_highlighter;
    QString m_before;
};

#pragma once

#include "language/AutoCompleter.h"

#include <QListView>
#include <QPlainTextEdit>
#include <QSignalSpy>

/// An editor with a completer; "|" in its text marks the cursor.
template <typename Completer>
struct CompletionScene
{
    explicit CompletionScene(QString text)
    {
        const int position = text.indexOf('|');
        editor.setPlainText(text.remove('|'));
        QTextCursor cursor = editor.textCursor();
        cursor.setPosition(position);
        editor.setTextCursor(cursor);
        editor.show();
    }

    /// What the editor does behind a key; true when names are shown.
    bool Ask(bool isExplicit = false)
    {
        if (!completer.ValidateAndSetPrefix(editor.textCursor())) {
            completer.hide();
            return false;
        }
        completer.Update(editor.textCursor(), editor.cursorRect(), isExplicit);
        return completer.isVisible();
    }

    bool Type(const QString& text)
    {
        editor.insertPlainText(text);
        return Ask();
    }

    QStringList Rows() const
    {
        const QAbstractItemModel& model = *completer.template findChild<QListView*>()->model();
        QStringList rows;
        for (int i = 0; i < model.rowCount(); ++i)
            rows += model.index(i, 0).data().toString();
        return rows;
    }

    QPlainTextEdit editor;
    Completer completer{&editor};
    QSignalSpy accepted{&completer, &AutoCompleter::Accepted};
};

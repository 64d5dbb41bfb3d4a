#pragma once

#include <QTextCursor>

#include <optional>

class QTextDocument;

/// Where a cursor stands, in characters of the document.
struct CursorPlace
{
    int anchor = 0;
    int position = 0;

    static CursorPlace Of(const QTextCursor& cursor)
    {
        return {cursor.anchor(), cursor.position()};
    }
    /// Places outside the text are moved to its nearest end.
    void ApplyTo(QTextCursor& cursor) const;
};

/// All edits of the document during its life are one step to undo, which also brings back where
/// `cursor` stood: the toolkit alone would put it beside the edit and drop the selection. Without
/// an edit nothing is added. Not nested.
class EditStep
{
public:
    explicit EditStep(QTextCursor& cursor);
    ~EditStep();
    EditStep(const EditStep&) = delete;
    EditStep& operator=(const EditStep&) = delete;

    /// The cursor's place before (after) the step that the document undid (did again) last;
    /// none when another kind of step was. Asking twice gives none.
    static std::optional<CursorPlace> TakeRecalledPlace(const QTextDocument& document);

private:
    QTextCursor& m_cursor;
    const CursorPlace m_before;
    const int m_undoSteps;
};

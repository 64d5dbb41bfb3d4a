#include "editing/EditStep.h"

#include <QTextDocument>

#include <utility>

namespace {

/// What undoing or redoing a step left to be done: the document's undo knows no selection.
class RecalledPlace : public QObject
{
public:
    using QObject::QObject;

    static RecalledPlace* Of(const QTextDocument& document)
    {
        for (QObject* child : document.children()) {
            if (auto* place = dynamic_cast<RecalledPlace*>(child))
                return place;
        }
        return nullptr;
    }

    std::optional<CursorPlace> place;
};

/// Stands at the end of a step among the document's own commands, which own it. Also keeps what is
/// typed next from becoming a part of the step.
class PlaceItem : public QAbstractUndoItem
{
public:
    PlaceItem(RecalledPlace* recalled, const CursorPlace& before, const CursorPlace& after)
        : m_recalled(recalled)
        , m_before(before)
        , m_after(after)
    { }

    void undo() override { m_recalled->place = m_before; }
    void redo() override { m_recalled->place = m_after; }

private:
    RecalledPlace* const m_recalled; ///< a child of the document, like this
    const CursorPlace m_before;
    const CursorPlace m_after;
};

} // namespace

void CursorPlace::ApplyTo(QTextCursor& cursor) const
{
    const int last = cursor.document()->characterCount() - 1;
    cursor.setPosition(qBound(0, anchor, last));
    cursor.setPosition(qBound(0, position, last), QTextCursor::KeepAnchor);
}

EditStep::EditStep(QTextCursor& cursor)
    : m_cursor(cursor)
    , m_before(CursorPlace::Of(cursor))
    , m_undoSteps(cursor.document()->availableUndoSteps())
{
    cursor.beginEditBlock();
}

EditStep::~EditStep()
{
    QTextDocument& document = *m_cursor.document();
    if (document.availableUndoSteps() > m_undoSteps) {
        RecalledPlace* recalled = RecalledPlace::Of(document);
        if (!recalled)
            recalled = new RecalledPlace(&document);
        document.appendUndoItem(new PlaceItem(recalled, m_before, CursorPlace::Of(m_cursor)));
    }
    m_cursor.endEditBlock();
}

std::optional<CursorPlace> EditStep::TakeRecalledPlace(const QTextDocument& document)
{
    RecalledPlace* recalled = RecalledPlace::Of(document);
    return recalled ? std::exchange(recalled->place, std::nullopt) : std::nullopt;
}

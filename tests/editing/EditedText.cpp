#include "editing/EditedText.h"

#include "editing/EditStep.h"
#include "language/MelHighlighter.h"
#include "language/PythonHighlighter.h"

#include <QPlainTextDocumentLayout>
#include <QStringList>

namespace {

QString Marked(QString text, const CursorPlace& place)
{
    const int shift = place.anchor > place.position ? 1 : 0;
    text.insert(place.position, '|');
    if (place.anchor != place.position)
        text.insert(place.anchor + shift, '<');
    return text;
}

EditingOptions OptionsOf(const QString& names)
{
    const QStringList on = names.split(' ');
    EditingOptions options;
    options.language = on.contains("mel") ? CodeEditorLanguage::Mel
        : on.contains("python")           ? CodeEditorLanguage::Python
                                          : CodeEditorLanguage::Text;
    const int size = on.indexOf(QRegExp("size=\\d"));
    options.tabSize = size < 0 ? 4 : on.at(size).right(1).toInt();
    options.insertSpaces = !on.contains("tabs");
    options.autoIndent = !on.contains("flat");
    options.smartIndent = on.contains("smart");
    options.indentToParentheses = on.contains("aligned");
    options.closeBrackets = on.contains("brackets");
    options.closeQuotes = on.contains("quotes");
    options.backspaceToTabStop = on.contains("stops");
    options.overwrite = on.contains("overwrite");
    return options;
}

} // namespace

EditedText::EditedText(const QString& names, QString marked)
    : options(OptionsOf(names))
    , m_before(marked)
{
    const int anchor = QString(marked).remove('|').indexOf('<');
    const int position = QString(marked).remove('<').indexOf('|');
    document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
    switch (options.language) {
    case CodeEditorLanguage::Mel:
        m_highlighter = std::make_unique<MelHighlighter>(&document);
        break;
    case CodeEditorLanguage::Python:
        m_highlighter = std::make_unique<PythonHighlighter>(&document);
        break;
    case CodeEditorLanguage::Text: m_highlighter = std::make_unique<Highlighter>(&document); break;
    }
    document.setPlainText(marked.remove('<').remove('|'));
    cursor = QTextCursor(&document);
    CursorPlace{anchor < 0 ? position : anchor, position}.ApplyTo(cursor);
}

QString EditedText::Marked() const
{
    return ::Marked(document.toPlainText(), CursorPlace::Of(cursor));
}

BlockDataSource EditedText::Source()
{
    return [this](const QTextBlock& block) { return m_highlighter->GetBlockData(block); };
}

QString EditedText::MarkedRecalled() const
{
    const auto place = EditStep::TakeRecalledPlace(document);
    return place ? ::Marked(document.toPlainText(), *place) : QString("no place");
}

QString EditedText::FaultOfHistory()
{
    if (!document.isUndoAvailable())
        return {};
    const QString after = Marked();
    document.undo();
    const QString undone = MarkedRecalled();
    if (document.isUndoAvailable() || undone != m_before)
        return "undone: " + undone;
    document.redo();
    const QString redone = MarkedRecalled();
    return redone == after ? QString() : "redone: " + redone;
}

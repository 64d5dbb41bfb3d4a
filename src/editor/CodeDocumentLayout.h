#pragma once

#include <QPlainTextDocumentLayout>

/// The toolkit's layout, but for changes within one line: colours that come with them would have
/// it show the whole view anew, as it counts what was there and what is there as one behind the
/// other. Owned by its document; interface thread.
class CodeDocumentLayout : public QPlainTextDocumentLayout
{
    Q_OBJECT

public:
    explicit CodeDocumentLayout(QTextDocument* document);

protected:
    void documentChanged(int from, int removed, int added) override;

private Q_SLOTS:
    void OnContentsChange(int position, int removed, int added);

private:
    int m_textEnd = -1; ///< behind the text that the change put in; -1: it has new colours only
    int m_blockCount = 1; ///< before the change that is told next
};

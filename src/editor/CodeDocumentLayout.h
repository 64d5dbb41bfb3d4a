#pragma once

#include <QPlainTextDocumentLayout>

/// The toolkit's layout, but for changes within one line: colours that come with them would have
/// it show the whole view anew, as it counts what was there and what is there as one behind the
/// other. Owned by its document; interface thread.
class CodeDocumentLayout : public QPlainTextDocumentLayout
{
    Q_OBJECT

public:
    using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    int m_blockCount = 1; ///< before the change that is told next
};

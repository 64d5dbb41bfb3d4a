#pragma once

#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <memory>

class DocumentCopy;
class PythonSource;
class QTextDocument;

/// Has the text of a document read for completion without holding anything up: a short one at
/// once, a long one is copied in slices and read on a thread. Keeps what was read until the text
/// changes outside the line that is being written, and the copy as long as somebody asks from time
/// to time. Owned by its completer; interface thread only.
class PythonSourceLoader : public QObject
{
    Q_OBJECT

public:
    /// `document` outlives the loader and is not owned.
    PythonSourceLoader(const QTextDocument* document, QObject* parent);
    ~PythonSourceLoader() override;

    /// The document with this line (from 0) being written; null while it is being read, and Loaded
    /// follows unless the text changes elsewhere meanwhile.
    std::shared_ptr<const PythonSource> Fetch(int line);

Q_SIGNALS:
    void Loaded();
    /// The text changed outside the line that was asked for last.
    void Changed();

private:
    struct Job;

    void OnContentsChange(int position, int removed, int added);
    void OnSlice();
    void StartReading();
    void OnRead(const std::shared_ptr<Job>& job);
    void DropSource();
    void DropCopy();

    const QTextDocument* m_document; ///< not owned
    int m_line = -1; ///< asked for last
    int m_revision;
    int m_lineCount;
    std::unique_ptr<DocumentCopy> m_copy; ///< of a long text, kept true to it
    QTimer m_sliceTimer; ///< runs while the text is being copied
    QTimer m_restTimer; ///< until nobody seems to need the copy any more
    std::shared_ptr<Job> m_job; ///< while the copy is being read
    std::shared_ptr<const PythonSource> m_source;
    QThreadPool m_pool; ///< waits for its thread, whose code may be about to go
};

#pragma once

#include "engine/OutputStream.h"

#include <QMutex>
#include <QPlainTextEdit>

namespace host::ui {

/// Which messages a reporter shows.
struct ReporterFilter
{
    QString hiddenLanguage; ///< "mel", "python" or "" for none
    bool suppressInfo = false;
    bool suppressWarnings = false;
    bool suppressErrors = false;
    bool suppressResults = false;
    bool suppressStackTrace = false;

    bool Accepts(const Message& message) const;
};

/// A view of everything the host prints. Messages may arrive on any thread; those of one turn of
/// the event loop are joined, so that a script that prints a lot is not slowed down by its output.
/// While hidden it takes nothing and reads the host's history when it is shown. Lives on the main
/// thread; keeps the last MAXIMUM_LINES lines.
class ReporterView : public QPlainTextEdit
{
    Q_OBJECT
public:
    static constexpr int MAXIMUM_LINES = 20000;

    explicit ReporterView(QWidget* parent = nullptr);
    ~ReporterView() override;

    const ReporterFilter& GetFilter() const { return m_filter; }
    /// The host's history as the new filter wants it.
    void SetFilter(const ReporterFilter& filter);
    /// The host's whole history as the filter lets it through.
    QString HistoryText() const;
    /// Puts a text at the end, whatever the filter says.
    void AppendNote(const QString& text);
    /// Forgets what is on show and what is still on its way.
    void Empty();

Q_SIGNALS:
    void MessagesWaiting();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Refill();
    void Receive(const Message& message);
    void Flush();
    void Insert(const QVector<Message>& messages);

    ReporterFilter m_filter;
    int m_listener = 0;
    QMutex m_mutex;
    QVector<Message> m_waiting; ///< guarded by m_mutex
    qint64 m_waitingCharacters = 0; ///< guarded by m_mutex
    bool m_stale = true; ///< guarded by m_mutex; the text is not the history's
};

} // namespace host::ui

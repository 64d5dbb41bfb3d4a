#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <random>

class QPlainTextEdit;

/// Works with the editor window without a pause: types into files and buffers, saves, executes,
/// closes and opens again. Everything it does or finds goes into a journal, line by line and at
/// once, so that the journal outlives the process:
///
///   <ms> found <label> <hash>    what an editor holds once unsaved text has been restored
///   <ms> ready                   everything was found; work begins
///   <ms> text <label> <hash>     what it holds now
///   <ms> saving <label> <hash>   about to be written to its file, and `saved` afterwards
///   <ms> ran                     a script runs
///   <ms> closing <label>         with or without saving, and `opened <label> <hash>` afterwards
///
/// Hashes are SHA-1 of the text as UTF-8; times are of the system's monotonic clock.
class Typist : public QObject
{
    Q_OBJECT

public:
    /// `folder` holds the files a.py, b.mel and c.txt and gets the journal.
    Typist(const QString& folder, int seed);

private:
    void Begin();
    void Work();
    void TypeNext();
    void EndLine();
    void Save();
    void Execute();
    void CloseAndOpen();
    void AnswerQuestion();
    void OpenFiles();
    void ChooseEditor();
    void GoTo(QPlainTextEdit* wanted);
    void Trigger(const QString& action);
    void Note(const QString& what);
    void NoteText(const QString& what, const QPlainTextEdit* editor);
    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    QString m_folder;
    int m_journal = -1; ///< file descriptor
    std::mt19937 m_random;
    QTimer m_timer;
    QTimer m_answerTimer;
    QPlainTextEdit* m_editor = nullptr; ///< not owned
    QString m_line; ///< what is still to be typed
    int m_counter = 0;
};

#pragma once

#include "views/quickhelp/QuickHelpTopic.h"

#include <QTextBrowser>

class QTextCursor;

/// The words of the quick help about one name: what it is, how it is called, what it is for and
/// where it is defined. All of it can be selected and copied. Owned by the quick help.
class QuickHelpPage : public QTextBrowser
{
    Q_OBJECT

public:
    explicit QuickHelpPage(QWidget* parent);

    void SetTopic(const QuickHelpTopic& topic);

Q_SIGNALS:
    /// `line` counts from 1; 0 means anywhere.
    void FileRequested(const QString& path, int line);
    void HideRequested();

protected:
    bool event(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Write();
    void WriteForWidth();
    void WriteTitle(QTextCursor& cursor);
    void WriteFile(QTextCursor& cursor);
    void UpdateHeight();

    QuickHelpTopic m_topic;
    int m_writtenWidth = -1; ///< pixels of the viewport
    bool m_writing = false;
};

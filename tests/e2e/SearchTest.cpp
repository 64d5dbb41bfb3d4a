#include "e2e/EditorSession.h"
#include "support/TestMain.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <QTreeView>
#include <QtTest>

/// Finding and replacing across files with nothing but keys.
class SearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void FindsAndReplacesByKeys();

private:
    template <typename T>
    T* Part(const char* name) const
    {
        return m_window->findChild<T*>(name);
    }
    static QByteArray Content(const QString& path);

    EditorSession m_session;
    QWidget* m_window = nullptr;
};

QByteArray SearchTest::Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void SearchTest::FindsAndReplacesByKeys()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("tool.py");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("import needle\r\nneedle.run()\r\n");
    file.close();

    QVERIFY(m_session.OpenEditor());
    QPlainTextEdit* const editor = m_session.Focus("Python");
    m_window = editor->window();
    EditorSession::Replace(editor, "needle");
    editor->selectAll();
    QTest::keyClick(editor, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    auto* const field = Part<QLineEdit>("m_searchField");
    QTRY_COMPARE(QApplication::focusWidget(), field);
    QCOMPARE(field->text(), "needle");
    QTest::keyClick(field, Qt::Key_Return);
    const QAbstractItemModel& results = *Part<QTreeView>("m_results")->model();
    QTRY_COMPARE(results.rowCount(), 1); // the buffer
    QTest::keyClicks(Part<QLineEdit>("m_includeField"), folder.path());
    QTest::keyClick(Part<QLineEdit>("m_includeField"), Qt::Key_Return);
    QTRY_COMPARE(results.index(0, 0).data().toString(), "tool.py");
    QCOMPARE(results.rowCount(results.index(0, 0)), 2);

    QTest::keyClick(field, Qt::Key_F4);
    QTRY_COMPARE(m_session.Editors().size(), 3);
    auto* const opened = qobject_cast<QPlainTextEdit*>(QApplication::focusWidget());
    QVERIFY(opened);
    QCOMPARE(opened->textCursor().selectedText(), "needle");
    QCOMPARE(opened->textCursor().blockNumber(), 0);
    QTest::keyClick(opened, Qt::Key_F4);
    QCOMPARE(opened->textCursor().blockNumber(), 1);

    QTest::keyClick(opened, Qt::Key_H, Qt::ControlModifier | Qt::ShiftModifier);
    auto* const replacement = Part<QLineEdit>("m_replaceField");
    QTRY_VERIFY(replacement->isVisible());
    QTest::keyClicks(replacement, "thread");
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_COMPARE(results.rowCount(), 1);
    QTimer::singleShot(0, m_window, [] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(box);
        QCOMPARE(box->text(), "Replace 2 occurrances across 1 files with 'thread'");
        for (QAbstractButton* button : box->buttons()) {
            if (button->text() == "Replace All")
                button->click();
        }
    });
    QTest::keyClick(replacement, Qt::Key_Return);
    QTRY_COMPARE(opened->toPlainText(), "import thread\nthread.run()\n");
    QCOMPARE(Content(path), "import needle\r\nneedle.run()\r\n");
    QTest::keyClick(opened, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(opened->toPlainText(), "import needle\nneedle.run()\n");
    QTRY_COMPARE(results.rowCount(), 1);
}

TE2_TEST(SearchTest)
#include "SearchTest.moc"

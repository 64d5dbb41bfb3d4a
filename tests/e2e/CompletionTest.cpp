#include "e2e/EditorSession.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QListView>
#include <QtTest>

/// Names offered while somebody types, from the host's interpreters.
class CompletionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_session.OpenEditor()); }
    void OffersWhatTheHostKnows_data();
    void OffersWhatTheHostKnows();

private:
    static QStringList Rows();

    EditorSession m_session;
};

/// Of the list that is open.
QStringList CompletionTest::Rows()
{
    QStringList rows;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() != "m_autoCompleter" || !window->isVisible())
            continue;
        const QAbstractItemModel& model = *window->findChild<QListView*>("m_listView")->model();
        for (int i = 0; i < model.rowCount(); ++i)
            rows += model.index(i, 0).data().toString();
    }
    return rows;
}

void CompletionTest::OffersWhatTheHostKnows_data()
{
    Columns<QString, QString, QString, QString>("label", "text", "typed", "name");
    const QString type = QStringLiteral("class Shot(object):\n    LIMIT = 3\n"
                                        "    def cut(self):\n        self.frames = []\n        ");
    Row("MEL commands", "MEL", "print 1;\n", "optionV", "optionVar");
    Row("flags", "MEL", "optionVar ", "-intV", "-intValue");
    Row("attributes of a module", "Python", "import os\n", "os.pa", "path");
    Row("the host's commands", "Python", "import maya.cmds as cmds\n", "cmds.optionV", "optionVar");
    Row("what to import", "Python", "x = 1\n", "from os import get", "getcwd");
    Row("the object", "Python", type, "self.fr", "frames");
    Row("the object's class", "Python", type, "self.LI", "LIMIT");
    Row("names of the source", "Python", "tangents = 1\n", "tan", "tangents");
}

void CompletionTest::OffersWhatTheHostKnows()
{
    QFETCH(QString, label);
    QFETCH(QString, text);
    QFETCH(QString, typed);
    QFETCH(QString, name);
    QPlainTextEdit* editor = m_session.Focus(label);
    QVERIFY(editor);
    EditorSession::Replace(editor, text);
    editor->moveCursor(QTextCursor::End);
    QTest::keyClicks(editor, typed);
    QTRY_VERIFY2(Rows().contains(name), qPrintable(editor->toPlainText()));
    QTest::keyClick(editor, Qt::Key_Escape);
    QVERIFY(Rows().isEmpty());
    QCOMPARE(editor->toPlainText(), text + typed);
}

TE2_TEST(CompletionTest)
#include "CompletionTest.moc"

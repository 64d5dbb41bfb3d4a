#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "support/TestMain.h"
#include "window/FilesFixture.h"

#include <QtTest>

/// Tabs and files dragged to other places. A layout is written as the labels of each group's tabs,
/// the current one as a capital letter, with a bar between groups: "aB|C|".
class MoveTabsTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { QVERIFY(Finish()); }
    void MovesToAZone_data();
    void MovesToAZone();
    void MovesToAPlace_data();
    void MovesToAPlace();
    void OpensDroppedFiles_data();
    void OpensDroppedFiles();
    void TheOrderOfUseMovesAlong();
    void EdgesAreOfferedWhileAGroupIsFree();
    void AnEmptyGroupHandsOn();

private:
    void SetLayout(const QString& layout);
    QString Layout() const;
    /// Group and tab of a label.
    QPair<int, int> Find(const QString& label) const;
};

void MoveTabsTest::SetLayout(const QString& layout)
{
    const QStringList groups = layout.split('|');
    for (int i = 0; i < groups.size(); ++i) {
        CodeEditorGroup* const group = m_window->GetCodeEditorGroupByIndex(i);
        int current = -1;
        for (const QChar label : groups[i]) {
            const QString path = MakeFile(label.toLower());
            const int tab
                = m_window->CreateCodeEditor(CodeEditorType::File, path, QString(), group, -1);
            if (label.isUpper())
                current = tab;
        }
        group->SetCurrentIndex(current);
    }
}

QString MoveTabsTest::Layout() const
{
    QStringList groups;
    for (int i = 0; i < m_window->GetCodeEditorGroupCount(); ++i) {
        const CodeEditorGroup* const group = m_window->GetCodeEditorGroupByIndex(i);
        QString labels;
        for (int tab = 0; tab < group->GetCount(); ++tab) {
            const QString label = group->GetLabel(tab);
            labels += tab == group->GetCurrentIndex() ? label.toUpper() : label;
        }
        groups += labels;
    }
    return groups.join('|');
}

QPair<int, int> MoveTabsTest::Find(const QString& label) const
{
    const QString path = m_folder->filePath(label);
    const CodeEditorGroup* const group = m_window->GetCodeEditorGroupByPath(path);
    return {m_window->GetCodeEditorGroupIndex(group), m_window->GetCodeEditorIndex(group, path)};
}

void MoveTabsTest::MovesToAZone_data()
{
    Columns<QString, QString, int, int, QString>("layout", "tab", "target", "zone", "result");
    const int centre = int(TabDropZone::Center);
    const int before = int(TabDropZone::Before);
    const int after = int(TabDropZone::After);
    Row("into another group", "Ab|C|", "b", 1, centre, "A|cB|");
    Row("into its own group", "Ab|C|", "b", 0, centre, "aB|C|");
    Row("the last tab of a group", "Ab|C|", "c", 0, centre, "abC||");
    Row("behind, the neighbour is free", "Ab||", "b", 0, after, "A|B|");
    Row("before, the neighbour is free", "|Ab|", "b", 1, before, "B|A|");
    Row("before the first one", "Ab||", "b", 0, before, "B|A|");
    Row("behind the last one", "||Ab", "b", 2, after, "|A|B");
    Row("between, the last is free", "Abc|D|", "b", 0, after, "Ac|B|D");
    Row("between, by the other side", "Abc|D|", "b", 1, before, "Ac|B|D");
    Row("between, the first is free", "|Abc|D", "c", 1, after, "Ab|C|D");
    Row("in the gap", "Ab||C", "b", 0, after, "A|B|C");
    Row("before two", "Abc|dE|", "a", 0, before, "A|Bc|dE");
    Row("behind two", "|Ab|Cd", "b", 2, after, "A|Cd|B");
    Row("alone beside another", "A|B|", "a", 1, after, "|B|A");
    Row("alone beside itself", "A|B|", "a", 0, after, "A|B|");
    Row("all in use", "Ab|C|D", "b", 1, after, "Ab|C|D");
    Row("nowhere", "Ab||", "b", 0, int(TabDropZone::NoZone), "Ab||");
}

void MoveTabsTest::MovesToAZone()
{
    QFETCH(QString, layout);
    QFETCH(QString, tab);
    QFETCH(int, target);
    QFETCH(int, zone);
    QFETCH(QString, result);
    SetLayout(layout);
    const QPair<int, int> source = Find(tab);
    CodeEditorGroup* const group = m_window->GetCodeEditorGroupByIndex(target);
    Q_EMIT group->MoveTabToZoneRequested(source.first, source.second, target, TabDropZone(zone));
    QCOMPARE(Layout(), result);
    for (int i = 0; i < m_window->GetCodeEditorGroupCount(); ++i) {
        const CodeEditorGroup* const shown = m_window->GetCodeEditorGroupByIndex(i);
        QCOMPARE(shown->isVisible(), shown->GetCount() > 0);
    }
    if (result == layout)
        return;
    QCOMPARE(m_window->GetActiveCodeEditor()->GetLabel(), tab);
    QVERIFY(m_window->GetActiveCodeEditor()->hasFocus());
}

void MoveTabsTest::MovesToAPlace_data()
{
    Columns<QString, QString, int, int, QString>("layout", "tab", "target", "index", "result");
    Row("to the right", "Abc||", "a", 0, 2, "bcA||");
    Row("to the left", "Abc||", "c", 0, 0, "Cab||");
    Row("between those of another group", "Ab|Cd|", "a", 1, 1, "B|cAd|");
    Row("before those of another group", "A|Bc|", "a", 1, 0, "|Abc|");
    Row("a tab that is none", "Ab||", "x", 0, 0, "Ab||");
}

void MoveTabsTest::MovesToAPlace()
{
    QFETCH(QString, layout);
    QFETCH(QString, tab);
    QFETCH(int, target);
    QFETCH(int, index);
    SetLayout(layout);
    const QPair<int, int> source = Find(tab);
    CodeEditorGroup* const group = m_window->GetCodeEditorGroupByIndex(target);
    Q_EMIT group->MoveTabRequested(source.first, source.second, target, index);
    QTEST(Layout(), "result");
}

void MoveTabsTest::OpensDroppedFiles_data()
{
    // "files": "?" is one that is not there
    Columns<QString, QString, int, int, QString>("layout", "files", "target", "zone", "result");
    const int before = int(TabDropZone::Before);
    const int after = int(TabDropZone::After);
    Row("new ones behind", "A||", "xy", 0, after, "A|xY|");
    Row("new ones before", "A||", "xy", 0, before, "xY|A|");
    Row("between", "A|B|", "x", 0, after, "A|X|B");
    Row("open already", "Ab||", "b", 0, after, "aB||");
    Row("one that is not there", "A|B|", "?", 0, after, "A|B|");
    Row("some of each", "Ab||", "x?b", 0, after, "aB|X|");
    Row("all groups in use", "A|B|C", "x", 1, after, "A|bX|C");
}

void MoveTabsTest::OpensDroppedFiles()
{
    QFETCH(QString, layout);
    QFETCH(QString, files);
    QFETCH(int, target);
    QFETCH(int, zone);
    SetLayout(layout);
    QStringList paths;
    for (const QChar name : qAsConst(files))
        paths += name == '?' ? m_folder->filePath("missing") : MakeFile(name);
    CodeEditorGroup* const group = m_window->GetCodeEditorGroupByIndex(target);
    m_host->TakeMessages(host::MessageType::Error);
    Q_EMIT group->OpenFilesRequested(target, TabDropZone(zone), paths);
    QTEST(Layout(), "result");
    const QStringList errors = m_host->TakeMessages(host::MessageType::Error);
    QCOMPARE(errors.filter("Failed to open file").size(), files.count('?'));
}

void MoveTabsTest::TheOrderOfUseMovesAlong()
{
    SetLayout("Ab|cdE|");
    for (const int tab : {2, 0, 1})
        m_window->SetActiveCodeEditor(1, tab, true);
    CodeEditorGroup* const target = m_window->GetCodeEditorGroupByIndex(0);
    Q_EMIT target->MoveTabToZoneRequested(0, 1, 0, TabDropZone::After);
    QCOMPARE(Layout(), "A|B|cDe");
    QString order;
    for (const CodeEditorProperties& used :
        m_window->GetCodeEditorGroupByIndex(2)->GetLastUsedEditors())
        order += used.label;
    QCOMPARE(order, "dce");
}

void MoveTabsTest::EdgesAreOfferedWhileAGroupIsFree()
{
    // A tab over the right edge of the first group.
    const auto edgeIsOffered = [this] {
        CodeEditorGroup* const group = m_window->GetCodeEditorGroupByIndex(0);
        CodeEditor* const editor = group->GetCurrent();
        const QPoint edge = editor->mapTo(group, {editor->width() - 3, editor->height() / 2});
        QMimeData payload;
        payload.setUrls({QUrl::fromLocalFile(m_folder->filePath("z"))});
        QDragEnterEvent enter(edge, Qt::CopyAction, &payload, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(group, &enter);
        QDropEvent drop(edge, Qt::CopyAction, &payload, Qt::LeftButton, Qt::NoModifier);
        QSignalSpy together(group, &CodeEditorGroup::OpenFilesRequested);
        QApplication::sendEvent(group, &drop);
        return together.count() == 1;
    };
    SetLayout("A|B|");
    QVERIFY(edgeIsOffered());
    SetLayout("||C");
    QCOMPARE(Layout(), "A|B|C");
    QVERIFY(!edgeIsOffered());
}

void MoveTabsTest::AnEmptyGroupHandsOn()
{
    SetLayout("A|B|C");
    m_window->SetActiveCodeEditor(1, 0, true);
    m_window->CloseFile();
    QCOMPARE(Layout(), "A||C");
    QCOMPARE(m_window->GetActiveCodeEditor()->GetLabel(), "a");
    QVERIFY(m_window->GetActiveCodeEditor()->hasFocus());
    m_window->CloseFile();
    QCOMPARE(m_window->GetActiveCodeEditorGroupIndex(), 2);
    m_window->CloseFile();
    QVERIFY(!m_window->GetActiveCodeEditor());
    QVERIFY(m_window->GetActiveCodeEditorGroup()->isVisible());
}

TE2_TEST(MoveTabsTest)
#include "MoveTabsTest.moc"

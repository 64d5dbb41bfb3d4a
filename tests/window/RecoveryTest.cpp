#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "files/RecoveryFile.h"
#include "language/DocumentCopy.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/FilesFixture.h"
#include "window/RecoveryNotice.h"

#include <QCloseEvent>
#include <QDirIterator>
#include <QLabel>
#include <QPushButton>
#include <QTextBlock>
#include <QTextDocument>
#include <QtTest>

#include <random>

namespace {

const char* const DELAYS = "TE2_RECOVERY_DELAYS";
const QByteArray SOON = "20:200";
const QByteArray NEVER = "1000000:1000000";

QString RecoveryFolder()
{
    return Settings::GetUserConfigDirectory() + "/recovery";
}

/// The newest texts in a folder, by the labels of their editors.
QMap<QString, QString> SnapshotsIn(const QString& folder)
{
    QMap<QString, RecoverySnapshot> newest;
    QDirIterator files(folder, {"*.te2-recovery"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const auto snapshot = RecoveryFile::Read(files.next());
        if (!snapshot)
            continue;
        RecoverySnapshot& known = newest[snapshot->properties.label];
        if (!known.time.isValid() || known.time < snapshot->time)
            known = *snapshot;
    }
    QMap<QString, QString> texts;
    for (const RecoverySnapshot& snapshot : qAsConst(newest))
        texts[snapshot.properties.label] = snapshot.text;
    return texts;
}

QMap<QString, QString> Snapshots()
{
    return SnapshotsIn(RecoveryFolder());
}

QString Joined(const DocumentCopy& text)
{
    QString all;
    for (const QString& piece : text.GetPieces())
        all += piece;
    return all;
}

} // namespace

/// Unsaved text around the end of a session, however it ends.
class RecoveryTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { QVERIFY(Finish()); }
    void IsKeptAfterAPause_data();
    void IsKeptAfterAPause();
    void IsKeptWhileTypingGoesOn();
    void FollowsTheEditor();
    void IsKeptBeforeAScriptRuns_data();
    void IsKeptBeforeAScriptRuns();
    void ADiskThatTakesNothingStopsNobody();
    void IsOfferedAfterACrash();
    void MayBeDropped();
    void EscapeDecidesNothing();
    void WhatChangedMeanwhileIsSaid_data();
    void WhatChangedMeanwhileIsSaid();
    void NothingIsLostToARestoredText();
    void ABufferComesBackWithoutItsFile();
    void WhatWasSavedIsNotOffered();
    void EndsClean_data();
    void EndsClean();
    void ACopyFollowsItsDocument_data();
    void ACopyFollowsItsDocument();

private:
    /// The window as a killed host leaves it, and the next one.
    void Crash();
    void Restart(const QByteArray& delays = NEVER);
    RecoveryNotice* Notice() const { return m_window->findChild<RecoveryNotice*>(); }
    QString Offer() const;
    void Press(const char* button);
    void Flush();
};

void RecoveryTest::init()
{
    qputenv(DELAYS, SOON);
    QDir(RecoveryFolder()).removeRecursively();
    Start();
    Settings::saveAllOnExecute = false;
    Settings::saveAllOnExit = false;
}

void RecoveryTest::Crash()
{
    m_window->SaveState();
    DeleteWindow();
}

void RecoveryTest::Restart(const QByteArray& delays)
{
    Crash();
    qputenv(DELAYS, delays);
    CreateWindow();
}

QString RecoveryTest::Offer() const
{
    return Notice() ? Notice()->findChild<QLabel*>("recoveryList")->text() : QString();
}

void RecoveryTest::Press(const char* button)
{
    Notice()->findChild<QPushButton*>(button)->click();
    QTRY_VERIFY(!Notice());
}

/// As before every script.
void RecoveryTest::Flush()
{
    QPlainTextEdit* const editor = m_window->GetActiveCodeEditor();
    editor->setFocus();
    QTRY_VERIFY(editor->hasFocus());
    m_window->Execute(TarnwickEditor::ExecuteWhole);
}

void RecoveryTest::IsKeptAfterAPause_data()
{
    Columns<QString>("end");
    for (const char* end : {"save", "save all", "undo", "revert", "close"})
        Row(end, end);
}

void RecoveryTest::IsKeptAfterAPause()
{
    QFETCH(QString, end);
    CodeEditor* const editor = OpenFile("a.py");
    QVERIFY(Snapshots().isEmpty());
    editor->insertPlainText("new ");
    QTRY_COMPARE(Snapshots().value("a.py"), "new text\n");
    QCOMPARE(Content(Path("a.py")), "text\n");
    if (end == "save")
        m_window->Save();
    if (end == "save all")
        m_window->SaveAll();
    if (end == "undo")
        editor->undo();
    if (end == "revert") {
        m_dialogs.Press("Yes");
        m_window->RevertFile();
    }
    if (end == "close") {
        m_dialogs.Press("No");
        m_window->CloseFile();
    }
    QTRY_VERIFY(Snapshots().isEmpty());
}

void RecoveryTest::IsKeptWhileTypingGoesOn()
{
    Restart("1000000:100");
    CodeEditor* const editor = OpenFile("a.py", "");
    QTimer typist;
    connect(&typist, &QTimer::timeout, editor, [editor] { editor->insertPlainText("x"); });
    typist.start(1);
    QTRY_VERIFY(Snapshots().value("a.py").size() > 1);
    const int first = Snapshots().value("a.py").size();
    QTRY_VERIFY(Snapshots().value("a.py").size() > first);
}

void RecoveryTest::FollowsTheEditor()
{
    OpenFile("a.py")->insertPlainText("new ");
    QTRY_VERIFY(Snapshots().contains("a.py"));
    m_dialogs.Type("b.py");
    m_window->Rename();
    QTRY_COMPARE(Snapshots().keys(), QStringList("b.py"));
    // Another group's editor is the same editor.
    Q_EMIT Group()->MoveTabToZoneRequested(0, 0, 1, TabDropZone::Center);
    m_window->GetCodeEditor(Path("b.py"))->insertPlainText("more ");
    QTRY_COMPARE(Snapshots().value("b.py"), "new more text\n");
    // Nothing of the file itself is needed.
    QFile::remove(Path("b.py"));
    NewBuffer("typed");
    QTRY_COMPARE(Snapshots().value("Python"), "typed");
}

void RecoveryTest::IsKeptBeforeAScriptRuns_data()
{
    Columns<QString>("way");
    for (const char* way : {"python", "mel", "line", "source"})
        Row(way, way);
}

/// The script itself looks what is on the disk.
void RecoveryTest::IsKeptBeforeAScriptRuns()
{
    QFETCH(QString, way);
    Restart();
    const QString seen = Path("seen");
    const QString python
        = QString("import shutil; shutil.copytree('%1', '%2')").arg(RecoveryFolder(), seen);
    const QString mel = QString("python(\"%1\");").arg(python);
    OpenFile("a.txt")->insertPlainText("new ");
    CodeEditor* const editor
        = OpenFile(way == "mel" ? "b.mel" : "b.py", way == "mel" ? "" : "pass\n");
    editor->insertPlainText(way == "mel" ? mel : python + '\n');
    editor->setFocus();
    QTRY_VERIFY(editor->hasFocus());
    QVERIFY(Snapshots().isEmpty());
    if (way == "line") {
        editor->SetCurrentLine(1);
        m_window->ExecuteLine();
    } else if (way == "source") {
        m_dialogs.ChooseFile(MakeFile("c.mel", mel.toUtf8()));
        m_window->SourceScript();
    } else {
        m_window->ExecuteAll();
    }
    const QMap<QString, QString> texts = SnapshotsIn(seen);
    QCOMPARE(texts.value("a.txt"), "new text\n");
    QCOMPARE(texts.value(editor->GetLabel()), editor->GetText());
}

void RecoveryTest::ADiskThatTakesNothingStopsNobody()
{
    QFile file(RecoveryFolder());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    CodeEditor* const editor = OpenFile("a.py", "");
    editor->insertPlainText("open('" + Path("ran") + "', 'w').close()");
    QStringList warnings;
    QTRY_VERIFY(!(warnings += TakeLog(host::MessageType::Warning)).isEmpty());
    QCOMPARE(warnings, QStringList("Unsaved text could not be kept: a.py"));
    Flush();
    QVERIFY(QFile::exists(Path("ran")));
    QVERIFY(file.remove());
    editor->insertPlainText(" ");
    QTRY_VERIFY(Snapshots().contains("a.py"));
}

void RecoveryTest::IsOfferedAfterACrash()
{
    CodeEditor* const file = OpenFile("a.py", "one\ntwo\n");
    file->insertPlainText("new ");
    NewBuffer("typed");
    OpenFile("untouched.py");
    QTRY_COMPARE(Snapshots().size(), 2);
    Restart();
    QVERIFY(Notice() && Notice()->isVisible());
    QCOMPARE(Offer().count('\n') + 1, 2);
    QVERIFY(Offer().contains(Path("a.py")) && Offer().contains("Python"));
    QVERIFY(!Offer().contains("changed"));
    // Nobody is held up.
    QCOMPARE(m_window->GetCodeEditor(Path("a.py"))->GetText(), "one\ntwo\n");

    Press("m_restoreButton");
    CodeEditor* const restored = m_window->GetCodeEditor(Path("a.py"));
    QCOMPARE(restored->GetText(), "new one\ntwo\n");
    QVERIFY(restored->IsModified());
    QCOMPARE(restored->GetCursorPosition(), 4);
    QCOMPARE(Content(Path("a.py")), "one\ntwo\n");
    QVERIFY(!m_window->GetCodeEditor(Path("untouched.py"))->IsModified());
    QCOMPARE(Labels(), (QStringList{"a.py", "Python", "untouched.py"}));
    // As safe as before, and no longer twice.
    QCOMPARE(Snapshots().size(), 2);
    restored->undo();
    QCOMPARE(restored->GetText(), "one\ntwo\n");
    QVERIFY(!restored->IsModified());
}

void RecoveryTest::MayBeDropped()
{
    OpenFile("a.py")->insertPlainText("new ");
    QTRY_COMPARE(Snapshots().size(), 1);
    Restart();
    Press("m_dropButton");
    QCOMPARE(m_window->GetCodeEditor(Path("a.py"))->GetText(), "text\n");
    QVERIFY(!QFile::exists(RecoveryFolder()));
    Restart();
    QVERIFY(!Notice());
}

void RecoveryTest::EscapeDecidesNothing()
{
    OpenFile("a.py")->insertPlainText("new ");
    QTRY_COMPARE(Snapshots().size(), 1);
    Restart();
    QTest::keyClick(Notice()->findChild<QPushButton*>("m_dropButton"), Qt::Key_Escape);
    QTRY_VERIFY(!Notice());
    QCOMPARE(Snapshots().value("a.py"), "new text\n");
    Restart();
    QVERIFY(Notice());
    // Nor does an end of the session that comes before the answer.
    m_window->Shutdown();
    Restart();
    Press("m_restoreButton");
    QCOMPARE(m_window->GetCodeEditor(Path("a.py"))->GetText(), "new text\n");
}

void RecoveryTest::WhatChangedMeanwhileIsSaid_data()
{
    Columns<QString, QString>("end", "said");
    Row("as it was", "", "");
    Row("changed", "changed", ": the file has been changed since");
    Row("gone", "gone", ": the file is gone");
    Row("gone with its folder", "no folder", ": the file is gone");
}

void RecoveryTest::WhatChangedMeanwhileIsSaid()
{
    QFETCH(QString, end);
    QFETCH(QString, said);
    QVERIFY(QDir(m_folder->path()).mkdir("sub"));
    const QString path = Path("sub/a <b>.py");
    OpenFile("sub/a <b>.py")->insertPlainText("new ");
    QTRY_COMPARE(Snapshots().size(), 1);
    Crash();
    if (end == "changed")
        MakeFile("sub/a <b>.py", "somebody's\n");
    if (end == "gone")
        QVERIFY(QFile::remove(path));
    if (end == "no folder")
        QVERIFY(QDir(Path("sub")).removeRecursively());
    CreateWindow();
    QVERIFY(Offer().startsWith(path));
    QVERIFY(Offer().endsWith(")" + said));
    TakeErrors();
    Press("m_restoreButton");
    CodeEditor* const editor = m_window->GetCodeEditor(path);
    QVERIFY(editor && editor->IsModified());
    QCOMPARE(editor->GetText(), "new text\n");
    QVERIFY(TakeErrors().isEmpty());
}

/// Neither what was typed before the answer, nor the older of two texts of one file.
void RecoveryTest::NothingIsLostToARestoredText()
{
    OpenFile("a.py")->insertPlainText("first ");
    QTRY_COMPARE(Snapshots().size(), 1);
    Restart(SOON);
    m_window->GetCodeEditor(Path("a.py"))->SetCursorPosition(0, false, false);
    m_window->GetCodeEditor(Path("a.py"))->insertPlainText("second ");
    QTRY_COMPARE(Snapshots().value("a.py"), "second text\n");
    Restart();
    QCOMPARE(Offer().count('\n') + 1, 2);
    CodeEditor* const editor = m_window->GetCodeEditor(Path("a.py"));
    editor->SetCursorPosition(0, false, false);
    editor->insertPlainText("third ");
    Press("m_restoreButton");
    QStringList texts;
    for (; editor->document()->isUndoAvailable(); editor->undo())
        texts += editor->GetText();
    QCOMPARE(texts, (QStringList{"second text\n", "first text\n", "third text\n"}));
}

void RecoveryTest::ABufferComesBackWithoutItsFile()
{
    const QString path = NewBuffer("typed")->GetFilePath();
    QTRY_COMPARE(Snapshots().size(), 1);
    Crash();
    QVERIFY(QFile::remove(path));
    Settings::tabDetails.clear();
    CreateWindow();
    Press("m_restoreButton");
    const CodeEditor* const editor = m_window->GetCodeEditor(path);
    QVERIFY(editor);
    QCOMPARE(editor->GetText(), "typed");
    QVERIFY(editor->GetType() == CodeEditorType::Buffer);
    m_window->Shutdown();
    QCOMPARE(Content(path), "typed");
    QVERIFY(!QFile::exists(RecoveryFolder()));
}

/// The end may come between a save and the end of the snapshot.
void RecoveryTest::WhatWasSavedIsNotOffered()
{
    OpenFile("a.py")->insertPlainText("new ");
    QTRY_COMPARE(Snapshots().size(), 1);
    Crash();
    MakeFile("a.py", "new text\n");
    CreateWindow();
    QVERIFY(!Notice());
    QVERIFY(!QFile::exists(RecoveryFolder()));
}

void RecoveryTest::EndsClean_data()
{
    // "answer": empty: nobody was asked
    Columns<QString, bool, bool>("answer", "typesOn", "kept");
    Row("saved", "Yes", false, false);
    Row("given up", "No", false, false);
    Row("given up, but then the host went on", "No", true, true);
    Row("nobody asked", "", false, true);
}

void RecoveryTest::EndsClean()
{
    QFETCH(QString, answer);
    QFETCH(bool, typesOn);
    QFETCH(bool, kept);
    Restart();
    NewBuffer("typed");
    CodeEditor* const editor = OpenFile("a.py");
    editor->insertPlainText("new ");
    Flush();
    QCOMPARE(Snapshots().size(), 2);
    if (!answer.isEmpty()) {
        m_dialogs.Press(answer);
        QCloseEvent close;
        QObject* const filter = m_window;
        QVERIFY(!filter->eventFilter(MayaUtil::GetMainWindow(), &close));
    }
    if (typesOn)
        editor->insertPlainText("more ");
    m_window->Shutdown();
    DeleteWindow();
    QCOMPARE(Snapshots().contains("a.py"), kept);
    QVERIFY(!Snapshots().contains("Python")); // its own file has it
    QCOMPARE(QFile::exists(RecoveryFolder()), kept);
    CreateWindow();
    QCOMPARE(Notice() != nullptr, kept);
}

void RecoveryTest::ACopyFollowsItsDocument_data()
{
    Columns<int, int>("lines", "lineLength");
    Row("short lines", 4000, 10);
    Row("several pieces", 4000, 100);
    Row("endless lines", 6, 100000);
}

/// Whatever changes where, between any two slices.
void RecoveryTest::ACopyFollowsItsDocument()
{
    QFETCH(int, lines);
    QFETCH(int, lineLength);
    QTextDocument document;
    // Without one a document tells nobody of its changes.
    document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
    std::mt19937 random(7);
    const auto below = [&random](int limit) { return int(random() % unsigned(qMax(1, limit))); };
    QString text;
    for (int line = 0; line < lines; ++line)
        text += QString(lineLength, QChar('a' + line % 26)) + '\n';
    int changed = 0;
    for (int round = 0; round < 5; ++round) {
        document.setPlainText(text);
        DocumentCopy copy(&document);
        connect(&document, &QTextDocument::contentsChange, this,
            [&](int position, int removed, int added) {
                copy.OnContentsChange(position, removed, added);
            });
        while (!copy.TakeSlice(QDeadlineTimer(0))) {
            changed += Joined(copy).isEmpty() ? 0 : 1;
            const int length = document.characterCount() - 1;
            QTextCursor cursor(&document);
            cursor.setPosition(below(length));
            const int most = below(10) == 0 ? 100000 : 20;
            cursor.setPosition(
                qMin(length, cursor.position() + below(most)), QTextCursor::KeepAnchor);
            const QString inserted = QString(below(most) / 2, 'N') + QString(below(3), '\n');
            cursor.insertText(inserted);
        }
        QCOMPARE(Joined(copy), document.toPlainText());
        disconnect(&document, nullptr, this, nullptr);
    }
    QVERIFY(changed >= 5);
}

TE2_TEST(RecoveryTest)
#include "RecoveryTest.moc"

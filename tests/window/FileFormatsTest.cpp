#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "settings/ExtraSettings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/FilesFixture.h"
#include "window/chrome/StatusItem.h"

#include <QCheckBox>
#include <QDialog>
#include <QPushButton>
#include <QtTest>

/// Encodings and line ends of files, and files that are no text.
class FileFormatsTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        Start();
        QFile::remove(ExtraSettings::GetUserConfigPath());
        ExtraSettings::ReadUserConfig();
    }
    void cleanup() { QVERIFY(Finish()); }
    void NothingIsLostUnasked_data();
    void NothingIsLostUnasked();
    void AsksOnceForAFile();
    void AsksOnceForAllFiles_data();
    void AsksOnceForAllFiles();
    void RemembersThatNobodyWantsToBeAsked();
    void ConvertedTextIsShown();
    void AtTheEndNobodyIsAsked();
    void TheStatusBarFollowsTheEditor();
    void AsksBeforeOpeningWhatIsNoText_data();
    void AsksBeforeOpeningWhatIsNoText();
    void WhatIsNoTextDoesNotComeBackByItself();

private:
    /// Checks the box of the next question and presses the button.
    void CheckAndPress(const QString& button)
    {
        m_dialogs.Do([button](QDialog* dialog) {
            dialog->findChild<QCheckBox*>()->setChecked(true);
            for (QPushButton* candidate : dialog->findChildren<QPushButton*>()) {
                if (candidate->text().remove('&') == button)
                    return candidate->click();
            }
            dialog->reject();
        });
    }
    QString Status() const
    {
        const auto* item = m_window->findChild<StatusItem*>("m_format");
        return item->isVisible() ? item->GetText() : QString();
    }
};

void FileFormatsTest::NothingIsLostUnasked_data()
{
    // "answer": empty: nobody asks; "saved": %: where the typed text stands; "said": in the
    // question
    Columns<QByteArray, QString, QString, QByteArray, QString>(
        "bytes", "typed", "answer", "saved", "said");
    const auto row = [](const char* name, const QByteArray& bytes, const QString& typed,
                         const QString& answer, const QByteArray& saved,
                         const QString& said) { Row(name, bytes, typed, answer, saved, said); };
    const QByteArray declared = "# coding: latin-1\n";
    const QString euro(QChar(0x20ac));
    // clang-format off
    row("ordinary", "a\n\xc2\xa0", "x", "", "xa\n\xc2\xa0", "");
    row("mark and windows, kept", "\xef\xbb\xbf" "a\r\nb", "x\n", "Keep",
        "\xef\xbb\xbfx\r\na\r\nb", "'a.py' is stored as: UTF-8 with BOM, CRLF.");
    row("mark and windows, converted", "\xef\xbb\xbf" "a\r\nb", "x", "Write as UTF-8",
        "xa\nb", "Keep its encoding and line ends, or write it as UTF-8 with line feeds?");
    row("cancelled", "a\r\n", "x", "Cancel", "a\r\n", "CRLF");
    row("odd bytes, kept", "\xff\n", "x", "Keep", "x\xff\n", "Written as UTF-8, invalid bytes become unknown");
    row("declared and plain", declared, "#", "", "#" + declared, "");
    row("declared, kept", declared + "\xe9", "#", "Keep", "#" + declared + "\xe9",
        "Written as UTF-8, its coding line is wrong.");
    row("not in the declared one", declared + "\xe9", "#" + euro, "Write as UTF-8",
        "#\xe2\x82\xac" + declared + "\xc3\xa9", "'a.py' has characters that Latin-1 cannot hold.");
    row("16 bits", QByteArray("\xff\xfe" "a\0", 4), "x", "Keep",
        QByteArray("\xff\xfex\0a\0", 6), "UTF-16 LE");
    // clang-format on
}

void FileFormatsTest::NothingIsLostUnasked()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, typed);
    QFETCH(QString, answer);
    QFETCH(QString, said);
    CodeEditor* const editor = OpenFile("a.py", bytes);
    editor->insertPlainText(typed);
    m_dialogs.Expect(answer);
    m_window->Save();
    const QStringList asked = m_dialogs.TakeQuestions();
    QCOMPARE(asked.size(), answer.isEmpty() ? 0 : 1);
    QVERIFY2(asked.join('|').contains(said), qPrintable(asked.join('|')));
    QTEST(Content(Path("a.py")), "saved");
    QCOMPARE(editor->IsModified(), answer == "Cancel");
}

void FileFormatsTest::AsksOnceForAFile()
{
    CodeEditor* const editor = OpenFile("a.py", "a\r\n");
    editor->insertPlainText("x");
    m_dialogs.Press("Keep");
    m_window->Save();
    editor->insertPlainText("y");
    m_window->Save();
    QCOMPARE(Content(Path("a.py")), "xya\r\n");
    // Not under another name, nor after somebody else wrote it.
    m_dialogs.ChooseFile(Path("b.py"), "All Files(*.*)");
    m_window->SaveAs();
    editor->insertPlainText("z");
    m_window->Save();
    QCOMPARE(Content(Path("b.py")), "xyza\r\n");
    QCOMPARE(m_dialogs.Take().size(), 1 + 1);
    QCOMPARE(Status(), "CRLF");
}

void FileFormatsTest::AsksOnceForAllFiles_data()
{
    Columns<QString, bool, int, QByteArray>("answer", "forAll", "questions", "saved");
    Row("keep all", "Keep", true, 1, QByteArray("xa\r\n"));
    Row("convert all", "Write as UTF-8", true, 1, QByteArray("xa\n"));
    Row("each", "Keep", false, 3, QByteArray("xa\r\n"));
    Row("cancel", "Cancel", false, 1, QByteArray("a\r\n"));
}

void FileFormatsTest::AsksOnceForAllFiles()
{
    QFETCH(QString, answer);
    QFETCH(bool, forAll);
    QFETCH(int, questions);
    QFETCH(QByteArray, saved);
    const QStringList names{"a.py", "b.py", "c.py"};
    for (const QString& name : names)
        OpenFile(name, "a\r\n")->insertPlainText("x");
    for (int i = 0; i < questions; ++i)
        forAll ? CheckAndPress(answer) : m_dialogs.Press(answer);
    m_window->SaveAll();
    QCOMPARE(m_dialogs.Take().size(), questions);
    for (const QString& name : names)
        QCOMPARE(Content(Path(name)), saved);
    QCOMPARE(m_window->ModifiedFilesExist(), answer == "Cancel");
    QVERIFY(!ExtraSettings::keepEncodingAndLineEnds);
}

void FileFormatsTest::RemembersThatNobodyWantsToBeAsked()
{
    OpenFile("a.py", "a\r\n")->insertPlainText("x");
    CheckAndPress("Keep");
    m_window->Save();
    OpenFile("b.py", "a\rb\n\xff")->insertPlainText("x");
    m_window->Save();
    QCOMPARE(m_dialogs.Take().size(), 1);
    QCOMPARE(Content(Path("b.py")), "xa\rb\n\xff");
    ExtraSettings::keepEncodingAndLineEnds = false;
    ExtraSettings::ReadUserConfig();
    QVERIFY(ExtraSettings::keepEncodingAndLineEnds);
    QCOMPARE(QFileInfo(ExtraSettings::GetUserConfigPath()).fileName(), "tarnwickEditor2_extra.ini");
}

void FileFormatsTest::ConvertedTextIsShown()
{
    CodeEditor* const editor = OpenFile("a.py", "a\xff");
    QCOMPARE(Status(), "UTF-8 with invalid bytes");
    editor->insertPlainText("x");
    m_dialogs.Press("Write as UTF-8");
    m_window->Save();
    QCOMPARE(editor->GetText(), QString("xa") + QChar(QChar::ReplacementCharacter));
    QVERIFY(!editor->IsModified());
    QCOMPARE(Status(), QString());
    m_dialogs.Take();
}

void FileFormatsTest::AtTheEndNobodyIsAsked()
{
    Settings::saveAllOnExit = true;
    OpenFile("a.py",
        "\xef\xbb\xbf"
        "a\r\n")
        ->insertPlainText("x");
    OpenFile("b.py", "# coding: latin-1\n\xe9")->insertPlainText(QString("#") + QChar(0x20ac));
    m_window->Shutdown();
    QCOMPARE(m_dialogs.Take().size(), 0);
    QCOMPARE(Content(Path("a.py")), "\xef\xbb\xbfxa\r\n");
    QCOMPARE(Content(Path("b.py")), "#\xe2\x82\xac# coding: latin-1\n\xc3\xa9");
}

void FileFormatsTest::TheStatusBarFollowsTheEditor()
{
    OpenFile("a.py", "a\n");
    QCOMPARE(Status(), QString());
    OpenFile("b.py",
        "\xef\xbb\xbf"
        "a\r\n");
    QCOMPARE(Status(), "UTF-8 with BOM CRLF");
    m_window->OnFilePathChanged(Path("b.py"), Path("c.py"));
    QCOMPARE(Status(), "UTF-8 with BOM CRLF");
    Group()->SetCurrentIndex(0);
    QCOMPARE(Status(), QString());
    m_window->CloseAllFiles();
    QCOMPARE(Status(), QString());
}

void FileFormatsTest::AsksBeforeOpeningWhatIsNoText_data()
{
    Columns<QByteArray, QString, QString>("bytes", "answer", "said");
    const QByteArray binary("a\0\r\n\xff", 5);
    const QString doubt = "'a.py' (5 bytes) does not look like a text.";
    Row("no", binary, "No", doubt);
    Row("yes", binary, "Yes", doubt);
    Row("large", QByteArray(64 * 1024 * 1024 + 1, 'a'), "No", "'a.py' has 64.00 MiB.");
}

void FileFormatsTest::AsksBeforeOpeningWhatIsNoText()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, answer);
    QFETCH(QString, said);
    MakeFile("a.py", bytes);
    m_dialogs.Press(answer);
    m_window->OpenFile(Path("a.py"), false);
    const DialogAnswers::Seen seen = m_dialogs.Take().value(0);
    QCOMPARE(seen.title, "Open File");
    QVERIFY2(seen.text.startsWith(said), qPrintable(seen.text));
    QCOMPARE(seen.defaultButton, "No");
    QCOMPARE(Labels(), answer == "Yes" ? QStringList("a.py") : QStringList());
    if (answer == "No")
        return;
    ExtraSettings::keepEncodingAndLineEnds = true;
    m_window->GetActiveCodeEditor()->insertPlainText("x");
    m_window->Save();
    QCOMPARE(Content(Path("a.py")), "x" + bytes);
}

void FileFormatsTest::WhatIsNoTextDoesNotComeBackByItself()
{
    OpenFile("a.py");
    OpenFile("b.py");
    m_window->SaveState();
    DeleteWindow();
    MakeFile("a.py", QByteArray("\0", 1));
    TakeLog(host::MessageType::Warning);
    CreateWindow();
    QCOMPARE(Labels(), QStringList("b.py"));
    QCOMPARE(m_dialogs.Take().size(), 0);
    QCOMPARE(Settings::recentFiles.value(0), Path("a.py"));
    const QStringList warnings = TakeLog(host::MessageType::Warning);
    QVERIFY2(warnings.value(0).contains(Path("a.py")), qPrintable(warnings.join('\n')));
}

TE2_TEST(FileFormatsTest)
#include "FileFormatsTest.moc"

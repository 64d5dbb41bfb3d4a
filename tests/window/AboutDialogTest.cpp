#include "window/AboutDialog.h"

#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/DialogAnswers.h"
#include "window/WindowFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBrowser>
#include <QtTest>

#include <memory>

class AboutDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_fixture = std::make_unique<WindowFixture>(); }
    void cleanup() { Settings::ResetToDefaults(); }
    void cleanupTestCase() { m_fixture.reset(); }
    void CopiesWhatItTells();
    void ShowsValuesAsTheyAre();
    void ShowsAllLicences();

private:
    std::unique_ptr<WindowFixture> m_fixture;
};

void AboutDialogTest::CopiesWhatItTells()
{
    Settings::pylintEnabled = true;
    Settings::pylintPath = "/opt/my pylint";
    AboutDialog dialog(nullptr);
    dialog.findChild<QPushButton*>("m_copyButton")->click();
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    QStringList names;
    for (const QString& line : lines)
        names += line.section(": ", 0, 0);
    QCOMPARE(names,
        QStringList({"Plug-in version", "Host version", "Python", "Qt", "Interface scale",
            "Configuration folder", "Pylint", ""}));
    QCOMPARE(lines[0], "Plug-in version: " + Settings::VERSION_STRING);
    QCOMPARE(lines[1], QString("Host version: 2024"));
    QVERIFY(QRegularExpression("^Python: 3\\.\\d+\\.\\d+$").match(lines[2]).hasMatch());
    QCOMPARE(lines[5], "Configuration folder: " + Settings::GetUserConfigDirectory());
    QCOMPARE(lines[6], QString("Pylint: /opt/my pylint"));
    Settings::pylintEnabled = false;
    QVERIFY(AboutText::Plain(AboutText::Rows()).contains("Pylint: off\n"));
}

void AboutDialogTest::ShowsValuesAsTheyAre()
{
    QTextBrowser browser;
    const QString folder = "/tmp/<b>a</b> & \"%20\"";
    browser.setHtml(AboutText::Html({{"Folder", folder, true}, {"%1", "<i>", false}}));
    const QString text = browser.toPlainText();
    QVERIFY(text.contains(folder) && text.contains("%1") && text.contains("<i>"));
    QTextCursor link = browser.document()->find(folder);
    QCOMPARE(QUrl(link.charFormat().anchorHref()).toLocalFile(), folder);
}

/// Of everything that is in the folder of licences, and the program's own.
void AboutDialogTest::ShowsAllLicences()
{
    AboutDialog dialog(nullptr);
    DialogAnswers answers;
    QString shown;
    answers.Do([&shown](QDialog* licences) {
        shown = licences->findChild<QPlainTextEdit*>("m_licences")->toPlainText();
        QTest::keyClick(licences, Qt::Key_Escape);
    });
    dialog.findChild<QPushButton*>("m_licencesButton")->click();
    const QDir source(QDir::cleanPath(TEST_DATA_DIR "/../../.."));
    QStringList paths = {source.filePath("LICENSE")};
    for (const QString& name : QDir(source.filePath("licenses")).entryList(QDir::Files))
        paths += source.filePath("licenses/" + name);
    QVERIFY(paths.size() > 1);
    for (const QString& path : qAsConst(paths)) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY2(shown.contains(QString::fromUtf8(file.readAll()).trimmed()), qPrintable(path));
    }
}

TE2_TEST(AboutDialogTest)
#include "AboutDialogTest.moc"

#include "window/PanelGroup.h"

#include "output/OutputTextEdit.h"
#include "plugin/MayaUtil.h"
#include "settings/ColorSettings.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "window/WindowFixture.h"
#include "window/chrome/ElidedLabel.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

class PanelGroupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { m_host.reset(); }
    void VerbositySetsTheHostAndTheTrace_data();
    void VerbositySetsTheHostAndTheTrace();
    void ShowsWhatTheHostDoes();
    void TellsTheHostAgainWhatItForgot();
    void WheelTurnsOnlyTheFocusedBox();
    void WritesToTheChosenFile_data();
    void WritesToTheChosenFile();
    void CancelledDialogChangesNothing();
    void AsksBeforeReplacingWhatTheNameBecame();
    void StopsOnlyWhenConfirmed();
    void FollowsAFileThatCannotBeWritten();
    void TitleMenuActsOnThePanel();
    void LongFileNamesGiveWay();

private:
    template <typename T>
    T* Child(const char* name) const
    {
        return m_panel->findChild<T*>(name);
    }
    QComboBox* Box() const { return Child<QComboBox>("m_verbosity"); }
    QToolButton* WriteButton() const { return Child<QToolButton>("m_writeToFileButton"); }
    /// Presses the button and acts on the dialog of that type once it is there.
    template <typename Dialog>
    void PressWrite(const std::function<void(Dialog*)>& act);
    void ChooseFile(const QString& path, const QString& filter);

    KeyBindings m_keyBindings;
    QTemporaryDir m_directory;
    std::unique_ptr<WindowFixture> m_host;
    std::unique_ptr<PanelGroup> m_panel;
};

void PanelGroupTest::initTestCase()
{
    m_host = std::make_unique<WindowFixture>();
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void PanelGroupTest::init()
{
    Settings::outputMinimalTrace = false;
    MayaUtil::SetEchoAllCommandsEnabled(false);
    m_panel = std::make_unique<PanelGroup>(&m_keyBindings, nullptr);
    m_panel->resize(600, 200);
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
}

void PanelGroupTest::cleanup()
{
    m_panel.reset();
    Settings::outputMinimalTrace = false;
    MayaUtil::SetEchoAllCommandsEnabled(false);
}

void PanelGroupTest::VerbositySetsTheHostAndTheTrace_data()
{
    Columns<int, int, bool, bool>("from", "to", "echoAll", "minimal");
    Row("echo all", 1, 0, true, false);
    Row("normal", 0, 1, false, false);
    Row("minimal", 0, 2, false, true);
    Row("from minimal to normal", 2, 1, false, false);
    Row("from minimal to echo all", 2, 0, true, false);
}

void PanelGroupTest::VerbositySetsTheHostAndTheTrace()
{
    QFETCH(int, from);
    QFETCH(int, to);
    Box()->setCurrentIndex(from);
    QSignalSpy changed(m_panel.get(), &PanelGroup::EchoAllCommandsChanged);
    Box()->setCurrentIndex(to);
    QTEST(MayaUtil::EchoAllCommandsEnabled(), "echoAll");
    QTEST(Settings::outputMinimalTrace, "minimal");
    QCOMPARE(changed.count(), 1);
}

void PanelGroupTest::ShowsWhatTheHostDoes()
{
    Settings::outputMinimalTrace = true;
    PanelGroup quiet(&m_keyBindings, nullptr);
    QCOMPARE(quiet.GetVerbosityIndex(), 2);
    MayaUtil::SetEchoAllCommandsEnabled(true);
    PanelGroup loud(&m_keyBindings, nullptr);
    QCOMPARE(loud.GetVerbosityIndex(), 0);
    // Showing it is no choice.
    QVERIFY(Settings::outputMinimalTrace);
    loud.SetEchoAllCommandsEnabled(false);
    QCOMPARE(loud.GetVerbosityIndex(), 2);
    QVERIFY(!MayaUtil::EchoAllCommandsEnabled());
}

void PanelGroupTest::TellsTheHostAgainWhatItForgot()
{
    m_panel->SetEchoAllCommandsEnabled(true);
    // As a script does it, behind the panel's back.
    MayaUtil::SetEchoAllCommandsEnabled(false);
    m_panel->SetEchoAllCommandsEnabled(true);
    QVERIFY(MayaUtil::EchoAllCommandsEnabled());
}

void PanelGroupTest::WheelTurnsOnlyTheFocusedBox()
{
    m_panel->SetNormalVerbosity();
    const auto turn = [this] {
        const QPoint place(5, 5);
        QWheelEvent event(place, Box()->mapToGlobal(place), {}, {0, -120}, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(Box(), &event);
        return m_panel->GetVerbosityIndex();
    };
    m_panel->GetOutput()->setFocus();
    QCOMPARE(turn(), 1);
    m_panel->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
    Box()->setFocus(Qt::TabFocusReason);
    QCOMPARE(turn(), 2);
}

template <typename Dialog>
void PanelGroupTest::PressWrite(const std::function<void(Dialog*)>& act)
{
    QTimer poll;
    bool isDone = false;
    connect(&poll, &QTimer::timeout, this, [&] {
        auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        poll.stop();
        isDone = true;
        act(dialog);
    });
    poll.start(0);
    WriteButton()->click();
    QVERIFY(isDone);
}

void PanelGroupTest::ChooseFile(const QString& path, const QString& filter)
{
    PressWrite<QFileDialog>([&](QFileDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), "Write Output to File");
        QCOMPARE(dialog->nameFilters(), QStringList({"LOG (*.log)", "All Files(*.*)"}));
        dialog->selectNameFilter(filter);
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(path);
        dialog->metaObject()->invokeMethod(dialog, "accept");
    });
}

void PanelGroupTest::WritesToTheChosenFile_data()
{
    Columns<QString, QString, QString>("typed", "filter", "written");
    Row("without extension", "plain", "LOG (*.log)", "plain.log");
    Row("with it in capitals", "big.LOG", "LOG (*.log)", "big.LOG");
    Row("with another one", "out.txt", "LOG (*.log)", "out.txt.log");
    Row("any file", "any", "All Files(*.*)", "any");
}

void PanelGroupTest::WritesToTheChosenFile()
{
    QFETCH(QString, typed);
    QFETCH(QString, filter);
    QFETCH(QString, written);
    QSignalSpy updated(m_panel.get(), &PanelGroup::WriteToFileUpdated);
    ChooseFile(m_directory.filePath(typed), filter);
    QVERIFY(QFile::exists(m_directory.filePath(written)));
    QCOMPARE(updated, (QList<QVariantList>{{true}}));
    QVERIFY(WriteButton()->isChecked());
    QCOMPARE(WriteButton()->toolTip(), "Stop writing to file");
    QCOMPARE(Child<ElidedLabel>("m_fileName")->GetText(), written);
    // The next dialog starts where this one ended.
    m_panel->GetOutput()->EndWriteToFile();
    PressWrite<QFileDialog>([this](QFileDialog* dialog) {
        QCOMPARE(dialog->directory().absolutePath(), m_directory.path());
        dialog->reject();
    });
}

void PanelGroupTest::CancelledDialogChangesNothing()
{
    QSignalSpy updated(m_panel.get(), &PanelGroup::WriteToFileUpdated);
    PressWrite<QFileDialog>([this](QFileDialog* dialog) {
        QVERIFY(!WriteButton()->isChecked());
        dialog->reject();
    });
    QVERIFY(!m_panel->IsWriteToFileActive());
    QVERIFY(!WriteButton()->isChecked());
    QCOMPARE(updated, (QList<QVariantList>{{false}}));
}

void PanelGroupTest::AsksBeforeReplacingWhatTheNameBecame()
{
    QFile file(m_directory.filePath("precious.log"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("precious");
    file.close();
    QTimer poll;
    connect(&poll, &QTimer::timeout, this, [&poll] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        poll.stop();
        QTest::keyClick(box, Qt::Key_Return); // the default
    });
    poll.start(0);
    ChooseFile(m_directory.filePath("precious"), "LOG (*.log)");
    QVERIFY(!m_panel->IsWriteToFileActive());
    QCOMPARE(QFileInfo(file).size(), 8);
}

void PanelGroupTest::StopsOnlyWhenConfirmed()
{
    QVERIFY(m_panel->GetOutput()->BeginWriteToFile(m_directory.filePath("stop.log")));
    m_panel->UpdateKeyBindings();
    QSignalSpy updated(m_panel.get(), &PanelGroup::WriteToFileUpdated);
    PressWrite<QMessageBox>([](QMessageBox* box) {
        QCOMPARE(box->windowTitle(), "Write Output to File");
        QCOMPARE(box->text(), "Stop writing output to file?");
        QCOMPARE(box->standardButton(box->defaultButton()), QMessageBox::No);
        box->button(QMessageBox::No)->click();
    });
    QVERIFY(m_panel->IsWriteToFileActive());
    QVERIFY(WriteButton()->isChecked());
    PressWrite<QMessageBox>([](QMessageBox* box) { box->button(QMessageBox::Yes)->click(); });
    QVERIFY(!m_panel->IsWriteToFileActive());
    QVERIFY(!WriteButton()->isChecked());
    QCOMPARE(WriteButton()->toolTip(), "Write to File");
    QCOMPARE(updated, (QList<QVariantList>{{true}, {false}}));
}

void PanelGroupTest::FollowsAFileThatCannotBeWritten()
{
    const QString folder = m_directory.filePath("volatile");
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(m_panel->GetOutput()->BeginWriteToFile(folder + "/out.log"));
    m_panel->UpdateKeyBindings();
    QVERIFY(WriteButton()->isChecked());
    m_host->TakeMessages(host::MessageType::Error);
    QVERIFY(QDir(folder).removeRecursively());
    QSignalSpy updated(m_panel.get(), &PanelGroup::WriteToFileUpdated);
    m_panel->OutputAppendText("lost\n");
    m_panel->OutputAppendText("lost as well\n");
    QTRY_COMPARE(updated, (QList<QVariantList>{{false}}));
    QVERIFY(!WriteButton()->isChecked());
    QCOMPARE(Child<ElidedLabel>("m_fileName")->GetText(), QString());
    const QStringList errors = m_host->TakeMessages(host::MessageType::Error);
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors[0].contains(folder + "/out.log"));
}

void PanelGroupTest::TitleMenuActsOnThePanel()
{
    QSignalSpy hide(m_panel.get(), &PanelGroup::HideRequested);
    const auto choose = [this](const QString& label) {
        auto* const title = Child<QWidget>("m_titleBar");
        Q_EMIT title->customContextMenuRequested({5, 5});
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QStringList labels;
        for (QAction* action : menu->actions()) {
            labels += action->text();
            if (action->text() == label)
                action->trigger();
        }
        labels.removeAll(QString());
        QCOMPARE(labels,
            QStringList(
                {"Clear", "Write to File", "Echo All", "Normal", "Minimal", "Hide Output"}));
        menu->close();
    };
    m_panel->OutputAppendText("text");
    choose("Clear");
    QCOMPARE(m_panel->GetOutput()->GetText(), QString());
    choose("Minimal");
    QVERIFY(Settings::outputMinimalTrace);
    QCOMPARE(hide.count(), 0);
    choose("Hide Output");
    QCOMPARE(hide.count(), 1);
}

void PanelGroupTest::LongFileNamesGiveWay()
{
    const int width = m_panel->minimumSizeHint().width();
    const QString path = m_directory.filePath(QString("R&D").repeated(70) + ".log");
    QVERIFY(m_panel->GetOutput()->BeginWriteToFile(path));
    m_panel->UpdateKeyBindings();
    QCOMPARE(m_panel->minimumSizeHint().width(), width);
    QCOMPARE(Child<ElidedLabel>("m_fileName")->toolTip(), path);
}

TE2_TEST(PanelGroupTest)
#include "PanelGroupTest.moc"

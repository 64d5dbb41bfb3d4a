#include "settings/pages/PylintPage.h"

#include "settings/pages/OptionCopies.h"
#include "settings/pages/OptionField.h"
#include "settings/pages/OptionTable.h"
#include "settings/pages/ProgramProbe.h"

#include <QProcessEnvironment>
#include <QPushButton>

namespace {

constexpr int LIMIT = 5000; // ms

} // namespace

PylintPage::PylintPage(OptionCopies& copies, QWidget* parent)
    : OptionsPage(OptionTable::Pylint(), copies, parent)
    , m_executable(GetField("pylintPath"))
    , m_testButton(new QPushButton(tr("Test"), m_executable))
    , m_probe(new ProgramProbe(LIMIT, this))
{
    m_testButton->setObjectName(QStringLiteral("m_testButton"));
    m_testButton->setAccessibleName(tr("Test the pylint executable"));
    m_testButton->setToolTip(tr("Run the executable with --version"));
    m_testButton->setAutoDefault(false);
    m_executable->AddBeside(m_testButton);
    setTabOrder(m_executable->findChild<QWidget*>(QStringLiteral("m_browseButton")), m_testButton);
    connect(m_testButton, &QPushButton::clicked, this, &PylintPage::Test);
    connect(m_probe, &ProgramProbe::Finished, this, &PylintPage::OnAnswered);
    connect(&copies, &OptionCopies::Changed, this, &PylintPage::UpdateTest);
    UpdateTest();
}

void PylintPage::Test()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString home = GetField("pylintPythonHomePath")->GetValue().toString();
    if (!home.isEmpty())
        environment.insert(QStringLiteral("PYTHONHOME"), home);
    m_tested = m_executable->GetValue();
    m_executable->SetNote(tr("Waiting for an answer..."));
    m_probe->Start(m_tested.toString(), environment);
    UpdateTest();
}

void PylintPage::OnAnswered(bool answered, const QString& text)
{
    const QString line = QString(text).replace(QLatin1Char('\n'), QLatin1String(", "));
    const bool isPylint = answered && text.startsWith(QLatin1String("pylint"));
    m_executable->SetNote(isPylint ? tr("Works: %1").arg(line)
            : answered             ? tr("This is not pylint: %1").arg(line)
                                   : tr("Does not work: %1").arg(line));
    UpdateTest();
}

void PylintPage::UpdateTest()
{
    m_testButton->setEnabled(GetCopies().GetFault(m_executable->GetRow()).isEmpty());
    if (!m_probe->IsRunning() && m_executable->GetValue() != m_tested)
        m_executable->SetNote(QString());
}

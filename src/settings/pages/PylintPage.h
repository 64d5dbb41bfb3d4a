#pragma once

#include "settings/pages/OptionsPage.h"

#include <QVariant>

class ProgramProbe;
class QPushButton;

/// The page of pylint, where the chosen executable can be tried. Owned by the dialog.
class PylintPage : public OptionsPage
{
    Q_OBJECT

public:
    PylintPage(OptionCopies& copies, QWidget* parent);

private Q_SLOTS:
    void Test();
    void OnAnswered(bool answered, const QString& text);
    /// An answer holds for the program that gave it.
    void UpdateTest();

private:
    OptionField* m_executable;
    QPushButton* m_testButton;
    ProgramProbe* m_probe;
    QVariant m_tested; ///< the program
};

#pragma once

#include "settings/pages/OptionsPage.h"

class QLabel;

/// A page with a font of its own, which a sample shows. Owned by the dialog.
class FontPage : public OptionsPage
{
    Q_OBJECT

public:
    /// The keys are those of the font's options.
    FontPage(const OptionPage& page, const char* familyKey, const char* sizeKey,
        OptionCopies& copies, QWidget* parent);

private Q_SLOTS:
    void UpdateSample();

private:
    OptionField* m_family;
    OptionField* m_size;
    QLabel* m_sample;
};

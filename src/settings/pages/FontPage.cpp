#include "settings/pages/FontPage.h"

#include "settings/pages/OptionCopies.h"
#include "settings/pages/OptionField.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/TextLook.h"
#include "window/chrome/Theme.h"

#include <QFontDatabase>
#include <QLabel>

namespace {

constexpr int SAMPLE_HEIGHT = 52; // design pixels; the largest font has room

} // namespace

FontPage::FontPage(const OptionPage& page, const char* familyKey, const char* sizeKey,
    OptionCopies& copies, QWidget* parent)
    : OptionsPage(page, copies, parent)
    , m_family(GetField(familyKey))
    , m_size(GetField(sizeKey))
    , m_sample(new QLabel(QStringLiteral("move -x 0.5 $node; # iIl1| oO0 {[()]}"), this))
{
    m_sample->setObjectName(QStringLiteral("m_sample"));
    m_sample->setTextFormat(Qt::PlainText);
    // As wide as the page, whatever the font.
    m_sample->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    AddBelow(*m_size, m_sample);
    connect(&copies, &OptionCopies::Changed, this, &FontPage::UpdateSample);
    FollowLook(this, [this] {
        m_sample->setFixedHeight(Theme::Dp(SAMPLE_HEIGHT));
        UpdateSample();
    });
}

void FontPage::UpdateSample()
{
    const QString family = m_family->GetValue().toString();
    const bool isInstalled = QFontDatabase().families().contains(family, Qt::CaseInsensitive);
    m_family->SetNote(isInstalled ? QString() : tr("Not installed here: another font stands in."));
    QFont font = m_sample->font();
    font.setFamily(family);
    font.setStyleHint(QFont::TypeWriter);
    font.setPointSize(m_size->GetValue().toInt());
    int noZoom = 0;
    m_sample->setFont(TextLook::ZoomedFont(font, noZoom));
}

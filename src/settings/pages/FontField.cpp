#include "settings/pages/FontField.h"

#include "settings/pages/WheelGuard.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QLineEdit>

namespace {

constexpr int WIDTH = 260; // design pixels

} // namespace

FontField::FontField(const OptionRow& row, QWidget* parent)
    : OptionField(row, parent)
    , m_family(new QComboBox(this))
{
    // A family that is not installed here may be typed: the settings travel between machines.
    m_family->setEditable(true);
    m_family->setInsertPolicy(QComboBox::NoInsert);
    m_family->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    AddFamilies();
    GuardFromWheel(m_family);
    AddControl(m_family);
    m_family->lineEdit()->setAccessibleName(m_family->accessibleName());
    AddStretch();
    connect(m_family, &QComboBox::editTextChanged, this, &FontField::Changed);
    FollowLook(m_family, [this] { m_family->setMinimumWidth(Theme::Dp(WIDTH)); });
}

void FontField::AddFamilies()
{
    const QFontDatabase fonts;
    QStringList others;
    for (const QString& family : fonts.families()) {
        if (fonts.isFixedPitch(family))
            m_family->addItem(family);
        else
            others.append(family);
    }
    if (m_family->count() > 0 && !others.isEmpty())
        m_family->insertSeparator(m_family->count());
    m_family->addItems(others);
}

QVariant FontField::GetValue() const
{
    return m_family->currentText().trimmed();
}

void FontField::SetValue(const QVariant& value)
{
    const QString family = value.toString();
    const int index = m_family->findText(family);
    if (index >= 0)
        m_family->setCurrentIndex(index);
    m_family->setEditText(family);
}

QWidget* FontField::GetControl() const
{
    return m_family;
}

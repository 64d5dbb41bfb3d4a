#include "settings/pages/OptionsPage.h"

#include "settings/pages/OptionCopies.h"
#include "settings/pages/OptionField.h"
#include "settings/pages/OptionTable.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QGridLayout>
#include <QLabel>

#include <algorithm>

namespace {

// Design pixels.
constexpr int GROUP_GAP = 12;
constexpr int COLUMN_GAP = 4;
constexpr int HEADING_INDENT = 4; ///< as the fields have for their marks
constexpr int HEADING_HEIGHT = 24;

QLabel* CreateHeading(const OptionGroup& group, QWidget* parent)
{
    auto* heading = new QLabel(OptionTable::tr(group.title), parent);
    heading->setObjectName(QStringLiteral("heading"));
    FollowLook(parent, [heading, parent] {
        QFont font = parent->font();
        font.setWeight(QFont::DemiBold);
        heading->setFont(font);
        heading->setFixedHeight(Theme::Dp(HEADING_HEIGHT));
        heading->setIndent(Theme::Dp(HEADING_INDENT));
    });
    return heading;
}

} // namespace

OptionsPage::OptionsPage(const OptionPage& page, OptionCopies& copies, QWidget* parent)
    : PreferencesPage(parent)
    , m_page(page)
    , m_copies(copies)
{
    CreateFields();
    UpdateFields();
    connect(&m_copies, &OptionCopies::Changed, this, &OptionsPage::UpdateFields);
}

void OptionsPage::CreateFields()
{
    auto* layout = new QVBoxLayout(this);
    QHBoxLayout* line = nullptr;
    for (const OptionGroup& group : m_page.groups) {
        if (!line || group.side == OptionGroup::Side::Below) {
            line = new QHBoxLayout;
            line->setSpacing(0);
            layout->addLayout(line);
        }
        line->addWidget(CreateGroup(group), 1, Qt::AlignTop);
    }
    layout->addStretch(1);
    FollowLook(this, [this, layout] {
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(Theme::Dp(GROUP_GAP));
        AlignLabels();
    });
}

QWidget* OptionsPage::CreateGroup(const OptionGroup& group)
{
    auto* widget = new QWidget(this);
    auto* grid = new QGridLayout(widget);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(0);
    grid->addWidget(CreateHeading(group, widget), 0, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    int ends[] = {1, 1};
    for (const OptionRow& row : group.rows)
        AddField(OptionField::Create(row, widget), *grid, ends);
    FollowLook(widget, [grid] { grid->setHorizontalSpacing(Theme::Dp(COLUMN_GAP)); });
    return widget;
}

/// `ends` are the first free rows of the two columns.
void OptionsPage::AddField(OptionField* field, QGridLayout& grid, int (&ends)[2])
{
    using P = OptionRow::Place;
    const P place = field->GetRow().place;
    if (place == P::Wide) {
        const int row = std::max(ends[0], ends[1]);
        grid.addWidget(field, row, 0, 1, 2);
        ends[0] = ends[1] = row + 1;
    } else {
        const int column = place == P::Left ? 0 : 1;
        grid.addWidget(field, ends[column]++, column);
    }
    field->SetValue(m_copies.Get(field->GetRow()));
    m_fields.append(field);
    connect(field, &OptionField::Changed, this, &OptionsPage::OnFieldChanged);
}

/// The controls of a group begin at the same place.
void OptionsPage::AlignLabels()
{
    for (const OptionField* field : qAsConst(m_fields)) {
        int width = 0;
        const auto fields = field->parentWidget()->findChildren<OptionField*>();
        for (const OptionField* other : fields)
            width = std::max(width, other->GetLabelWidth());
        for (OptionField* other : fields)
            other->SetLabelWidth(width);
    }
}

QString OptionsPage::GetTitle() const
{
    return OptionTable::tr(m_page.title);
}

QString OptionsPage::GetIconName() const
{
    return QLatin1String(m_page.icon);
}

void OptionsPage::AddBelow(const OptionField& field, QWidget* widget)
{
    auto* const grid = static_cast<QGridLayout*>(field.parentWidget()->layout());
    grid->addWidget(widget, grid->rowCount(), 0, 1, 2);
}

bool OptionsPage::IsChanged() const
{
    return m_copies.IsChanged(m_page);
}

void OptionsPage::Apply()
{
    m_copies.Apply(m_page);
    Q_EMIT Changed();
}

void OptionsPage::RestoreDefaults()
{
    m_copies.RestoreDefaults(m_page);
    for (OptionField* field : qAsConst(m_fields))
        field->SetValue(m_copies.Get(field->GetRow()));
}

void OptionsPage::OnFieldChanged()
{
    const auto* const field = qobject_cast<OptionField*>(sender());
    m_copies.Set(field->GetRow(), field->GetValue());
    Q_EMIT Changed();
}

void OptionsPage::UpdateFields()
{
    for (OptionField* field : qAsConst(m_fields)) {
        field->SetIdle(m_copies.WhyIdle(field->GetRow()));
        field->SetFault(m_copies.GetFault(field->GetRow()));
    }
}

QWidget* OptionsPage::FindWrongField() const
{
    // What was wrong before holds nobody up.
    if (!IsChanged())
        return nullptr;
    for (const OptionField* field : m_fields) {
        if (!m_copies.GetFault(field->GetRow()).isEmpty())
            return field->GetControl();
    }
    return nullptr;
}

int OptionsPage::MarkMatches(const QString& text)
{
    int count = 0;
    auto field = m_fields.cbegin();
    for (const OptionGroup& group : m_page.groups) {
        const bool isWanted = OptionTable::tr(group.title).contains(text, Qt::CaseInsensitive);
        for (const OptionRow& row : group.rows) {
            const bool matches = !text.isEmpty() && (isWanted || OptionTable::Matches(row, text));
            (*field++)->SetMatched(matches);
            count += matches ? 1 : 0;
        }
    }
    return count;
}

QWidget* OptionsPage::FindFirstMatch() const
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(),
        [](const OptionField* field) { return field->IsMatched(); });
    return found == m_fields.end() ? nullptr : (*found)->GetControl();
}

OptionField* OptionsPage::GetField(const char* key) const
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(),
        [key](const OptionField* field) { return qstrcmp(field->GetRow().key, key) == 0; });
    return found == m_fields.end() ? nullptr : *found;
}

#include "settings/pages/ColorsPage.h"

#include "settings/pages/ColorRoleList.h"
#include "settings/pages/ColorSampleView.h"
#include "window/chrome/ColorLabel.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int GAP = 8;
constexpr int COLUMN_GAP = 14;
constexpr int BUTTON_GAP = 2; ///< the buttons bring the room for their rings along
constexpr int PART_HEIGHT = 24;
constexpr int PART_GAP = 2;
constexpr int LISTS_WIDTH = 204;
constexpr int CODE_EDITOR_LIST_HEIGHT = 150;
constexpr int OUTPUT_LIST_HEIGHT = 122;

using Part = ColorScheme::Part;

struct PartRow
{
    Part part;
    const char* label;
    const char* objectName;
};

// clang-format off
constexpr PartRow COLOR_PARTS[] = {
    {Part::Foreground, QT_TRANSLATE_NOOP("ColorsPage", "Foreground"), "m_foreground"},
    {Part::Background, QT_TRANSLATE_NOOP("ColorsPage", "Background"), "m_background"},
};
constexpr PartRow CHECK_PARTS[] = {
    {Part::Bold,       QT_TRANSLATE_NOOP("ColorsPage", "Bold"),       "m_bold"},
    {Part::Italic,     QT_TRANSLATE_NOOP("ColorsPage", "Italic"),     "m_italic"},
    {Part::Underline,  QT_TRANSLATE_NOOP("ColorsPage", "Underline"),  "m_underline"},
};
// clang-format on

} // namespace

ColorsPage::ColorsPage(QWidget* parent)
    : PreferencesPage(parent)
{
    CreateLayout();
    ShowRole(m_codeEditorRoles->GetRole(0));
}

void ColorsPage::CreateLists(QBoxLayout& column)
{
    const auto createList
        = [&](ColorRole::Surface surface, const QString& name, const QString& objectName) {
              auto* caption = new QLabel(name, this);
              caption->setObjectName(QStringLiteral("caption"));
              auto* list = new ColorRoleList(&m_scheme, surface, this);
              list->setObjectName(objectName);
              list->setAccessibleName(name);
              caption->setBuddy(list);
              column.addWidget(caption);
              connect(list, &ColorRoleList::RoleChosen, this, &ColorsPage::ShowRole);
              return list;
          };
    m_codeEditorRoles
        = createList(ColorRole::CodeEditor, tr("Code Editor"), QStringLiteral("m_codeEditorRoles"));
    column.addWidget(m_codeEditorRoles, 1);
    m_outputRoles
        = createList(ColorRole::Output, tr("Output Console"), QStringLiteral("m_outputRoles"));
    column.addWidget(m_outputRoles);
    setFocusProxy(m_codeEditorRoles);
}

void ColorsPage::CreateParts(QGridLayout& grid)
{
    for (const PartRow& part : COLOR_PARTS) {
        const int row = m_colors.size();
        auto* label = new ColorLabel(this);
        label->setObjectName(QLatin1String(part.objectName));
        label->setAccessibleName(tr(part.label));
        auto* caption = new QLabel(tr(part.label), this);
        caption->setBuddy(label);
        grid.addWidget(caption, row, 0);
        grid.addWidget(label, row, 1, Qt::AlignLeft);
        m_colors.append({part.part, caption, label});
        connect(label, &ColorLabel::Clicked, this, [this, row] { SelectColor(m_colors[row]); });
    }
    for (const PartRow& part : CHECK_PARTS) {
        auto* box = new QCheckBox(tr(part.label), this);
        box->setObjectName(QLatin1String(part.objectName));
        box->setAccessibleName(tr(part.label));
        grid.addWidget(box, m_checks.size(), 2);
        m_checks.append({part.part, box});
        connect(box, &QCheckBox::clicked, this, [this, part](bool checked) {
            m_scheme.SetOn(m_role, part.part, checked);
            OnEdited();
        });
    }
    grid.setColumnStretch(3, 1);
}

QPushButton* ColorsPage::CreateButton(
    const QString& text, const QString& name, void (ColorsPage::*slot)())
{
    auto* button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setAccessibleName(text);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

void ColorsPage::CreateLayout()
{
    auto* lists = new QVBoxLayout;
    CreateLists(*lists);
    m_title = new QLabel(this);
    m_title->setObjectName(QStringLiteral("heading"));
    auto* parts = new QGridLayout;
    CreateParts(*parts);
    auto* buttons = new QHBoxLayout;
    m_resetButton
        = CreateButton(tr("Reset"), QStringLiteral("m_resetButton"), &ColorsPage::ResetRole);
    m_resetAllButton
        = CreateButton(tr("Reset All"), QStringLiteral("m_resetAllButton"), &ColorsPage::ResetAll);
    buttons->addWidget(m_resetButton);
    buttons->addWidget(m_resetAllButton);
    buttons->addStretch(1);
    m_sample = new ColorSampleView(&m_scheme, this);
    m_sample->setObjectName(QStringLiteral("m_sample"));
    connect(m_sample, &ColorSampleView::RolePressed, this, &ColorsPage::ShowRole);
    m_hint
        = new QLabel(tr("A color that was saved cannot be taken away again, only changed."), this);
    m_hint->setObjectName(QStringLiteral("m_hint"));
    m_hint->setWordWrap(true);
    auto* details = new QVBoxLayout;
    details->addWidget(m_title);
    details->addLayout(parts);
    details->addLayout(buttons);
    details->addWidget(m_sample, 1);
    details->addWidget(m_hint);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(lists);
    layout->addLayout(details, 1);
    FollowLook(this, [this, layout, lists, details, parts, buttons] {
        layout->setSpacing(Theme::Dp(COLUMN_GAP));
        lists->setSpacing(Theme::Dp(GAP / 2));
        details->setSpacing(Theme::Dp(GAP));
        parts->setHorizontalSpacing(Theme::Dp(COLUMN_GAP));
        parts->setVerticalSpacing(Theme::Dp(PART_GAP));
        // Roles with fewer parts leave everything below where it is.
        for (int row = 0; row < m_checks.size(); ++row)
            parts->setRowMinimumHeight(row, Theme::Dp(PART_HEIGHT));
        buttons->setSpacing(Theme::Dp(BUTTON_GAP));
        m_codeEditorRoles->setFixedWidth(Theme::Dp(LISTS_WIDTH));
        m_codeEditorRoles->setMinimumHeight(Theme::Dp(CODE_EDITOR_LIST_HEIGHT));
        m_outputRoles->setFixedSize(Theme::Dp(LISTS_WIDTH), Theme::Dp(OUTPUT_LIST_HEIGHT));
        QFont heading = font();
        heading.setWeight(QFont::DemiBold);
        m_title->setFont(heading);
        m_hint->setFont(Theme::SmallFont(font()));
        for (QLabel* caption : findChildren<QLabel*>(QStringLiteral("caption")))
            caption->setFont(Theme::SmallFont(font()));
    });
}

QString ColorsPage::GetTitle() const
{
    return tr("Colors");
}

QString ColorsPage::GetIconName() const
{
    return QStringLiteral("prefs_colors");
}

bool ColorsPage::IsChanged() const
{
    return m_scheme.IsChanged();
}

void ColorsPage::Apply()
{
    m_scheme.Apply();
    Q_EMIT Changed();
}

void ColorsPage::RestoreDefaults()
{
    ResetAll();
}

QString ColorsPage::GetRestoreQuestion() const
{
    return tr("Set all colors back to the built-in ones?");
}

int ColorsPage::MarkMatches(const QString& text)
{
    const int inCodeEditor = m_codeEditorRoles->MarkMatches(text);
    const int inOutput = m_outputRoles->MarkMatches(text);
    ColorRoleList* const first = inCodeEditor > 0 ? m_codeEditorRoles
        : inOutput > 0                            ? m_outputRoles
                                                  : nullptr;
    m_firstMatch = first;
    if (first)
        ShowRole(first->GetFirstMatch());
    return inCodeEditor + inOutput;
}

QWidget* ColorsPage::FindFirstMatch() const
{
    return m_firstMatch;
}

void ColorsPage::ShowRole(const ColorRole& role)
{
    m_role = role;
    m_codeEditorRoles->ShowRole(role);
    m_outputRoles->ShowRole(role);
    m_sample->Show(ColorSample::TextWith(role, m_sample->GetText()));
    UpdateParts();
}

void ColorsPage::ResetRole()
{
    m_scheme.Reset(m_role);
    OnEdited();
}

void ColorsPage::ResetAll()
{
    m_scheme.ResetAll();
    OnEdited();
}

void ColorsPage::SelectColor(const ColorRow& row)
{
    const QColor old = m_scheme.GetColor(m_role, row.part);
    const QColor color = QColorDialog::getColor(old.isValid() ? old : QColor(Qt::white), this,
        tr("%1: %2").arg(m_scheme.GetLabel(m_role), row.caption->text()));
    if (!color.isValid() || color == old)
        return;
    m_scheme.SetColor(m_role, row.part, color);
    OnEdited();
}

void ColorsPage::OnEdited()
{
    m_codeEditorRoles->UpdateRoles();
    m_outputRoles->UpdateRoles();
    m_sample->Show(m_sample->GetText());
    UpdateParts();
    Q_EMIT Changed();
}

void ColorsPage::UpdateParts()
{
    m_title->setText(m_scheme.GetLabel(m_role));
    for (const ColorRow& row : qAsConst(m_colors)) {
        const bool isUsed = m_scheme.Uses(m_role, row.part);
        row.caption->setVisible(isUsed);
        row.label->setVisible(isUsed);
        row.label->SetColor(m_scheme.GetColor(m_role, row.part));
    }
    for (const CheckRow& row : qAsConst(m_checks)) {
        row.box->setVisible(m_scheme.Uses(m_role, row.part));
        row.box->setChecked(m_scheme.IsOn(m_role, row.part));
    }
    m_resetButton->setEnabled(m_scheme.IsModified(m_role));
    const auto isAnyModified = [this](ColorRole::Surface surface) {
        for (const QString& key : ColorScheme::GetKeys(surface)) {
            if (m_scheme.IsModified({surface, key}))
                return true;
        }
        return false;
    };
    m_resetAllButton->setEnabled(
        isAnyModified(ColorRole::CodeEditor) || isAnyModified(ColorRole::Output));
}

#include "output/OutputHighlightingDialog.h"

#include "output/ConsoleColors.h"
#include "output/HighlightPreview.h"
#include "window/chrome/ColorLabel.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/NamedControl.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolLineEdit.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int WIDTH = 400;
constexpr int MARGIN = 16;
constexpr int COLUMN_GAP = 10;
constexpr int ROW_GAP = 7;

constexpr QRgb NEW_FOREGROUND = 0xff00ff00;

} // namespace

OutputHighlightingDialog::OutputHighlightingDialog(const QString& title, QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(title);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    CreateWidgets();
    CreateLayout();
    CreateConnections();
    SetDefaults();
}

void OutputHighlightingDialog::CreateWidgets()
{
    const auto checkBox = [this](const char* name, const QString& text, const QString& label) {
        return NamedControl(new QCheckBox(text, this), name, label);
    };
    m_name = NamedControl(new QLineEdit(this), "nameLineEdit", tr("Name"));
    m_match = NamedControl(new ToolLineEdit(this), "matchLineEdit", tr("Text Matching"));
    m_regExp = checkBox("regExpCB", tr("RegExp"), tr("RegExp"));
    m_foregroundEnabled = checkBox("foregroundEnabledCB", QString(), tr("Foreground"));
    m_foreground = NamedControl(new ColorLabel(this), "foregroundColor", tr("Foreground color"));
    m_highlightLine = checkBox("highlightLineCB", tr("Highlight Line"), tr("Highlight Line"));
    m_backgroundEnabled = checkBox("backgroundEnabledCB", QString(), tr("Background"));
    m_background = NamedControl(new ColorLabel(this), "backgroundColor", tr("Background color"));
    m_enabled = checkBox("enabledCB", QString(), tr("Enabled"));
    m_preview = new HighlightPreview(this);
    m_preview->setObjectName(QStringLiteral("m_preview"));
    m_ok = NamedControl(new QPushButton(tr("OK"), this), "okButton", tr("OK"));
    m_ok->setDefault(true);
    m_cancel = NamedControl(new QPushButton(tr("Cancel"), this), "cancelButton", tr("Cancel"));
    m_cancel->setAutoDefault(false);
}

void OutputHighlightingDialog::CreateLayout()
{
    auto* grid = new QGridLayout;
    AddRow(*grid, tr("Name:"), m_name, nullptr, nullptr);
    AddRow(*grid, tr("Text Matching:"), m_match, nullptr, m_regExp);
    AddRow(*grid, tr("Foreground:"), m_foregroundEnabled, m_foreground, m_highlightLine);
    AddRow(*grid, tr("Background:"), m_backgroundEnabled, m_background, nullptr);
    AddRow(*grid, tr("Enabled:"), m_enabled, nullptr, nullptr);
    AddRow(*grid, QString(), m_preview, nullptr, nullptr);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(m_ok, QDialogButtonBox::AcceptRole);
    buttons->addButton(m_cancel, QDialogButtonBox::RejectRole);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addWidget(buttons);
    FollowLook(this, [this, grid, layout] {
        const int margin = Theme::Dp(MARGIN);
        layout->setContentsMargins(margin, margin, margin, margin);
        layout->setSpacing(Theme::Dp(ROW_GAP));
        grid->setHorizontalSpacing(Theme::Dp(COLUMN_GAP));
        grid->setVerticalSpacing(Theme::Dp(ROW_GAP));
        setMinimumWidth(Theme::Dp(WIDTH));
    });
}

/// A label, the field that it belongs to and what stands beside that.
void OutputHighlightingDialog::AddRow(
    QGridLayout& grid, const QString& label, QWidget* field, QWidget* second, QWidget* atEnd)
{
    const int row = grid.rowCount();
    auto* caption = new QLabel(label, this);
    caption->setBuddy(field);
    grid.addWidget(caption, row, 0, Qt::AlignRight | Qt::AlignVCenter);
    auto* fields = new QHBoxLayout;
    const bool isCheckBox = qobject_cast<QCheckBox*>(field);
    fields->setSpacing(Theme::Dp(COLUMN_GAP));
    fields->addWidget(field, isCheckBox ? 0 : 1);
    if (second)
        fields->addWidget(second);
    if (isCheckBox && atEnd)
        fields->addSpacing(Theme::Dp(COLUMN_GAP));
    if (atEnd)
        fields->addWidget(atEnd);
    if (isCheckBox)
        fields->addStretch(1);
    grid.addLayout(fields, row, 1);
}

void OutputHighlightingDialog::CreateConnections()
{
    using D = OutputHighlightingDialog;
    for (QLineEdit* field : {m_name, static_cast<QLineEdit*>(m_match)})
        connect(field, &QLineEdit::textChanged, this, &D::UpdateDisplay);
    for (QCheckBox* checkBox : {m_regExp, m_foregroundEnabled, m_backgroundEnabled})
        connect(checkBox, &QCheckBox::toggled, this, &D::UpdateDisplay);
    connect(m_foreground, &ColorLabel::Clicked, this, &D::SelectForegroundColor);
    connect(m_background, &ColorLabel::Clicked, this, &D::SelectBackgroundColor);
    connect(m_ok, &QPushButton::clicked, this, &D::accept);
    connect(m_cancel, &QPushButton::clicked, this, &D::reject);
}

void OutputHighlightingDialog::SetDefaults()
{
    SetSelectionProperties(ExtraSelectionProperties(
        tr("Unnamed"), QColor(NEW_FOREGROUND), QColor(), QString(), false, false, true));
    m_name->selectAll();
    m_name->setFocus();
}

void OutputHighlightingDialog::SetSelectionProperties(const ExtraSelectionProperties& rule)
{
    m_name->setText(rule.name);
    m_match->setText(rule.pattern);
    m_regExp->setChecked(rule.regularExpression);
    m_highlightLine->setChecked(rule.wholeLine);
    m_enabled->setChecked(rule.enabled);
    SetColor(m_foreground, m_foregroundEnabled, rule.foreground, rule.hasForeground,
        ConsoleForeground());
    m_name->ensurePolished();
    SetColor(m_background, m_backgroundEnabled, rule.background, rule.hasBackground,
        m_name->palette().color(QPalette::Base));
    UpdateDisplay();
}

void OutputHighlightingDialog::SetColor(ColorLabel* label, QCheckBox* enabledCheckBox,
    const QColor& color, bool enabled, const QColor& whenUnset)
{
    label->SetColor(enabled ? color : whenUnset);
    enabledCheckBox->setChecked(enabled);
}

ExtraSelectionProperties OutputHighlightingDialog::GetSelectionProperties() const
{
    const auto color = [](const ColorLabel* label, const QCheckBox* enabledCheckBox) {
        return enabledCheckBox->isChecked() ? label->GetColor() : QColor();
    };
    return ExtraSelectionProperties(m_name->text(), color(m_foreground, m_foregroundEnabled),
        color(m_background, m_backgroundEnabled), m_match->text(), m_regExp->isChecked(),
        m_highlightLine->isChecked(), m_enabled->isChecked());
}

void OutputHighlightingDialog::SelectForegroundColor()
{
    SelectColor(m_foreground, m_foregroundEnabled);
}

void OutputHighlightingDialog::SelectBackgroundColor()
{
    SelectColor(m_background, m_backgroundEnabled);
}

void OutputHighlightingDialog::SelectColor(ColorLabel* label, QCheckBox* enabledCheckBox)
{
    const QColor color = QColorDialog::getColor(label->GetColor(), this, tr("Select Color"));
    if (!color.isValid())
        return;
    label->SetColor(color);
    // Who chooses a colour wants to see it.
    enabledCheckBox->setChecked(true);
    UpdateDisplay();
}

void OutputHighlightingDialog::UpdateDisplay()
{
    const ExtraSelectionProperties rule = GetSelectionProperties();
    m_preview->Show(rule.name, rule.foreground, rule.background);
    m_match->SetFault(ExpressionFault());
}

QString OutputHighlightingDialog::ExpressionFault() const
{
    const QRegularExpression expression(m_regExp->isChecked() ? m_match->text() : QString());
    if (expression.isValid())
        return {};
    return tr("%1 at character %2")
        .arg(expression.errorString())
        .arg(expression.patternErrorOffset() + 1);
}

void OutputHighlightingDialog::accept()
{
    const QString fault = ExpressionFault();
    if (m_name->text().trimmed().isEmpty())
        Refuse(m_name, tr("Name field is empty"));
    else if (m_match->text().isEmpty())
        Refuse(m_match, tr("Text matching field is empty"));
    else if (!fault.isEmpty())
        Refuse(m_match, tr("Text matching field is not a regular expression: %1").arg(fault));
    else
        QDialog::accept();
}

void OutputHighlightingDialog::Refuse(QLineEdit* field, const QString& reason)
{
    QMessageBox box(QMessageBox::Warning, tr("Invalid"), reason, QMessageBox::Ok, this);
    // Parts of the expression may be in it.
    box.setTextFormat(Qt::PlainText);
    box.exec();
    field->setFocus();
}

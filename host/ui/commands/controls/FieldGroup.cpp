#include "ui/commands/controls/FieldGroup.h"

#include <QAbstractButton>
#include <QLabel>

namespace host::ui {

namespace {

constexpr int LABEL_WIDTH = 140;
constexpr int LABEL_GAP = 5;
constexpr int FIELD_GAP = 2;
constexpr int MOST_FIELDS = 4;

QLabel* NewLabel(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->hide();
    return label;
}

} // namespace

FieldGroup::FieldGroup(bool hasLabel)
    : m_hasLabel(hasLabel)
    , m_label(NewLabel(this))
    , m_extraLabel(NewLabel(this))
{
    auto* box = new ColumnBox(this);
    if (!hasLabel)
        return;
    ColumnStyle style;
    style.width = Scaled(LABEL_WIDTH);
    style.rightOffset = Scaled(LABEL_GAP);
    style.alignment = Qt::AlignRight;
    box->SetStyleAt(0, style);
    box->addWidget(m_label);
    m_label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_label->show();
    m_columnCount = 1;
}

void FieldGroup::Add(QWidget* field, int width)
{
    auto* box = static_cast<ColumnBox*>(layout());
    m_fields += field;
    ColumnStyle style;
    style.width = Scaled(width);
    style.spacing = focusProxy() ? Scaled(FIELD_GAP) : 0;
    box->SetStyleAt(m_columnCount++, style);
    box->addWidget(field);
    if (!focusProxy())
        setFocusProxy(field);
}

void FieldGroup::AddHidden(QWidget* field)
{
    m_fields += field;
    field->setParent(this);
    field->hide();
}

void FieldGroup::RemoveFields()
{
    for (QWidget* field : qAsConst(m_fields)) {
        layout()->removeWidget(field);
        field->hide();
        field->deleteLater();
    }
    m_fields.clear();
    layout()->removeWidget(m_extraLabel);
    setFocusProxy(nullptr);
    m_columnCount = m_hasLabel ? 1 : 0;
}

void FieldGroup::SetLabel(const QString& label)
{
    m_label->setText(label);
    NameFields();
}

QString FieldGroup::GetLabel() const
{
    return m_label->text();
}

void FieldGroup::SetExtraLabel(const QString& label)
{
    m_extraLabel->setText(label);
    if (layout()->indexOf(m_extraLabel) < 0) {
        auto* box = static_cast<ColumnBox*>(layout());
        ColumnStyle style;
        style.leftOffset = Scaled(LABEL_GAP);
        box->SetStyleAt(m_columnCount++, style);
        box->addWidget(m_extraLabel);
    }
    m_extraLabel->show();
}

QString FieldGroup::GetExtraLabel() const
{
    return m_extraLabel->text();
}

/// Fields of one sort are numbered; buttons have a text of their own.
void FieldGroup::NameFields()
{
    QHash<QByteArray, int> counts;
    for (QWidget* field : qAsConst(m_fields))
        ++counts[field->metaObject()->className()];
    for (int i = 0; i < m_fields.size(); ++i) {
        const auto* button = qobject_cast<QAbstractButton*>(m_fields.at(i));
        if (button && !button->text().isEmpty())
            continue;
        const bool numbered = counts.value(m_fields.at(i)->metaObject()->className()) > 1;
        const QString number = numbered ? QStringLiteral(" %1").arg(i + 1) : QString();
        m_fields.at(i)->setAccessibleName(m_label->text() + number);
    }
    setAccessibleName(m_label->text());
}

FieldGroup* NewGroup(const Call& call)
{
    return new FieldGroup(call.Has("label"));
}

int FieldCountFrom(const Call& call, const char* flag)
{
    return call.Has(flag) ? qBound(1, call.Int(flag), MOST_FIELDS) : 1;
}

namespace {

// clang-format off
const Property GROUP[] = {
    {"label",      [](Edit& e) { Group(e.element)->SetLabel(e.Text()); }, [](Element& e) -> Value { return Group(e)->GetLabel(); }},
    {"extraLabel", [](Edit& e) { Group(e.element)->SetExtraLabel(e.Text()); }, [](Element& e) -> Value { return Group(e)->GetExtraLabel(); }},
};
// clang-format on

} // namespace

const Family GROUP_FAMILY{"extraLabel/el str cqe; label/l str cqe;", GROUP, &COLUMN_FAMILY};

} // namespace host::ui

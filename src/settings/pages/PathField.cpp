#include "settings/pages/PathField.h"

#include "settings/pages/HomePath.h"
#include "settings/pages/OptionTable.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/ToolLineEdit.h"

#include <QFileDialog>
#include <QFileInfo>

PathField::PathField(const OptionRow& row, QWidget* parent)
    : OptionField(row, parent)
    , m_path(new ToolLineEdit(this))
{
    AddControl(m_path);
    auto* browse = new FlatButton(
        QStringLiteral("folder_open"), tr("Browse..."), FlatButton::Tint::Computed, m_path);
    browse->setObjectName(QStringLiteral("m_browseButton"));
    m_path->AddTool(browse);
    connect(browse, &QAbstractButton::clicked, this, &PathField::Browse);
    connect(m_path, &QLineEdit::textChanged, this, &PathField::Changed);
    connect(m_path, &QLineEdit::editingFinished, this, &PathField::ExpandHome);
}

void PathField::ExpandHome()
{
    SetValue(WithHomeFolder(m_path->text()));
}

void PathField::Browse()
{
    const QString title = OptionTable::tr(GetRow().label);
    const QString start = QFileInfo(m_path->text()).absolutePath();
    const QString path = GetRow().kind == OptionRow::Kind::Folder
        ? QFileDialog::getExistingDirectory(this, title, m_path->text())
        : QFileDialog::getOpenFileName(this, title, m_path->text().isEmpty() ? QString() : start);
    if (!path.isEmpty())
        m_path->setText(path);
}

QVariant PathField::GetValue() const
{
    return m_path->text();
}

void PathField::SetValue(const QVariant& value)
{
    // The cursor stays where it is while the person types.
    if (m_path->text() != value.toString())
        m_path->setText(value.toString());
}

QWidget* PathField::GetControl() const
{
    return m_path;
}

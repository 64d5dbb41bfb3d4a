#pragma once

#include "ui/commands/layouts/ColumnFlags.h"

class QLabel;

namespace host::ui {

/// A label, some fields and perhaps a second label in one row of columns: the widget of all
/// commands whose names end in "Grp". The first field has the focus of the group.
class FieldGroup : public QWidget
{
    Q_OBJECT
public:
    /// With or without a column for the label.
    explicit FieldGroup(bool hasLabel);

    /// Adds a column. `width` 0: as the field needs; in lengths of scripts.
    void Add(QWidget* field, int width = 0);
    /// Adds a field that is not shown and has no column.
    void AddHidden(QWidget* field);
    /// The columns behind the label are free again.
    void RemoveFields();
    bool HasLabel() const { return m_hasLabel; }
    template <typename T>
    T* Field(int index = 0) const
    {
        return static_cast<T*>(m_fields.value(index));
    }
    int FieldCount() const { return m_fields.size(); }

    /// A group without a column for the label keeps it as a name for assistive programs.
    void SetLabel(const QString& label);
    QString GetLabel() const;
    void SetExtraLabel(const QString& label);
    QString GetExtraLabel() const;

private:
    void NameFields();

    const bool m_hasLabel;
    QLabel* m_label;
    QLabel* m_extraLabel;
    QVector<QWidget*> m_fields;
    int m_columnCount = 0;
};

/// The flags of all groups.
extern const Family GROUP_FAMILY;

inline FieldGroup* Group(const Element& element)
{
    return As<FieldGroup>(element);
}
/// A new group with a label when the call gives one. Add the fields, then give it to the element.
FieldGroup* NewGroup(const Call& call);
/// How many of one to four fields the call wants by that flag.
int FieldCountFrom(const Call& call, const char* flag);

} // namespace host::ui

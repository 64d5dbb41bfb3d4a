#pragma once

#include <QHash>
#include <QLayout>
#include <QVector>

#include <array>

namespace host::ui {

/// What one edge of a child of a form hangs on.
struct Attachment
{
    enum class To { None, Form, OppositeForm, Control, OppositeControl, Position };

    To to = To::None;
    int offset = 0; ///< px away from what it hangs on
    int position = 0; ///< divisions from the left or top; To::Position only
    const QWidget* control = nullptr; ///< not owned; a sibling
};

enum FormEdge { LeftEdge, TopEdge, RightEdge, BottomEdge };

/// Places each child by its four attachments. A child with both edges of a direction attached
/// stretches between them; with one it keeps its natural size.
class FormBox : public QLayout
{
    Q_OBJECT
public:
    explicit FormBox(QWidget* parent);
    ~FormBox() override;

    void Attach(const QWidget* child, FormEdge edge, const Attachment& attachment);
    void SetDivisions(int divisions) { m_divisions = qMax(1, divisions); }
    int GetDivisions() const { return m_divisions; }

    void addItem(QLayoutItem* item) override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    int count() const override { return m_items.size(); }
    QSize sizeHint() const override;
    QSize minimumSize() const override { return {}; }
    void setGeometry(const QRect& rectangle) override;

private:
    using Edges = std::array<Attachment, 4>;
    /// Start and end of a child in one direction.
    struct Span
    {
        int start = 0;
        int end = 0;
    };
    using Spans = QHash<const QWidget*, Span>;

    Spans Solve(Qt::Orientation orientation, int length) const;
    Span SpanOf(QLayoutItem* item, Qt::Orientation orientation, int length, Spans& solved,
        QVector<const QWidget*>& running) const;
    int EdgeOf(const QWidget* child, FormEdge edge, int length, Spans& solved,
        QVector<const QWidget*>& running) const;
    int NaturalLength(Qt::Orientation orientation) const;
    QLayoutItem* ItemOf(const QWidget* widget) const;

    QVector<QLayoutItem*> m_items;
    QHash<const QWidget*, Edges> m_attachments;
    int m_divisions = 100;
};

} // namespace host::ui

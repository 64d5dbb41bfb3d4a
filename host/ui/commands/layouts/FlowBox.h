#pragma once

#include <QLayout>
#include <QVector>

namespace host::ui {

/// Puts its children one after the other in their natural size, beside or below each other, and
/// begins a new row or column where the widget ends when it wraps. Belongs to its widget.
class FlowBox : public QLayout
{
    Q_OBJECT
public:
    explicit FlowBox(QWidget* parent);
    ~FlowBox() override;

    void SetHorizontal(bool horizontal);
    bool IsHorizontal() const { return m_horizontal; }
    void SetWrapping(bool wraps);
    bool IsWrapping() const { return m_wraps; }

    void addItem(QLayoutItem* item) override { m_items += item; }
    int count() const override { return m_items.size(); }
    QLayoutItem* itemAt(int index) const override { return m_items.value(index); }
    QLayoutItem* takeAt(int index) override;
    bool hasHeightForWidth() const override { return m_horizontal && m_wraps; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    Qt::Orientations expandingDirections() const override { return {}; }
    void setGeometry(const QRect& rectangle) override;

private:
    /// Lays out within `room` and gives the size needed; only measures unless `moves`.
    QSize Arrange(const QRect& room, bool moves) const;

    QVector<QLayoutItem*> m_items;
    bool m_horizontal = true;
    bool m_wraps = false;
};

} // namespace host::ui

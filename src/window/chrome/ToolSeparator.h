#pragma once

#include <QWidget>

/// The line between two kinds of tool buttons. It is as large as the interface scale says now.
class ToolSeparator : public QWidget
{
    Q_OBJECT

public:
    explicit ToolSeparator(QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

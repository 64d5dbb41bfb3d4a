#pragma once

#include <QVector3D>
#include <QVector>

namespace host::ui {

/// The scene as lines, for the viewport: the box of every form, a cross for every other thing that
/// stands somewhere. Nothing for what is hidden.
class SceneWires
{
public:
    struct Line
    {
        QVector3D from;
        QVector3D to;
        bool isSelected = false;
    };

    /// Forms beyond this number are not drawn, so that a view of many stays quick to turn.
    static constexpr int MAXIMUM_FORMS = 2000;

    const QVector<Line>& GetLines();
    /// The lines are made anew when they are asked for next.
    void Invalidate() { m_isCurrent = false; }

private:
    QVector<Line> m_lines;
    bool m_isCurrent = false;
};

} // namespace host::ui

#include "commands/scene/KeySettings.h"

namespace host::commands {

using namespace scene;

int KeySettings::Copy(const QVector<Plug>& plugs, const KeyFilter& filter)
{
    QVector<CopiedKeys> copied;
    for (const Plug& plug : plugs) {
        const Node* node = CurveOf(plug);
        if (!node)
            continue;
        CopiedKeys keys{plug.attribute->longName, {}};
        const AnimationCurve curve = AnimationCurve::Of(Scene::Current(), *node);
        for (int i = 0; i < curve.Count(); ++i) {
            if (filter.Passes(i, curve.Time(i)))
                keys.keys += curve.Key(i);
        }
        if (!keys.keys.isEmpty())
            copied += keys;
    }
    if (!copied.isEmpty())
        m_copied = copied;
    return copied.size();
}

double KeySettings::Start() const
{
    double start = m_copied.isEmpty() ? 0 : m_copied.first().keys.first().time;
    for (const CopiedKeys& keys : m_copied)
        start = qMin(start, keys.keys.first().time);
    return start;
}

double KeySettings::End() const
{
    double end = Start();
    for (const CopiedKeys& keys : m_copied)
        end = qMax(end, keys.keys.last().time);
    return end;
}

} // namespace host::commands

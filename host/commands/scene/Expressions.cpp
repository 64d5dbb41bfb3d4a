#include "commands/scene/Expressions.h"

#include "engine/Engine.h"
#include "scene/ExpressionText.h"

namespace host::commands {

using namespace scene;

void Expressions::Serve(Scene& scene)
{
    scene.runExpression
        = [this, &scene](Node& node, int index) { return OutputOf(scene, node, index); };
}

bool Expressions::Run(const Scene& scene, Node& node)
{
    Engine& engine = Engine::Current();
    const quint64 serial = node.GetSerial();
    const NodePointer kept = node.shared_from_this();
    if (!engine.mel || m_results[serial].running)
        return true;
    const Plug text = Plug::Find(node, QStringLiteral("expression"));
    FloatList outputs = m_results[serial].outputs;
    outputs.resize(CountOutputs(scene.GetStored(text).ToText()));
    m_results[serial].running = true;
    const QString script = ExpressionScript(scene, node, outputs);
    // What it does besides belongs to no step of a person.
    const UndoPause pause(engine.undoQueue, true);
    const ScriptResult ran = engine.mel->Run(script);
    Result& result = m_results[serial];
    result.running = false;
    result.failed = ran.failed;
    result.changes = scene.CountChanges();
    result.time = scene.EvaluationTime();
    if (ran.value.GetKind() == Value::Kind::FloatArray)
        outputs = ran.value.Get<FloatList>();
    result.outputs = outputs;
    return !ran.failed;
}

Value Expressions::OutputOf(const Scene& scene, Node& node, int index)
{
    const Result known = m_results.value(node.GetSerial());
    const bool sameTime = known.time == scene.EvaluationTime();
    // One that failed is left alone until time moves: it would fail again, loudly, each time.
    const bool isFresh
        = sameTime && (known.running || known.failed || known.changes == scene.CountChanges());
    if (!isFresh || known.outputs.isEmpty())
        Run(scene, node);
    return m_results.value(node.GetSerial()).outputs.value(index);
}

void Expressions::RunAll(Scene& scene)
{
    const NodeType* type = NodeType::Find(QStringLiteral("expression"));
    if (scene.CountOf(*type) == 0)
        return;
    QVector<NodePointer> nodes;
    for (Node* node : scene.Nodes()) {
        const Plug always = Plug::Find(*node, QStringLiteral("alwaysEvaluate"));
        if (&node->GetType() == type && scene.GetStored(always).ToBool())
            nodes += node->shared_from_this();
    }
    for (const NodePointer& node : qAsConst(nodes)) {
        const Result known = m_results.value(node->GetSerial());
        const bool ran
            = known.changes == scene.CountChanges() && known.time == scene.EvaluationTime();
        if (node->IsInScene() && !ran)
            Run(scene, *node);
    }
}

} // namespace host::commands

#pragma once

#include "scene/Scene.h"

namespace host::commands {

/// Runs the expression nodes of the scene: when somebody wants a value that they set and something
/// has changed since they ran, and when time moves. Owned by the session.
class Expressions
{
public:
    /// Makes the scene ask here.
    void Serve(scene::Scene& scene);

    /// Runs it now, whatever it said before. False when it cannot run; what is wrong has been
    /// shown.
    bool Run(const scene::Scene& scene, scene::Node& node);
    /// All that are to run whenever time moves, whether somebody wants their values or not.
    void RunAll(scene::Scene& scene);
    /// What they said is no longer trusted.
    void Forget() { m_results.clear(); }

private:
    struct Result
    {
        FloatList outputs;
        quint64 changes = 0; ///< of the scene when it ran
        double time = 0;
        bool failed = false;
        bool running = false;
    };

    Value OutputOf(const scene::Scene& scene, scene::Node& node, int index);

    QHash<quint64, Result> m_results; ///< by serial of the node
};

} // namespace host::commands

#pragma once

#include "scene/Scene.h"

namespace host::commands {

struct CopyOptions
{
    bool parentOnly = false; ///< of the children only the shapes
    bool inputs = false; ///< the copies are fed by what feeds the originals
    bool upstream = false; ///< what makes the forms is copied, too
    bool renameChildren = false; ///< children get names that nobody else bears
};

/// A copy of the node and what is below it, under the same parent. `name` is counted up where it is
/// taken. `copies` gets all new nodes, parents first.
scene::Node& CopyTree(scene::Node& node, const QString& name, const CopyOptions& options,
    QVector<scene::Node*>& copies);

} // namespace host::commands

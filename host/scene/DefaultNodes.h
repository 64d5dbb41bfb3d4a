#pragma once

namespace host::scene {

class Scene;

/// Makes the nodes that every scene begins with.
void CreateDefaultNodes(Scene& scene);

} // namespace host::scene

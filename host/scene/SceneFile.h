#pragma once

#include "scene/Scene.h"

namespace host::scene {

/// The line that every scene file of this host begins with.
extern const char* const SCENE_FILE_LEAD;

/// The scene as statements that make it again, run one after the other. With `only` just these
/// nodes and what is below them.
QString SceneText(const Scene& scene, const QVector<Node*>& only = {});

} // namespace host::scene

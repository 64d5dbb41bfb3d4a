#pragma once

#include "commands/scene/SceneCommands.h"

namespace host::commands {

/// Shapes that can be deformed, of what is named; each once. An error where there are none.
struct FoundShapes
{
    QVector<scene::Node*> shapes;
    std::optional<Error> error;
};
FoundShapes ShapesToDeform(const QVector<scene::Item>& items);

/// The deformer of that kind that the call names or selects, or that deforms what it names.
std::optional<Error> FindDeformer(const Call& call, const char* type, scene::Node*& deformer);

/// A new deformer in front of the shapes. `name` is counted up where it is taken.
scene::Node& CreateDeformer(
    const char* type, const QString& name, const QVector<scene::Node*>& shapes);
/// A transform with a shape below it that steers the deformer.
scene::Node& CreateHandle(scene::Node& deformer, const char* shape, const QString& name);

/// What all deformers' commands answer: "geometry" and "envelope". Nothing for other flags.
std::optional<Outcome> QueryDeformer(const Call& call, scene::Node& deformer);
void EditDeformer(const Call& call, scene::Node& deformer);

} // namespace host::commands

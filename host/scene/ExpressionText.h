#pragma once

#include "scene/Scene.h"

namespace host::scene {

// The text of expression nodes. A node keeps it with ".I[0]" and ".O[0]" for the attributes that
// it reads and sets, which are connected to it: they may be renamed.

/// A text as a person writes it, taken apart.
struct ExpressionParts
{
    QString text; ///< as the node keeps it
    QVector<Plug> inputs;
    QVector<Plug> outputs;
    bool usesTime = false;
    /// Something of the form "box.size" that is no attribute; empty when there is none.
    QString unknown;
};

using PlugFinder = std::function<QVector<Plug>(const QString& name)>;

/// `object` may be null; attributes that stand alone are its attributes.
ExpressionParts ReadExpression(const QString& text, const PlugFinder& find, Node* object);
/// The text with the names that the attributes have now.
QString ShownExpression(const Scene& scene, const Node& node);
/// A script whose value are the numbers that the expression sets, in the order of the outputs.
QString ExpressionScript(const Scene& scene, const Node& node, const FloatList& outputs);
/// How many attributes it sets.
int CountOutputs(const QString& keptText);

} // namespace host::scene

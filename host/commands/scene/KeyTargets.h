#pragma once

#include "commands/scene/SceneCommands.h"
#include "scene/AnimationCurve.h"

namespace host::commands {

// What commands about keys share: whose keys they mean, and which of them.

/// Attributes that can be keyed, or why there are none.
struct FoundPlugs
{
    QVector<scene::Plug> plugs;
    std::optional<Error> error;
};

/// What can be keyed of what is named or selected: the attribute, or the keyable ones of the node.
FoundPlugs KeyablePlugs(const Call& call);

/// The curve over time that drives an attribute; null when none does.
scene::Node* CurveOf(const scene::Plug& plug);
/// All curves that drive it, those that follow other attributes too.
QVector<scene::Node*> CurvesInto(const scene::Plug& plug);
/// "animCurveT" or "animCurveU" and the letter of what the attribute measures.
scene::Node& CreateCurve(const scene::Plug& plug, const char* kind);
/// The curve over time of the attribute, made where there is none.
scene::Node& CurveFor(const scene::Plug& plug);
/// The curves that are named or selected themselves, or those of the attributes the call is about.
QVector<scene::Node*> CurvesOf(const Call& call, std::optional<Error>& error);

/// Which keys the flags "time", "float" and "index" leave: "3", "1:10", ":5", "5:", ":"; all
/// without any.
class KeyFilter
{
public:
    explicit KeyFilter(const Call& call);

    bool Passes(int index, double time) const;
    /// Nothing at all was asked for.
    bool IsOpen() const { return m_times.isEmpty() && m_indices.isEmpty(); }

private:
    using Ranges = QVector<QPair<double, double>>;
    static void Read(const Call& call, const char* flag, Ranges& ranges);

    Ranges m_times;
    Ranges m_indices;
};

/// Changes one key of a curve that is still as it was.
using KeyVisitor
    = std::function<void(const scene::AnimationCurve& curve, int index, scene::CurveKey& key)>;
/// Changes all keys the call is about and stores their curves. Number of these keys.
int ChangeKeys(const Call& call, const QVector<scene::Node*>& curves, const KeyVisitor& change);

} // namespace host::commands

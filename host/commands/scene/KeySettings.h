#pragma once

#include "commands/scene/KeyTargets.h"

namespace host::commands {

/// What was copied of one attribute.
struct CopiedKeys
{
    QString attribute; ///< long name
    QVector<scene::CurveKey> keys;
};

/// What is remembered about keys between two commands: how new ones are made, and those that were
/// copied last. Owned by the session.
class KeySettings
{
public:
    scene::Tangent inTangent = scene::Tangent::Auto;
    scene::Tangent outTangent = scene::Tangent::Auto;

    /// Takes the place of what was copied before, unless there is nothing to copy. Number of
    /// curves.
    int Copy(const QVector<scene::Plug>& plugs, const KeyFilter& filter);
    const QVector<CopiedKeys>& Copied() const { return m_copied; }
    /// From the first key that was copied to the last.
    double Start() const;
    double End() const;

private:
    QVector<CopiedKeys> m_copied;
};

} // namespace host::commands

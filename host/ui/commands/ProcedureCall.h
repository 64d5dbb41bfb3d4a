#pragma once

#include "ui/model/Element.h"

namespace host::ui {

/// Runs a callback for which scripts give the name of a procedure or a function: it gets the values
/// as its arguments. Its outcome is what it answers; nothing when there is no such callback.
Outcome CallProcedure(const Element& element, const QString& flag, const QVector<Value>& values);

} // namespace host::ui

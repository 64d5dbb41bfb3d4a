#pragma once

#include "engine/Call.h"

namespace host::ui {

/// Keeps the flags of a call with -defineTemplate as what elements of its type begin with; the
/// result is the template's name. An error when there is no such template.
Outcome DefineTemplate(const Call& call);
/// What the current template and the one of -useTemplate keep for the type of element that the call
/// makes, to be applied in that order.
QVector<Call> TemplateCalls(const Call& call);

} // namespace host::ui

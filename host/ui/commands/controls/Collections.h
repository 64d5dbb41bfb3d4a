#pragma once

#include "ui/commands/Control.h"

class QAbstractButton;
class QButtonGroup;

namespace host::ui {

/// Puts a new button that excludes others into the collection that -collection names, else the one
/// made last in a layout around it, else one that its layout has of its own.
Outcome JoinCollection(
    Element& element, QAbstractButton* button, const Call& call, const char* collectionType);
/// Runs onCommand or offCommand and then changeCommand whenever the button is switched by hand.
void ConnectSwitch(Element& element, QAbstractButton* button);
/// Switches without any callback, of this button or of those it excludes.
void SwitchSilently(QAbstractButton* button, bool on);

/// What every command that makes collections of buttons knows.
extern const Family COLLECTION_FAMILY;
void MakeCollection(Element& element, const Call& call);

} // namespace host::ui

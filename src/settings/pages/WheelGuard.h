#pragma once

class QWidget;

/// Leaves the wheel to the page around a field that does not have the focus: scrolling the page
/// must not change an option under the pointer.
void GuardFromWheel(QWidget* field);

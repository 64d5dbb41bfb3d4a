#pragma once

#include "ui/commands/Control.h"

class QIcon;

namespace host::ui {

// One function per file of commands, called by RegisterInterfaceCommands.
void RegisterWindowCommands(CommandRegistry& commands);
void RegisterLayoutCommands(CommandRegistry& commands);
void RegisterFormLayout(CommandRegistry& commands);
void RegisterTabCommands(CommandRegistry& commands);
void RegisterShelfCommands(CommandRegistry& commands);
void RegisterButtonCommands(CommandRegistry& commands);
void RegisterFieldCommands(CommandRegistry& commands);
void RegisterListCommands(CommandRegistry& commands);
void RegisterMenuCommands(CommandRegistry& commands);
void RegisterScriptFieldCommands(CommandRegistry& commands);
void RegisterDialogCommands(CommandRegistry& commands);
void RegisterMessageCommands(CommandRegistry& commands);
void RegisterProgressCommands(CommandRegistry& commands);
void RegisterFileDialogCommands(CommandRegistry& commands);
void RegisterColorCommands(CommandRegistry& commands);
void RegisterTreeView(CommandRegistry& commands);
void RegisterRowCommands(CommandRegistry& commands);
void RegisterPaneCommands(CommandRegistry& commands);
void RegisterOptionMenuCommands(CommandRegistry& commands);
void RegisterNumberGroupCommands(CommandRegistry& commands);
void RegisterSliderCommands(CommandRegistry& commands);
void RegisterRadioCommands(CommandRegistry& commands);
void RegisterChoiceGroupCommands(CommandRegistry& commands);
void RegisterIconTextCommands(CommandRegistry& commands);
void RegisterAttributeGroupCommands(CommandRegistry& commands);
void RegisterAttributeNavigation(CommandRegistry& commands);
void RegisterConnectControl(CommandRegistry& commands);
void RegisterOutliner(CommandRegistry& commands);
void RegisterScriptTable(CommandRegistry& commands);
void RegisterToolBars(CommandRegistry& commands);
void RegisterHeadsUpDisplay(CommandRegistry& commands);
void RegisterNameAndTimeFields(CommandRegistry& commands);
void RegisterFocusCommands(CommandRegistry& commands);
void RegisterDimWhen(CommandRegistry& commands);
void RegisterTemplateCommands(CommandRegistry& commands);

/// Makes the templates that scripts take for granted. Call once the commands are registered.
void MakeHostTemplates();

// Shared by several of them.

/// True for menus, sub-menus and option menus.
bool TakesItems(const Element& element);
/// An icon of the host's own, a resource or a file along the icon path; null when there is none.
QIcon FindIcon(const QString& name);
/// "left", "center" and "right"; `fallback` for any other word.
Qt::Alignment AlignmentFromWord(const QString& word, Qt::Alignment fallback);
/// The font of code and output.
QFont FixedFont();
/// "boldLabelFont", "fixedWidthFont" and the others that scripts name; the widget's own for others.
QFont FontFromWord(const QString& word, const QFont& plain);

// Flags of everything that has a script and says what language it is in; "sourceType" comes first.
void SetSourceType(Edit& edit);
Value GetSourceType(Element& element);
void SetCommand(Edit& edit);

} // namespace host::ui

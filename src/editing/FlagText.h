#pragma once

class QString;

/// Flags of commands as they stand in scripts.
namespace FlagText {

/// The format of a dragged flag's long name. Only the editor knows how its language writes it.
constexpr const char* MIME_FORMAT = "text/tarnwickEditorFlag";

/// What is put into a MEL script for a flag, behind `before`: parted from a word there.
QString InMel(const QString& longName, const QString& before);
/// The same for an argument of a Python call, with a comma unless it is the first one.
QString InPython(const QString& longName, const QString& before);

} // namespace FlagText

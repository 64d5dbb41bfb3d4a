#pragma once

class OptionCopies;

/// Why an option has no effect while the others are as they are in the copies; null when it has
/// one. The texts are to be translated by OptionTable.
namespace OptionReasons {

const char* SavesOnExit(const OptionCopies& copies);
const char* TabBarHidden(const OptionCopies& copies);
const char* ToolBarHidden(const OptionCopies& copies);
const char* MelUsesDefaults(const OptionCopies& copies);
const char* PythonUsesDefaults(const OptionCopies& copies);
const char* NoMelAutoIndent(const OptionCopies& copies);
const char* NoPythonAutoIndent(const OptionCopies& copies);
const char* NoMelCompletion(const OptionCopies& copies);
const char* NoPythonLetters(const OptionCopies& copies);
const char* NoPythonCompletion(const OptionCopies& copies);
const char* NoPythonErrors(const OptionCopies& copies);
const char* PylintOff(const OptionCopies& copies);
const char* OutputPlain(const OptionCopies& copies);
const char* EchoesAll(const OptionCopies& copies);

} // namespace OptionReasons

#include "settings/pages/OptionReasons.h"

#include "plugin/MayaUtil.h"
#include "settings/pages/OptionCopies.h"

#include <QtGlobal>

namespace {

bool AutoIndents(const OptionCopies& copies, const char* usesDefaults, const char* own)
{
    return copies.IsOn(copies.IsOn(usesDefaults) ? "tabsAutoIndentDefault" : own);
}

} // namespace

const char* OptionReasons::SavesOnExit(const OptionCopies& copies)
{
    return copies.IsOn("saveAllOnExit") ? QT_TR_NOOP("All files are saved then.") : nullptr;
}

const char* OptionReasons::TabBarHidden(const OptionCopies& copies)
{
    return copies.IsOn("showTabBar") ? nullptr : QT_TR_NOOP("The tab bar is not shown.");
}

const char* OptionReasons::ToolBarHidden(const OptionCopies& copies)
{
    if (const char* const reason = TabBarHidden(copies))
        return reason;
    return copies.IsOn("showTabBarMiniToolbar") ? nullptr
                                                : QT_TR_NOOP("The tool bar is not shown.");
}

const char* OptionReasons::MelUsesDefaults(const OptionCopies& copies)
{
    return copies.IsOn("tabsUseDefaultsMel") ? QT_TR_NOOP("MEL uses the default.") : nullptr;
}

const char* OptionReasons::PythonUsesDefaults(const OptionCopies& copies)
{
    return copies.IsOn("tabsUseDefaultsPython") ? QT_TR_NOOP("Python uses the default.") : nullptr;
}

const char* OptionReasons::NoMelAutoIndent(const OptionCopies& copies)
{
    return AutoIndents(copies, "tabsUseDefaultsMel", "tabsAutoIndentMel")
        ? nullptr
        : QT_TR_NOOP("Auto indent is off for MEL.");
}

const char* OptionReasons::NoPythonAutoIndent(const OptionCopies& copies)
{
    return AutoIndents(copies, "tabsUseDefaultsPython", "tabsAutoIndentPython")
        ? nullptr
        : QT_TR_NOOP("Auto indent is off for Python.");
}

const char* OptionReasons::NoMelCompletion(const OptionCopies& copies)
{
    return copies.IsOn("melCompleteOnLetters") ? nullptr
                                               : QT_TR_NOOP("Completion on letters is off.");
}

const char* OptionReasons::NoPythonLetters(const OptionCopies& copies)
{
    return copies.IsOn("pythonCompleteOnLetters") ? nullptr
                                                  : QT_TR_NOOP("Completion on letters is off.");
}

const char* OptionReasons::NoPythonCompletion(const OptionCopies& copies)
{
    return copies.IsOn("pythonCompleteOnDot") ? nullptr : NoPythonLetters(copies);
}

const char* OptionReasons::NoPythonErrors(const OptionCopies& copies)
{
    return copies.IsOn("pythonDisplayErrors")
        ? nullptr
        : QT_TR_NOOP("Errors in Python scripts are not displayed.");
}

const char* OptionReasons::PylintOff(const OptionCopies& copies)
{
    if (const char* const reason = NoPythonErrors(copies))
        return reason;
    return copies.IsOn("pylintEnabled") ? nullptr : QT_TR_NOOP("Pylint is not used.");
}

const char* OptionReasons::OutputPlain(const OptionCopies& copies)
{
    return copies.IsOn("outputSyntaxHighlightingEnabled")
        ? nullptr
        : QT_TR_NOOP("The output is not highlighted.");
}

const char* OptionReasons::EchoesAll(const OptionCopies&)
{
    return MayaUtil::EchoAllCommandsEnabled() ? QT_TR_NOOP("The host echoes all commands.")
                                              : nullptr;
}

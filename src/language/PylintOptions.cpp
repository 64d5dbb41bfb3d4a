#include "language/PylintOptions.h"

#include "settings/Settings.h"

PylintOptions PylintOptions::FromSettings()
{
    return {Settings::pylintEnabled, Settings::pylintPath, Settings::pylintPythonHomePath,
        Settings::pylintConfigPath, Settings::pylintUseMinimalCheckers, Settings::pylintShowErrors};
}

#pragma once

#include "settings/Settings.h"

/// Keeps what the host prints out of the console while it lives.
class HiddenTrace
{
public:
    HiddenTrace()
        : m_wasHidden(Settings::traceHideAll.exchange(true))
    { }
    ~HiddenTrace() { Settings::traceHideAll = m_wasHidden; }
    HiddenTrace(const HiddenTrace&) = delete;
    HiddenTrace& operator=(const HiddenTrace&) = delete;

private:
    bool m_wasHidden = false;
};

#pragma once

#include "containers/MemMessageLog.h"

#include <string>

namespace Vorin::AppEngine {

/// Shows dialogs over a window, or over none. [gui]
class IMessageDialogs {
public:
    /// `severity` is the kind of dialog: error, warning or information.
    virtual void ShowMessage(Core::EMessageType severity, const std::string& title,
                             const std::string& text) = 0;
    virtual ~IMessageDialogs() = default;
};

/// Tells the user what a load has logged, in at most one dialog: that of the gravest kind there is.
/// Warnings and information are shown, alone or beside errors, only when asked for. When all went
/// well the log gets "Skin parsing successful". The caller clears the log. [gui]
void ShowMessages(CoreUtilities::CMemMessageLog& log, IMessageDialogs& dialogs, bool showWarnings,
                  bool showInfo);

} // namespace Vorin::AppEngine

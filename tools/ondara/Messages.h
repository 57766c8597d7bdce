#pragma once

#include "containers/MemMessageLog.h"

#include <string>

namespace Workbench {

/// Prints the messages of a log to the standard error, a line each: FILE:LINE: error: TEXT. What
/// stands nowhere stands at line 0 of `document`, the path of the root document. With `origins`,
/// what comes out of a template says behind its text where in the template it stands.
void PrintMessages(const Vorin::CoreUtilities::CMemMessageLog& log, const std::string& document,
                   bool origins = false);

/// Splits NAME=VALUE at the first "=". False without one, and for an empty name.
bool SplitAssignment(const std::string& text, std::string& name, std::string& value);

} // namespace Workbench

#pragma once

#include <string>

namespace Workbench {

/// Appends the shortest decimal text that reads back as exactly this number; "nan", "inf" and
/// "-inf" for what is none. The locale plays no part.
void AppendNumber(std::string& text, double value);

/// The whole text as a finite number. The locale plays no part.
bool ParseNumber(const std::string& text, double& value);

} // namespace Workbench

#pragma once

#include <string>
#include <string_view>

namespace Workbench {

/// A text in one line that does not steer a terminal: each control character, the upper ones of
/// UTF-8 among them, becomes "?". For what comes from strangers: names of files, and in them.
std::string Printable(std::string_view text);

} // namespace Workbench

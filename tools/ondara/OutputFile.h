#pragma once

#include "Outcome.h"

#include <string>

namespace Workbench {

/// Checks that a file can be made at `path`, so that long work isn't done in vain. Leaves nothing
/// behind.
COutcome CheckWritable(const std::string& path);

/// Writes `bytes` to the file at `path`, as a whole or not at all: a failure leaves neither a half
/// file nor a changed one. The path "-" stands for the standard output.
COutcome WriteOutput(const std::string& path, const std::string& bytes);

} // namespace Workbench

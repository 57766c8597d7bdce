#pragma once

#include "Arguments.h"

namespace Workbench {

/// The commands of the program. Each takes the words behind its name and does its whole work.
COutcome RunScope(CArguments& arguments);
COutcome RunDemo(CArguments& arguments);
COutcome RunPreset(CArguments& arguments);
COutcome RunFormula(CArguments& arguments);
COutcome RunSkin(CArguments& arguments);
COutcome RunModel(CArguments& arguments);

} // namespace Workbench

#pragma once

#include "core/Command.h"

namespace Vorin::Core {

/// The command that does nothing, one for the process. [any]
///
/// Its class is not shown, so that no compiler builds a loop over commands around it.
ICommand& GetEmptyCommand();

} // namespace Vorin::Core

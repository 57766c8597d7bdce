#include "core/EmptyCommand.h"

namespace Vorin::Core {

namespace {

class CEmptyCommand final : public ICommand {
public:
    void Execute() override {}
};

} // namespace

ICommand& GetEmptyCommand() {
    static CEmptyCommand command;
    return command;
}

} // namespace Vorin::Core

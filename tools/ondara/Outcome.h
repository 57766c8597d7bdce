#pragma once

#include <string>

namespace Workbench {

/// The exit status of the program.
enum EExit { kSuccess = 0, kBadInput = 1, kWrongUsage = 2 };

/// How a step ended: with success, or with the one line that tells the user what is wrong.
struct [[nodiscard]] COutcome {
    static COutcome BadInput(std::string text) { return {kBadInput, std::move(text)}; }
    static COutcome WrongUsage(std::string text) { return {kWrongUsage, std::move(text)}; }

    explicit operator bool() const { return exit == kSuccess; }

    EExit exit = kSuccess;
    std::string message = {};
};

} // namespace Workbench

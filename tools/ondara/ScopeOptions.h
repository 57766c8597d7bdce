#pragma once

#include "Arguments.h"

#include <string>

namespace Workbench {

enum EFormat { kPng = 0, kCsv = 1, kJson = 2 };

/// What `ondara scope` was asked for.
struct CScopeOptions {
    std::string input;
    std::string output;
    EFormat format = kPng;

    // The plug-in's parameters, in their own units.
    double view = 0.0;
    double sync = 0.0;
    double delayMilliseconds = 0.0;
    double triggerValue = 0.0;
    double triggerDirection = 0.0;
    double stereoMode = 0.0;
    bool bypass = false;

    int blockFrames = 512;
    double refreshHz = 50.0;
    double startSeconds = 0.0;
    double seconds = -1.0; ///< -1 for all there is
    bool flush = false;

    int points = 512;
    int width = 800;
    int height = 400;
    bool help = false;
};

extern const char* const kScopeHelp;

COutcome ParseScopeOptions(CArguments& arguments, CScopeOptions& options);

} // namespace Workbench

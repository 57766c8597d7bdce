#pragma once

#include "audio/plugin/AudioPluginInternals.h"

namespace Vorin::Audio::Plugin {

/// The paths of a plug-in that is installed in a folder of the test.
class CTestPaths : public CAudioPluginFilePathsBase {
public:
    explicit CTestPaths(const IPackageInfo& package)
        : CAudioPluginFilePathsBase(package.GetVendor(), package.GetProduct()) {}
};

} // namespace Vorin::Audio::Plugin

#include "PresetFile.h"

#include "filters/OndaraFilter.h"
#include "serialization/TextFile.h"
#include "serialization/XmlDataObject.h"

#include <cerrno>
#include <cstring>

#include <unistd.h>

namespace Workbench {

using namespace Vorin;
using namespace Vorin::Audio::Plugin;

namespace {

/// No folders: neither presets nor settings of this machine.
class CNoPaths : public CAudioPluginFilePathsBase {
public:
    explicit CNoPaths(const IPackageInfo&) : CAudioPluginFilePathsBase("", "") {}
};

COutcome ReadText(const std::string& path, std::string& text) {
    if (access(path.c_str(), R_OK) != 0) {
        return COutcome::BadInput(path + ": cannot be read: " + std::strerror(errno));
    }
    if (!Serialization::ReadTextFile(path.c_str(), text)) {
        return COutcome::BadInput(path + ": is no regular file of 16 MB at most");
    }
    // A state that a host keeps ends with a zero byte.
    text.resize(text.find_last_not_of('\0') + 1);
    return {};
}

} // namespace

CPresetFile::CPresetFile()
    : settings(std::make_unique<TAudioPluginConfig<CNoPaths>>(CPackageInfo("", ""))),
      internals({.filter = PluginsFilters::CreateOndaraFilter(), .gui = nullptr}, *settings),
      inputs(internals.GetInputInfos()), outputs(internals.GetFilter().GetOutputParamInfos()) {
    internals.Connect(inputs, outputs);
}

CPresetFile::~CPresetFile() { internals.Disconnect(); }

COutcome CPresetFile::Load(const std::string& path) {
    std::string text;
    if (COutcome outcome = ReadText(path, text); !outcome) {
        return outcome;
    }
    Serialization::CXmlDataObject document("Preset", Serialization::kXmlAttributes);
    if (!document.Parse(text.data(), static_cast<int>(text.size()))) {
        return COutcome::BadInput(path + ": is no preset: it has to be a well-formed XML document "
                                         "with the root \"Preset\" and no document type, no more "
                                         "than 64 elements deep");
    }
    if (!internals.DeSerialize(document)) {
        return COutcome::BadInput(path + ": holds a value that no preset can have, such as a "
                                         "parameter that is no number, or counts more items than "
                                         "there are");
    }
    version = 0;
    document.ReadInt("version", version);
    return {};
}

std::string CPresetFile::GetName() {
    return internals.GetPresetsManager().GetCurrentPresetName().Get();
}

} // namespace Workbench

#include "audio/plugin/presets/AudioPluginDefaultSettings.h"

#include "core/Lock.h"
#include "serialization/ItemSerialization.h"
#include "serialization/XmlDataObject.h"
#include "system/DataFolders.h"

#include <string_view>

namespace Vorin::Audio::Plugin {

namespace {

using Containers::CCharString;
using Core::CAutoLock;
using Serialization::CXmlDataObject;
using Serialization::IReadDataStream;
using Serialization::IWriteDataStream;

constexpr int kVersion = 3;
constexpr char kSettingsRoot[] = "Root";
constexpr char kItem[] = "item";
constexpr char kVersionKey[] = "version";
constexpr char kSkinKey[] = "skinFile";
constexpr char kInputCCKey[] = "inputCCSettings";
constexpr char kOutputCCKey[] = "outputCCSettings";
constexpr char kRefreshRateKey[] = "outputRefreshRate";

/// The part of `path` below `folder`; all of it when it lies elsewhere.
const char* RelativeTo(const char* folder, const CCharString& path) {
    const std::string_view text = path.Get();
    const std::string_view above = folder;
    if (above.empty() || !text.starts_with(above) || text.substr(above.size(), 1) != "/") {
        return path.Get();
    }
    const std::size_t begin = text.find_first_not_of('/', above.size());
    return begin == std::string_view::npos ? path.Get() : path.Get() + begin;
}

/// Also refuses NaN.
bool IsRefreshRate(double hz) {
    return hz > 0.0 && hz <= CAudioPluginDefaultSettings::kMaximumRefreshRate;
}

} // namespace

CAudioPluginDefaultSettings::CAudioPluginDefaultSettings(const CAudioPluginFilePathsBase& filePaths,
                                                         double defaultRefreshRate)
    : paths(filePaths), skinFile(filePaths.GetDefaultSkinFile()),
      inputCCSettings(std::make_unique<CInputMIDICCSettings>(inputInfos)),
      outputCCSettings(std::make_unique<COutputMIDICCSettings>(outputInfos)),
      outputRefreshRate(defaultRefreshRate) {}

void CAudioPluginDefaultSettings::SetParams(const IConstParamInfos& inputs,
                                            const IConstParamInfos& outputs) {
    const auto copy = [](const IConstParamInfos& infos, CParamInfos& copies) {
        copies.SetCount(infos.GetCount());
        for (int i = 0; i < infos.GetCount(); ++i) {
            copies.At(i).CopyFrom(infos.Get(i));
        }
    };
    // The infos of an instance die with it; these settings do not.
    copy(inputs, inputInfos);
    copy(outputs, outputInfos);
    inputCCSettings = std::make_unique<CInputMIDICCSettings>(inputInfos);
    outputCCSettings = std::make_unique<COutputMIDICCSettings>(outputInfos);
}

CCharString CAudioPluginDefaultSettings::GetSkinFile() const {
    const CAutoLock held(skinLock);
    return skinFile;
}

void CAudioPluginDefaultSettings::SetSkinFile(const char* path) {
    CCharString file(path);
    if (file.IsEmpty()) {
        file = paths.GetDefaultSkinFile();
    } else if (*file.Get() != '/') {
        file = System::DataFolders::Join(paths.GetUserSkinsFolder(), path);
    }
    const CAutoLock held(skinLock);
    skinFile = file;
}

double CAudioPluginDefaultSettings::GetOutputRefreshRate() const {
    const CAutoLock held(refreshRateLock);
    return outputRefreshRate;
}

bool CAudioPluginDefaultSettings::SetOutputRefreshRate(double hz) {
    if (!IsRefreshRate(hz)) {
        return false;
    }
    const CAutoLock held(refreshRateLock);
    outputRefreshRate = hz;
    return true;
}

void CAudioPluginDefaultSettings::NotifyIfKept() {
    inputCCSettings->NotifyIfKept();
    outputCCSettings->NotifyIfKept();
}

bool CAudioPluginDefaultSettings::Load() {
    CXmlDataObject document(kSettingsRoot, Serialization::kXmlAttributes);
    return document.LoadFile(paths.GetGlobalSettingsFile()) && DeSerialize(document);
}

bool CAudioPluginDefaultSettings::Save() {
    const CAutoLock held(saveLock);
    CXmlDataObject document(kSettingsRoot, Serialization::kXmlAttributes);
    return Serialize(document) && System::DataFolders::Create(paths.GetUserDataFolder()) &&
           document.SaveFile(paths.GetGlobalSettingsFile());
}

bool CAudioPluginDefaultSettings::Serialize(IWriteDataStream& stream) const {
    bool done = stream.WriteInt(kVersionKey, kVersion) && WriteSkinFile(stream);
    {
        const CAutoLock held(inputCCLock);
        done = done && WriteMIDICCSettings(stream, kInputCCKey, *inputCCSettings, kItem);
    }
    {
        const CAutoLock held(outputCCLock);
        done = done && WriteMIDICCSettings(stream, kOutputCCKey, *outputCCSettings, kItem);
    }
    return done && stream.WriteDouble(kRefreshRateKey, GetOutputRefreshRate());
}

bool CAudioPluginDefaultSettings::WriteSkinFile(IWriteDataStream& stream) const {
    const CAutoLock held(skinLock);
    return stream.WriteString(kSkinKey, RelativeTo(paths.GetUserSkinsFolder(), skinFile));
}

bool CAudioPluginDefaultSettings::DeSerialize(const IReadDataStream& stream) {
    bool done = ReadSkinFile(stream);
    {
        const CAutoLock held(inputCCLock);
        done &= ReadMIDICCSettings(stream, kInputCCKey, *inputCCSettings, kItem);
    }
    {
        const CAutoLock held(outputCCLock);
        done &= ReadMIDICCSettings(stream, kOutputCCKey, *outputCCSettings, kItem);
    }
    done &= ReadRefreshRate(stream);
    return done || stream.IsTolerant();
}

bool CAudioPluginDefaultSettings::ReadSkinFile(const IReadDataStream& stream) {
    CCharString path;
    if (!ReadItem(stream, kSkinKey, path)) {
        return false;
    }
    SetSkinFile(path.Get());
    return true;
}

bool CAudioPluginDefaultSettings::ReadRefreshRate(const IReadDataStream& stream) {
    double hz = 0.0;
    return stream.ReadDouble(kRefreshRateKey, hz) && SetOutputRefreshRate(hz);
}

} // namespace Vorin::Audio::Plugin

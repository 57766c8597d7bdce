#include "audio/plugin/FilterHost.h"

#include "datamodel/EnumToText.h"

#include <algorithm>
#include <functional>
#include <string_view>

namespace Vorin::Audio::Plugin {

using namespace DSP;
using namespace DataModel::Objects;

namespace {

/// The host's parameter 0 is the bypass; those of the filter follow.
constexpr int kFirstFilterParam = 1;
constexpr double kBypassRampMilliseconds = 10.0;
constexpr double kMaxSampleRate = 1 << 22;

template <class T>
void CreateOutputs(std::vector<std::unique_ptr<TMTOutput<T>>>& outputs, int count) {
    for (int i = 0; i < count; ++i) {
        outputs.push_back(std::make_unique<TMTOutput<T>>());
    }
}

/// Hands the changed objects of one group to their readers.
template <class T>
void PublishGroup(const Containers::IConstVector<T>& values, IChanges& changes,
                  std::vector<std::unique_ptr<TMTOutput<T>>>& outputs) {
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        const int index = static_cast<int>(i);
        Core::IDirty& change = changes.Get(index);
        if (change.IsDirty()) {
            outputs[i]->SetValue(&values.Get(index));
            change.ClearDirty();
        }
    }
}

/// What stands for a text when the text itself may be gone.
std::size_t MarkOf(const char* text) { return text ? std::hash<std::string_view>()(text) : 0; }

} // namespace

CFilterHost::CFilterHost(CConfig config)
    : filter(std::move(config.filter)), inputInfos(ownInfos, filter->GetInputParamInfos()),
      inputObjects(*filter),
      filterChanges(static_cast<std::size_t>(filter->GetInputParamInfos().GetCount())) {
    ownInfos.Add(CParamInfo(kParamBoolean, "Bypass", "", "", new CEnumToText("Off;On"), nullptr,
                            0.0, 1.0, 0.0));
    ramp.Init(*filter, inputObjects);
    CreateOutputs(mtOutputStrings, filter->GetOutputStringInfos().GetCount());
    textMarks.resize(mtOutputStrings.size());
    CreateOutputs(mtOutputCurves, filter->GetOutputCurveInfos().GetCount());
    CreateOutputs(mtOutputSurfaces, filter->GetOutputSurfaceInfos().GetCount());
    CreateOutputs(mtOutputProperties, filter->GetOutputPropertyInfos().GetCount());
    GetOutputDataSync().SetRefreshRate(config.defaultRefreshRate);
}

void CFilterHost::GetIOChannels(int& inputs, int& outputs) const {
    const IProcessInfo& info = filter->GetIOConfigurations();
    inputs = info.GetInputInfos().GetCount();
    outputs = info.GetOutputInfos().GetCount();
    for (int i = 0; i < info.GetConfigurations().GetCount(); ++i) {
        const IIOConfiguration& configuration = info.GetConfigurations().Get(i);
        inputs = std::max(inputs, configuration.GetInputInfos().GetCount());
        outputs = std::max(outputs, configuration.GetOutputInfos().GetCount());
    }
}

bool CFilterHost::IsSampleRate(double hz) { return hz > 0.0 && hz < kMaxSampleRate; }

bool CFilterHost::Configure(const CFilterConfig& config, double newSampleRate) {
    if (!IsSampleRate(newSampleRate)) {
        return false;
    }
    sampleRate.SetValue(newSampleRate);
    fallbackSync.SetSampleRate(newSampleRate);
    if (config.applyDefaults) {
        for (int i = 0; inputValues && i < inputValues->GetCount(); ++i) {
            inputValues->Get(i).SetValue(inputInfos.Get(i).GetDefault());
        }
        inputObjects.SetDefaults();
    }
    inputObjects.SetSampleRate(newSampleRate);
    filter->Init({false, config.blockSize, config.mode, config.configuration}, newSampleRate);
    int inputs = 0;
    int outputs = 0;
    GetIOChannels(inputs, outputs);
    bypassManager.Init(*filter, inputs, outputs, config.blockSize, newSampleRate);
    bypassManager.SetRampTime(kBypassRampMilliseconds);
    // Its own defaults may be gone by now: what it refers to from here on is ours.
    BringInputValues(TakeInputValues() || !inputObjects.IsEmpty());
    filter->UpdateOutputs();
    return TransferOutputs(true);
}

void CFilterHost::ApplyPending() { BringInputValues(TakeInputValues()); }

void CFilterHost::BringInputValues(bool isChanged) {
    if (isChanged) {
        filter->SetInputParams(ramp.GetAtEnd());
    }
    FinishRamp();
}

void CFilterHost::Connect(IHostParams& values) {
    inputValues = &values;
    const int count =
        std::min(ramp.GetParams().GetCount(), inputValues->GetCount() - kFirstFilterParam);
    taken.resize(static_cast<std::size_t>(std::max(count, 0)));
}

void CFilterHost::Disconnect() {
    inputValues = nullptr;
    taken.clear();
}

const IConstInputRamp* CFilterHost::PrepareBlock() { return TakeInputValues() ? &ramp : nullptr; }

bool CFilterHost::TakeInputValues() {
    const unsigned before = changes.load(std::memory_order_acquire);
    if (before % 2 != 0) {
        return false;
    }
    for (std::size_t i = 0; i < taken.size(); ++i) {
        taken[i] = inputValues->Get(kFirstFilterParam + static_cast<int>(i)).GetValue();
    }
    const bool hasAll = inputObjects.IsEmpty() || inputObjects.Take();
    // A value that was stored together with others meanwhile is seen together with this count. Of
    // values that were stored together before, the first block takes all or none.
    if (changes.load(std::memory_order_acquire) != before || (!hasAll && before != takenChanges)) {
        inputObjects.GiveBack();
        return false;
    }
    takenChanges = before;
    const bool isParamChanged = TakeInputParams();
    return (!inputObjects.IsEmpty() && inputObjects.Commit(ramp.GetShared())) || isParamChanged;
}

bool CFilterHost::TakeInputParams() {
    bool changed = false;
    for (std::size_t i = 0; i < taken.size(); ++i) {
        const int index = static_cast<int>(i);
        // A NaN is never taken: it would differ from itself in each block.
        if (taken[i] < ramp.GetParams().GetValue(index) ||
            taken[i] > ramp.GetParams().GetValue(index)) {
            ramp.SetParam(index, taken[i]);
            filterChanges[i].Notify();
            changed = true;
        } else {
            filterChanges[i].NotifyIfKept();
        }
    }
    return changed;
}

void CFilterHost::NotifyProcessed(int frames) {
    if (!filter->GetOutputDataSync()) {
        fallbackSync.AddSamples(static_cast<std::uint32_t>(std::max(frames, 0)));
    }
}

IOutputDataSync& CFilterHost::GetOutputDataSync() {
    IOutputDataSync* own = filter->GetOutputDataSync();
    return own ? *own : fallbackSync;
}

bool CFilterHost::TransferOutputs(bool blocking) {
    if (mtOutputStrings.empty() && mtOutputCurves.empty() && mtOutputSurfaces.empty() &&
        mtOutputProperties.empty()) {
        return true;
    }
    if (blocking) {
        outputsLock.Lock();
    } else if (!outputsLock.TryLock()) {
        return false;
    }
    Publish();
    outputsLock.Unlock();
    NotifyReaders();
    return true;
}

void CFilterHost::Publish() {
    filter->PublishOutputs();
    IChanges& stringChanges = filter->GetOutputStringChanges();
    for (std::size_t i = 0; i < mtOutputStrings.size(); ++i) {
        const int index = static_cast<int>(i);
        if (!stringChanges.Get(index).IsDirty()) {
            continue;
        }
        stringChanges.Get(index).ClearDirty();
        const char* text = filter->GetOutputStrings().GetValue(index);
        const char* last = mtOutputStrings[i]->GetValue();
        // The last text may have died when the filter took the new one: it is known by its mark.
        if (MarkOf(text) != textMarks[i] || !text != !last) {
            mtOutputStrings[i]->SetValue(text);
        } else {
            mtOutputStrings[i]->Replace(text);
        }
        textMarks[i] = MarkOf(text);
    }
    PublishGroup(filter->GetOutputCurves(), filter->GetOutputCurveChanges(), mtOutputCurves);
    PublishGroup(filter->GetOutputSurfaces(), filter->GetOutputSurfaceChanges(), mtOutputSurfaces);
    PublishGroup(filter->GetOutputProperties(), filter->GetOutputPropertyChanges(),
                 mtOutputProperties);
}

void CFilterHost::NotifyReaders() {
    const auto notify = [](auto& outputs) {
        for (auto& output : outputs) {
            output->NotifyIfMarked();
        }
    };
    notify(mtOutputStrings);
    notify(mtOutputCurves);
    notify(mtOutputSurfaces);
    notify(mtOutputProperties);
}

} // namespace Vorin::Audio::Plugin

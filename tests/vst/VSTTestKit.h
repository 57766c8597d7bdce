#pragma once

#include "audio/dsp/BaseCoreDSPFilter.h"
#include "audio/dsp/ParamsValues.h"
#include "containers/DynamicCollection.h"
#include "files/TemporaryFolder.h"
#include "vst/VSTPlug.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VorinExt::VSTPlugin::Testing {

using namespace Vorin;
using namespace Vorin::Audio;
using namespace Vorin::DataModel::Objects;

/// The host's end, which writes down what it is told. One at a time exists.
class CFakeHost {
public:
    CFakeHost() { current = this; }
    CFakeHost(const CFakeHost&) = delete;
    CFakeHost& operator=(const CFakeHost&) = delete;
    ~CFakeHost() { current = nullptr; }

    /// Since the last time, each as "begin 1;", "automate 1 0.5;", "end 1;", "size 30 20;" or, for
    /// MIDI, "midi b0 07 7f;".
    std::string Take() { return std::exchange(log, std::string()); }

    std::vector<VstMidiEvent> lastEvents;

    static VstIntPtr Callback(AEffect*, VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                              float opt) {
        return current ? current->Answer({opcode, index, value, ptr, opt}) : 0;
    }

private:
    VstIntPtr Answer(const CEffectCall& call) {
        char text[64] = "";
        switch (call.opcode) {
        case audioMasterVersion:
            return kVstVersion;
        case audioMasterBeginEdit:
            std::snprintf(text, sizeof text, "begin %d;", call.index);
            break;
        case audioMasterEndEdit:
            std::snprintf(text, sizeof text, "end %d;", call.index);
            break;
        case audioMasterAutomate:
            std::snprintf(text, sizeof text, "automate %d %g;", call.index,
                          static_cast<double>(call.opt));
            break;
        case audioMasterSizeWindow:
            std::snprintf(text, sizeof text, "size %d %d;", call.index,
                          static_cast<int>(call.value));
            break;
        case audioMasterProcessEvents:
            TakeEvents(*static_cast<VstEvents*>(call.ptr));
            break;
        default:
            break;
        }
        log += text;
        return 1;
    }

    void TakeEvents(const VstEvents& events) {
        lastEvents.clear();
        for (VstInt32 i = 0; i < events.numEvents; ++i) {
            // The list is longer than the two that its type names.
            const VstEvent* event = nullptr;
            std::memcpy(&event,
                        reinterpret_cast<const char*>(&events) + offsetof(VstEvents, events) +
                            static_cast<std::size_t>(i) * sizeof event,
                        sizeof event);
            lastEvents.push_back(*reinterpret_cast<const VstMidiEvent*>(event));
            char text[64] = "";
            const auto byte = [&](int number) {
                return static_cast<unsigned char>(lastEvents.back().midiData[number]);
            };
            std::snprintf(text, sizeof text, "midi %02x %02x %02x;", byte(0), byte(1), byte(2));
            log += text;
        }
    }

    static inline CFakeHost* current = nullptr;

    std::string log;
};

inline CParamInfo MakeParam(const char* name, const char* unit = "", double min = 0.0,
                            double max = 1.0, double initial = 0.0) {
    return {kParamReal, name, unit, "", nullptr, nullptr, min, max, initial};
}

/// The ends of fake filters and displays, in their order.
inline std::string& GetEnds() {
    static std::string ends;
    return ends;
}

/// What a fake filter is like, and what became of it; outlives it.
struct CFakeFilterRecord {
    std::vector<CParamInfo> inputs;
    std::vector<CParamInfo> outputs;
    DSP::CProcessInfo channels{2, 2};
    DSP::CFilterProductInfo product{"Maker", "Filter", "1.5", "", "", 3, "Effect"};
    int latency = 0;
    int tail = 0;
    double gain = 1.0; ///< of the audio

    std::vector<double> outputValues; ///< that it computes next
    std::vector<double> inputValues;  ///< that it has now
    std::string calls;                ///< "init 48000 512 1 0;", "process 64;", "silence 64;", ...

    std::string Take() { return std::exchange(calls, std::string()); }
};

/// A filter that multiplies, and writes down what it is asked to do.
class CFakeFilter : public DSP::CBaseCoreDSPFilter {
public:
    explicit CFakeFilter(CFakeFilterRecord& fakeRecord)
        : record(fakeRecord), outputValues(static_cast<int>(fakeRecord.outputs.size())) {
        record.inputValues.clear();
        for (const CParamInfo& info : record.inputs) {
            inputInfos.Add(info);
            record.inputValues.push_back(info.GetDefault());
        }
        for (const CParamInfo& info : record.outputs) {
            outputInfos.Add(info);
        }
        record.outputValues.resize(record.outputs.size());
        SetInputParamInfos(inputInfos);
        SetOutputParamInfos(outputInfos);
    }
    ~CFakeFilter() override { GetEnds() += "~filter;"; }

    DSP::IFilter* Clone() const override { return new CFakeFilter(record); }
    const DSP::IConstFilterProductInfo& GetProductInfo() const override { return record.product; }
    const DSP::IProcessInfo& GetIOConfigurations() const override { return record.channels; }
    int GetLatency() const override { return record.latency; }
    int GetTailSamples() const override { return record.tail; }
    const DSP::IConstParamsValues& GetOutputParamValues() const override { return outputValues; }

    void Init(const DSP::CFilterConfig& config, double hz) override {
        char text[80];
        std::snprintf(text, sizeof text, "init %g %d %d %d;", hz, config.blockSize, config.mode,
                      config.configuration);
        record.calls += text;
        CBaseCoreDSPFilter::Init(config, hz);
    }
    void Process(const DSP::CProcessRecord& block) override {
        record.calls += "process " + std::to_string(block.frames) + ";";
        CBaseCoreDSPFilter::Process(block);
    }
    bool ProcessSilence(const DSP::CProcessRecord& block) override {
        record.calls += "silence " + std::to_string(block.frames) + ";";
        return CBaseCoreDSPFilter::ProcessSilence(block);
    }

protected:
    void OnInputParams(const DSP::IConstParamsValues& values, int) override {
        for (int i = 0; i < values.GetCount(); ++i) {
            record.inputValues[static_cast<std::size_t>(i)] = values.GetValue(i);
        }
        record.calls += "params;";
    }
    void OnUpdateOutputs() override {
        record.calls += "update;";
        for (int i = 0; i < outputValues.GetCount(); ++i) {
            outputValues.SetValue(i, record.outputValues[static_cast<std::size_t>(i)]);
        }
    }
    void OnProcess(DSP::IAudioStreams& inputs, DSP::IAudioStreams& outputs, int frames,
                   const DSP::IConstInputRamp* ramp) override {
        if (ramp) {
            SetInputParams(ramp->GetAtEnd());
        }
        for (int channel = 0; channel < outputs.GetCount(); ++channel) {
            const float* in = inputs.GetCount() > 0
                                  ? inputs.Get(channel % inputs.GetCount()).GetConstData()
                                  : nullptr;
            float* out = outputs.Get(channel).GetData();
            for (int i = 0; out && i < frames; ++i) {
                out[i] = in ? in[i] * static_cast<float>(record.gain) : 0.0F;
            }
        }
    }

private:
    CFakeFilterRecord& record;
    CoreUtilities::TDynamicCollection<CParamInfo, IConstParamInfo> inputInfos;
    CoreUtilities::TDynamicCollection<CParamInfo, IConstParamInfo> outputInfos;
    DSP::CParamsValues outputValues;
};

/// What a fake display is like, and what became of it; outlives it.
struct CFakeGUIRecord {
    Core::C2DSize size{640, 480};
    int state = 1;          ///< that is saved and restored
    bool isWritable = true; ///< false: its state cannot be saved
    bool isReadable = true; ///< false: refuses the next state
    Core::CEventProvider sizeChanged;
    Plugin::IPresetsManager* presets = nullptr;
    std::string calls;

    std::string Take() { return std::exchange(calls, std::string()); }
};

class CFakeGUI : public Plugin::IPluginGUI {
public:
    explicit CFakeGUI(CFakeGUIRecord& fakeRecord) : record(fakeRecord) {}
    ~CFakeGUI() override { GetEnds() += "~gui;"; }

    void SetPresetsManager(Plugin::IPresetsManager& manager) override { record.presets = &manager; }
    void Open(void* parent) override { record.calls += parent ? "open window;" : "open;"; }
    void Show(bool show) override { record.calls += show ? "show;" : "hide;"; }
    void Close() override { record.calls += "close;"; }
    Core::C2DSize GetSize() const override { return record.size; }
    Core::IEventProvider& GetSizeChangedEvents() override { return record.sizeChanged; }
    void BeginLoad() override { record.calls += "begin;"; }
    void EndLoad() override { record.calls += "end;"; }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return record.isWritable && stream.WriteInt("state", record.state);
    }
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        record.calls += "read;";
        return std::exchange(record.isReadable, true) && stream.ReadInt("state", record.state);
    }

private:
    CFakeGUIRecord& record;
};

/// Settings and files below a folder of the test's own.
class CTestPaths : public Plugin::CAudioPluginFilePathsBase {
public:
    explicit CTestPaths(const Plugin::IPackageInfo& folders)
        : CAudioPluginFilePathsBase(folders.GetVendor(), folders.GetProduct()) {}
};

class CTestSettings : public Plugin::TAudioPluginConfig<CTestPaths> {
public:
    explicit CTestSettings(const TestFiles::CTemporaryFolder& folder)
        : TAudioPluginConfig(
              Plugin::CPackageInfo(folder.Path("shipped").c_str(), folder.Path("user").c_str())) {}
};

inline std::unique_ptr<DSP::IFilter> MakeFilter(CFakeFilterRecord& record) {
    auto filter = std::make_unique<CFakeFilter>(record);
    filter->Init({.applyDefaults = true, .blockSize = -1, .mode = 2, .configuration = -1}, 44100.0);
    record.Take();
    return filter;
}

/// A plug-in around a fake filter, between a fake host and a fake display.
class CPlugTest : public testing::Test {
protected:
    /// With a product of its own, or with what the filter says of itself.
    void Make(bool withGUI = false, const DSP::IConstFilterProductInfo* product = nullptr,
              bool storeState = true) {
        std::unique_ptr<Plugin::IPluginGUI> display;
        if (withGUI) {
            display = std::make_unique<CFakeGUI>(gui);
        }
        plug = std::make_unique<CVSTPlug>(&CFakeHost::Callback,
                                          Plugin::CAudioPluginConfig{.filter = MakeFilter(filter),
                                                                     .gui = std::move(display),
                                                                     .productInfo = product,
                                                                     .storeState = storeState},
                                          settings);
        host.Take();
        filter.Take();
        gui.Take();
    }

    AEffect& Record() { return *plug->getAeffect(); }

    template <class Operation>
    std::string TextOf(Operation operation, std::size_t room = 24) {
        std::vector<char> memory(room + 1, '#');
        CHostText text(memory.data(), static_cast<VstInt32>(room));
        operation(text);
        EXPECT_EQ(memory.back(), '#');
        return memory.data();
    }
    std::string NameOf(VstInt32 index) {
        return TextOf([&](CHostText& text) { plug->getParameterName(index, text); });
    }
    std::string LabelOf(VstInt32 index) {
        return TextOf([&](CHostText& text) { plug->getParameterLabel(index, text); });
    }
    std::string DisplayOf(VstInt32 index) {
        return TextOf([&](CHostText& text) { plug->getParameterDisplay(index, text); });
    }

    std::string GetChunk() {
        void* data = nullptr;
        const VstInt32 size = plug->getChunk(&data, false);
        return {static_cast<const char*>(data), static_cast<std::size_t>(size)};
    }
    VstInt32 SetChunk(std::string text) {
        return plug->setChunk(text.data(), static_cast<VstInt32>(text.size()), false);
    }

    void Start(float hz = 48000.0F, VstInt32 frames = 512) {
        plug->setSampleRate(hz);
        plug->setBlockSize(frames);
        plug->suspend();
        plug->resume();
    }

    /// A block of one value in as many channels as announced; what comes out of each channel first.
    std::vector<float> Run(VstInt32 frames, float value = 0.5F) {
        const auto count = static_cast<std::size_t>(frames);
        std::vector<std::vector<float>> in(static_cast<std::size_t>(Record().numInputs),
                                           std::vector<float>(count + 1, value));
        std::vector<std::vector<float>> out(static_cast<std::size_t>(Record().numOutputs),
                                            std::vector<float>(count + 1, 99.0F));
        std::vector<float*> inputs;
        std::vector<float*> outputs;
        for (auto& channel : in) {
            inputs.push_back(channel.data());
        }
        for (auto& channel : out) {
            outputs.push_back(channel.data());
        }
        plug->processReplacing(inputs.data(), outputs.data(), frames);
        std::vector<float> firsts;
        for (auto& channel : out) {
            EXPECT_EQ(channel.back(), 99.0F);
            firsts.push_back(channel.front());
        }
        return firsts;
    }

    TestFiles::CTemporaryFolder folder;
    CTestSettings settings{folder};
    CFakeHost host;
    CFakeFilterRecord filter;
    CFakeGUIRecord gui;
    std::unique_ptr<CVSTPlug> plug;
};

} // namespace VorinExt::VSTPlugin::Testing

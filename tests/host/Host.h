#pragma once

#include "vst/interface/Abi.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <dlfcn.h>

/// A small host, which knows of the plug-in what the binary interface says.
namespace TestHost {

using namespace VorinExt::VSTPlugin;

/// The parameters as the host numbers them.
enum EParam : VstInt32 {
    kBypass,
    kStereoMode,
    kViewMode,
    kSync,
    kDelay,
    kTriggerValue,
    kTriggerDirection,
    kParamsCount
};

constexpr VstInt32 kChannels = 2;

/// The host's end. What it is told is counted by opcode, for all of its plug-ins together; one host
/// at a time exists.
class CHost {
public:
    explicit CHost(VstIntPtr hostVersion = 2400) : version(hostVersion) { Current() = this; }
    CHost(const CHost&) = delete;
    CHost& operator=(const CHost&) = delete;
    ~CHost() { Current() = nullptr; }

    int GetCount(VstInt32 opcode) const { return counts[static_cast<std::size_t>(opcode)]; }

    static VstIntPtr Callback(AEffect*, VstInt32 opcode, VstInt32, VstIntPtr, void*, float) {
        CHost* host = Current();
        if (!host || opcode < 0 || opcode >= kOpcodes) {
            return 0;
        }
        ++host->counts[static_cast<std::size_t>(opcode)];
        return opcode == audioMasterVersion ? host->version : 0;
    }

private:
    static constexpr int kOpcodes = 64;

    static std::atomic<CHost*>& Current() {
        static std::atomic<CHost*> current{nullptr};
        return current;
    }

    const VstIntPtr version;
    std::array<std::atomic<int>, kOpcodes> counts{};
};

/// The library, loaded as long as this exists.
class CLibrary {
public:
    CLibrary() : handle(dlopen(ONDARA_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {
        EXPECT_NE(handle, nullptr) << dlerror();
    }
    CLibrary(const CLibrary&) = delete;
    CLibrary& operator=(const CLibrary&) = delete;
    ~CLibrary() {
        if (handle) {
            dlclose(handle);
        }
    }

    void* Find(const char* name) const { return dlsym(handle, name); }

    AEffect* Create(audioMasterCallback callback, const char* name = "VSTPluginMain") const {
        using EntryPoint = AEffect* (*)(audioMasterCallback);
        return reinterpret_cast<EntryPoint>(Find(name))(callback);
    }

private:
    void* handle;
};

/// One plug-in, open as long as this exists.
class CInstance {
public:
    explicit CInstance(const CLibrary& library) : effect(library.Create(&CHost::Callback)) {
        Ask(effOpen);
    }
    CInstance(const CInstance&) = delete;
    CInstance& operator=(const CInstance&) = delete;
    ~CInstance() { Ask(effClose); }

    AEffect* Get() { return effect; }

    VstIntPtr Ask(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                  float opt = 0.0F) {
        return effect->dispatcher(effect, opcode, index, value, ptr, opt);
    }

    void Start(float hz = 48000.0F, VstInt32 frames = 512) {
        Ask(effMainsChanged, 0, 0);
        Ask(effSetSampleRate, 0, 0, nullptr, hz);
        Ask(effSetBlockSize, 0, frames);
        Ask(effMainsChanged, 0, 1);
    }
    void Stop() { Ask(effMainsChanged, 0, 0); }

    /// The text that an opcode brings; `room` is what the interface promises at least. The rest of
    /// the memory has to stay untouched.
    std::string Text(VstInt32 opcode, VstInt32 index, std::size_t room) {
        std::array<char, 512> memory;
        memory.fill('#');
        Ask(opcode, index, 0, memory.data());
        for (std::size_t i = room; i < memory.size(); ++i) {
            EXPECT_EQ(memory[i], '#') << "opcode " << opcode << " wrote byte " << i;
        }
        memory[room] = '\0';
        return memory.data();
    }

    void Set(VstInt32 index, float value) { effect->setParameter(effect, index, value); }
    float GetParam(VstInt32 index) { return effect->getParameter(effect, index); }

    std::string GetChunk(VstInt32 index = 0) {
        void* data = nullptr;
        const VstIntPtr size = Ask(effGetChunk, index, 0, &data);
        return data && size > 0
                   ? std::string(static_cast<const char*>(data), static_cast<std::size_t>(size))
                   : std::string();
    }
    VstIntPtr SetChunk(std::string bytes, VstInt32 index = 0) {
        return Ask(effSetChunk, index, static_cast<VstIntPtr>(bytes.size()), bytes.data());
    }

    void Process(float** inputs, float** outputs, VstInt32 frames) {
        effect->processReplacing(effect, inputs, outputs, frames);
    }

    /// One block that nobody looks at: noise in, and out of the same buffers.
    void Run(VstInt32 frames) {
        if (run.size() < 2 * static_cast<std::size_t>(frames)) {
            run.resize(2 * static_cast<std::size_t>(frames));
            std::mt19937 random(3);
            for (float& sample : run) {
                sample = static_cast<float>(random() % 2001) / 1000.0F - 1.0F;
            }
        }
        float* channels[] = {run.data(), run.data() + frames};
        Process(channels, channels, frames);
    }

private:
    AEffect* effect;
    std::vector<float> run;
};

/// MIDI events as a host hands them over.
class CEvents {
public:
    explicit CEvents(int mostEvents)
        : events(static_cast<std::size_t>(mostEvents)),
          memory(sizeof(VstEvents) + sizeof(VstEvent*) * static_cast<std::size_t>(mostEvents)) {
        Get()->numEvents = 0;
    }

    void Clear() { Get()->numEvents = 0; }

    VstMidiEvent& Add(int status, int data1, int data2, VstInt32 delta = 0) {
        VstEvents* list = Get();
        VstMidiEvent& event = events[static_cast<std::size_t>(list->numEvents)];
        event = {};
        event.type = kVstMidiType;
        event.byteSize = sizeof event;
        event.deltaFrames = delta;
        event.midiData[0] = static_cast<char>(status);
        event.midiData[1] = static_cast<char>(data1);
        event.midiData[2] = static_cast<char>(data2);
        Put(reinterpret_cast<VstEvent*>(&event));
        return event;
    }
    void Put(VstEvent* event) {
        VstEvents* list = Get();
        // The array is longer than it says.
        std::memcpy(memory.data() + offsetof(VstEvents, events) +
                        sizeof event * static_cast<std::size_t>(list->numEvents),
                    &event, sizeof event);
        ++list->numEvents;
    }

    VstEvents* Get() { return reinterpret_cast<VstEvents*>(memory.data()); }

private:
    std::vector<VstMidiEvent> events;
    std::vector<char> memory; // the allocator's alignment is enough
};

/// The host, the library and one plug-in in it.
class CHostTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(plugin.Get(), nullptr); }

    CHost host;
    CLibrary library;
    CInstance plugin{library};
};

inline std::uint32_t BitsOf(float value) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

} // namespace TestHost

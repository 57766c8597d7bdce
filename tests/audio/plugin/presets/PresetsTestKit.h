#pragma once

#include "audio/plugin/presets/PresetsManager.h"
#include "core/EventCounter.h"
#include "files/Obstacles.h"
#include "files/TemporaryFolder.h"
#include "serialization/ItemSerialization.h"
#include "system/CriticalSection.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace Vorin::Audio::Plugin {

/// A state of a number and a text, with the name of the manager's preset: what an instance has, in
/// small. The default of both is nothing.
class CTestState : public IPresetState {
public:
    Core::ILock& GetStateLock() const override { return lock; }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        ++written;
        if (!isKept) {
            return true;
        }
        return !isBroken && manager->WriteName(stream) && stream.WriteDouble("number", number) &&
               WriteItem(stream, "text", text);
    }

    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        ++read;
        bool isRefused = false;
        static_cast<void>(stream.ReadBool("refused", isRefused));
        if (isRefused) {
            return false;
        }
        manager->ReadName(stream);
        if (whileReading) {
            whileReading();
        }
        number = 0.0;
        text.Clear();
        stream.ReadDouble("number", number);
        ReadItem(stream, "text", text);
        return true;
    }

    void ResetToDefaults() override {
        ++resets;
        number = 0.0;
        text.Clear();
    }

    void ApplyValues(const DSP::IConstParamsValues& values) override {
        number = values.GetCount() > 0 ? values.GetValue(0) : 0.0;
        text.Clear();
    }

    mutable System::CCriticalSection lock;
    CPresetsManager* manager = nullptr;
    double number = 0.0;
    Containers::CCharString text;
    bool isKept = true;
    bool isBroken = false; // cannot be written
    std::function<void()> whileReading;
    mutable int written = 0;
    int read = 0;
    int resets = 0;
};

/// A preset file whose name within is `name`.
inline std::string PresetDocument(const std::string& name, double number) {
    return "<Preset progName=\"" + name + "\" number=\"" + std::to_string(number) + "\"/>";
}

/// Names of a folder and what is in it, as "Title[file file Sub[file]]", folders last.
inline std::string Outline(const IPresetFolder& folder) {
    std::string text = folder.GetName() + std::string("[");
    const auto separate = [&text] {
        if (text.back() != '[') {
            text += ' ';
        }
    };
    for (int i = 0; i < folder.GetItemCount(); ++i) {
        separate();
        text += folder.GetItem(i).GetName();
    }
    for (int i = 0; i < folder.GetFolderCount(); ++i) {
        separate();
        text += Outline(folder.GetFolder(i));
    }
    return text + "]";
}

inline std::vector<std::string> NamesOf(const IPresets& presets) {
    std::vector<std::string> names;
    for (int i = 0; i < presets.GetCount(); ++i) {
        names.emplace_back(presets.Get(i).GetName());
    }
    return names;
}

} // namespace Vorin::Audio::Plugin

#pragma once

#include "audio/plugin/midi/MIDICCSetting.h"
#include "containers/Vector.h"
#include "serialization/ListSerializers.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <memory>
#include <vector>

namespace Vorin::Audio::Plugin {

using IMIDICCSettings = Containers::IVector<IMIDICCSetting>;

/// The settings of all parameters of one direction, each made of its parameter's info. Their number
/// never changes; settings may be used by any thread. [any, audio]
template <class S>
class TMIDICCSettings : public virtual IMIDICCSettings {
public:
    using IConstInfos = Containers::IConstVector<DataModel::Objects::IConstParamInfo>;

    /// The infos outlive the settings.
    explicit TMIDICCSettings(const IConstInfos& infos) {
        const int count = infos.GetCount();
        for (int index = 0; index < count; ++index) {
            settings.push_back(std::make_unique<S>(infos.Get(index)));
        }
    }
    TMIDICCSettings(const TMIDICCSettings&) = delete;
    TMIDICCSettings& operator=(const TMIDICCSettings&) = delete;

    int GetCount() const override { return static_cast<int>(settings.size()); }

    const S& Get(int index) const override {
        assert(0 <= index && index < GetCount());
        return *settings[static_cast<std::size_t>(index)];
    }

    S& Get(int index) override {
        assert(0 <= index && index < GetCount());
        return *settings[static_cast<std::size_t>(index)];
    }

    /// Delivers the change events that could not be delivered at once.
    void NotifyIfKept() {
        for (const std::unique_ptr<S>& setting : settings) {
            setting->NotifyIfKept();
        }
    }

private:
    std::vector<std::unique_ptr<S>> settings;
};

using CInputMIDICCSettings = TMIDICCSettings<CInputMIDICCSetting>;
using COutputMIDICCSettings = TMIDICCSettings<CMIDICCSetting>;

/// Writes a list of settings as the object `key`, each as an item of the word `item`: "setting" in
/// a preset, "item" in the global settings.
template <class S>
bool WriteMIDICCSettings(Serialization::IWriteDataStream& stream, const char* key,
                         const TMIDICCSettings<S>& settings, const char* item) {
    return stream.WriteObject(key,
                              Serialization::TVectorSerializer<TMIDICCSettings<S>>(settings, item));
}

/// Reads settings in place. One that is missing or damaged stays as it was, and the rest is read;
/// further ones are not looked at. False when any was missing or damaged, or the count is missing;
/// on a tolerant stream what is missing is no failure.
template <class S>
class TMIDICCSettingsDeSerializer : public virtual Serialization::IDeSerialize {
public:
    TMIDICCSettingsDeSerializer(TMIDICCSettings<S>& readSettings, const char* item)
        : settings(readSettings), names(item) {}

    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        const bool isTolerant = stream.IsTolerant();
        // A tolerant stream leaves out the count, too, when nothing but an item changed.
        int count = isTolerant ? settings.GetCount() : 0;
        bool done = names.ReadCount(stream, count) || isTolerant;
        done &= count >= settings.GetCount() || isTolerant;
        for (int index = 0; index < std::min(count, settings.GetCount()); ++index) {
            const Containers::CCharString name = names.GetName(index);
            const bool isLeftOut = isTolerant && !stream.Exists(name.Get());
            done &= isLeftOut || stream.ReadObject(name.Get(), settings.Get(index));
        }
        return done;
    }

private:
    TMIDICCSettings<S>& settings;
    const Serialization::CItemNames names;
};

/// Reads what WriteMIDICCSettings wrote, by the rules of the reader above. False also when there is
/// no such object.
template <class S>
bool ReadMIDICCSettings(const Serialization::IReadDataStream& stream, const char* key,
                        TMIDICCSettings<S>& settings, const char* item) {
    TMIDICCSettingsDeSerializer<S> reader(settings, item);
    return stream.ReadObject(key, reader);
}

} // namespace Vorin::Audio::Plugin

#pragma once

#include "datamodel/ParamInfo.h"
#include "datamodel/ParamValueCurve.h"
#include "serialization/Serializable.h"
#include "system/RealtimeEventProvider.h"

#include <atomic>

namespace Vorin::Audio::Plugin {

/// What a setting is about. Only controllers drive parameters and are sent; the other two are kept
/// as they are read.
enum EMIDICCType : int { kMIDICCTypeCC = 0, kMIDICCTypeNoteOnOff = 1, kMIDICCTypeNote = 2 };

inline constexpr int kMIDICCTypesCount = 3;

/// The name of a type in files: static text, null outside the table.
const char* GetMIDICCTypeName(EMIDICCType type);

/// False, with `type` left alone, when there is no type of that name.
bool FindMIDICCType(const char* name, EMIDICCType& type);

/// How one parameter meets MIDI: by which controller on which channel, over which range, with which
/// response, and whether the host is told of its changes.
///
/// All of it may be called by any thread at any time, the audio thread among them: nothing waits or
/// allocates, and each field is read and written as a whole. [any, audio]
///
/// A setter that changes nothing does nothing. One that is given what no setting can have, a
/// channel or controller out of range or a range that is not finite, does nothing either.
class IMIDICCSetting {
public:
    virtual void SetMIDIEnabled(bool enable) = 0;
    virtual bool IsMIDIEnabled() const = 0;

    /// Any number is taken; one outside the table cannot be written to a file.
    virtual void SetType(EMIDICCType newType) = 0;
    virtual EMIDICCType GetType() const = 0;

    /// 1 to 16, or 0 for any channel.
    virtual void SetChannel(int newChannel) = 0;
    virtual int GetChannel() const = 0;

    /// The controller, 0 to 127.
    virtual void SetNumber(int newNumber) = 0;
    virtual int GetNumber() const = 0;

    /// Whether the parameter's changes go to the host. Those of inputs always do.
    virtual void SetAutomationEnabled(bool enable) = 0;
    virtual bool IsAutomationEnabled() const = 0;

    /// Any number is taken: outside the table is a straight line, and cannot be written to a file.
    virtual void SetCurve(DataModel::Objects::EParamValueCurve newCurve) = 0;
    virtual DataModel::Objects::EParamValueCurve GetCurve() const = 0;

    /// What the controller's ends stand for, in the parameter's units. A minimum above the maximum
    /// turns the controller round.
    virtual void SetMin(double newMin) = 0;
    virtual double GetMin() const = 0;
    virtual void SetMax(double newMax) = 0;
    virtual double GetMax() const = 0;

    /// Fires on the thread that changed a field, which may be the audio thread: see
    /// CRealtimeEventProvider for what listeners may do.
    virtual Core::IEventProvider& GetChangedEvent() = 0;

    virtual ~IMIDICCSetting() = default;
};

/// The setting. A new one is switched off, and has the whole range of its parameter on a straight
/// line, controller 0 on channel 1, and no automation.
///
/// In files: "channel", "version", "number", "midiEnabled", "automationEnabled", "curve", "min",
/// "max", "type", with curve and type by name. Files before version 3 have "enabled" for
/// "midiEnabled".
class CMIDICCSetting : public virtual IMIDICCSetting, public virtual Serialization::ISerializable {
public:
    /// The info is read here alone.
    explicit CMIDICCSetting(const DataModel::Objects::IConstParamInfo& info);
    CMIDICCSetting(const CMIDICCSetting&) = delete;
    CMIDICCSetting& operator=(const CMIDICCSetting&) = delete;

    void SetMIDIEnabled(bool enable) override;
    bool IsMIDIEnabled() const override { return midiEnabled.load(kOrder); }
    void SetType(EMIDICCType newType) override;
    EMIDICCType GetType() const override { return static_cast<EMIDICCType>(type.load(kOrder)); }
    void SetChannel(int newChannel) override;
    int GetChannel() const override { return channel.load(kOrder); }
    void SetNumber(int newNumber) override;
    int GetNumber() const override { return number.load(kOrder); }
    void SetAutomationEnabled(bool enable) override;
    bool IsAutomationEnabled() const override { return automationEnabled.load(kOrder); }
    void SetCurve(DataModel::Objects::EParamValueCurve newCurve) override;
    DataModel::Objects::EParamValueCurve GetCurve() const override {
        return static_cast<DataModel::Objects::EParamValueCurve>(curve.load(kOrder));
    }
    void SetMin(double newMin) override;
    double GetMin() const override { return min.load(kOrder); }
    void SetMax(double newMax) override;
    double GetMax() const override { return max.load(kOrder); }
    Core::IEventProvider& GetChangedEvent() override { return changed; }

    /// Takes over all fields and fires once, if any differs. [any, audio]
    void CopyFrom(const IMIDICCSetting& other);

    /// Delivers a change event that could not be delivered at once. [any, audio]
    void NotifyIfKept() { changed.NotifyIfKept(); }

    /// False, and nothing is written, for a curve or a type outside its table.
    bool Serialize(Serialization::IWriteDataStream& stream) const override;

    /// False, and nothing changes, when a value is missing or is out of range. A curve or a type
    /// that is missing or has an unknown name stays as it is, and so does a missing
    /// "automationEnabled" of an older file. Fires once, if anything changed.
    bool DeSerialize(const Serialization::IReadDataStream& stream) override;

protected:
    struct CFields {
        int channel;
        int number;
        bool midiEnabled;
        bool automationEnabled;
        double min;
        double max;
        int curve;
        int type;
    };

    CMIDICCSetting(const DataModel::Objects::IConstParamInfo& info, int firstChannel,
                   bool automate);

private:
    // Fields are words of their own: nothing is ordered by them.
    static constexpr std::memory_order kOrder = std::memory_order_relaxed;

    static CFields FieldsOf(const IMIDICCSetting& setting);
    static bool ReadFields(const Serialization::IReadDataStream& stream, CFields& fields);
    void SetFields(const CFields& fields);

    template <class T>
    static bool Store(std::atomic<T>& field, T value);
    template <class T>
    void StoreAndNotify(std::atomic<T>& field, T value);

    std::atomic<int> channel;
    std::atomic<int> number{0};
    std::atomic<bool> midiEnabled{false};
    std::atomic<bool> automationEnabled;
    std::atomic<double> min;
    std::atomic<double> max;
    std::atomic<int> curve{DataModel::Objects::kParamValueCurveLinear};
    std::atomic<int> type{kMIDICCTypeCC};
    System::CRealtimeEventProvider changed;
};

/// The setting of an input parameter, which knows what it drives. A new one listens to all
/// channels, and automates.
class CInputMIDICCSetting : public CMIDICCSetting {
public:
    /// The info outlives the setting, and is constant as long as MIDI may come in.
    explicit CInputMIDICCSetting(const DataModel::Objects::IConstParamInfo& drivenInfo)
        : CMIDICCSetting(drivenInfo, 0, true), info(drivenInfo) {}

    const DataModel::Objects::IConstParamInfo& GetInfo() const { return info; }

private:
    const DataModel::Objects::IConstParamInfo& info;
};

} // namespace Vorin::Audio::Plugin

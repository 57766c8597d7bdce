#include "audio/plugin/midi/MIDICCSetting.h"

#include "serialization/ItemSerialization.h"

#include <cmath>
#include <cstring>

namespace Vorin::Audio::Plugin {

using DataModel::Objects::EParamValueCurve;
using DataModel::Objects::FindParamValueCurve;
using DataModel::Objects::GetParamValueCurveName;
using DataModel::Objects::IConstParamInfo;
using Serialization::IReadDataStream;
using Serialization::IWriteDataStream;

namespace {

constexpr int kVersion = 3;
constexpr int kLargestChannel = 16;
constexpr int kLargestNumber = 127;

constexpr const char* kTypeNames[kMIDICCTypesCount] = {"CC", "NoteOnOff", "Note"};

bool IsChannel(int channel) { return channel >= 0 && channel <= kLargestChannel; }
bool IsNumber(int number) { return number >= 0 && number <= kLargestNumber; }

double FiniteOr0(double value) { return std::isfinite(value) ? value : 0.0; }

bool ReadText(const IReadDataStream& stream, const char* name, Containers::CCharString& text) {
    return Serialization::ReadItem(stream, name, text);
}

} // namespace

const char* GetMIDICCTypeName(EMIDICCType type) {
    return type >= 0 && type < kMIDICCTypesCount ? kTypeNames[type] : nullptr;
}

bool FindMIDICCType(const char* name, EMIDICCType& type) {
    for (int i = 0; name && i < kMIDICCTypesCount; ++i) {
        if (std::strcmp(name, kTypeNames[i]) == 0) {
            type = static_cast<EMIDICCType>(i);
            return true;
        }
    }
    return false;
}

CMIDICCSetting::CMIDICCSetting(const IConstParamInfo& info) : CMIDICCSetting(info, 1, false) {}

CMIDICCSetting::CMIDICCSetting(const IConstParamInfo& info, int firstChannel, bool automate)
    : channel(firstChannel), automationEnabled(automate), min(FiniteOr0(info.GetMin())),
      max(FiniteOr0(info.GetMax())) {}

template <class T>
bool CMIDICCSetting::Store(std::atomic<T>& field, T value) {
    const T old = field.load(kOrder);
    if (!(value < old || value > old)) {
        return false;
    }
    field.store(value, kOrder);
    return true;
}

template <class T>
void CMIDICCSetting::StoreAndNotify(std::atomic<T>& field, T value) {
    if (Store(field, value)) {
        changed.Notify();
    }
}

void CMIDICCSetting::SetMIDIEnabled(bool enable) { StoreAndNotify(midiEnabled, enable); }

void CMIDICCSetting::SetType(EMIDICCType newType) {
    StoreAndNotify(type, static_cast<int>(newType));
}

void CMIDICCSetting::SetChannel(int newChannel) {
    if (IsChannel(newChannel)) {
        StoreAndNotify(channel, newChannel);
    }
}

void CMIDICCSetting::SetNumber(int newNumber) {
    if (IsNumber(newNumber)) {
        StoreAndNotify(number, newNumber);
    }
}

void CMIDICCSetting::SetAutomationEnabled(bool enable) {
    StoreAndNotify(automationEnabled, enable);
}

void CMIDICCSetting::SetCurve(EParamValueCurve newCurve) {
    StoreAndNotify(curve, static_cast<int>(newCurve));
}

void CMIDICCSetting::SetMin(double newMin) {
    if (std::isfinite(newMin)) {
        StoreAndNotify(min, newMin);
    }
}

void CMIDICCSetting::SetMax(double newMax) {
    if (std::isfinite(newMax)) {
        StoreAndNotify(max, newMax);
    }
}

CMIDICCSetting::CFields CMIDICCSetting::FieldsOf(const IMIDICCSetting& setting) {
    return {setting.GetChannel(),    setting.GetNumber(),
            setting.IsMIDIEnabled(), setting.IsAutomationEnabled(),
            setting.GetMin(),        setting.GetMax(),
            setting.GetCurve(),      setting.GetType()};
}

void CMIDICCSetting::SetFields(const CFields& fields) {
    bool isChanged = Store(channel, fields.channel);
    isChanged |= Store(number, fields.number);
    isChanged |= Store(midiEnabled, fields.midiEnabled);
    isChanged |= Store(automationEnabled, fields.automationEnabled);
    isChanged |= Store(min, fields.min);
    isChanged |= Store(max, fields.max);
    isChanged |= Store(curve, fields.curve);
    isChanged |= Store(type, fields.type);
    if (isChanged) {
        changed.Notify();
    }
}

void CMIDICCSetting::CopyFrom(const IMIDICCSetting& other) { SetFields(FieldsOf(other)); }

bool CMIDICCSetting::Serialize(IWriteDataStream& stream) const {
    const CFields fields = FieldsOf(*this);
    const char* curveName = GetParamValueCurveName(static_cast<EParamValueCurve>(fields.curve));
    const char* typeName = GetMIDICCTypeName(static_cast<EMIDICCType>(fields.type));
    return curveName && typeName && stream.WriteInt("channel", fields.channel) &&
           stream.WriteInt("version", kVersion) && stream.WriteInt("number", fields.number) &&
           stream.WriteBool("midiEnabled", fields.midiEnabled) &&
           stream.WriteBool("automationEnabled", fields.automationEnabled) &&
           stream.WriteString("curve", curveName) && stream.WriteDouble("min", fields.min) &&
           stream.WriteDouble("max", fields.max) && stream.WriteString("type", typeName);
}

bool CMIDICCSetting::ReadFields(const IReadDataStream& stream, CFields& fields) {
    int version = 0;
    const bool isOlder = !stream.ReadInt("version", version) || version < kVersion;
    const char* enabledKey = isOlder && stream.Exists("enabled") ? "enabled" : "midiEnabled";

    // All of them are read: a tolerant stream leaves out any.
    bool hasAll = stream.ReadInt("channel", fields.channel);
    hasAll &= stream.ReadInt("number", fields.number);
    hasAll &= stream.ReadBool(enabledKey, fields.midiEnabled);
    hasAll &= stream.ReadBool("automationEnabled", fields.automationEnabled) || isOlder;
    hasAll &= stream.ReadDouble("min", fields.min);
    hasAll &= stream.ReadDouble("max", fields.max);

    Containers::CCharString text;
    auto curve = static_cast<EParamValueCurve>(fields.curve);
    if (ReadText(stream, "curve", text) && FindParamValueCurve(text.Get(), curve)) {
        fields.curve = curve;
    }
    auto type = static_cast<EMIDICCType>(fields.type);
    if (ReadText(stream, "type", text) && FindMIDICCType(text.Get(), type)) {
        fields.type = type;
    }
    return hasAll || stream.IsTolerant();
}

bool CMIDICCSetting::DeSerialize(const IReadDataStream& stream) {
    CFields fields = FieldsOf(*this);
    if (!ReadFields(stream, fields) || !IsChannel(fields.channel) || !IsNumber(fields.number) ||
        !std::isfinite(fields.min) || !std::isfinite(fields.max)) {
        return false;
    }
    SetFields(fields);
    return true;
}

} // namespace Vorin::Audio::Plugin

#pragma once

#include "containers/CharString.h"
#include "datamodel/ObjectInfo.h"

namespace Vorin::Audio::DSP {

/// What an input channel is.
class IInputInfo : public virtual DataModel::Objects::IConstObjectInfo {
public:
    virtual const char* GetUnit() const = 0;
};

/// What an output channel is.
class IOutputInfo : public virtual DataModel::Objects::IConstObjectInfo {
public:
    virtual const char* GetUnit() const = 0;
};

/// A run of channels that belong together.
class IBusInfo : public virtual DataModel::Objects::IConstObjectInfo {
public:
    virtual int GetFirstChannel() const = 0;
    virtual int GetChannelCount() const = 0;
};

/// The texts of a channel and its place in the object infos. Base is IInputInfo or IOutputInfo.
template <class Base>
class TChannelInfo : public DataModel::Objects::CObjectInfo, public Base {
public:
    TChannelInfo(const char* channelName, const char* channelUnit, const char* description)
        : CObjectInfo(channelName, description), unit(channelUnit) {}

    const char* GetUnit() const override { return unit.Get(); }

private:
    Containers::CCharString unit;
};

class CInputInfo : public TChannelInfo<IInputInfo> {
public:
    explicit CInputInfo(const char* nameText = "In", const char* unitText = "",
                        const char* description = "")
        : TChannelInfo(nameText, unitText, description) {}
};

class COutputInfo : public TChannelInfo<IOutputInfo> {
public:
    explicit COutputInfo(const char* nameText = "Out", const char* unitText = "",
                         const char* description = "")
        : TChannelInfo(nameText, unitText, description) {}
};

class CBusInfo : public DataModel::Objects::CObjectInfo, public IBusInfo {
public:
    explicit CBusInfo(const char* busName = "", const char* description = "", int first = 0,
                      int channels = 0)
        : CObjectInfo(busName, description), firstChannel(first), channelCount(channels) {}

    int GetFirstChannel() const override { return firstChannel; }
    int GetChannelCount() const override { return channelCount; }

private:
    int firstChannel;
    int channelCount;
};

} // namespace Vorin::Audio::DSP

#pragma once

#include "core/Buffer.h"

namespace Vorin::Audio::MIDI {

/// What a message is, by the high half of its status byte.
enum EMIDIEventType : int {
    kMIDINoteOff = 0,
    kMIDINoteOn = 1,
    kMIDIController = 2,
    kMIDIProgramChange = 3,
    kMIDIOther = 4 ///< anything else, and an event without data
};

/// One MIDI message of up to 3 bytes and when it is due, to read. What the bytes are too few for is
/// -1; any bytes read without harm.
class IConstMIDIEvent : public virtual Core::IConstBuffer {
public:
    virtual EMIDIEventType GetType() const = 0;
    /// 0 to 15.
    virtual int GetChannel() const = 0;
    /// The second and the third byte, 0 to 127.
    virtual int GetData1() const = 0;
    virtual int GetData2() const = 0;
    /// In frames from the start of the block.
    virtual int GetDeltaFrames() const = 0;
};

/// A MIDI message to write. A setter keeps the low bits of its number that have room, 4 of a
/// channel and 7 of a data byte, and does nothing when its byte is not there.
class IMIDIEvent : public virtual IConstMIDIEvent, public virtual Core::IBuffer {
public:
    /// kMIDIOther, which has no status of its own, leaves the byte as it is.
    virtual void SetType(EMIDIEventType type) = 0;
    virtual void SetChannel(int channel) = 0;
    virtual void SetData1(int value) = 0;
    virtual void SetData2(int value) = 0;
    virtual void SetDeltaFrames(int frames) = 0;
};

/// The message in a buffer, which starts with 3 bytes of 0. One thread.
///
/// Its buffer never gets longer by SetSize and CopyFrom: what is behind the third byte is left out.
/// As long as no foreign block is set, neither of them allocates. [audio]
class CMIDIEvent : public virtual IMIDIEvent, public Core::CBuffer {
public:
    static constexpr int kLargestSize = 3;

    CMIDIEvent();

    EMIDIEventType GetType() const override;
    int GetChannel() const override;
    int GetData1() const override { return GetDataByte(1); }
    int GetData2() const override { return GetDataByte(2); }
    int GetDeltaFrames() const override { return deltaFrames; }

    void SetType(EMIDIEventType type) override;
    void SetChannel(int channel) override;
    void SetData1(int value) override { SetDataByte(1, value); }
    void SetData2(int value) override { SetDataByte(2, value); }
    void SetDeltaFrames(int frames) override { deltaFrames = frames; }

    void SetBuffer(void* newData, int newSize, Core::EOwnership newOwnership) override;
    /// Bytes that join are 0.
    void SetSize(int newSize) override;
    void CopyFrom(const void* source, int sourceSize) override;

private:
    void ForgetMissingBlock();
    const unsigned char* FindByte(int index) const;
    unsigned char* FindByte(int index);
    int GetDataByte(int index) const;
    void SetDataByte(int index, int value);

    int capacity = 0; // bytes of the block that is held: shorter sizes leave it as it is
    int deltaFrames = 0;
};

} // namespace Vorin::Audio::MIDI

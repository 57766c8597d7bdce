#include "audio/midi/MIDIEvent.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace Vorin::Audio::MIDI {

namespace {

constexpr int kStatusBits = 0xF0;
constexpr int kChannelBits = 0x0F;
constexpr int kDataBits = 0x7F;

struct CStatus {
    EMIDIEventType type;
    int bits;
};

constexpr CStatus kStatuses[] = {
    {kMIDINoteOff, 0x80}, {kMIDINoteOn, 0x90}, {kMIDIController, 0xB0}, {kMIDIProgramChange, 0xC0}};

} // namespace

CMIDIEvent::CMIDIEvent() {
    CBuffer::SetSize(kLargestSize);
    capacity = kLargestSize;
    std::memset(GetData(), 0, static_cast<std::size_t>(kLargestSize));
}

EMIDIEventType CMIDIEvent::GetType() const {
    const unsigned char* status = FindByte(0);
    for (const CStatus& known : kStatuses) {
        if (status && (*status & kStatusBits) == known.bits) {
            return known.type;
        }
    }
    return kMIDIOther;
}

int CMIDIEvent::GetChannel() const {
    const unsigned char* status = FindByte(0);
    return status ? *status & kChannelBits : -1;
}

void CMIDIEvent::SetType(EMIDIEventType type) {
    unsigned char* status = FindByte(0);
    for (const CStatus& known : kStatuses) {
        if (status && known.type == type) {
            *status = static_cast<unsigned char>(known.bits | (*status & kChannelBits));
        }
    }
}

void CMIDIEvent::SetChannel(int channel) {
    if (unsigned char* status = FindByte(0)) {
        *status = static_cast<unsigned char>((*status & kStatusBits) | (channel & kChannelBits));
    }
}

void CMIDIEvent::SetBuffer(void* newData, int newSize, Core::EOwnership newOwnership) {
    CBuffer::SetBuffer(newData, newSize, newOwnership);
    capacity = newData ? GetSize() : 0;
}

// A size without a block, as SetBuffer takes it, counts as no size before anything is written.
void CMIDIEvent::ForgetMissingBlock() {
    if (!GetData()) {
        CBuffer::SetBuffer(nullptr, 0, Core::kOwn);
    }
}

void CMIDIEvent::SetSize(int newSize) {
    newSize = std::clamp(newSize, 0, kLargestSize);
    if (newSize == GetSize()) {
        return;
    }
    ForgetMissingBlock();
    const int oldSize = GetSize();
    if (newSize <= capacity && GetOwnership() == Core::kOwn) {
        CBuffer::SetBuffer(GetData(), newSize, Core::kOwn);
    } else {
        CBuffer::SetSize(newSize);
        capacity = newSize;
    }
    if (newSize > oldSize) {
        std::memset(static_cast<char*>(GetData()) + oldSize, 0,
                    static_cast<std::size_t>(newSize - oldSize));
    }
}

void CMIDIEvent::CopyFrom(const void* source, int sourceSize) {
    sourceSize = std::clamp(sourceSize, 0, kLargestSize);
    ForgetMissingBlock();
    if (sourceSize <= GetSize() || sourceSize > capacity) {
        CBuffer::CopyFrom(source, sourceSize);
        capacity = std::max(capacity, sourceSize);
        return;
    }
    // The block has room that an earlier, shorter message left unused.
    CBuffer::SetBuffer(GetData(), sourceSize, GetOwnership());
    const std::size_t bytes = static_cast<std::size_t>(sourceSize);
    if (source) {
        std::memmove(GetData(), source, bytes);
    } else {
        std::memset(GetData(), 0, bytes);
    }
}

const unsigned char* CMIDIEvent::FindByte(int index) const {
    const auto* bytes = static_cast<const unsigned char*>(GetData());
    return bytes && index < GetSize() ? bytes + index : nullptr;
}

unsigned char* CMIDIEvent::FindByte(int index) {
    auto* bytes = static_cast<unsigned char*>(GetData());
    return bytes && index < GetSize() ? bytes + index : nullptr;
}

int CMIDIEvent::GetDataByte(int index) const {
    const unsigned char* byte = FindByte(index);
    return byte ? *byte & kDataBits : -1;
}

void CMIDIEvent::SetDataByte(int index, int value) {
    if (unsigned char* byte = FindByte(index)) {
        *byte = static_cast<unsigned char>(value & kDataBits);
    }
}

} // namespace Vorin::Audio::MIDI

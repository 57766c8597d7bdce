#pragma once

#include "vst/interface/Abi.h"

#include <cstring>

namespace VorinExt::VSTPlugin {

/// What hosts give for the label, display and name of a parameter. The interface says 8, which no
/// host of today keeps to.
constexpr VstInt32 kParameterTextSize = 24;
constexpr VstInt32 kErrorTextSize = 256;

/// An array of the host that takes a text. Whatever is written ends with a zero inside of it: a
/// text that is too long is cut, without a mark.
///
/// Empty at first, whatever the array held. Null and sizes below 1 take nothing.
class CHostText {
public:
    CHostText(void* memory, VstInt32 arraySize)
        : text(static_cast<char*>(memory)), size(memory && arraySize > 0 ? arraySize : 0) {
        Clear();
    }

    void Clear() {
        length = 0;
        if (size > 0) {
            text[0] = '\0';
        }
    }

    /// Null counts as the empty text.
    void Set(const char* newText) {
        Clear();
        Append(newText);
    }

    void Append(const char* added) {
        if (!added || size == 0) {
            return;
        }
        const std::size_t room = static_cast<std::size_t>(size - 1 - length);
        const std::size_t count = ::strnlen(added, room);
        std::memcpy(text + length, added, count);
        length += static_cast<VstInt32>(count);
        text[length] = '\0';
    }

    VstInt32 GetLength() const { return length; }

    /// The longest text that fits, in bytes.
    VstInt32 GetMaxLength() const { return size > 0 ? size - 1 : 0; }

private:
    char* text;
    VstInt32 size;
    VstInt32 length = 0;
};

} // namespace VorinExt::VSTPlugin

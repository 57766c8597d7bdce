#include "audio/plugin/CountedItems.h"

#include "serialization/ItemName.h"
#include "serialization/Limits.h"

namespace Vorin::Audio::Plugin {

using namespace Serialization;

bool IsCountFit(const IReadDataStream& stream, const char* countKey, const char* word, int known) {
    int count = 0;
    if (!stream.ReadInt(countKey, count)) {
        return !stream.Exists(countKey);
    }
    if (count < 0 || count > kMaximumItems) {
        return false;
    }
    for (int i = known; i < count; ++i) {
        if (!stream.Exists(ItemName(word, i).Get())) {
            return false;
        }
    }
    return true;
}

} // namespace Vorin::Audio::Plugin

#include "containers/MemMessageLog.h"

#include <algorithm>

namespace Vorin::CoreUtilities {

void CMemMessageLog::Log(std::uint32_t type, const char* text, std::uint32_t messageLevel) {
    if (messageLevel > level) {
        return;
    }
    int& count = countOfType[type];
    if (count > kMaximumOfType) {
        return;
    }
    const char* kept = count < kMaximumOfType
                           ? text
                           : "there are more messages of this kind; the rest is left out";
    ++count;
    records.push_back({type, kept ? kept : "", level, place});
}

void CMemMessageLog::Clear() {
    records.clear();
    countOfType.clear();
}

void CMemMessageLog::Remove(std::uint32_t type) {
    std::erase_if(records, [type](const CRecord& record) { return record.type == type; });
    countOfType.erase(type);
}

int CMemMessageLog::GetCount() const {
    return static_cast<int>(
        std::count_if(records.begin(), records.end(),
                      [this](const CRecord& record) { return record.level <= level; }));
}

int CMemMessageLog::GetCount(std::uint32_t type) const {
    return static_cast<int>(
        std::count_if(records.begin(), records.end(), [this, type](const CRecord& record) {
            return record.type == type && record.level <= level;
        }));
}

} // namespace Vorin::CoreUtilities

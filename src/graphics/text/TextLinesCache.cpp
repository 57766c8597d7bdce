#include "graphics/text/TextLinesCache.h"

#include <functional>
#include <utility>

namespace Vorin::Graphics {

std::size_t CTextLinesCache::CKeyHash::operator()(const CKey& key) const {
    return std::hash<std::string_view>()(key.text) ^
           (std::hash<double>()(key.breakWidth) << 1 | (key.multiline ? 1u : 0u));
}

const std::shared_ptr<const CTextLines>* CTextLinesCache::Find(const CKey& key) {
    const auto found = index.find(key);
    if (found == index.end()) {
        return nullptr;
    }
    entries.splice(entries.begin(), entries, found->second);
    return &found->second->lines;
}

void CTextLinesCache::Add(const CKey& key, std::shared_ptr<const CTextLines> lines) {
    if (key.text.size() > kMaxTextBytes) {
        return;
    }
    CEntry& entry = entries.emplace_front();
    entry.text = key.text;
    entry.key = {entry.text, key.multiline, key.breakWidth};
    entry.lines = std::move(lines);
    totalBytes += entry.text.size();
    if (!index.emplace(entry.key, entries.begin()).second) {
        totalBytes -= entry.text.size();
        entries.pop_front();
    }
    while (entries.size() > kMaxTexts || totalBytes > kMaxTotalBytes) {
        DropOldest();
    }
}

void CTextLinesCache::Clear() {
    index.clear();
    entries.clear();
    totalBytes = 0;
}

void CTextLinesCache::DropOldest() {
    totalBytes -= entries.back().text.size();
    index.erase(entries.back().key);
    entries.pop_back();
}

} // namespace Vorin::Graphics

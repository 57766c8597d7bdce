#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "graphics/text/TextLines.h"

namespace Vorin::Graphics {

/// The texts that a font laid out lately, so that a text which is painted again is not laid out
/// again. What was not used for longest goes first; what is kept is bounded in number and length.
class CTextLinesCache {
public:
    static constexpr std::size_t kMaxTexts = 256;
    static constexpr std::size_t kMaxTextBytes =
        std::size_t{64} * 1024; ///< a longer text is not kept
    static constexpr std::size_t kMaxTotalBytes = std::size_t{256} * 1024; ///< of all texts

    struct CKey {
        std::string_view text; ///< as the caller gave it
        bool multiline = false;
        double breakWidth = -1.0; ///< below 0 for none
        friend bool operator==(const CKey&, const CKey&) = default;
    };

    /// A kept text, which may be null: no UTF-8. Null pointer when it is not kept.
    const std::shared_ptr<const CTextLines>* Find(const CKey& key);

    /// Keeps `lines`, unless the text is too long.
    void Add(const CKey& key, std::shared_ptr<const CTextLines> lines);

    void Clear();
    std::size_t GetCount() const { return entries.size(); }

private:
    struct CEntry {
        std::string text;
        CKey key; // its text is `text`
        std::shared_ptr<const CTextLines> lines;
    };
    struct CKeyHash {
        std::size_t operator()(const CKey& key) const;
    };

    void DropOldest();

    std::list<CEntry> entries; // the latest first
    std::unordered_map<CKey, std::list<CEntry>::iterator, CKeyHash> index;
    std::size_t totalBytes = 0;
};

} // namespace Vorin::Graphics

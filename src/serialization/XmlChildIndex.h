#pragma once

#include <map>
#include <string_view>
#include <vector>

namespace tinyxml2 {
class XMLElement;
}

namespace Vorin::Serialization {

/// Finds the children of one XML element by key: by their tag, or by their attribute "name".
///
/// A short list is walked; for a long one an ordered map is built, which hostile keys cannot slow
/// down as they could a hash map. All additions and removals of children go through an index of
/// this class. Several may stand on one element: each notices what the others changed by a counter
/// that is kept in the element's user data.
class CXmlChildIndex {
public:
    CXmlChildIndex(tinyxml2::XMLElement* indexedElement, bool isByNameAttribute)
        : element(indexedElement), isByName(isByNameAttribute) {}

    /// The first child with that key, or null.
    tinyxml2::XMLElement* Find(const char* key);

    /// Appends a child, which has its key already.
    void Append(tinyxml2::XMLElement* child);

    /// Deletes all children with that key.
    void Remove(const char* key);

    /// Deletes all children, of whatever kind.
    void Clear();

private:
    static constexpr int kLongestWalk = 16;

    const char* KeyOf(const tinyxml2::XMLElement* child) const;
    void* GetChangeCounter() const;
    void CountChange();
    bool PrepareMap(); // false when the list is short
    tinyxml2::XMLElement* FindByWalk(tinyxml2::XMLElement* child, const char* key) const;

    using Children = std::map<std::string_view, std::vector<tinyxml2::XMLElement*>>;

    tinyxml2::XMLElement* element;
    bool isByName;
    bool hasMap = false;
    void* mapCounter = nullptr; // what the counter was when the map was right
    Children children;
};

} // namespace Vorin::Serialization

#pragma once

#include "SkinEngine/Document/SkinLimits.h"

#include <cstddef>
#include <string>

namespace Vorin::Containers {
class CNamedAttributes;
}

namespace Vorin::AppEngine {

/// What the documents of a parser have used of their limits (SkinLimits.h). What takes something
/// gives a text for the log when that was more than is left, and an empty one otherwise.
class CSkinBudget {
public:
    /// For a new document: nothing has been used. The number of elements that it may have stays.
    void Reset();

    /// Lowers the number of elements that a document may expand to.
    void SetMaximumElements(int most) { maximumElements = most; }

    /// How many elements were expanded, those included that something else counts as. Set for a
    /// parser that goes on from what others have expanded.
    int GetElements() const { return elements; }
    void SetElements(int expanded) { elements = expanded; }
    std::string TakeElements(int count);

    /// How deep expanded elements and template calls stand in each other. Also a level too many is
    /// entered, and has to be left.
    int GetDepth() const { return depth; }
    std::string EnterLevel();
    void LeaveLevel() { --depth; }

    /// The name and the attributes of an element.
    std::string TakeTexts(const char* element, const Containers::CNamedAttributes& attributes);

    /// The value of an attribute, when a variable has made it longer.
    std::string TakeValue(std::size_t valueBytes);

    std::string TakeFile(const std::string& path, std::size_t fileBytes);

    /// How text about a limit goes: "more elements" than 5.
    static std::string TooMany(const char* what, long limit);

private:
    std::string CheckBytes() const;

    int maximumElements = SkinLimits::kExpandedElements;
    int elements = 0;
    int depth = 0;
    long bytes = 0;     // of all names and values
    long readBytes = 0; // of all files
};

} // namespace Vorin::AppEngine

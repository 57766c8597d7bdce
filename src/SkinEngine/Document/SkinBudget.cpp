#include "SkinEngine/Document/SkinBudget.h"

#include "containers/NamedAttributes.h"

#include <string_view>

namespace Vorin::AppEngine {

namespace {

std::string Megabytes(long bytes) { return std::to_string(bytes / 1024 / 1024) + " MB together"; }

bool IsTooLong(std::size_t valueBytes) {
    return valueBytes > static_cast<std::size_t>(SkinLimits::kTextBytes);
}

std::string TooLongValue() {
    return CSkinBudget::TooMany("the value of an attribute has more bytes", SkinLimits::kTextBytes);
}

} // namespace

std::string CSkinBudget::TooMany(const char* what, long limit) {
    return std::string(what) + " than " + std::to_string(limit);
}

void CSkinBudget::Reset() {
    elements = depth = 0;
    bytes = readBytes = 0;
}

std::string CSkinBudget::TakeElements(int count) {
    elements += count;
    if (elements <= maximumElements) {
        return {};
    }
    return TooMany("the document expands to more elements", maximumElements) +
           "; look for repeats and templates within each other";
}

std::string CSkinBudget::EnterLevel() {
    if (++depth <= SkinLimits::kExpandedDepth) {
        return {};
    }
    return TooMany("expanded elements are nested deeper", SkinLimits::kExpandedDepth) +
           "; look for templates that call each other";
}

std::string CSkinBudget::TakeTexts(const char* element,
                                   const Containers::CNamedAttributes& attributes) {
    if (attributes.GetCount() > SkinLimits::kAttributes) {
        return std::string(element) + ": " + TooMany("more attributes", SkinLimits::kAttributes);
    }
    bool isTooLong = false;
    bytes += static_cast<long>(std::string_view(element).size());
    attributes.ForEach([&](std::string_view name, std::string_view value) {
        isTooLong = isTooLong || IsTooLong(value.size());
        bytes += static_cast<long>(name.size() + value.size());
    });
    return isTooLong ? TooLongValue() : CheckBytes();
}

std::string CSkinBudget::TakeValue(std::size_t valueBytes) {
    bytes += static_cast<long>(valueBytes);
    return IsTooLong(valueBytes) ? TooLongValue() : CheckBytes();
}

std::string CSkinBudget::CheckBytes() const {
    if (bytes <= SkinLimits::kExpandedBytes) {
        return {};
    }
    return "the names and values of all elements are larger than " +
           Megabytes(SkinLimits::kExpandedBytes);
}

std::string CSkinBudget::TakeFile(const std::string& path, std::size_t fileBytes) {
    readBytes += static_cast<long>(fileBytes);
    if (readBytes <= SkinLimits::kReadBytes) {
        return {};
    }
    return path + ": the files of the document are larger than " +
           Megabytes(SkinLimits::kReadBytes);
}

} // namespace Vorin::AppEngine

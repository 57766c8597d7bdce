#pragma once

#include <string>
#include <utility>
#include <vector>

namespace WorkbenchTests {

/// A value of a JSON document.
struct CJson {
    enum EKind { kNull, kBool, kNumber, kText, kArray, kObject };

    EKind kind = kNull;
    bool isTrue = false;
    double number = 0.0;   ///< infinite when the document's number is beyond every double
    std::string text = {}; ///< of a text, its characters; of a number, how it is written
    std::vector<CJson> items = {};
    std::vector<std::pair<std::string, CJson>> members = {}; ///< in the document's order

    /// Throws when there is no such member.
    const CJson& At(const std::string& name) const;
    std::vector<std::string> GetNames() const;
};

/// Reads one document, and takes nothing that the JSON grammar doesn't: throws a
/// std::runtime_error with the place.
CJson ParseJson(const std::string& text);

} // namespace WorkbenchTests

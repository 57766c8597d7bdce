#pragma once

#include "core/MessageLog.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace Vorin::CoreUtilities {

/// A log that keeps its messages, in the order of logging.
///
/// It stays within memory whatever a document does: of each type it keeps `kMaximumOfType`, then
/// one record that says so, and drops the rest.
class CMemMessageLog : public virtual Core::IMessageLog {
public:
    static constexpr int kMaximumOfType = 10'000;

    struct CRecord {
        std::uint32_t type = Core::kErrorMessage;
        std::string text;
        std::uint32_t level = 0;
        Core::CDocumentPlace place;
    };

    explicit CMemMessageLog(std::uint32_t threshold = 0) : level(threshold) {}

    /// Ignored when `messageLevel` is above the threshold. The record gets the threshold as its
    /// level.
    void Log(std::uint32_t type, const char* text, std::uint32_t messageLevel) override;
    void SetPlace(const Core::CDocumentPlace& newPlace) override { place = newPlace; }
    const Core::CDocumentPlace& GetPlace() const override { return place; }

    /// Removes every record; the place stays.
    virtual void Clear();

    /// Removes the records of a type.
    virtual void Remove(std::uint32_t type);

    /// How many records, of a type or of all, are at or below the threshold as it is now.
    virtual int GetCount() const;
    virtual int GetCount(std::uint32_t type) const;

    std::uint32_t GetLevel() const { return level; }
    void SetLevel(std::uint32_t threshold) { level = threshold; }

    const std::vector<CRecord>& GetRecords() const { return records; }

private:
    std::vector<CRecord> records;
    std::map<std::uint32_t, int> countOfType; // of all levels
    std::uint32_t level;
    Core::CDocumentPlace place;
};

} // namespace Vorin::CoreUtilities

#pragma once

#include "core/DocumentPlace.h"

#include <cstdint>

namespace Vorin::Core {

enum EMessageType : std::uint32_t { kErrorMessage = 0, kWarningMessage = 1, kInfoMessage = 2 };

/// Takes messages for the user. Used by one thread at a time.
///
/// A log knows a place, at which each message stands. Whoever reads a document keeps it up to date,
/// so that handlers of its elements just log. What has to be checked later takes the place along,
/// and puts it back with a `CPlaceScope`:
///
///     const CDocumentPlace place = log.GetPlace();    // while the element is handled
///     const CPlaceScope scope(log, place);            // when its link is made
class IMessageLog {
public:
    /// `type` is an `EMessageType`. A `level` above the log's threshold is not wanted. The text is
    /// copied; null counts as empty.
    virtual void Log(std::uint32_t type, const char* text, std::uint32_t level) = 0;

    virtual ~IMessageLog() = default;

    /// Where messages stand from now on.
    virtual void SetPlace(const CDocumentPlace& place) = 0;
    virtual const CDocumentPlace& GetPlace() const = 0;
};

/// While it lives, messages of a log stand at another place.
class CPlaceScope {
public:
    CPlaceScope(IMessageLog& scopedLog, const CDocumentPlace& place)
        : log(scopedLog), before(scopedLog.GetPlace()) {
        log.SetPlace(place);
    }
    ~CPlaceScope() { log.SetPlace(before); }

    CPlaceScope(const CPlaceScope&) = delete;
    CPlaceScope& operator=(const CPlaceScope&) = delete;

private:
    IMessageLog& log;
    const CDocumentPlace before;
};

} // namespace Vorin::Core

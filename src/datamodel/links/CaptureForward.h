#pragma once

#include "core/Capture.h"

namespace Vorin::DataModel {

/// A gesture that is being forwarded: `target` is held because `source` is.
///
/// All that are open on a thread are known to each other, so that a link can tell a user's hold
/// from one that came out of its own. One thread; neither object is touched.
class CCaptureForward {
public:
    CCaptureForward() = default;
    ~CCaptureForward() { Close(); }

    CCaptureForward(const CCaptureForward&) = delete;
    CCaptureForward& operator=(const CCaptureForward&) = delete;

    bool IsOpen() const { return source != nullptr; }

    /// Closes first what is open. Neither is null.
    void Open(const Core::IConstCapture& held, const Core::IConstCapture& forwardedTo);

    /// Says whether it was open.
    bool Close();

    /// Whether `held` is held because `origin` is, over any number of gestures.
    static bool LeadsFrom(const Core::IConstCapture& origin, const Core::IConstCapture& held);

private:
    static constinit thread_local CCaptureForward* first;

    const Core::IConstCapture* source = nullptr;
    const Core::IConstCapture* target = nullptr;
    CCaptureForward* previous = nullptr;
    CCaptureForward* next = nullptr;

    // Of the search in progress.
    bool reached = false;
    CCaptureForward* nextReached = nullptr; // in the queue
};

/// The one identity of an object behind any of its interfaces.
inline const Core::IConstCapture* IdentityOf(const Core::IConstCapture* object) { return object; }

} // namespace Vorin::DataModel

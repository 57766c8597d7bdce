#include "datamodel/links/CaptureForward.h"

namespace Vorin::DataModel {

constinit thread_local CCaptureForward* CCaptureForward::first = nullptr;

void CCaptureForward::Open(const Core::IConstCapture& held,
                           const Core::IConstCapture& forwardedTo) {
    Close();
    source = &held;
    target = &forwardedTo;
    previous = nullptr;
    next = first;
    if (first) {
        first->previous = this;
    }
    first = this;
}

bool CCaptureForward::Close() {
    if (!source) {
        return false;
    }
    (previous ? previous->next : first) = next;
    if (next) {
        next->previous = previous;
    }
    source = nullptr;
    target = nullptr;
    return true;
}

// Goes back from `held`: each round marks the gestures that lead to what the last round reached.
bool CCaptureForward::LeadsFrom(const Core::IConstCapture& origin,
                                const Core::IConstCapture& held) {
    Unmark();
    const auto isReached = [&held](const Core::IConstCapture* object) {
        if (object == &held) {
            return true;
        }
        for (const CCaptureForward* forward = first; forward; forward = forward->next) {
            if (forward->marked && forward->source == object) {
                return true;
            }
        }
        return false;
    };
    for (bool grown = true; grown;) {
        grown = false;
        for (CCaptureForward* forward = first; forward; forward = forward->next) {
            if (!forward->marked && isReached(forward->target)) {
                if (forward->source == &origin) {
                    return true;
                }
                forward->marked = true;
                grown = true;
            }
        }
    }
    return false;
}

void CCaptureForward::Unmark() {
    for (CCaptureForward* forward = first; forward; forward = forward->next) {
        forward->marked = false;
    }
}

} // namespace Vorin::DataModel

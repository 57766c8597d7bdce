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

// Goes back from `held`: each gesture that leads to what was reached is reached once, and queued.
bool CCaptureForward::LeadsFrom(const Core::IConstCapture& origin,
                                const Core::IConstCapture& held) {
    for (CCaptureForward* forward = first; forward; forward = forward->next) {
        forward->reached = false;
    }
    CCaptureForward* queueHead = nullptr;
    CCaptureForward* queueTail = nullptr;
    for (const Core::IConstCapture* object = &held; object;) {
        for (CCaptureForward* forward = first; forward; forward = forward->next) {
            if (forward->target != object || forward->reached) {
                continue;
            }
            if (forward->source == &origin) {
                return true;
            }
            forward->reached = true;
            forward->nextReached = nullptr;
            (queueHead ? queueTail->nextReached : queueHead) = forward;
            queueTail = forward;
        }
        object = queueHead ? queueHead->source : nullptr;
        queueHead = queueHead ? queueHead->nextReached : nullptr;
    }
    return false;
}

} // namespace Vorin::DataModel

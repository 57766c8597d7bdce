#pragma once

#include <cstddef>
#include <cstdint>

namespace Vorin::Math {

/// One visit of a proxy to its target, for as long as it lasts; visits of a thread nest.
///
/// Proxies tie together functions that know nothing of each other, so that a function may come to
/// stand below itself, or a chain of them may become longer than a stack is deep. Such a visit is
/// not allowed, and the proxy does without its target. How deep the functions between two proxies
/// are is not known either: so the stack that visits take is limited, too. And where each of them
/// calls the next one twice, sixty make more visits than anybody waits for: their number has a
/// limit.
class CProxyVisit {
public:
    explicit CProxyVisit(const void* visitedTarget) : target(visitedTarget), outer(innermost) {
        depth = outer ? outer->depth + 1 : 1;
        begin = outer ? outer->begin : GetPosition();
        count = outer ? outer->count : &ownCount;
        isAllowed =
            ++*count <= kMaximumVisits && depth <= kMaximumDepth && GetUsedStack() <= kMaximumStack;
        for (const CProxyVisit* visit = outer; visit && isAllowed; visit = visit->outer) {
            isAllowed = visit->target != target;
        }
        innermost = this;
    }
    ~CProxyVisit() { innermost = outer; }

    CProxyVisit(const CProxyVisit&) = delete;
    CProxyVisit& operator=(const CProxyVisit&) = delete;

    bool IsAllowed() const { return isAllowed; }

    static constexpr int kMaximumDepth = 64;
    static constexpr int kMaximumVisits = 10000; ///< within the outermost, which is one of them
    static constexpr std::size_t kMaximumStack = 3U << 20U; ///< bytes, of the 8 MB that are usual

private:
    /// Where on the stack this visit is.
    std::uintptr_t GetPosition() const { return reinterpret_cast<std::uintptr_t>(this); }
    std::size_t GetUsedStack() const {
        const std::uintptr_t position = GetPosition();
        return position < begin ? begin - position : position - begin;
    }

    // Read straight from the thread's block: a call would cost more than the visit.
    [[gnu::tls_model(
        "initial-exec")]] static inline constinit thread_local const CProxyVisit* innermost =
        nullptr;

    const void* const target;
    const CProxyVisit* const outer;
    int* count = nullptr; // that of the outermost visit
    int ownCount = 0;
    std::uintptr_t begin = 0; // of the outermost visit
    int depth = 0;
    bool isAllowed = true;
};

} // namespace Vorin::Math

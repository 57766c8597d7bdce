#pragma once

namespace Vorin::DataModel {

/// Bounds what one change can set off through links and formulas: each write of a link, and each
/// change that a formula tells of, is made within one of these, and only when it is allowed.
///
/// A command that runs is not entered again, so what follows each other in a ring comes to an end
/// by itself: each is on the stack once, or twice while it starts. That bounds the depth by the
/// number of objects, and leaves the amount of work unbounded: where ways part and meet again with
/// different values, each meeting doubles what lies behind it. Skins come from strangers, so both
/// have a limit, at which the rest of the change is dropped. Per thread.
class CChangePass {
public:
    /// How many may be nested. One takes less than a kilobyte of stack.
    static constexpr int kMaxDepth = 2000;

    /// How many the outermost one may set off.
    static constexpr int kMaxCount = 100000;

    CChangePass() : depth(++state.depth), count(depth == 1 ? (state.count = 1) : ++state.count) {}
    ~CChangePass() { --state.depth; }

    CChangePass(const CChangePass&) = delete;
    CChangePass& operator=(const CChangePass&) = delete;

    bool IsAllowed() const { return depth <= kMaxDepth && count <= kMaxCount; }

private:
    struct CState {
        int depth;
        int count;
    };

    static constinit thread_local CState state;

    int depth;
    int count;
};

inline constinit thread_local CChangePass::CState CChangePass::state{0, 0};

} // namespace Vorin::DataModel

#pragma once

namespace Vorin::DataModel {

/// Bounds what one change can set off through links: each write of a link is made within one of
/// these, and only when it is allowed.
///
/// A command that runs is not entered again, so links that follow each other in a ring come to an
/// end by themselves: each is on the stack once, or twice while it starts. That bounds the depth by
/// the number of links, and leaves the amount of work unbounded: where ways part and meet again
/// with different values, each meeting doubles what lies behind it. Skins come from strangers, so
/// both have a limit, at which the rest of the change is dropped. Per thread.
class CLinkPass {
public:
    /// How many writes may be nested. A write takes less than a kilobyte of stack.
    static constexpr int kMaxDepth = 2000;

    /// How many writes the outermost one may set off.
    static constexpr int kMaxWrites = 20000;

    CLinkPass() : depth(++state.depth), writes(depth == 1 ? (state.writes = 1) : ++state.writes) {}
    ~CLinkPass() { --state.depth; }

    CLinkPass(const CLinkPass&) = delete;
    CLinkPass& operator=(const CLinkPass&) = delete;

    bool IsAllowed() const { return depth <= kMaxDepth && writes <= kMaxWrites; }

private:
    struct CState {
        int depth;
        int writes;
    };

    static constinit thread_local CState state;

    int depth;
    int writes;
};

inline constinit thread_local CLinkPass::CState CLinkPass::state{0, 0};

} // namespace Vorin::DataModel

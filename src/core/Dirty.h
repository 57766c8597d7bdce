#pragma once

namespace Vorin::Core {

/// A mark that something has changed since it was last dealt with. Sends no events.
class IDirty {
public:
    virtual bool IsDirty() const = 0;
    virtual void ClearDirty() = 0;
    virtual void SetDirty() = 0;
    virtual ~IDirty() = default;
};

class CDirty : public virtual IDirty {
public:
    explicit CDirty(bool initial = false) : dirty(initial) {}

    bool IsDirty() const override { return dirty; }
    void ClearDirty() override { dirty = false; }
    void SetDirty() override { dirty = true; }

private:
    bool dirty;
};

} // namespace Vorin::Core

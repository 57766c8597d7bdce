#pragma once

#include "core/Ownership.h"

namespace Vorin::Core {

/// A block of bytes to read.
class IConstBuffer {
public:
    /// The block, or null. Valid until the next change of the buffer.
    virtual const void* GetData() const = 0;

    /// In bytes.
    virtual int GetSize() const = 0;
    virtual ~IConstBuffer() = default;
};

/// A block of bytes to change.
class IBuffer : public virtual IConstBuffer {
public:
    using IConstBuffer::GetData;
    virtual void* GetData() = 0;
};

/// A block of bytes that can be exchanged and resized. Sizes below 0 count as 0.
class IDynamicBuffer : public virtual IBuffer {
public:
    /// Holds `data` from here on. With `kOwn` the buffer frees it as an array of `char`; with
    /// `kDontOwn` it outlives its stay. The block held so far is freed when it is owned and another
    /// one. The size is stored as given, also with a null `data`.
    virtual void SetBuffer(void* data, int size, EOwnership ownership) = 0;

    /// Moves the content to an own block of `size` bytes. What is cut off is gone; bytes that join
    /// are not initialised. The present size changes nothing, not even the ownership.
    virtual void SetSize(int size) = 0;

    /// Takes over `size` bytes of `data`. While they fit the present size, they are written into
    /// the block as it is, owned or not, and a null `data` leaves its bytes alone. Else a new own
    /// block is made, of zeros when `data` is null. `data` may lie inside the buffer.
    virtual void CopyFrom(const void* data, int size) = 0;
};

/// The byte buffer. Not copyable; copy content with `CopyFrom`. One thread.
class CBuffer : public virtual IDynamicBuffer {
public:
    CBuffer() = default;
    ~CBuffer() override;

    CBuffer(const CBuffer&) = delete;
    CBuffer& operator=(const CBuffer&) = delete;

    const void* GetData() const override { return data; }
    void* GetData() override { return data; }
    int GetSize() const override { return size; }

    void SetBuffer(void* newData, int newSize, EOwnership newOwnership) override;
    void SetSize(int newSize) override;
    void CopyFrom(const void* source, int sourceSize) override;

    EOwnership GetOwnership() const { return ownership; }

private:
    void FreeIfOwned();

    void* data = nullptr;
    EOwnership ownership = kOwn;
    int size = 0;
};

} // namespace Vorin::Core

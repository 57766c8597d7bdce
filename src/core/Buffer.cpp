#include "core/Buffer.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace Vorin::Core {

namespace {

void* NewBlock(int size) { return new char[static_cast<std::size_t>(size)]; }

} // namespace

CBuffer::~CBuffer() {
    FreeIfOwned();
    data = nullptr;
    ownership = kOwn;
}

void CBuffer::FreeIfOwned() {
    if (ownership == kOwn) {
        delete[] static_cast<char*>(data);
    }
}

void CBuffer::SetBuffer(void* newData, int newSize, EOwnership newOwnership) {
    if (newData != data) {
        FreeIfOwned();
    }
    data = newData;
    size = std::max(newSize, 0);
    ownership = newOwnership;
}

void CBuffer::SetSize(int newSize) {
    newSize = std::max(newSize, 0);
    if (newSize == size) {
        return;
    }
    void* block = newSize > 0 ? NewBlock(newSize) : nullptr;
    const int keep = std::min(size, newSize);
    if (data && keep > 0) {
        std::memcpy(block, data, static_cast<std::size_t>(keep));
    }
    FreeIfOwned();
    data = block;
    size = newSize;
    ownership = kOwn;
}

void CBuffer::CopyFrom(const void* source, int sourceSize) {
    sourceSize = std::max(sourceSize, 0);
    const std::size_t bytes = static_cast<std::size_t>(sourceSize);
    if (size >= sourceSize) {
        size = sourceSize;
        if (bytes > 0 && data && source) {
            std::memmove(data, source, bytes);
        }
        return;
    }
    void* block = NewBlock(sourceSize);
    if (source) {
        std::memcpy(block, source, bytes);
    } else {
        std::memset(block, 0, bytes);
    }
    FreeIfOwned();
    data = block;
    size = sourceSize;
    ownership = kOwn;
}

} // namespace Vorin::Core

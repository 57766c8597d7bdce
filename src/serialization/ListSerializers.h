#pragma once

#include "serialization/ItemName.h"
#include "serialization/ItemSerialization.h"
#include "serialization/Limits.h"

#include <algorithm>
#include <utility>

namespace Vorin::Serialization {

/// The count of a list and the names of its items: an int `<word>Count` and items `<word><N>`, N
/// from 0. The word outlives the adapter.
class CItemNames {
public:
    explicit CItemNames(const char* itemWord) : word(itemWord) {}

    Containers::CCharString GetName(int index) const { return ItemName(word, index); }

    bool WriteCount(IWriteDataStream& stream, int count) const {
        return stream.WriteInt(GetCountName().Get(), count);
    }

    /// False, besides when there is no count, for one that is negative or above `kMaximumItems`.
    bool ReadCount(const IReadDataStream& stream, int& count) const {
        int read = 0;
        if (!stream.ReadInt(GetCountName().Get(), read) || read < 0 || read > kMaximumItems) {
            return false;
        }
        count = read;
        return true;
    }

    /// Whether all items are there; costs no more than there are items.
    bool HasAll(const IReadDataStream& stream, int count) const {
        int index = 0;
        while (index < count && stream.Exists(GetName(index).Get())) {
            ++index;
        }
        return index == count;
    }

private:
    Containers::CCharString GetCountName() const {
        Containers::CCharString name(word);
        name.Append("Count");
        return name;
    }

    const char* word;
};

/// Writes a standard container of numbers, texts or ISerialize objects.
template <class L>
class TStdContainerSerializer : public virtual ISerialize {
public:
    TStdContainerSerializer(const L& writtenList, const char* itemWord)
        : list(writtenList), names(itemWord) {}

    bool Serialize(IWriteDataStream& stream) const override {
        bool done = names.WriteCount(stream, static_cast<int>(list.size()));
        int index = 0;
        for (auto at = list.begin(); done && at != list.end(); ++at) {
            done = WriteItem(stream, names.GetName(index++).Get(), *at);
        }
        return done;
    }

private:
    const L& list;
    const CItemNames names;
};

/// Reads a standard container of `E`s anew; when an item is missing or not fit the list stays as it
/// was. On a tolerant stream such items are left out, and without a count the list stays.
template <class E, class L>
class TStdContainerDeSerializer : public virtual IDeSerialize {
public:
    TStdContainerDeSerializer(L& readList, const char* itemWord)
        : list(readList), names(itemWord) {}

    bool DeSerialize(const IReadDataStream& stream) override {
        const bool isTolerant = stream.IsTolerant();
        int count = 0;
        if (!names.ReadCount(stream, count)) {
            return isTolerant;
        }
        L read;
        for (int index = 0; index < count; ++index) {
            E item{};
            if (ReadItem(stream, names.GetName(index).Get(), item)) {
                read.push_back(std::move(item));
            } else if (!isTolerant) {
                return false;
            }
        }
        list = std::move(read);
        return true;
    }

private:
    L& list;
    const CItemNames names;
};

/// Writes an IConstVector.
template <class V>
class TVectorSerializer : public virtual ISerialize {
public:
    TVectorSerializer(const V& writtenVector, const char* itemWord)
        : vector(writtenVector), names(itemWord) {}

    bool Serialize(IWriteDataStream& stream) const override {
        const int count = vector.GetCount();
        bool done = names.WriteCount(stream, count);
        for (int index = 0; done && index < count; ++index) {
            done = WriteItem(stream, names.GetName(index).Get(), vector.Get(index));
        }
        return done;
    }

private:
    const V& vector;
    const CItemNames names;
};

/// Reads the items of an IVector in place, as many as it has. Another count fails before anything
/// is read; an item that is not fit fails behind those that were read. On a tolerant stream neither
/// is a failure: what both have is read.
template <class V>
class TVectorDeSerializer : public virtual IDeSerialize {
public:
    TVectorDeSerializer(V& readVector, const char* itemWord)
        : vector(readVector), names(itemWord) {}

    bool DeSerialize(const IReadDataStream& stream) override {
        const bool isTolerant = stream.IsTolerant();
        int count = 0;
        if (!names.ReadCount(stream, count)) {
            return isTolerant;
        }
        if (count != vector.GetCount() && !isTolerant) {
            return false;
        }
        count = std::min(count, vector.GetCount());
        bool done = true;
        for (int index = 0; index < count && done; ++index) {
            done = ReadItem(stream, names.GetName(index).Get(), vector.Get(index)) || isTolerant;
        }
        return done;
    }

private:
    V& vector;
    const CItemNames names;
};

/// The same, resizing the vector to the count first, by its SetCount. Before that it makes sure
/// that the items are there: a count alone allocates nothing.
template <class V>
class TDynamicVectorDeSerializer : public virtual IDeSerialize {
public:
    TDynamicVectorDeSerializer(V& readVector, const char* itemWord)
        : vector(readVector), names(itemWord), reader(readVector, itemWord) {}

    bool DeSerialize(const IReadDataStream& stream) override {
        int count = 0;
        if (!names.ReadCount(stream, count)) {
            return stream.IsTolerant();
        }
        if (!stream.IsTolerant() && !names.HasAll(stream, count)) {
            return false;
        }
        vector.SetCount(count);
        return reader.DeSerialize(stream);
    }

private:
    V& vector;
    const CItemNames names;
    TVectorDeSerializer<V> reader;
};

} // namespace Vorin::Serialization

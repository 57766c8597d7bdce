#pragma once

#include "audio/plugin/CountedItems.h"
#include "audio/plugin/InputObjects.h"
#include "serialization/ItemName.h"
#include "serialization/TypeSerializer.h"

#include <memory>
#include <vector>

namespace Vorin::Audio::Plugin {

/// The texts of a filter's inputs as an object: an int "count", then texts "s0", "s1", ...
class CInputStringsSerializer : public virtual Serialization::ISerialize {
public:
    explicit CInputStringsSerializer(const CMTInputStrings& savedInputs) : inputs(savedInputs) {}
    bool Serialize(Serialization::IWriteDataStream& stream) const override;

private:
    const CMTInputStrings& inputs;
};

/// Reads them into a list, which the user stores once the whole document has proved fit.
///
/// A text that is missing has no value in the list, and so keeps the current one. False for one
/// that is there and is no text, and for a count that is none or promises more than there is.
class CInputStringsDeSerializer : public virtual Serialization::IDeSerialize {
public:
    explicit CInputStringsDeSerializer(const CMTInputStrings& currentInputs)
        : items(static_cast<std::size_t>(currentInputs.GetCount())) {}
    bool DeSerialize(const Serialization::IReadDataStream& stream) override;

    /// One per input.
    std::vector<CMTInputString::Item>& GetItems() { return items; }

private:
    std::vector<CMTInputString::Item> items;
};

/// The names of a collection of objects: an int "itemCount", then objects "item0", "item1", ...
inline constexpr char kInputObjectsCount[] = "itemCount";
inline constexpr char kInputObjectWord[] = "item";

/// The curves, surfaces or custom properties of a filter's inputs as a collection, each with its
/// type. An object of no type is written without content.
template <class V, class I>
class TInputObjectsSerializer : public virtual Serialization::ISerialize {
public:
    explicit TInputObjectsSerializer(const TMTInputs<TMTInput<const V&, I>>& savedInputs)
        : inputs(savedInputs) {}

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        bool done = stream.WriteInt(kInputObjectsCount, inputs.GetCount());
        for (int i = 0; i < inputs.GetCount(); ++i) {
            const auto item = inputs.Get(i).GetItem();
            done &= stream.WriteObject(Serialization::ItemName(kInputObjectWord, i).Get(),
                                       Serialization::CTypeSerializer(&item->GetValue()));
        }
        return done;
    }

private:
    const TMTInputs<TMTInput<const V&, I>>& inputs;
};

/// Reads them into a list, which the user stores once the whole document has proved fit.
///
/// An object that is missing has no value in the list, and so keeps the current one. One that was
/// written without a type keeps the current one if that has none either, and else is the default,
/// as is null. False for one that is there and cannot be made, and for a count that is none or
/// promises more than there is.
template <class V, class I>
class TInputObjectsDeSerializer : public virtual Serialization::IDeSerialize {
    using Input = TMTInput<const V&, I>;
    using Item = typename Input::Item;

public:
    explicit TInputObjectsDeSerializer(const TMTInputs<Input>& currentInputs)
        : inputs(currentInputs), items(static_cast<std::size_t>(currentInputs.GetCount())) {}

    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        if (!IsCountFit(stream, kInputObjectsCount, kInputObjectWord, inputs.GetCount())) {
            return false;
        }
        bool done = true;
        for (int i = 0; i < inputs.GetCount() && done; ++i) {
            const auto name = Serialization::ItemName(kInputObjectWord, i);
            CItemReader reader(*this, i);
            done = stream.ReadObject(name.Get(), reader) || !stream.Exists(name.Get());
        }
        return done;
    }

    /// One per input.
    std::vector<Item>& GetItems() { return items; }

private:
    class CItemReader : public virtual Serialization::IDeSerialize {
    public:
        CItemReader(TInputObjectsDeSerializer& list, int itemIndex)
            : owner(list), index(itemIndex) {}
        bool DeSerialize(const Serialization::IReadDataStream& stream) override {
            return owner.ReadItem(stream, index);
        }

    private:
        TInputObjectsDeSerializer& owner;
        const int index;
    };

    bool ReadItem(const Serialization::IReadDataStream& stream, int index) {
        using Maker = TInputItem<const V&>;
        Item& item = items[static_cast<std::size_t>(index)];
        Serialization::CTypeDeSerializerTester tester;
        static_cast<void>(tester.DeSerialize(stream)); // false without a type, which is no fault
        if (!tester.IsNullRead()) {
            return false;
        }
        if (tester.IsNull() || !tester.IsTypeRead()) {
            const bool stays =
                !tester.IsNull() && !inputs.Get(index).GetItem()->GetValue().GetType();
            item = stays ? Item() : inputs.Get(index).MakeDefault();
            return true;
        }
        Serialization::TRuntimeDeSerializer<V> reader;
        if (!reader.DeSerialize(stream)) {
            return false;
        }
        item = Maker::Own(std::unique_ptr<V>(reader.Release()));
        return true;
    }

    const TMTInputs<Input>& inputs;
    std::vector<Item> items;
};

} // namespace Vorin::Audio::Plugin

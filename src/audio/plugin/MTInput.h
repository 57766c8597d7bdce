#pragma once

#include "containers/CharString.h"
#include "core/RefCountItem.h"
#include "datamodel/objects/CaptureObject.h"
#include "datamodel/objects/CaptureState.h"
#include "datamodel/objects/DefaultValue.h"
#include "datamodel/objects/InfoTraits.h"
#include "system/MTEventProvider.h"
#include "system/PollingLock.h"
#include "system/RealtimeEventProvider.h"

#include <atomic>
#include <cstring>
#include <list>
#include <memory>
#include <utility>

namespace Vorin::Audio::Plugin {

/// How a value of an input is made, and shared from then on: a text is copied, with an empty one
/// for null; an object is cloned.
template <class T>
struct TInputItem;

template <>
struct TInputItem<const char*> {
    using Item = Core::RefCountItemPtr<const char*>;

    static Item Make(const char* text) {
        return Item(new Core::MTRefCountItem<const char*, Containers::CCharString>(text));
    }
    static char* Copy(const char* text) {
        const std::size_t bytes = std::strlen(text) + 1;
        return static_cast<char*>(std::memcpy(new char[bytes], text, bytes));
    }
    static bool IsSame(const char* a, const char* b) { return std::strcmp(a, b) == 0; }
    static const char* DefaultOf(const DataModel::Objects::IConstStringInfo& info) {
        return info.GetDefaultText();
    }
};

template <class V>
struct TInputItem<const V&> {
    using Item = Core::RefCountItemPtr<const V&>;

    /// None for an object that cannot be cloned.
    // The analyzer does not follow a reference count through its interface.
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
    static Item Make(const V& value) { return Own(std::unique_ptr<V>(value.Clone())); }
    static Item Own(std::unique_ptr<V> value) {
        using Shared = Core::MTRefCountItem<const V&, Core::OwnedPtr<V>>;
        return value ? Item(new Shared(value.release())) : Item();
    }
    // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
    static V* Copy(const V& value) { return value.Clone(); }
    /// There is no comparison of objects.
    static bool IsSame(const V&, const V&) { return false; }
    template <class I>
    static const V& DefaultOf(const I& info) {
        return DataModel::Objects::GetDefaultOf(info);
    }
};

/// One input of the filter that is no parameter: a text, a curve, a surface or a custom property,
/// of which any thread keeps a copy here and the audio thread takes it over at the head of a block.
///
/// Every operation is [any], and not for the audio thread, unless it says so. A value is never
/// changed, but replaced. The audio thread only shares it: a replaced value is referred to here
/// until nobody else does, and is freed by the thread that replaces the next one, or by the
/// destructor. So the audio thread never gives back the last reference.
///
/// `T` is `const char*` or `const V&`, `I` the info. The value starts as the default of the info.
/// Listeners run on the thread that sets.
template <class T, class I>
class TMTInput : public virtual DataModel::TICaptureObjectFactory<T, I>,
                 public DataModel::Objects::TCaptureState<System::CMTEventProvider> {
    using Maker = TInputItem<T>;

public:
    using Item = Core::RefCountItemPtr<T>;
    enum ETaken { kNothingNew, kTaken, kNotNow };

    /// Copies the info.
    explicit TMTInput(const I& source) {
        info.CopyFrom(source); // which leaves it with a default that can be cloned
        value = TMTInput::MakeDefault();
    }

    const I& GetInfo() const override { return info; }
    typename Core::TCreatedValue<T>::Type CreateValue() const override {
        return Maker::Copy(GetItem()->GetValue());
    }
    /// Nothing, for a text that stands here already and for an object that cannot be cloned.
    void SetValue(T newValue) override {
        if (Store(Maker::Make(newValue))) {
            NotifyChanged();
        }
    }
    void SetDefault() { SetValue(Maker::DefaultOf(static_cast<const I&>(info))); }
    Item MakeDefault() const { return Maker::Make(Maker::DefaultOf(static_cast<const I&>(info))); }

    void Capture() override { this->ChangeCaptured(true); }
    void Release() override { this->ChangeCaptured(false); }

    /// A reference to the value as it is now.
    Item GetItem() const {
        const Core::CAutoLock guard(lock);
        return value;
    }

    /// Takes a value and tells nobody. True when it differs from the one before; none is not taken.
    bool Store(Item item) { return Exchange(std::move(item), nullptr); }

    /// The same, provided that the value still is `expected`. [any]
    bool StoreInsteadOf(const Item& expected, Item item) {
        return Exchange(std::move(item), expected.Get());
    }

    /// Tells that the value changed: what follows a Store.
    void NotifyChanged() { this->NotifyValueChanged(); }

    /// Takes over a value that was set since the last time; `item` is then a further reference.
    /// kNotNow while another thread is in here: it is due the next time. Never waits. [audio]
    ETaken Take(Item& item) {
        if (!isDirty.load(std::memory_order_acquire)) {
            return kNothingNew;
        }
        if (!lock.TryLock()) {
            return kNotNow;
        }
        isDirty.store(false, std::memory_order_relaxed);
        item = value;
        lock.Unlock();
        return kTaken;
    }
    /// What was taken is due again. [audio]
    void GiveBack() { isDirty.store(true, std::memory_order_release); }

    /// Fires when the filter gets a new value, on the thread that brings it, the audio thread as a
    /// rule.
    Core::IEventProvider& GetFilterChange() { return filterChange; }
    /// [audio]
    void NotifyFilterChange() { filterChange.Notify(); }
    void TellKept() { filterChange.NotifyIfKept(); }

private:
    /// Neither allocates nor frees under the lock: the audio thread would come in vain for longer.
    bool Exchange(Item item, const Core::IRefCountItem<T>* expected) {
        if (!item) {
            return false;
        }
        std::list<Item> replaced(1);
        std::list<Item> unused;
        const Core::CAutoLock guard(lock);
        if ((expected && value.Get() != expected) || value.Get() == item.Get() ||
            Maker::IsSame(value->GetValue(), item->GetValue())) {
            return false;
        }
        replaced.front() = std::exchange(value, std::move(item));
        retired.splice(retired.end(), replaced);
        for (auto at = retired.begin(); at != retired.end();) {
            const auto next = std::next(at);
            // One that came back is not to be referred to twice: it would never be left alone.
            if ((*at)->GetRefCount() == 1 || at->Get() == value.Get()) {
                unused.splice(unused.end(), retired, at);
            }
            at = next;
        }
        isDirty.store(true, std::memory_order_release);
        return true;
    }

    typename DataModel::Objects::TKindOf<I>::Info info;
    System::CRealtimeEventProvider filterChange;

    mutable System::CPollingLock lock;
    std::atomic<bool> isDirty{false}; // set and cleared under the lock, but for GiveBack
    // Guarded by the lock.
    Item value;
    std::list<Item> retired; // replaced, and perhaps still in the filter's hands
};

} // namespace Vorin::Audio::Plugin

#pragma once

#include "datamodel/objects/CaptureValueAccess.h"
#include "datamodel/objects/InfoTraits.h"
#include "datamodel/objects/ValueConversion.h"

#include <concepts>
#include <cstddef>
#include <functional>
#include <type_traits>

namespace Vorin::DataModel::Objects {

/// A member function of `O`, or of a base of it, that gives a change event.
template <class E, class O>
concept CChangeEventsOf = requires(E events, O& object) {
    { std::invoke(events, object) } -> std::convertible_to<Core::IEventProvider&>;
};

namespace Details {

template <class T, class O, class Get>
auto ReaderOf(O& target, Get getter) {
    return [&target, getter]() -> T { return ToObjectValue<T>(std::invoke(getter, target)); };
}

template <class T, class S, class O, class Set>
std::function<void(T)> WriterOf(O& target, Set setter) {
    if constexpr (std::is_null_pointer_v<Set>) {
        return nullptr;
    } else {
        return [&target, setter](T value) {
            static_cast<void>(
                std::invoke(setter, target, FromObjectValue<std::remove_cvref_t<S>>(value)));
        };
    }
}

} // namespace Details

/// A property of any object, read by a getter, as a model object to read:
///
///     TConstCaptureValueWrapper canUndo(history, &IHistoryManager::CanUndo,
///                                       &IHistoryManager::GetUndoChangedEvents, switchInfo);
///
/// The event accessor may be left out: then nothing tells of a change, but `GetValue` is up to date
/// all the same. The kind of the info decides what the property becomes: with a parameter info a
/// number, so the getter gives a bool, a number or an enum; with a string info a text.
///
/// The target is not owned. It outlives the wrapper, or its `Disconnect`. `P` is the event provider
/// of the wrapper; `I`, `IC` and `T` are the info's interface, its class, and the value type.
template <class O, class I, class IC, class T, class P = Core::CEventProvider>
class TConstCaptureValueWrapper : public TConstCaptureValueAccess<I, IC, T, P> {
    using Access = TConstCaptureValueAccess<I, IC, T, P>;

public:
    template <class Get>
    TConstCaptureValueWrapper(O& target, Get getter, const I& source)
        : Access(Details::ReaderOf<T>(target, getter), nullptr, source) {}

    template <class Get, CChangeEventsOf<O> Events>
    TConstCaptureValueWrapper(O& target, Get getter, Events events, const I& source)
        : Access(Details::ReaderOf<T>(target, getter), &std::invoke(events, target), source) {}
};

template <class O, class Get, class Info>
TConstCaptureValueWrapper(O&, Get, const Info&)
    -> TConstCaptureValueWrapper<O, typename TKindOf<Info>::Interface, typename TKindOf<Info>::Info,
                                 typename TKindOf<Info>::Value>;

template <class O, class Get, class Events, class Info>
TConstCaptureValueWrapper(O&, Get, Events, const Info&)
    -> TConstCaptureValueWrapper<O, typename TKindOf<Info>::Interface, typename TKindOf<Info>::Info,
                                 typename TKindOf<Info>::Value>;

/// A property of any object, read by a getter and written by a setter, as a model object:
///
///     TCaptureValueWrapper refreshTime(proxy, &IRefreshTime::GetRefreshTime,
///                                      &IRefreshTime::SetRefreshTime, refreshTimeInfo);
///     TCaptureValueWrapper enabled(link, &IEnable::IsEnabled, &IEnable::SetEnabled,
///                                  &IEnable::GetEnableEvents, switchInfo);
///
/// `SetValue` clamps a number to the info's range and converts it to `S`, the setter's argument, as
/// FromNumber says. A target that reports its own changes is told of once, through its event; a
/// target without an event notifies from here. A target that takes another value than it was given
/// shows that one. With `nullptr` as the setter a value that is set stays here, until the target's
/// next event.
///
/// A range that shrinks leaves the target as it is: the property is the target's own.
template <class O, class I, class IC, class T, class S, class P = Core::CEventProvider>
class TCaptureValueWrapper : public TCaptureValueAccess<I, IC, T, P> {
    using Access = TCaptureValueAccess<I, IC, T, P>;

public:
    template <class Get, class Set>
    TCaptureValueWrapper(O& target, Get getter, Set setter, const I& source)
        : Access(Details::ReaderOf<T>(target, getter), Details::WriterOf<T, S>(target, setter),
                 nullptr, source) {}

    template <class Get, class Set, CChangeEventsOf<O> Events>
    TCaptureValueWrapper(O& target, Get getter, Set setter, Events events, const I& source)
        : Access(Details::ReaderOf<T>(target, getter), Details::WriterOf<T, S>(target, setter),
                 &std::invoke(events, target), source) {}
};

template <class O, class Get, class R, class C, class S, class Info>
TCaptureValueWrapper(O&, Get, R (C::*)(S), const Info&)
    -> TCaptureValueWrapper<O, typename TKindOf<Info>::Interface, typename TKindOf<Info>::Info,
                            typename TKindOf<Info>::Value, S>;

template <class O, class Get, class R, class C, class S, class Events, class Info>
TCaptureValueWrapper(O&, Get, R (C::*)(S), Events, const Info&)
    -> TCaptureValueWrapper<O, typename TKindOf<Info>::Interface, typename TKindOf<Info>::Info,
                            typename TKindOf<Info>::Value, S>;

template <class O, class Get, class Info>
TCaptureValueWrapper(O&, Get, std::nullptr_t, const Info&)
    -> TCaptureValueWrapper<O, typename TKindOf<Info>::Interface, typename TKindOf<Info>::Info,
                            typename TKindOf<Info>::Value, typename TKindOf<Info>::Value>;

template <class O, class Get, class Events, class Info>
TCaptureValueWrapper(O&, Get, std::nullptr_t, Events, const Info&)
    -> TCaptureValueWrapper<O, typename TKindOf<Info>::Interface, typename TKindOf<Info>::Info,
                            typename TKindOf<Info>::Value, typename TKindOf<Info>::Value>;

} // namespace Vorin::DataModel::Objects

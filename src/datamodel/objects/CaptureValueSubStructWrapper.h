#pragma once

#include "datamodel/objects/CaptureValueWrapper.h"

namespace Vorin::DataModel::Objects {

namespace Details {

template <class S, class U, class O, class Get>
auto MemberReaderOf(O& target, Get getter, U S::*member) {
    return [&target, getter, member] { return ToNumber(std::invoke(getter, target).*member); };
}

template <class S, class U, class O, class Get, class Set>
auto MemberWriterOf(O& target, Get getter, Set setter, U S::*member) {
    return [&target, getter, setter, member](double value) {
        S structure = std::invoke(getter, target); // anew: the other members stay as they are now
        structure.*member = FromNumber<U>(value);
        static_cast<void>(std::invoke(setter, target, structure));
    };
}

} // namespace Details

/// One member of a structure that an object gives, as a parameter to read:
///
///     TConstCaptureValueSubStructWrapper width(window, &IWindow::GetSize, &IWindow::GetSizeEvents,
///                                              &C2DSize::width, widthInfo);
///
/// `S` is the structure and `U` the type of the member: a bool, a number or an enum. All else is as
/// with TConstCaptureValueWrapper.
template <class O, class I, class IC, class S, class T, class U, class P = Core::CEventProvider>
class TConstCaptureValueSubStructWrapper : public TConstCaptureValueAccess<I, IC, T, P> {
    using Access = TConstCaptureValueAccess<I, IC, T, P>;

public:
    template <class Get>
    TConstCaptureValueSubStructWrapper(O& target, Get getter, U S::*member, const I& source)
        : Access(Details::MemberReaderOf(target, getter, member), nullptr, source) {}

    template <class Get, CChangeEventsOf<O> Events>
    TConstCaptureValueSubStructWrapper(O& target, Get getter, Events events, U S::*member,
                                       const I& source)
        : Access(Details::MemberReaderOf(target, getter, member), &std::invoke(events, target),
                 source) {}
};

template <class O, class Get, class S, class U, class Info>
TConstCaptureValueSubStructWrapper(O&, Get, U S::*, const Info&)
    -> TConstCaptureValueSubStructWrapper<O, typename TKindOf<Info>::Interface,
                                          typename TKindOf<Info>::Info, S,
                                          typename TKindOf<Info>::Value, U>;

template <class O, class Get, class Events, class S, class U, class Info>
TConstCaptureValueSubStructWrapper(O&, Get, Events, U S::*, const Info&)
    -> TConstCaptureValueSubStructWrapper<O, typename TKindOf<Info>::Interface,
                                          typename TKindOf<Info>::Info, S,
                                          typename TKindOf<Info>::Value, U>;

/// One member of a structure that an object gives and takes, as a parameter:
///
///     TCaptureValueSubStructWrapper width(window, &IWindow::GetSize, &IWindow::SetSize,
///                                         &IWindow::GetSizeEvents, &C2DSize::width, widthInfo);
///
/// Each write reads the structure anew, so the other members stay as they are by then. All else is
/// as with TCaptureValueWrapper.
template <class O, class I, class IC, class S, class T, class U, class P = Core::CEventProvider>
class TCaptureValueSubStructWrapper : public TCaptureValueAccess<I, IC, T, P> {
    using Access = TCaptureValueAccess<I, IC, T, P>;

public:
    template <class Get, class Set>
    TCaptureValueSubStructWrapper(O& target, Get getter, Set setter, U S::*member, const I& source)
        : Access(Details::MemberReaderOf(target, getter, member),
                 Details::MemberWriterOf(target, getter, setter, member), nullptr, source) {}

    template <class Get, class Set, CChangeEventsOf<O> Events>
    TCaptureValueSubStructWrapper(O& target, Get getter, Set setter, Events events, U S::*member,
                                  const I& source)
        : Access(Details::MemberReaderOf(target, getter, member),
                 Details::MemberWriterOf(target, getter, setter, member),
                 &std::invoke(events, target), source) {}
};

template <class O, class Get, class Set, class S, class U, class Info>
TCaptureValueSubStructWrapper(O&, Get, Set, U S::*, const Info&)
    -> TCaptureValueSubStructWrapper<O, typename TKindOf<Info>::Interface,
                                     typename TKindOf<Info>::Info, S, typename TKindOf<Info>::Value,
                                     U>;

template <class O, class Get, class Set, class Events, class S, class U, class Info>
TCaptureValueSubStructWrapper(O&, Get, Set, Events, U S::*, const Info&)
    -> TCaptureValueSubStructWrapper<O, typename TKindOf<Info>::Interface,
                                     typename TKindOf<Info>::Info, S, typename TKindOf<Info>::Value,
                                     U>;

} // namespace Vorin::DataModel::Objects

#pragma once

#include "core/Ownership.h"

#include <cassert>
#include <memory>
#include <type_traits>
#include <utility>

namespace Vorin::Core {

/// A call that can be held, connected to a provider, or queued.
///
/// The listener owns its commands, mostly as members, and connects them by address.
/// `Execute` must not throw: providers and queues do not expect it.
class ICommand {
public:
    virtual void Execute() = 0;
    virtual ~ICommand() = default;
};

/// A call with one argument.
template <class A>
class TIArgCommand {
public:
    virtual void Execute(A argument) = 0;
    virtual ~TIArgCommand() = default;
};

/// A call that gives a result.
template <class R>
class TIReturnCommand {
public:
    virtual R Execute() = 0;
    virtual ~TIReturnCommand() = default;
};

/// A call with one argument that gives a result.
template <class R, class A>
class TIArgReturnCommand {
public:
    virtual R Execute(A argument) = 0;
    virtual ~TIArgReturnCommand() = default;
};

/// A member function of `C` bound to one object, as a command.
///
/// The object is not owned and must outlive the last `Execute`. The command may be destroyed by
/// the very call it makes: nothing of it is touched after the member function returned.
template <class C>
class TCommand final : public ICommand {
public:
    using Function = void (C::*)();

    TCommand(C* target, Function member) : object(target), function(member) {
        assert(object && function);
    }

    // Aligned: every event ends here, and a few instructions that straddle two fetch blocks cost a
    // quarter of a notification.
    [[gnu::aligned(32)]] void Execute() override { (object->*function)(); }

private:
    C* object;
    Function function;
};

/// A member function taking `A`, bound to one object.
template <class C, class A>
class TArgCommand final : public TIArgCommand<A> {
public:
    using Argument = A;
    using Function = void (C::*)(A);

    TArgCommand(C* target, Function member) : object(target), function(member) {
        assert(object && function);
    }

    void Execute(A argument) override { (object->*function)(std::forward<A>(argument)); }

private:
    C* object;
    Function function;
};

/// A const member function taking `A`, bound to one object.
template <class C, class A>
class TConstArgCommand final : public TIArgCommand<A> {
public:
    using Argument = A;
    using Function = void (C::*)(A) const;

    TConstArgCommand(const C* target, Function member) : object(target), function(member) {
        assert(object && function);
    }

    void Execute(A argument) override { (object->*function)(std::forward<A>(argument)); }

private:
    const C* object;
    Function function;
};

/// A member function that gives an `R`, bound to one object.
template <class C, class R>
class TReturnCommand final : public TIReturnCommand<R> {
public:
    using Function = R (C::*)();

    TReturnCommand(C* target, Function member) : object(target), function(member) {
        assert(object && function);
    }

    R Execute() override { return (object->*function)(); }

private:
    C* object;
    Function function;
};

/// A member function taking `A` that gives an `R`, bound to one object.
template <class C, class R, class A>
class TArgReturnCommand final : public TIArgReturnCommand<R, A> {
public:
    using Function = R (C::*)(A);

    TArgReturnCommand(C* target, Function member) : object(target), function(member) {
        assert(object && function);
    }

    R Execute(A argument) override { return (object->*function)(std::forward<A>(argument)); }

private:
    C* object;
    Function function;
};

/// An argument command together with its argument: a plain command that can wait in a queue.
///
/// `W` is a `TArgCommand<C, A>`. An argument passed by value or by reference is kept as a private
/// copy, an abstract object as its `Clone`. A pointer is kept as it is; when `ownership` is `kOwn`
/// the destructor deletes what it points at (text, `char*`, as an array). `Execute` may run any
/// number of times.
template <class W>
class TArgCommandWrapper final : public ICommand {
public:
    using Argument = typename W::Argument;

    TArgCommandWrapper(W wrapped, Argument value, EOwnership valueOwnership = kDontOwn)
        : command(std::move(wrapped)), argument(Keep(value)), ownership(valueOwnership) {}

    ~TArgCommandWrapper() override {
        if constexpr (std::is_same_v<Value, char*> || std::is_same_v<Value, const char*>) {
            if (ownership == kOwn) {
                delete[] argument;
            }
        } else if constexpr (std::is_pointer_v<Value>) {
            if (ownership == kOwn) {
                delete argument;
            }
        }
    }

    TArgCommandWrapper(const TArgCommandWrapper&) = delete;
    TArgCommandWrapper& operator=(const TArgCommandWrapper&) = delete;

    void Execute() override {
        if constexpr (std::is_abstract_v<Value>) {
            command.Execute(*argument);
        } else {
            command.Execute(static_cast<Argument>(argument));
        }
    }

private:
    using Value = std::remove_cv_t<std::remove_reference_t<Argument>>;
    using Stored = std::conditional_t<std::is_abstract_v<Value>, std::unique_ptr<Value>, Value>;

    static Stored Keep(const Value& value) {
        if constexpr (std::is_abstract_v<Value>) {
            return Stored(value.Clone());
        } else {
            return value;
        }
    }

    W command;
    Stored argument;
    EOwnership ownership;
};

} // namespace Vorin::Core

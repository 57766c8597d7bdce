#pragma once

#include "core/Command.h"
#include "core/Enable.h"
#include "core/Ownership.h"
#include "datamodel/ActionInfo.h"
#include "system/AsyncCommand.h"

namespace Vorin::DataModel::Objects {

/// Something that a button or a menu item can run, and that may be out of order. One thread.
class IConstAction : public virtual Core::IConstEnable, public virtual Core::ICommand {};

class IAction : public virtual IConstAction, public virtual Core::IEnable {};

/// A command as a model object, with a switch. A new one is switched on and has no command.
class CAction : public virtual IAction {
public:
    CAction() = default;
    CAction(const IConstActionInfo& source, Core::ICommand* actionCommand,
            Core::EOwnership ownership)
        : command(actionCommand, ownership) {
        info.CopyFrom(source);
    }
    CAction(const CAction&) = delete;
    CAction& operator=(const CAction&) = delete;

    const CActionInfo& GetInfo() const { return info; }
    CActionInfo& GetInfo() { return info; }

    /// Null is allowed. Not from inside the command.
    void SetCommand(Core::ICommand* newCommand, Core::EOwnership ownership) {
        command.Set(newCommand, ownership);
    }

    /// Runs the command, then notifies GetExecutionEvents. Switched off, or without a command,
    /// nothing happens and nobody is told. The command must not destroy the action.
    void Execute() override {
        if (enabled.IsEnabled() && command.Get()) {
            command.Get()->Execute();
            executionEvents.Notify();
        }
    }

    Core::IEventProvider& GetExecutionEvents() { return executionEvents; }

    bool IsEnabled() const override { return enabled.IsEnabled(); }
    Core::IEventProvider& GetEnableEvents() override { return enabled.GetEnableEvents(); }

    /// Compares, stores, then notifies.
    void SetEnabled(bool enable) override { enabled.SetEnabled(enable); }

private:
    CActionInfo info;
    Core::TOwnership<Core::ICommand> command;
    Core::CEnable enabled;
    Core::CEventProvider executionEvents;
};

/// A member function of `C` as an action. The object is not owned and outlives the last `Execute`.
///
///     TActionWrapper reset(view, &CView::Reset, CActionInfo("Reset", "Back to the full range"));
template <class C>
class TActionWrapper : public CAction {
public:
    template <class B>
    TActionWrapper(C& target, void (B::*function)(), const IConstActionInfo& source)
        : CAction(source, new Core::TCommand<B>(&target, function), Core::kOwn) {}
};

/// A member function of `C` as an action that runs on another thread, later, and that is switched
/// by the object itself.
///
/// `Execute` leaves the call to the invoker, which runs it if it still can then: the object decides
/// again when the call arrives. The object's own state is read, and its event told, on the
/// thread of this action, to which they belong.
///
/// Neither object nor invoker is owned. A call that is under way keeps the address of this action:
/// before it dies, such calls have run or the invoker is gone.
template <class C>
class TConstAsyncActionWrapper : public virtual IConstAction {
public:
    using Function = void (C::*)();
    using IsEnabledFunction = bool (C::*)() const;
    using EnableEvents = Core::IEventProvider& (C::*)() const;

    /// Always switched on.
    TConstAsyncActionWrapper(System::IThreadInvoker* invoker, C* object, Function function)
        : TConstAsyncActionWrapper(invoker, object, function, nullptr, nullptr) {}

    /// Switched on while `isEnabled` says so; `enableEvents` tells of changes.
    TConstAsyncActionWrapper(System::IThreadInvoker* invoker, C* object, Function function,
                             IsEnabledFunction isEnabledFunction, EnableEvents enableEventsFunction)
        : target(object), isEnabled(isEnabledFunction), targetEvents(enableEventsFunction),
          command(invoker, object, function) {
        if (targetEvents) {
            (target->*targetEvents)().Connect(enableChanged);
        }
    }

    ~TConstAsyncActionWrapper() override {
        if (targetEvents) {
            (target->*targetEvents)().Disconnect(enableChanged);
        }
    }

    TConstAsyncActionWrapper(const TConstAsyncActionWrapper&) = delete;
    TConstAsyncActionWrapper& operator=(const TConstAsyncActionWrapper&) = delete;

    bool IsEnabled() const override { return !isEnabled || (target->*isEnabled)(); }
    Core::IEventProvider& GetEnableEvents() override { return enableEvents; }

    /// Switched off, nothing happens. [any, when `isEnabled` is]
    void Execute() override {
        if (IsEnabled()) {
            command.Execute();
        }
    }

private:
    void OnEnableChanged() { enableEvents.Notify(); }

    C* target;
    IsEnabledFunction isEnabled;
    EnableEvents targetEvents;
    System::TAsyncCommand<C> command;
    Core::CEventProvider enableEvents;
    Core::TCommand<TConstAsyncActionWrapper> enableChanged{
        this, &TConstAsyncActionWrapper::OnEnableChanged};
};

} // namespace Vorin::DataModel::Objects

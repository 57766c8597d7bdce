#include "core/Command.h"

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

class IValue {
public:
    virtual ~IValue() = default;
    virtual int Get() const = 0;
    virtual IValue* Clone() const = 0;
};

class CValue : public IValue {
public:
    explicit CValue(int ownNumber) : number(ownNumber) {}
    int Get() const override { return number; }
    IValue* Clone() const override { return new CValue(number); }

private:
    int number;
};

class CTarget {
public:
    virtual ~CTarget() = default;
    void Count() { ++calls; }
    virtual void CountVirtually() { ++calls; }
    void Add(double amount) { sum += amount; }
    void Read(double amount) const { seen.push_back(amount); }
    int GetCalls() { return calls; }
    std::string Repeat(int times) { return std::string(static_cast<std::size_t>(times), 'x'); }
    void Keep(const std::string& newText) { text = newText; }
    void KeepText(const char* newText) { text = newText ? newText : "(null)"; }
    void KeepValue(const IValue& value) { calls = value.Get(); }
    void KeepPointer(CTarget* other) { last = other; }

    int calls = 0;
    double sum = 0.0;
    mutable std::vector<double> seen;
    std::string text;
    CTarget* last = nullptr;
};

class CDerivedTarget : public CTarget {
public:
    void CountVirtually() override { calls += 100; }
};

class CCountedTarget : public CTarget {
public:
    explicit CCountedTarget(int& livingCount) : living(livingCount) { ++living; }
    ~CCountedTarget() override { --living; }

private:
    int& living;
};

TEST(CommandTest, CommandCallsTheMemberFunction) {
    CTarget target;
    TCommand<CTarget> command(&target, &CTarget::Count);
    static_cast<ICommand&>(command).Execute();
    static_cast<ICommand&>(command).Execute();
    EXPECT_EQ(target.calls, 2);
}

TEST(CommandTest, VirtualMemberFunctionsAreDispatched) {
    CDerivedTarget target;
    TCommand<CTarget> command(&target, &CTarget::CountVirtually);
    command.Execute();
    EXPECT_EQ(target.calls, 100);
}

TEST(CommandTest, ArgumentsAndResultsAreHandedThrough) {
    CTarget target;
    TArgCommand<CTarget, double> add(&target, &CTarget::Add);
    add.Execute(1.5);
    add.Execute(2.0);
    EXPECT_EQ(target.sum, 3.5);

    const CTarget& constTarget = target;
    TConstArgCommand<CTarget, double> read(&constTarget, &CTarget::Read);
    read.Execute(7.0);
    EXPECT_EQ(target.seen, std::vector<double>{7.0});

    target.calls = 3;
    TReturnCommand<CTarget, int> get(&target, &CTarget::GetCalls);
    EXPECT_EQ(get.Execute(), 3);

    TArgReturnCommand<CTarget, std::string, int> repeat(&target, &CTarget::Repeat);
    EXPECT_EQ(repeat.Execute(3), "xxx");
}

TEST(CommandTest, WrapperCallsWithTheStoredArgumentEachTime) {
    CTarget target;
    using Command = TArgCommand<CTarget, double>;
    const std::unique_ptr<ICommand> wrapper =
        std::make_unique<TArgCommandWrapper<Command>>(Command(&target, &CTarget::Add), 2.0);
    wrapper->Execute();
    wrapper->Execute();
    EXPECT_EQ(target.sum, 4.0);
}

TEST(CommandTest, WrapperKeepsACopyOfAReferencedArgument) {
    CTarget target;
    using Command = TArgCommand<CTarget, const std::string&>;
    std::string text = "first";
    TArgCommandWrapper<Command> wrapper(Command(&target, &CTarget::Keep), text);
    text = "second";
    wrapper.Execute();
    EXPECT_EQ(target.text, "first");
}

TEST(CommandTest, WrapperKeepsACloneOfAnAbstractArgument) {
    CTarget target;
    using Command = TArgCommand<CTarget, const IValue&>;
    auto value = std::make_unique<CValue>(42);
    TArgCommandWrapper<Command> wrapper(Command(&target, &CTarget::KeepValue), *value);
    value.reset();
    wrapper.Execute();
    EXPECT_EQ(target.calls, 42);
}

TEST(CommandTest, WrapperDeletesAnOwnedPointerArgument) {
    int living = 0;
    CTarget target;
    using Command = TArgCommand<CTarget, CTarget*>;
    CTarget* argument = new CCountedTarget(living);
    {
        TArgCommandWrapper<Command> wrapper(Command(&target, &CTarget::KeepPointer), argument,
                                            kOwn);
        wrapper.Execute();
        EXPECT_EQ(target.last, argument);
        EXPECT_EQ(living, 1);
    }
    EXPECT_EQ(living, 0);
}

TEST(CommandTest, WrapperLeavesAPointerArgumentThatIsNotOwned) {
    int living = 0;
    CCountedTarget argument(living);
    CTarget target;
    using Command = TArgCommand<CTarget, CTarget*>;
    { TArgCommandWrapper<Command> wrapper(Command(&target, &CTarget::KeepPointer), &argument); }
    EXPECT_EQ(living, 1);
}

TEST(CommandTest, WrapperFreesAnOwnedTextAsAnArray) {
    CTarget target;
    using Command = TArgCommand<CTarget, const char*>;
    char* text = new char[6];
    std::memcpy(text, "hello", 6);
    TArgCommandWrapper<Command> wrapper(Command(&target, &CTarget::KeepText), text, kOwn);
    wrapper.Execute();
    EXPECT_EQ(target.text, "hello"); // the sanitizer build sees whether the array goes
}

} // namespace

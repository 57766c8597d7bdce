#include "core/ValueFactory.h"

#include <cstring>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

class CMadeValueCounter {
public:
    explicit CMadeValueCounter(IEventProvider& source) : provider(source) {
        provider.Connect(command);
    }
    ~CMadeValueCounter() { provider.Disconnect(command); }
    void OnChanged() { ++calls; }

    int calls = 0;

private:
    IEventProvider& provider;
    TCommand<CMadeValueCounter> command{this, &CMadeValueCounter::OnChanged};
};

using TextFactory = TValueFactory<const char*>;

std::string CreatedText(const TextFactory& factory) {
    const std::unique_ptr<char[]> text(factory.CreateValue());
    return text ? text.get() : "(null)";
}

class INumber {
public:
    virtual ~INumber() = default;
    virtual int Get() const = 0;
    virtual INumber* Clone() const = 0;
};

class CNumber : public INumber {
public:
    CNumber(int ownNumber, int& livingCount) : number(ownNumber), living(livingCount) { ++living; }
    ~CNumber() override { --living; }
    int Get() const override { return number; }
    INumber* Clone() const override { return new CNumber(number, living); }

private:
    int number;
    int& living;
};

TEST(ValueFactoryTest, NullSetOnANullTextSendsNoEvent) {
    TextFactory factory;
    CMadeValueCounter counter(factory.GetValueChangedEvents());
    factory.SetValue(nullptr);
    EXPECT_EQ(counter.calls, 0);
    EXPECT_EQ(factory.CreateValue(), nullptr);
}

TEST(ValueFactoryTest, NullSetOnATextMakesItNullAndSendsAnEvent) {
    TextFactory factory("text");
    CMadeValueCounter counter(factory.GetValueChangedEvents());
    factory.SetValue(nullptr);
    EXPECT_EQ(counter.calls, 1);
    EXPECT_EQ(factory.CreateValue(), nullptr);
}

TEST(ValueFactoryTest, TextSetOnNullSendsAnEvent) {
    TextFactory factory;
    CMadeValueCounter counter(factory.GetValueChangedEvents());
    factory.SetValue("");
    EXPECT_EQ(counter.calls, 1);
    EXPECT_EQ(CreatedText(factory), "");
}

TEST(ValueFactoryTest, EqualTextAtAnotherAddressSendsNoEvent) {
    TextFactory factory("same");
    CMadeValueCounter counter(factory.GetValueChangedEvents());
    const std::string same = "same";
    factory.SetValue(same.c_str());
    EXPECT_EQ(counter.calls, 0);
    factory.SetValue("Same");
    EXPECT_EQ(counter.calls, 1);
}

TEST(ValueFactoryTest, EachReaderGetsACopyOfItsOwn) {
    TextFactory factory("text");
    const std::unique_ptr<char[]> first(factory.CreateValue());
    const std::unique_ptr<char[]> second(factory.CreateValue());
    EXPECT_NE(first.get(), second.get());
    first[0] = 'n';
    EXPECT_STREQ(second.get(), "text");
    factory.SetValue("other");
    EXPECT_STREQ(second.get(), "text");
    EXPECT_EQ(CreatedText(factory), "other");
}

TEST(ValueFactoryTest, TextThatIsNotOwnedIsLeftAloneWhenReplaced) {
    char text[] = "mine"; // on the stack: freeing it would crash
    TextFactory factory(text, kDontOwn);
    EXPECT_EQ(CreatedText(factory), "mine");
    factory.SetValue("yours");
    EXPECT_STREQ(text, "mine");
    EXPECT_EQ(CreatedText(factory), "yours");
}

TEST(ValueFactoryTest, TextGivenAwayIsFreed) {
    char* text = new char[5];
    std::memcpy(text, "gift", 5);
    TextFactory factory(text, kOwn);
    EXPECT_EQ(CreatedText(factory), "gift");
    factory.SetValue("next"); // the leak check of the sanitizer build sees whether it goes
}

TEST(ValueFactoryTest, ObjectAlwaysNotifiesAndOwnsItsClone) {
    int living = 0;
    {
        CNumber three(3, living);
        TValueFactory<const INumber&> factory(three);
        CMadeValueCounter counter(factory.GetValueChangedEvents());
        factory.SetValue(three);
        factory.SetValue(three);
        EXPECT_EQ(counter.calls, 2);
        EXPECT_EQ(living, 2);
        const std::unique_ptr<INumber> created(factory.CreateValue());
        EXPECT_EQ(living, 3);
        EXPECT_EQ(created->Get(), 3);
    }
    EXPECT_EQ(living, 0);
}

TEST(ValueFactoryTest, ObjectFactoryStartsEmpty) {
    int living = 0;
    TValueFactory<const INumber&> factory;
    EXPECT_EQ(factory.CreateValue(), nullptr);
    factory.SetValue(CNumber(5, living));
    const std::unique_ptr<INumber> created(factory.CreateValue());
    EXPECT_EQ(created->Get(), 5);
}

TEST(ValueFactoryTest, ObjectThatIsNotOwnedIsLeftAloneWhenReplaced) {
    int living = 0;
    CNumber mine(1, living);
    {
        TValueFactory<const INumber&> factory(&mine, kDontOwn);
        factory.SetValue(CNumber(2, living));
        EXPECT_EQ(living, 2);
    }
    EXPECT_EQ(living, 1);
}

} // namespace

#include "datamodel/CustomPropertyInfo.h"

#include "core/EventCounter.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

class CNumber : public virtual IDynamicPropertyValue {
public:
    CNumber(int initial, int& aliveCount) : number(initial), alive(aliveCount) { ++alive; }
    ~CNumber() override { --alive; }

    const char* GetType() const override { return "number"; }
    IDynamicPropertyValue* Clone() const override { return new CNumber(number, alive); }
    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteInt("number", number);
    }
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        return stream.ReadInt("number", number);
    }

    int number;

private:
    int& alive;
};

int NumberOf(const IConstCustomPropertyInfo& info) {
    const auto* value = dynamic_cast<const CNumber*>(info.GetDefaultValue());
    return value ? value->number : -1;
}

TEST(CustomPropertyInfoTest, OwnsItsDefault) {
    int alive = 0;
    {
        CCustomPropertyInfo info("Map", "where", new CNumber(1, alive));
        EXPECT_STREQ(info.GetName(), "Map");
        EXPECT_STREQ(info.GetComment(), "where");
        EXPECT_EQ(NumberOf(info), 1);
        CEventCounter events(info.GetInfoChangedEvents());
        info.SetDefaultValue(new CNumber(2, alive));
        EXPECT_EQ(events.Take(), 1);
        EXPECT_EQ(NumberOf(info), 2);
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST(CustomPropertyInfoTest, MayHaveNoDefault) {
    const CCustomPropertyInfo info("Map", "where");
    EXPECT_EQ(info.GetDefaultValue(), nullptr);
    EXPECT_EQ(CCustomPropertyInfo(info).GetDefaultValue(), nullptr);
}

TEST(CustomPropertyInfoTest, CopiesHaveClonesOfTheDefault) {
    int alive = 0;
    {
        CCustomPropertyInfo source("a", "b", new CNumber(5, alive));
        CCustomPropertyInfo copy(source);
        copy.SetName("a (L)");
        EXPECT_STREQ(source.GetName(), "a");
        EXPECT_EQ(NumberOf(copy), 5);
        EXPECT_NE(copy.GetDefaultValue(), source.GetDefaultValue());
        EXPECT_EQ(alive, 2);

        CCustomPropertyInfo info;
        CEventCounter events(info.GetInfoChangedEvents());
        const IConstCustomPropertyInfo& reader = copy;
        info.CopyFrom(reader);
        EXPECT_EQ(events.Take(), 1);
        EXPECT_STREQ(info.GetName(), "a (L)");
        EXPECT_STREQ(info.GetComment(), "b");
        EXPECT_EQ(NumberOf(info), 5);
        info.CopyFrom(static_cast<const IConstCustomPropertyInfo&>(info));
        EXPECT_EQ(NumberOf(info), 5);
        info = CCustomPropertyInfo("c", "d");
        EXPECT_EQ(info.GetDefaultValue(), nullptr);
        EXPECT_EQ(alive, 2);
    }
    EXPECT_EQ(alive, 0);
}

} // namespace
} // namespace Vorin::DataModel::Objects

#include "serialization/IncrementalMemDataObject.h"
#include "serialization/StreamHelpers.h"

#include <functional>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Serialization;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// An object with one int "x".
CWrites Point(int x) {
    return CWrites([x](IWriteDataStream& stream) { return stream.WriteInt("x", x); });
}

CWrites PointXY(int x, int y) {
    return CWrites([x, y](IWriteDataStream& stream) {
        return stream.WriteInt("x", x) && stream.WriteInt("y", y);
    });
}

/// What a reader sees of an object inside.
struct CSeen {
    bool isRead = false;
    bool isTolerant = false;
    std::optional<int> x;
    std::optional<int> y;
};

CSeen SeeObject(const IReadDataStream& stream, const char* name) {
    CSeen seen;
    CReads reader([&seen](const IReadDataStream& object) {
        seen.isTolerant = object.IsTolerant();
        seen.x = IntOf(object, "x");
        seen.y = IntOf(object, "y");
        return true;
    });
    seen.isRead = stream.ReadObject(name, reader);
    return seen;
}

/// Writes one value of each type.
void WriteAll(IWriteDataStream& stream, const char* text = "text", const char* bytes = "\1\0\2") {
    EXPECT_TRUE(stream.WriteBool("bool", true));
    EXPECT_TRUE(stream.WriteInt("int", -7));
    EXPECT_TRUE(stream.WriteFloat("float", 0.5F));
    EXPECT_TRUE(stream.WriteDouble("double", 0.1));
    EXPECT_TRUE(stream.WriteString("string", text));
    EXPECT_TRUE(stream.WriteString("null", nullptr));
    EXPECT_TRUE(stream.WriteData("data", bytes, 3));
    EXPECT_TRUE(stream.WriteObject("object", Point(3)));
}

const char* const kAllNames[] = {"bool",   "int",  "float", "double",
                                 "string", "null", "data",  "object"};

TEST(IncrementalMemDataObjectTest, EveryTypeReadsBack) {
    CIncrementalMemDataObject object;
    WriteAll(object);
    bool flag = false;
    float single = 0;
    EXPECT_TRUE(object.ReadBool("bool", flag) && flag);
    EXPECT_TRUE(object.ReadFloat("float", single) && single == 0.5F);
    EXPECT_EQ(IntOf(object, "int"), -7);
    EXPECT_EQ(DoubleOf(object, "double"), 0.1);
    EXPECT_EQ(StringOf(object, "string"), "text");
    EXPECT_EQ(StringOf(object, "null"), "(null)");
    EXPECT_EQ(DataOf(object, "data"), std::string("\1\0\2", 3));
    EXPECT_EQ(SeeObject(object, "object").x, 3);
    EXPECT_EQ(object.GetCount(), 8);
}

TEST(IncrementalMemDataObjectTest, NoReadConverts) {
    CIncrementalMemDataObject object;
    ASSERT_TRUE(object.WriteInt("a", 1));
    float single = 4;
    double number = 4;
    bool flag = false;
    EXPECT_FALSE(object.ReadFloat("a", single));
    EXPECT_FALSE(object.ReadDouble("a", number));
    EXPECT_FALSE(object.ReadBool("a", flag));
    EXPECT_EQ(StringOf(object, "a"), std::nullopt);
    EXPECT_EQ(DataOf(object, "a"), std::nullopt);
    EXPECT_FALSE(SeeObject(object, "a").isRead);
    EXPECT_EQ(single, 4);
}

TEST(IncrementalMemDataObjectTest, AWriteReplacesAValueOfAnyType) {
    CIncrementalMemDataObject object;
    ASSERT_TRUE(object.WriteObject("a", Point(1)));
    ASSERT_TRUE(object.WriteInt("a", 2));
    EXPECT_EQ(IntOf(object, "a"), 2);
    EXPECT_EQ(object.GetCount(), 1);
}

TEST(IncrementalMemDataObjectTest, AWriteThatFailsLeavesTheNameRemovedAndIsNoChange) {
    CIncrementalMemDataObject first;
    ASSERT_TRUE(first.WriteInt("a", 1));
    CIncrementalMemDataObject second(&first);
    ASSERT_TRUE(second.WriteInt("a", 1));
    EXPECT_FALSE(second.WriteData("a", nullptr, 3));
    EXPECT_FALSE(second.Exists("a"));
    ASSERT_TRUE(second.WriteInt("a", 1));
    EXPECT_FALSE(second.WriteData("a", "abc", -1));
    EXPECT_FALSE(second.Exists("a"));
    ASSERT_TRUE(second.WriteInt("a", 1));
    EXPECT_FALSE(second.WriteObject("a", CWrites([](IWriteDataStream&) { return false; })));
    EXPECT_FALSE(second.Exists("a"));
    EXPECT_TRUE(second.IsUnchanged());
}

TEST(IncrementalMemDataObjectTest, ANullNameFails) {
    CIncrementalMemDataObject object;
    EXPECT_FALSE(object.WriteInt(nullptr, 1));
    EXPECT_FALSE(object.WriteObject(nullptr, Point(1)));
    EXPECT_FALSE(object.Remove(nullptr));
    EXPECT_FALSE(object.Exists(nullptr));
    EXPECT_EQ(IntOf(object, nullptr), std::nullopt);
    EXPECT_EQ(object.GetItem(nullptr), nullptr);
}

TEST(IncrementalMemDataObjectTest, RemoveOfAnAbsentNameIsTrue) {
    CIncrementalMemDataObject object;
    EXPECT_TRUE(object.Remove("a"));
    ASSERT_TRUE(object.WriteInt("a", 1));
    EXPECT_TRUE(object.Remove("a"));
    EXPECT_FALSE(object.Exists("a"));
}

TEST(IncrementalMemDataObjectTest, ANewOneIsUnchangedOnlyWithOneBeforeIt) {
    const CIncrementalMemDataObject first;
    const CIncrementalMemDataObject second(&first);
    EXPECT_FALSE(first.IsUnchanged());
    EXPECT_TRUE(second.IsUnchanged());
    EXPECT_EQ(first.GetPrevious(), nullptr);
    EXPECT_EQ(second.GetPrevious(), &first);
}

TEST(IncrementalMemDataObjectTest, TolerantIsWhatTheConstructorSays) {
    EXPECT_FALSE(CIncrementalMemDataObject().IsTolerant());
    EXPECT_TRUE(CIncrementalMemDataObject(nullptr, true).IsTolerant());
}

TEST(IncrementalMemDataObjectTest, TheSameValuesOfAllTypesAreSharedAndNoChange) {
    CIncrementalMemDataObject first;
    WriteAll(first);
    CIncrementalMemDataObject second(&first);
    const std::string text("text");
    WriteAll(second, text.c_str(), std::string("\1\0\2", 3).c_str());
    EXPECT_TRUE(second.IsUnchanged());
    for (const char* name : kAllNames) {
        EXPECT_EQ(second.GetItem(name), first.GetItem(name)) << name;
        EXPECT_EQ(first.GetItem(name)->GetRefCount(), 2) << name;
    }
}

TEST(IncrementalMemDataObjectTest, AnyOtherValueIsAChangeWithAnItemOfItsOwn) {
    const std::vector<std::function<void(IWriteDataStream&)>> changes = {
        [](auto& stream) { stream.WriteBool("bool", false); },
        [](auto& stream) { stream.WriteInt("int", 7); },
        [](auto& stream) { stream.WriteFloat("float", 0.25F); },
        [](auto& stream) { stream.WriteDouble("double", 0.2); },
        [](auto& stream) { stream.WriteString("string", "texts"); },
        [](auto& stream) { stream.WriteString("null", ""); },
        [](auto& stream) { stream.WriteData("data", "\1\0\3", 3); },
        [](auto& stream) { stream.WriteObject("object", Point(4)); },
    };
    CIncrementalMemDataObject first;
    WriteAll(first);
    for (std::size_t i = 0; i < changes.size(); ++i) {
        CIncrementalMemDataObject second(&first);
        WriteAll(second);
        changes[i](second);
        EXPECT_FALSE(second.IsUnchanged()) << kAllNames[i];
        EXPECT_NE(second.GetItem(kAllNames[i]), first.GetItem(kAllNames[i])) << kAllNames[i];
        EXPECT_EQ(second.GetItem(kAllNames[i])->GetRefCount(), 1) << kAllNames[i];
    }
}

TEST(IncrementalMemDataObjectTest, TheSameValueOfAnotherTypeIsAChange) {
    CIncrementalMemDataObject first;
    ASSERT_TRUE(first.WriteInt("a", 1));
    CIncrementalMemDataObject second(&first);
    ASSERT_TRUE(second.WriteDouble("a", 1.0));
    EXPECT_FALSE(second.IsUnchanged());
}

TEST(IncrementalMemDataObjectTest, AnItemLivesAsLongAsASnapshotHoldsIt) {
    auto first = std::make_unique<CIncrementalMemDataObject>();
    ASSERT_TRUE(first->WriteInt("a", 1));
    CIncrementalMemDataObject second(first.get());
    ASSERT_TRUE(second.WriteInt("a", 1));
    EXPECT_EQ(second.GetItem("a")->GetRefCount(), 2);
    second.Detach();
    first.reset();
    EXPECT_EQ(second.GetItem("a")->GetRefCount(), 1);
    EXPECT_EQ(IntOf(second, "a"), 1);
}

TEST(IncrementalMemDataObjectTest, ANaNThatStaysIsNoChange) {
    CIncrementalMemDataObject first;
    ASSERT_TRUE(first.WriteDouble("a", kNan));
    CIncrementalMemDataObject second(&first);
    ASSERT_TRUE(second.WriteDouble("a", kNan));
    EXPECT_TRUE(second.IsUnchanged());
}

TEST(IncrementalMemDataObjectTest, ANameThatIsNewIsAChange) {
    CIncrementalMemDataObject first;
    CIncrementalMemDataObject second(&first);
    ASSERT_TRUE(second.WriteInt("a", 1));
    EXPECT_FALSE(second.IsUnchanged());
}

TEST(IncrementalMemDataObjectTest, ANameThatIsNotWrittenAnyMoreIsNoChange) {
    CIncrementalMemDataObject first;
    ASSERT_TRUE(first.WriteInt("a", 1));
    ASSERT_TRUE(first.WriteInt("b", 1));
    CIncrementalMemDataObject second(&first);
    ASSERT_TRUE(second.WriteInt("a", 1));
    EXPECT_TRUE(second.IsUnchanged());
    EXPECT_FALSE(second.Exists("b"));
}

TEST(IncrementalMemDataObjectTest, AChangeStaysOneWhenTheOldValueIsWrittenOverIt) {
    CIncrementalMemDataObject first;
    ASSERT_TRUE(first.WriteInt("a", 1));
    CIncrementalMemDataObject second(&first);
    ASSERT_TRUE(second.WriteInt("a", 2));
    ASSERT_TRUE(second.WriteInt("a", 1));
    EXPECT_FALSE(second.IsUnchanged());
    EXPECT_EQ(second.GetItem("a"), first.GetItem("a"));
}

TEST(IncrementalMemDataObjectTest, ClearReleasesAllAndComparesAfresh) {
    CIncrementalMemDataObject first;
    ASSERT_TRUE(first.WriteInt("a", 1));
    CIncrementalMemDataObject second(&first);
    ASSERT_TRUE(second.WriteInt("a", 1));
    ASSERT_TRUE(second.WriteInt("b", 2));
    EXPECT_TRUE(second.Clear());
    EXPECT_TRUE(second.IsUnchanged());
    EXPECT_EQ(second.GetCount(), 0);
    EXPECT_EQ(first.GetItem("a")->GetRefCount(), 1);
    EXPECT_TRUE(first.Clear());
    EXPECT_FALSE(first.IsUnchanged());
}

TEST(IncrementalMemDataObjectTest, DetachEndsTheComparison) {
    CIncrementalMemDataObject first;
    CIncrementalMemDataObject second(&first);
    second.Detach();
    EXPECT_EQ(second.GetPrevious(), nullptr);
    EXPECT_FALSE(second.IsUnchanged());
}

TEST(IncrementalMemDataObjectTest, AChangeInsideOfAnObjectKeepsItsOtherValuesShared) {
    CIncrementalMemDataObject first;
    ASSERT_TRUE(first.WriteObject("object", PointXY(1, 2)));
    CIncrementalMemDataObject second(&first);
    ASSERT_TRUE(second.WriteObject("object", PointXY(1, 3)));
    EXPECT_FALSE(second.IsUnchanged());
    const auto* before = first.GetItem("object")->GetValue().buffer->GetMemObject();
    const auto* after = second.GetItem("object")->GetValue().buffer->GetMemObject();
    EXPECT_NE(before, after);
    EXPECT_EQ(before->GetItem("x"), after->GetItem("x"));
    EXPECT_NE(before->GetItem("y"), after->GetItem("y"));
}

// Only what is written counts, so the object before serves for the one that lost a name.
TEST(IncrementalMemDataObjectTest, AnObjectThatOnlyLostANameIsTheOneBefore) {
    CIncrementalMemDataObject first;
    ASSERT_TRUE(first.WriteObject("object", PointXY(1, 2)));
    CIncrementalMemDataObject second(&first);
    ASSERT_TRUE(second.WriteObject("object", Point(1)));
    EXPECT_TRUE(second.IsUnchanged());
    EXPECT_EQ(SeeObject(second, "object").y, 2);
}

TEST(IncrementalMemDataObjectTest, AnObjectWhereAValueWasIsAChange) {
    CIncrementalMemDataObject first;
    ASSERT_TRUE(first.WriteInt("a", 1));
    CIncrementalMemDataObject second(&first);
    ASSERT_TRUE(second.WriteObject("a", CWrites([](IWriteDataStream&) { return true; })));
    EXPECT_FALSE(second.IsUnchanged());
}

TEST(IncrementalMemDataObjectTest, AnObjectInsideOutlivesTheOneItWasComparedWith) {
    auto first = std::make_unique<CIncrementalMemDataObject>();
    ASSERT_TRUE(first->WriteObject("object", PointXY(1, 2)));
    CIncrementalMemDataObject second(first.get());
    ASSERT_TRUE(second.WriteObject("object", PointXY(1, 3)));
    const auto* object = second.GetItem("object")->GetValue().buffer->GetMemObject();
    EXPECT_EQ(object->GetPrevious(), nullptr);
    second.Detach();
    first.reset();
    EXPECT_EQ(SeeObject(second, "object").x, 1);
    EXPECT_EQ(SeeObject(second, "object").y, 3);
}

TEST(IncrementalMemDataObjectTest, ShareWithPreviousChangesNothingThatCanBeSeen) {
    CIncrementalMemDataObject first;
    WriteAll(first);
    CIncrementalMemDataObject second(&first);
    WriteAll(second);
    ASSERT_TRUE(second.WriteInt("int", 8));
    second.ShareWithPrevious();
    EXPECT_EQ(IntOf(first, "int"), -7);
    EXPECT_EQ(IntOf(second, "int"), 8);
    ASSERT_TRUE(second.WriteBool("bool", false));
    ASSERT_TRUE(first.Remove("string"));
    bool flag = false;
    EXPECT_TRUE(first.ReadBool("bool", flag) && flag);
    EXPECT_EQ(StringOf(second, "string"), "text");
}

TEST(IncrementalMemDataObjectTest, ADifferenceHoldsWhatIsNewOrOtherAndIsTolerantOfTheRest) {
    CIncrementalMemDataObject from;
    ASSERT_TRUE(from.WriteInt("same", 1) && from.WriteInt("other", 2) && from.WriteInt("gone", 3));
    CIncrementalMemDataObject to(&from);
    ASSERT_TRUE(to.WriteInt("same", 1) && to.WriteInt("other", 4) && to.WriteInt("new", 5));
    CIncrementalMemDataObject difference;
    ASSERT_TRUE(difference.SetDifference(from, to));
    EXPECT_TRUE(difference.IsTolerant());
    EXPECT_EQ(difference.GetCount(), 2);
    EXPECT_EQ(IntOf(difference, "other"), 4);
    EXPECT_EQ(IntOf(difference, "new"), 5);
    EXPECT_EQ(difference.GetItem("other"), to.GetItem("other"));
    EXPECT_EQ(to.GetItem("other")->GetRefCount(), 2);
}

TEST(IncrementalMemDataObjectTest, ADifferenceThatLeavesNothingOutIsNotTolerant) {
    CIncrementalMemDataObject from;
    ASSERT_TRUE(from.WriteInt("a", 1) && from.WriteInt("b", 1));
    CIncrementalMemDataObject to(&from);
    ASSERT_TRUE(to.WriteInt("a", 2));
    CIncrementalMemDataObject difference(nullptr, true);
    ASSERT_TRUE(difference.SetDifference(from, to));
    EXPECT_FALSE(difference.IsTolerant());
    EXPECT_EQ(difference.GetCount(), 1);
}

TEST(IncrementalMemDataObjectTest, ADifferenceGoesBothWaysBetweenNeighboursAndNoFurther) {
    CIncrementalMemDataObject first;
    ASSERT_TRUE(first.WriteInt("a", 1) && first.WriteInt("b", 1));
    CIncrementalMemDataObject second(&first);
    ASSERT_TRUE(second.WriteInt("a", 2) && second.WriteInt("b", 1));
    CIncrementalMemDataObject third(&second);
    ASSERT_TRUE(third.WriteInt("a", 3) && third.WriteInt("b", 1));
    CIncrementalMemDataObject difference;
    ASSERT_TRUE(difference.SetDifference(second, first));
    EXPECT_EQ(IntOf(difference, "a"), 1);
    EXPECT_FALSE(difference.SetDifference(first, third));
    EXPECT_FALSE(difference.SetDifference(third, first));
    EXPECT_EQ(IntOf(difference, "a"), 1);
    ASSERT_TRUE(difference.SetDifference(second, third));
    EXPECT_EQ(IntOf(difference, "a"), 3);
    EXPECT_EQ(difference.GetCount(), 1);
}

TEST(IncrementalMemDataObjectTest, ADifferenceReachesIntoObjects) {
    CIncrementalMemDataObject from;
    ASSERT_TRUE(from.WriteObject("same", PointXY(1, 2)) &&
                from.WriteObject("part", PointXY(1, 2)) && from.WriteObject("all", PointXY(1, 2)) &&
                from.WriteInt("kind", 1));
    CIncrementalMemDataObject to(&from);
    ASSERT_TRUE(to.WriteObject("same", PointXY(1, 2)) && to.WriteObject("part", PointXY(1, 9)) &&
                to.WriteObject("all", PointXY(8, 9)) && to.WriteObject("kind", Point(7)));
    CIncrementalMemDataObject difference;
    ASSERT_TRUE(difference.SetDifference(from, to));
    EXPECT_FALSE(difference.Exists("same"));
    const CSeen part = SeeObject(difference, "part");
    EXPECT_TRUE(part.isTolerant);
    EXPECT_EQ(part.x, std::nullopt);
    EXPECT_EQ(part.y, 9);
    const CSeen all = SeeObject(difference, "all");
    EXPECT_FALSE(all.isTolerant);
    EXPECT_EQ(all.x, 8);
    EXPECT_EQ(all.y, 9);
    EXPECT_EQ(SeeObject(difference, "kind").x, 7);
    EXPECT_EQ(difference.GetItem("kind"), to.GetItem("kind"));
}

TEST(IncrementalMemDataObjectTest, EqualValuesInTwoItemsAreNoDifference) {
    CIncrementalMemDataObject from;
    ASSERT_TRUE(from.WriteInt("a", 1));
    CIncrementalMemDataObject to(&from);
    ASSERT_TRUE(to.WriteInt("a", 2));
    ASSERT_TRUE(from.WriteInt("a", 2)); // rewritten since
    ASSERT_NE(from.GetItem("a"), to.GetItem("a"));
    CIncrementalMemDataObject difference;
    ASSERT_TRUE(difference.SetDifference(from, to));
    EXPECT_EQ(difference.GetCount(), 0);
    EXPECT_TRUE(difference.IsTolerant());
}

TEST(IncrementalDataBufferTest, SetObjectReportsWhetherThePreviousObjectIsTheSame) {
    CIncrementalDataBuffer first;
    CIncrementalDataBuffer second;
    bool unchanged = true;
    ASSERT_TRUE(first.SetObject(Point(1), nullptr, unchanged));
    EXPECT_FALSE(unchanged);
    ASSERT_TRUE(second.SetObject(Point(1), &first, unchanged));
    EXPECT_TRUE(unchanged);
    ASSERT_TRUE(second.SetObject(Point(2), &first, unchanged));
    EXPECT_FALSE(unchanged);
}

TEST(IncrementalDataBufferTest, SetObjectComparesWithNothingButAnObject) {
    CIncrementalDataBuffer value;
    const CIncrementalDataBuffer empty;
    CIncrementalDataBuffer object;
    ASSERT_TRUE(value.SetInt(1));
    const CWrites nothing([](IWriteDataStream&) { return true; });
    bool unchanged = true;
    ASSERT_TRUE(object.SetObject(nothing, &value, unchanged));
    EXPECT_FALSE(unchanged);
    unchanged = true;
    ASSERT_TRUE(object.SetObject(nothing, &empty, unchanged));
    EXPECT_FALSE(unchanged);
}

TEST(IncrementalDataBufferTest, SetObjectOfOneThatFailsLeavesTheBufferEmpty) {
    CIncrementalDataBuffer buffer;
    ASSERT_TRUE(buffer.SetInt(1));
    EXPECT_FALSE(buffer.SetObject(CWrites([](IWriteDataStream&) { return false; })));
    EXPECT_EQ(buffer.GetType(), kObjectData);
    EXPECT_EQ(buffer.GetMemObject(), nullptr);
    CReads reader([](const IReadDataStream&) { return true; });
    EXPECT_FALSE(buffer.GetObject(reader));
}

} // namespace

#include "datamodel/objects/CaptureValueSubStructWrapper.h"

#include "core/Geometry.h"
#include "datamodel/objects/ObjectsTestTools.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

using Core::C2DSize;
using Testing::CEventLog;
using Testing::MakeInfo;

class CCell {
public:
    const C2DSize& GetSize() const { return size; }
    void SetSize(const C2DSize& newSize) {
        ++calls;
        if (!(newSize == size)) {
            size = newSize;
            changed.Notify();
        }
    }
    Core::IEventProvider& GetSizeEvents() { return changed; }

    C2DSize GetMargin() const { return margin; }
    void SetMargin(C2DSize newMargin) { margin = newMargin; }

    C2DSize size{100, 50};
    C2DSize margin{1, 2};
    int calls = 0;

private:
    Core::CEventProvider changed;
};

class CaptureValueSubStructWrapperTest : public ::testing::Test {
protected:
    CCell cell;
    CParamInfo info = MakeInfo(0.0, 4096.0, 0.0, kParamInteger);
};

TEST_F(CaptureValueSubStructWrapperTest, WritesItsMemberAndLeavesTheOthersAsTheyAreByThen) {
    TCaptureValueSubStructWrapper width(cell, &CCell::GetSize, &CCell::SetSize,
                                        &CCell::GetSizeEvents, &C2DSize::width, info);
    CEventLog log(width);
    EXPECT_EQ(width.GetValue(), 100.0);
    cell.size.height = 70; // behind the wrapper's back
    width.SetValue(200.4);
    EXPECT_EQ(cell.size, (C2DSize{200, 70}));
    EXPECT_EQ(width.GetValue(), 200.0);
    EXPECT_EQ(log.Take(), "value ");
}

TEST_F(CaptureValueSubStructWrapperTest, TwoMembersOfOneStructureDoNotDisturbEachOther) {
    TCaptureValueSubStructWrapper width(cell, &CCell::GetSize, &CCell::SetSize,
                                        &CCell::GetSizeEvents, &C2DSize::width, info);
    TCaptureValueSubStructWrapper height(cell, &CCell::GetSize, &CCell::SetSize,
                                         &CCell::GetSizeEvents, &C2DSize::height, info);
    width.SetValue(300.0);
    height.SetValue(400.0);
    EXPECT_EQ(cell.size, (C2DSize{300, 400}));
    EXPECT_EQ(width.GetValue(), 300.0);
    height.SetValue(400.0);
    EXPECT_EQ(cell.calls, 2);
}

TEST_F(CaptureValueSubStructWrapperTest, WithoutAnEventItNotifiesFromHere) {
    TCaptureValueSubStructWrapper margin(cell, &CCell::GetMargin, &CCell::SetMargin,
                                         &C2DSize::height, info);
    CEventLog log(margin);
    margin.SetValue(-7.0);
    EXPECT_EQ(cell.margin, (C2DSize{1, 0}));
    EXPECT_EQ(log.Take(), "value ");
}

TEST_F(CaptureValueSubStructWrapperTest, TheReadOnlyFormsReadTheMember) {
    TConstCaptureValueSubStructWrapper height(cell, &CCell::GetSize, &CCell::GetSizeEvents,
                                              &C2DSize::height, info);
    const TConstCaptureValueSubStructWrapper margin(cell, &CCell::GetMargin, &C2DSize::width, info);
    CEventLog log(height);
    cell.SetSize({10, 20});
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_EQ(height.GetValue(), 20.0);
    EXPECT_EQ(margin.GetValue(), 1.0);
}

} // namespace
} // namespace Vorin::DataModel::Objects

#include "core/Holder.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

class CReader {
public:
    explicit CReader(const std::string& source) : seen(source) {}
    std::string seen;
};

/// Two strings that exist before the base that reads them.
class CBoth : public THolder<std::string, 0>, public THolder<std::string, 1>, public CReader {
public:
    CBoth()
        : THolder<std::string, 0>("first"), THolder<std::string, 1>(3u, 'x'),
          CReader(THolder<std::string, 0>::GetHeld() + THolder<std::string, 1>::GetHeld()) {}
};

TEST(HolderTest, HeldObjectsExistBeforeALaterBase) {
    const CBoth both;
    EXPECT_EQ(both.seen, "firstxxx");
}

TEST(HolderTest, RefHolderGivesTheObjectItself) {
    std::string text = "text";
    const TRefHolder<std::string> holder(text);
    holder.GetHeld() += "!";
    EXPECT_EQ(text, "text!");
}

} // namespace

#include "math/FunctionProxy.h"

#include "math/Constant.h"
#include "math/FunctionsCombination.h"
#include "serialization/MemDataObject.h"
#include "serialization/StreamHelpers.h"
#include "serialization/XmlDataObject.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

namespace Vorin::Math {
namespace {

using namespace Serialization;

using Square = TFunction<&FunctionsLibrary::Square>;

class CMortalFunction : public CConstantFunction {
public:
    CMortalFunction(double initial, int& countedDeaths)
        : CConstantFunction(initial), deaths(countedDeaths) {}
    ~CMortalFunction() override { ++deaths; }

private:
    int& deaths;
};

TEST(FunctionProxyTest, ForwardsToATargetThatCanBeReplaced) {
    CFunctionProxy proxy(new Square, Core::kOwn);
    EXPECT_EQ(proxy.Evaluate(3.0), 9.0);
    CConstantFunction constant(5.0);
    proxy.SetTarget(&constant, Core::kDontOwn);
    EXPECT_EQ(proxy.Evaluate(3.0), 5.0);
    constant.SetValue(6.0);
    EXPECT_EQ(proxy.Evaluate(3.0), 6.0);
    EXPECT_EQ(proxy.GetTarget(), &constant);

    CBinaryFunctionProxy binary;
    const TBinaryFunction<&FunctionsLibrary::Product> product;
    binary.SetTarget(&product, Core::kDontOwn);
    EXPECT_EQ(binary.Evaluate(3.0, 4.0), 12.0);
}

TEST(FunctionProxyTest, WithoutATargetIsNeutral) {
    EXPECT_EQ(CFunctionProxy().Evaluate(3.0), 3.0);
    EXPECT_EQ(CBinaryFunctionProxy().Evaluate(3.0, 4.0), 7.0);
}

TEST(FunctionProxyTest, DeletesOnlyWhatItOwns) {
    int deaths = 0;
    {
        CMortalFunction borrowed(1.0, deaths);
        {
            CFunctionProxy proxy(new CMortalFunction(2.0, deaths), Core::kOwn);
            proxy.SetTarget(&borrowed, Core::kDontOwn);
            EXPECT_EQ(deaths, 1);
            proxy.SetTarget(new CMortalFunction(3.0, deaths), Core::kOwn);
        }
        EXPECT_EQ(deaths, 2);
    }
    EXPECT_EQ(deaths, 3);
}

TEST(FunctionProxyTest, ACopyOwnsACloneAlsoOfABorrowedTarget) {
    CConstantFunction constant(5.0);
    const CFunctionProxy proxy(&constant, Core::kDontOwn);
    const CFunctionProxy copy(proxy);
    CFunctionProxy assigned;
    assigned = proxy;
    const std::unique_ptr<IFunction> clone(proxy.Clone());
    constant.SetValue(6.0);
    EXPECT_EQ(proxy.Evaluate(0.0), 6.0);
    EXPECT_EQ(copy.Evaluate(0.0), 5.0);
    EXPECT_EQ(assigned.Evaluate(0.0), 5.0);
    EXPECT_EQ(clone->Evaluate(0.0), 5.0);
    EXPECT_EQ(CFunctionProxy(CFunctionProxy()).GetTarget(), nullptr);
}

TEST(FunctionProxyTest, IsWrittenAsItsTarget) {
    CMemDataObject stream;
    ASSERT_TRUE(CFunctionProxy(new Square, Core::kOwn).Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 1);
    TRuntimeDeSerializer<IFunction> target;
    ASSERT_TRUE(stream.ReadObject("value", target));
    EXPECT_STREQ(target.Get()->GetType(), Square::kIdentifier);
    CFunctionProxy read;
    ASSERT_TRUE(read.DeSerialize(stream));
    EXPECT_EQ(read.Evaluate(3.0), 9.0);
}

TEST(FunctionProxyTest, ANullTargetStaysNull) {
    CMemDataObject stream;
    ASSERT_TRUE(CFunctionProxy().Serialize(stream));
    CFunctionProxy read(new Square, Core::kOwn);
    ASSERT_TRUE(read.DeSerialize(stream));
    EXPECT_EQ(read.GetTarget(), nullptr);
}

TEST(FunctionProxyTest, ATargetThatCannotBeReadIsTheSharedNeutralOne) {
    CFunctionProxy proxy(new Square, Core::kOwn);
    EXPECT_TRUE(proxy.DeSerialize(CMemDataObject()));
    EXPECT_EQ(proxy.GetTarget(), GetNeutralFunction<IFunction>());
    CBinaryFunctionProxy binary;
    EXPECT_TRUE(binary.DeSerialize(CMemDataObject()));
    EXPECT_EQ(binary.GetTarget(), GetNeutralFunction<IBinaryFunction>());
}

TEST(FunctionProxyTest, OnATolerantStreamTheTargetStays) {
    CFunctionProxy proxy(new Square, Core::kOwn);
    EXPECT_TRUE(proxy.DeSerialize(TTolerant<CMemDataObject>()));
    EXPECT_EQ(proxy.Evaluate(3.0), 9.0);
}

/// f(x) = proxy(x) + proxy(x) + 1.
struct CTwice {
    CTwice() {
        auto* both = new CFunctionsCombination;
        both->SetFunc1(&first, Core::kDontOwn);
        both->SetFunc2(&second, Core::kDontOwn);
        function.SetFunc1(both, Core::kOwn);
        function.SetFunc2(new CConstantFunction(1.0), Core::kOwn);
    }

    void Point(const IFunction& target) {
        first.SetTarget(&target, Core::kDontOwn);
        second.SetTarget(&target, Core::kDontOwn);
    }

    CFunctionProxy first;
    CFunctionProxy second;
    CFunctionsCombination function;
};

TEST(FunctionProxyTest, AFunctionBelowItselfEnds) {
    CTwice twice;
    twice.Point(twice.function);
    // Each proxy gives the function, whose own proxies give 0.
    EXPECT_EQ(twice.function.Evaluate(7.0), 3.0);
    const std::unique_ptr<IFunction> clone(twice.function.Clone());
    EXPECT_EQ(clone->Evaluate(7.0), 7.0 * 4 + 3); // a null target is the identity
    CMemDataObject stream;
    EXPECT_TRUE(twice.function.Serialize(stream));
    CFunctionsCombination read;
    EXPECT_TRUE(read.DeSerialize(stream));
    EXPECT_EQ(read.Evaluate(7.0), 7.0 * 4 + 3);
}

TEST(FunctionProxyTest, FunctionsBelowEachOtherEnd) {
    CTwice a;
    CTwice b;
    a.Point(b.function);
    b.Point(a.function);
    // a = 2b + 1, b in it 2a + 1, and a in that has b = 0: 1.
    EXPECT_EQ(a.function.Evaluate(0.0), 2 * (2 * 1.0 + 1) + 1);
}

TEST(FunctionProxyTest, TheSameTargetSideBySideIsNoCircle) {
    CTwice twice;
    const Square square;
    twice.Point(square);
    EXPECT_EQ(twice.function.Evaluate(3.0), 19.0);
}

// Of sixty levels, each of which asks the next one twice, nobody would see the end.
TEST(FunctionProxyTest, FunctionsThatDoubleEachOtherEnd) {
    const CConstantFunction end(1.0);
    for (const int levels : {12, 60}) {
        std::vector<CTwice> tower(static_cast<std::size_t>(levels));
        const IFunction* target = &end;
        for (CTwice& level : tower) {
            level.Point(*target);
            target = &level.function;
        }
        // 12 levels make 2 * (2^12 - 1) visits, half of them below either of the outermost two.
        const double value = std::exp2(levels + 1) - 1.0;
        const std::unique_ptr<IFunction> clone(target->Clone());
        CMemDataObject stream;
        EXPECT_TRUE(target->Serialize(stream));
        if (levels == 12) {
            EXPECT_EQ(target->Evaluate(0.0), value);
            EXPECT_EQ(clone->Evaluate(0.0), value);
        } else {
            EXPECT_LT(target->Evaluate(0.0), value);
            EXPECT_LT(clone->Evaluate(0.0), value);
        }
    }
}

TEST(FunctionProxyTest, AChainOfProxiesIsNoDeeperThanAStackTakes) {
    for (const std::size_t length :
         {CProxyVisit::kMaximumDepth, CProxyVisit::kMaximumDepth + 1, 200000}) {
        const CConstantFunction end(5.0);
        std::vector<CFunctionProxy> chain(length);
        const IFunction* target = &end;
        for (CFunctionProxy& proxy : chain) {
            proxy.SetTarget(target, Core::kDontOwn);
            target = &proxy;
        }
        EXPECT_EQ(target->Evaluate(0.0), length <= CProxyVisit::kMaximumDepth ? 5.0 : 0.0);
        const std::unique_ptr<IFunction> clone(target->Clone());
        EXPECT_EQ(clone->Evaluate(2.0), length <= CProxyVisit::kMaximumDepth ? 5.0 : 2.0);
    }
}

} // namespace
} // namespace Vorin::Math

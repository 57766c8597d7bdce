// Only the interfaces and the factory are included here: no class of the library is named, so its
// object file gets into this program by the registration alone.
#include "math/Function.h"
#include "runtime/ObjectsFactory.h"

#include <gtest/gtest.h>

#include <memory>

namespace Vorin::Math {
namespace {

template <class I>
std::unique_ptr<I> Create(const char* classId, const char* interfaceId) {
    Runtime::IDynamicObject* object =
        Runtime::CObjectsFactory::Instance().CreateObject(classId, interfaceId);
    I* narrowed = dynamic_cast<I*>(object);
    if (!narrowed) {
        delete object;
    }
    return std::unique_ptr<I>(narrowed);
}

struct CExpected {
    const char* identifier;
    double value;
};

// At x = 0.5.
constexpr CExpected kFunctions[] = {
    {"{7D162F87-5903-4052-9DE6-1A40211A5812}", 0.5},                 // Abs
    {"{BC7532AE-67AC-4498-9173-B49FBADBBCD8}", 1.0},                 // Ceil
    {"{8D84EA0E-1D78-4169-96A2-A6C37A8ACD46}", 0.8775825618903728},  // Cos
    {"{83C7C189-D7BB-4b92-899F-892D82545E44}", 1.1276259652063807},  // Cosh
    {"{40211AEA-B310-4254-BE94-B7E5B99CE707}", 1.6487212707001282},  // Exp
    {"{D40F8690-718C-4618-8C0F-0557C0DE4093}", 0.0},                 // Floor
    {"{18C4A2D7-BD79-486a-B12E-B21F32FBBF0F}", 1.0592537251772889},  // FromdB
    {"{83A9F6B1-2360-44f2-9EA2-C0A75A47A554}", 0.5},                 // Identity
    {"{7367BBAB-A156-48b9-A512-4F1912C56839}", -0.6931471805599453}, // Log
    {"{69196412-EAD8-45aa-B0F6-BD128B2E5E8E}", -0.5},                // Negate
    {"{FB1F81BF-F8E7-40ba-8EBE-403988A2E994}", 0.41421356237309515}, // NormExp
    {"{8D0E0F88-5C79-4f48-AD24-1C6BE1A8904B}", 0.23166247903554},    // NormExp1
    {"{47C095AC-4502-4b60-97D3-B3D3F3A7A87A}", 0.0904987562112089},  // NormExp2
    {"{F9CA1474-22AE-400b-AFC8-D9A077738A81}", 0.03063858403911275}, // NormExp3
    {"{94E073D9-BACD-49be-B08C-A70980F5E84E}", 0.5849625007211562},  // NormLog
    {"{10DF14BD-357A-4458-905B-369AD2FD8B21}", 0.7472217363092141},  // NormLog1
    {"{716AB1B3-FEA8-4dec-B3EA-99B1CCDF852D}", 0.8519443031609923},  // NormLog2
    {"{7F4CF089-3DF2-40e4-83F3-736603B40160}", 0.8998157120437035},  // NormLog3
    {"{F6D3F1CB-9FC7-414e-A0EF-A5D60928AC52}", 0.0},                 // Not
    {"{D5FB4F0A-614D-422e-877F-87FB9894ADCB}", 1.0},                 // Round
    {"{50F1B4E0-13CD-42b1-AD49-4D63F0CF2432}", 0.479425538604203},   // Sin
    {"{07429AE8-D018-4df8-B2F3-C9534773818F}", 0.5210953054937474},  // Sinh
    {"{F31A0DDB-1670-420a-AA0B-4AED41271DBC}", 0.25},                // Square
    {"{9BA5267D-D300-4315-8C25-BDF46423F139}", 0.7071067811865476},  // SquareRoot
    {"{4E0F4888-B561-4e5a-9563-315B667D1E18}", 0.5463024898437905},  // Tan
    {"{37350F24-0D6A-43ac-BAF2-EC78838DA237}", 0.46211715726000976}, // Tanh
    {"{9C5BC273-DBD2-4900-B2C7-BAA8A4284487}", -6.020599913279624},  // TodB
};

// At x = 3, y = 2.
constexpr CExpected kBinaryFunctions[] = {
    {"{CB069C1A-0CF5-46e2-B43F-E0DDDCDC739F}", 1.0},               // And
    {"{9038848C-7E52-4f6e-AE4A-ED90434DA85A}", 2.5},               // Average
    {"{B32E9916-D75D-4a9f-B240-C07B49A87E16}", 1.0},               // Difference
    {"{9704DD1D-629D-45ea-AB62-D54657D47EC9}", 1.0},               // Distance
    {"{B5669294-5F80-4c67-B405-5D4B61363532}", 1.5},               // Division
    {"{63B8D979-D152-438a-87B6-B48231AA2B6E}", 0.0},               // Equality
    {"{7C4EE5B2-03D0-4d5c-A040-35E565535C0A}", 1.0},               // GreaterThan
    {"{1840E00F-B2A7-46e7-B48B-79ECC2E61AEA}", 1.0},               // GreaterThanEqual
    {"{A8DC6D2E-36B4-4c13-859A-A79594E40ABA}", 0.0},               // LowerThan
    {"{AEE0F237-8EEC-43fc-B440-EFA3DC05AA2E}", 0.0},               // LowerThanEqual
    {"{B48E24EF-CB0D-4bc6-B55E-370474A89CE7}", 3.0},               // Max
    {"{95C6E20A-3D3C-4087-AE9E-33900A0BE55C}", 2.0},               // Min
    {"{5300A115-1DD0-4694-B21A-6D6E1232AF8A}", 3.605551275463989}, // Module
    {"{BA4B3571-18B4-41af-90BE-C43889CFB186}", 1.0},               // NotEqual
    {"{31547569-62DE-4f2d-817B-E272ACD7E188}", 1.0},               // Or
    {"{F9BD87B6-6B43-4678-BF35-84EB34DC47C2}", 9.0},               // Power
    {"{6CD1764A-CCA1-4872-B522-E5D286388A08}", 6.0},               // Product
    {"{A5E6BA89-DBC5-4659-BCAB-6CAD11C0FDB3}", 5.0},               // Sum
    {"{665E9CCB-3130-40d1-A010-CF45501EF826}", 3.0},               // X
    {"{5B8476AC-CC3B-4cd5-9F3B-3AB71CE7E2D0}", 2.0},               // Y
};

// Not told apart by their value: all of these are 0 when new.
constexpr const char* kFunctionsWithState[] = {
    "{72E2E475-5248-41cb-BBE2-9E1F1E4BAF30}", // CConstantFunction
    "{D568469B-FBD0-41d4-AAF7-B66CA0F5B62A}", // double nearest
    "{0DC93898-2AE9-4dea-B435-A1E7D2862B8E}", // double linear
    "{629B2D7F-DC01-4b8f-807A-404F3C396155}", // double spline
    "{231C870E-FE12-41c6-8C0D-922CA68AD4F4}", // float nearest
    "{1AB22102-22F5-45b9-BDAF-54B85C61968F}", // float linear
    "{CBE364D9-829B-4dd4-91B0-69DE39D28923}", // float spline
    "{F659F5AF-E3E2-455d-82B7-F07A47473B31}", // double spline circular
    "{AAC13163-0B6E-4a60-A1BE-257878A0B336}", // float spline circular
    "{B8280134-87FF-44ae-809E-1B645160B214}", // Sum
    "{F95377FF-6828-4a2d-8CB9-2A63C47EA65D}", // Difference
    "{3D5E106B-C306-476c-8817-24E755168A5C}", // Product
    "{41B8F3B2-540C-4c85-B874-FFA435C71129}", // Division
};

TEST(RegisterFunctionsTest, EveryFunctionOfTheLibraryIsMadeByItsIdentifier) {
    for (const CExpected& expected : kFunctions) {
        const auto function = Create<IFunction>(expected.identifier, kFunctionInterface);
        ASSERT_TRUE(function) << expected.identifier;
        EXPECT_NEAR(function->Evaluate(0.5), expected.value, 1e-12) << expected.identifier;
        EXPECT_STREQ(function->GetType(), expected.identifier);
    }
    for (const CExpected& expected : kBinaryFunctions) {
        const auto function =
            Create<IBinaryFunction>(expected.identifier, kBinaryFunctionInterface);
        ASSERT_TRUE(function) << expected.identifier;
        EXPECT_NEAR(function->Evaluate(3.0, 2.0), expected.value, 1e-12) << expected.identifier;
        EXPECT_STREQ(function->GetType(), expected.identifier);
    }
}

TEST(RegisterFunctionsTest, FunctionsWithStateAreMadeByTheirIdentifiers) {
    for (const char* identifier : kFunctionsWithState) {
        const auto function = Create<IFunction>(identifier, kFunctionInterface);
        ASSERT_TRUE(function) << identifier;
        EXPECT_EQ(function->Evaluate(0.5), 0.0);
        EXPECT_STREQ(function->GetType(), identifier);
    }
}

TEST(RegisterFunctionsTest, ConstantsOfTheOtherInterfacesAreMadeByTheirIdentifiers) {
    const auto constant =
        Create<IConstant>("{8794ACBA-1CC8-4ab8-902F-3A2C352E66CE}", kConstantInterface);
    ASSERT_TRUE(constant);
    EXPECT_EQ(constant->Evaluate(), 0.0);
    const auto binary =
        Create<IBinaryFunction>("{D21815E0-885C-4996-B493-90E08E953055}", kBinaryFunctionInterface);
    ASSERT_TRUE(binary);
    EXPECT_EQ(binary->Evaluate(1.0, 2.0), 0.0);
}

TEST(RegisterFunctionsTest, TheInterfaceIdentifiersAreThoseOfTheFileFormat) {
    EXPECT_STREQ(kFunctionInterface, "{EC7456EE-AA8C-421c-B49E-3E5CA6519665}");
    EXPECT_STREQ(kBinaryFunctionInterface, "{C3FE0CFA-7AAC-413b-B803-A9B885B86EE1}");
    EXPECT_STREQ(kConstantInterface, "{EAD44198-7EE3-4880-BC12-476597EF40AA}");
}

TEST(RegisterFunctionsTest, ARightClassWithTheWrongInterfaceIsNotMade) {
    EXPECT_FALSE(Create<IFunction>("{7D162F87-5903-4052-9DE6-1A40211A5812}", kConstantInterface));
    EXPECT_FALSE(Create<IFunction>("{00000000-0000-0000-0000-000000000000}", kFunctionInterface));
}

} // namespace
} // namespace Vorin::Math

#pragma once

#include "math/Function.h"
#include "math/FunctionsLibrary.h"

#include <algorithm>

namespace Vorin::Math {

/// A class identifier as a template argument.
struct CClassIdentifier {
    constexpr CClassIdentifier(const char (&source)[39]) { std::copy_n(source, 39, text); }
    char text[39];
};

/// A library function and the class identifier of the object that wraps it.
template <auto F, CClassIdentifier Identifier>
struct TLibraryEntry {
    static constexpr auto kFunction = F;
    static constexpr const char* kIdentifier = Identifier.text;
};

template <auto F, auto G>
inline constexpr bool kIsSameFunction = false;
template <auto F>
inline constexpr bool kIsSameFunction<F, F> = true;

/// A list of entries. Functions are looked up as template arguments: with the undefined behaviour
/// sanitizer GCC does not compare their addresses at compile time.
template <class... Entries>
struct TLibraryEntries {
    template <auto F>
    static constexpr bool kContains = (kIsSameFunction<F, Entries::kFunction> || ...);

    /// The identifier of a function, null when it is not in the list.
    template <auto F>
    static constexpr const char* FindIdentifier() {
        const char* found = nullptr;
        ((found = kIsSameFunction<F, Entries::kFunction> ? Entries::kIdentifier : found), ...);
        return found;
    }

    /// Calls `visit.template operator()<F>()` for each function.
    template <class Visitor>
    static void ForEach(Visitor visit) {
        (visit.template operator()<Entries::kFunction>(), ...);
    }
};

/// All functions of one argument. The identifiers are part of the file format.
using LibraryFunctions = TLibraryEntries<
    TLibraryEntry<&FunctionsLibrary::Abs, "{7D162F87-5903-4052-9DE6-1A40211A5812}">,
    TLibraryEntry<&FunctionsLibrary::Ceil, "{BC7532AE-67AC-4498-9173-B49FBADBBCD8}">,
    TLibraryEntry<&FunctionsLibrary::Cos, "{8D84EA0E-1D78-4169-96A2-A6C37A8ACD46}">,
    TLibraryEntry<&FunctionsLibrary::Cosh, "{83C7C189-D7BB-4b92-899F-892D82545E44}">,
    TLibraryEntry<&FunctionsLibrary::Exp, "{40211AEA-B310-4254-BE94-B7E5B99CE707}">,
    TLibraryEntry<&FunctionsLibrary::Floor, "{D40F8690-718C-4618-8C0F-0557C0DE4093}">,
    TLibraryEntry<&FunctionsLibrary::FromdB, "{18C4A2D7-BD79-486a-B12E-B21F32FBBF0F}">,
    TLibraryEntry<&FunctionsLibrary::Identity, "{83A9F6B1-2360-44f2-9EA2-C0A75A47A554}">,
    TLibraryEntry<&FunctionsLibrary::Log, "{7367BBAB-A156-48b9-A512-4F1912C56839}">,
    TLibraryEntry<&FunctionsLibrary::Negate, "{69196412-EAD8-45aa-B0F6-BD128B2E5E8E}">,
    TLibraryEntry<&FunctionsLibrary::NormExp, "{FB1F81BF-F8E7-40ba-8EBE-403988A2E994}">,
    TLibraryEntry<&FunctionsLibrary::NormExp1, "{8D0E0F88-5C79-4f48-AD24-1C6BE1A8904B}">,
    TLibraryEntry<&FunctionsLibrary::NormExp2, "{47C095AC-4502-4b60-97D3-B3D3F3A7A87A}">,
    TLibraryEntry<&FunctionsLibrary::NormExp3, "{F9CA1474-22AE-400b-AFC8-D9A077738A81}">,
    TLibraryEntry<&FunctionsLibrary::NormLog, "{94E073D9-BACD-49be-B08C-A70980F5E84E}">,
    TLibraryEntry<&FunctionsLibrary::NormLog1, "{10DF14BD-357A-4458-905B-369AD2FD8B21}">,
    TLibraryEntry<&FunctionsLibrary::NormLog2, "{716AB1B3-FEA8-4dec-B3EA-99B1CCDF852D}">,
    TLibraryEntry<&FunctionsLibrary::NormLog3, "{7F4CF089-3DF2-40e4-83F3-736603B40160}">,
    TLibraryEntry<&FunctionsLibrary::Not, "{F6D3F1CB-9FC7-414e-A0EF-A5D60928AC52}">,
    TLibraryEntry<&FunctionsLibrary::Round, "{D5FB4F0A-614D-422e-877F-87FB9894ADCB}">,
    TLibraryEntry<&FunctionsLibrary::Sin, "{50F1B4E0-13CD-42b1-AD49-4D63F0CF2432}">,
    TLibraryEntry<&FunctionsLibrary::Sinh, "{07429AE8-D018-4df8-B2F3-C9534773818F}">,
    TLibraryEntry<&FunctionsLibrary::Square, "{F31A0DDB-1670-420a-AA0B-4AED41271DBC}">,
    TLibraryEntry<&FunctionsLibrary::SquareRoot, "{9BA5267D-D300-4315-8C25-BDF46423F139}">,
    TLibraryEntry<&FunctionsLibrary::Tan, "{4E0F4888-B561-4e5a-9563-315B667D1E18}">,
    TLibraryEntry<&FunctionsLibrary::Tanh, "{37350F24-0D6A-43ac-BAF2-EC78838DA237}">,
    TLibraryEntry<&FunctionsLibrary::TodB, "{9C5BC273-DBD2-4900-B2C7-BAA8A4284487}">>;

/// All functions of two arguments.
using LibraryBinaryFunctions = TLibraryEntries<
    TLibraryEntry<&FunctionsLibrary::And, "{CB069C1A-0CF5-46e2-B43F-E0DDDCDC739F}">,
    TLibraryEntry<&FunctionsLibrary::Average, "{9038848C-7E52-4f6e-AE4A-ED90434DA85A}">,
    TLibraryEntry<&FunctionsLibrary::Difference, "{B32E9916-D75D-4a9f-B240-C07B49A87E16}">,
    TLibraryEntry<&FunctionsLibrary::Distance, "{9704DD1D-629D-45ea-AB62-D54657D47EC9}">,
    TLibraryEntry<&FunctionsLibrary::Division, "{B5669294-5F80-4c67-B405-5D4B61363532}">,
    TLibraryEntry<&FunctionsLibrary::Equality, "{63B8D979-D152-438a-87B6-B48231AA2B6E}">,
    TLibraryEntry<&FunctionsLibrary::GreaterThan, "{7C4EE5B2-03D0-4d5c-A040-35E565535C0A}">,
    TLibraryEntry<&FunctionsLibrary::GreaterThanEqual, "{1840E00F-B2A7-46e7-B48B-79ECC2E61AEA}">,
    TLibraryEntry<&FunctionsLibrary::LowerThan, "{A8DC6D2E-36B4-4c13-859A-A79594E40ABA}">,
    TLibraryEntry<&FunctionsLibrary::LowerThanEqual, "{AEE0F237-8EEC-43fc-B440-EFA3DC05AA2E}">,
    TLibraryEntry<&FunctionsLibrary::Max, "{B48E24EF-CB0D-4bc6-B55E-370474A89CE7}">,
    TLibraryEntry<&FunctionsLibrary::Min, "{95C6E20A-3D3C-4087-AE9E-33900A0BE55C}">,
    TLibraryEntry<&FunctionsLibrary::Module, "{5300A115-1DD0-4694-B21A-6D6E1232AF8A}">,
    TLibraryEntry<&FunctionsLibrary::NotEqual, "{BA4B3571-18B4-41af-90BE-C43889CFB186}">,
    TLibraryEntry<&FunctionsLibrary::Or, "{31547569-62DE-4f2d-817B-E272ACD7E188}">,
    TLibraryEntry<&FunctionsLibrary::Power, "{F9BD87B6-6B43-4678-BF35-84EB34DC47C2}">,
    TLibraryEntry<&FunctionsLibrary::Product, "{6CD1764A-CCA1-4872-B522-E5D286388A08}">,
    TLibraryEntry<&FunctionsLibrary::Sum, "{A5E6BA89-DBC5-4659-BCAB-6CAD11C0FDB3}">,
    TLibraryEntry<&FunctionsLibrary::X, "{665E9CCB-3130-40d1-A010-CF45501EF826}">,
    TLibraryEntry<&FunctionsLibrary::Y, "{5B8476AC-CC3B-4cd5-9F3B-3AB71CE7E2D0}">>;

/// A library function of one argument as an object; it has no state.
template <double (*F)(double)>
class TFunction : public virtual IFunction {
public:
    static constexpr const char* kIdentifier = LibraryFunctions::FindIdentifier<F>();
    static_assert(LibraryFunctions::kContains<F>,
                  "only a function of the library has a class identifier");

    const char* GetType() const override { return kIdentifier; }
    double Evaluate(double x) const override { return F(x); }
    IFunction* Clone() const override { return new TFunction; }

    bool Serialize(Serialization::IWriteDataStream&) const override { return true; }
    bool DeSerialize(const Serialization::IReadDataStream&) override { return true; }
};

/// A library function of two arguments as an object; it has no state.
template <double (*F)(double, double)>
class TBinaryFunction : public virtual IBinaryFunction {
public:
    static constexpr const char* kIdentifier = LibraryBinaryFunctions::FindIdentifier<F>();
    static_assert(LibraryBinaryFunctions::kContains<F>,
                  "only a function of the library has a class identifier");

    const char* GetType() const override { return kIdentifier; }
    double Evaluate(double x, double y) const override { return F(x, y); }
    IBinaryFunction* Clone() const override { return new TBinaryFunction; }

    bool Serialize(Serialization::IWriteDataStream&) const override { return true; }
    bool DeSerialize(const Serialization::IReadDataStream&) override { return true; }
};

/// What a part of a compound becomes when it cannot be read: the identity, the sum of both
/// arguments, and for constants 0. Always the same object; it has no state and is not owned.
template <class F>
F* GetNeutralFunction();

template <>
inline IFunction* GetNeutralFunction<IFunction>() {
    static TFunction<&FunctionsLibrary::Identity> identity;
    return &identity;
}

template <>
inline IBinaryFunction* GetNeutralFunction<IBinaryFunction>() {
    static TBinaryFunction<&FunctionsLibrary::Sum> sum;
    return &sum;
}

} // namespace Vorin::Math

#include "datamodel/links/MuxFunction.h"

#include "math/FunctionsLibrary.h"

#include <cstring>

namespace Vorin::DataModel::Objects {

namespace {

using Library = Math::FunctionsLibrary;

template <double (*Operation)(double, double)>
double Fold(const double* values, int count) {
    double result = count > 0 ? values[0] : 0.0;
    for (int i = 1; i < count; ++i) {
        result = Operation(result, values[i]);
    }
    return result;
}

double Mean(const double* values, int count) {
    return count > 0 ? Fold<&Library::Sum>(values, count) / count : 0.0;
}

template <double (*Relation)(double, double)>
double Holds(const double* values, int count) {
    for (int i = 1; i < count; ++i) {
        if (Relation(values[i - 1], values[i]) == 0.0) {
            return 0.0;
        }
    }
    return 1.0;
}

// 0 stays 0, without a sign.
template <MuxFunction Function>
double Negated(const double* values, int count) {
    return 0.0 - Function(values, count);
}

struct CWord {
    const char* word;
    MuxFunction function;
};

constexpr CWord kWords[] = {
    {"mean", &Mean},
    {"max", &Fold<&Library::Max>},
    {"min", &Fold<&Library::Min>},
    {"-mean", &Negated<&Mean>},
    {"-max", &Negated<&Fold<&Library::Max>>},
    {"-min", &Negated<&Fold<&Library::Min>>},
    {"<", &Holds<&Library::LowerThan>},
    {"<=", &Holds<&Library::LowerThanEqual>},
    {">", &Holds<&Library::GreaterThan>},
    {">=", &Holds<&Library::GreaterThanEqual>},
    {"=", &Holds<&Library::Equality>},
    {"+", &Fold<&Library::Sum>},
    {"-", &Fold<&Library::Difference>},
    {"*", &Fold<&Library::Product>},
    {"/", &Fold<&Library::Division>},
};

} // namespace

MuxFunction FindMuxFunction(const char* word) {
    for (const CWord& entry : kWords) {
        if (word && std::strcmp(word, entry.word) == 0) {
            return entry.function;
        }
    }
    return &Mean;
}

} // namespace Vorin::DataModel::Objects

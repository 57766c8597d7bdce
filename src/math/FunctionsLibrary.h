#pragma once

#include <cmath>

namespace Vorin::Math {

/// The plain functions that function objects, formulas and response curves are made of. All are
/// total: what mathematics leaves undefined gives what floating point gives. [any]
///
/// The normalised forms map 0 to 0 and 1 to 1; each NormExp is the inverse of the NormLog of the
/// same number, and Square that of SquareRoot, for x of at least 0.
struct FunctionsLibrary {
    static double Abs(double x) { return std::fabs(x); }
    static double Ceil(double x) { return std::ceil(x); }
    static double Cos(double x) { return std::cos(x); }
    static double Cosh(double x) { return std::cosh(x); }
    static double Exp(double x) { return std::exp(x); }
    static double Floor(double x) { return std::floor(x); }
    /// An amplitude from decibels.
    static double FromdB(double x) { return std::pow(10.0, 0.05 * x); }
    static double Identity(double x) { return x; }
    /// The natural logarithm.
    static double Log(double x) { return std::log(x); }
    static double Negate(double x) { return -x; }
    static double NormExp(double x) { return NormalisedExp(x, 1.0); }
    static double NormExp1(double x) { return NormalisedExp(x, 10.0); }
    static double NormExp2(double x) { return NormalisedExp(x, 100.0); }
    static double NormExp3(double x) { return NormalisedExp(x, 1000.0); }
    static double NormLog(double x) { return NormalisedLog(x, 1.0); }
    static double NormLog1(double x) { return NormalisedLog(x, 10.0); }
    static double NormLog2(double x) { return NormalisedLog(x, 100.0); }
    static double NormLog3(double x) { return NormalisedLog(x, 1000.0); }
    static double Not(double x) { return Truth(x == 0.0); }
    /// To the nearest integer, halves away from zero.
    static double Round(double x) { return std::round(x); }
    static double Sin(double x) { return std::sin(x); }
    static double Sinh(double x) { return std::sinh(x); }
    static double Square(double x) { return x * x; }
    /// 0 for a negative x.
    static double SquareRoot(double x) { return std::sqrt(x < 0.0 ? 0.0 : x); }
    static double Tan(double x) { return std::tan(x); }
    static double Tanh(double x) { return std::tanh(x); }
    /// Decibels of an amplitude.
    static double TodB(double x) { return 20.0 * std::log10(x); }

    static double And(double x, double y) { return Truth(x != 0.0 && y != 0.0); }
    static double Average(double x, double y) { return (x + y) * 0.5; }
    static double Difference(double x, double y) { return x - y; }
    static double Distance(double x, double y) { return std::fabs(x - y); }
    static double Division(double x, double y) { return x / y; }
    static double Equality(double x, double y) { return Truth(x == y); }
    static double GreaterThan(double x, double y) { return Truth(x > y); }
    static double GreaterThanEqual(double x, double y) { return Truth(x >= y); }
    static double LowerThan(double x, double y) { return Truth(x < y); }
    static double LowerThanEqual(double x, double y) { return Truth(x <= y); }
    static double Max(double x, double y) { return x < y ? y : x; }
    static double Min(double x, double y) { return y < x ? y : x; }
    /// The modulus of the vector (x, y); not a remainder.
    static double Module(double x, double y) { return std::sqrt(x * x + y * y); }
    static double NotEqual(double x, double y) { return Truth(x != y); }
    static double Or(double x, double y) { return Truth(x != 0.0 || y != 0.0); }
    /// A square, the commonest power, is multiplied: that is exact to the last bit, and fast.
    static double Power(double x, double y) { return y == 2.0 ? x * x : std::pow(x, y); }
    static double Product(double x, double y) { return x * y; }
    static double Sum(double x, double y) { return x + y; }
    static double X(double x, double) { return x; }
    static double Y(double, double y) { return y; }

private:
    static double Truth(bool holds) { return holds ? 1.0 : 0.0; }

    static double NormalisedLog(double x, double steepness) {
        return std::log(steepness * x + 1.0) / std::log(steepness + 1.0);
    }

    static double NormalisedExp(double x, double steepness) {
        return (std::exp(std::log(steepness + 1.0) * x) - 1.0) / steepness;
    }
};

} // namespace Vorin::Math

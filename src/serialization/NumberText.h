#pragma once

namespace Vorin::Serialization {

/// The text of a number, in the number itself: no memory is allocated.
struct CNumberText {
    char text[48];
    const char* Get() const { return text; }
};

/// The text forms of numbers in XML and INI documents: what a stream with the classic locale prints
/// in its default float format and reads back, whatever the locales of the process and the thread
/// are. [any]
///
/// Written with the precisions 5 (bool, as 0 or 1), 14 (int), 11 (float) and 20 (double): every
/// value reads back as it was. NaN is written as "nan" or "-nan", infinities as "inf" or "-inf";
/// these are read back in any case of their letters, and "infinity" too, which a stream would not
/// do. A NaN keeps its sign and loses its payload.
///
/// Reading never fails: leading white space is skipped and the longest part that looks like a
/// number of the type is taken; a text without one gives 0. A number beyond the type gives the
/// outermost finite value of its sign, one too small for it 0. Null counts as the empty text.
struct NumberText {
    static CNumberText Write(bool value);
    static CNumberText Write(int value);
    static CNumberText Write(float value);
    static CNumberText Write(double value);

    /// Any number but 0 is true.
    static bool ReadBool(const char* text);
    static int ReadInt(const char* text);
    static float ReadFloat(const char* text);
    static double ReadDouble(const char* text);
};

} // namespace Vorin::Serialization

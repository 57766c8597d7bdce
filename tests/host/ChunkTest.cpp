// States as a host keeps them: what is fit comes back to the byte, what is not changes nothing.

#include "files/Locale.h"
#include "host/Options.h"
#include "host/State.h"

namespace TestHost {
namespace {

class ChunkTest : public CHostTest {
protected:
    void SetUp() override {
        CHostTest::SetUp();
        ASSERT_EQ(
            plugin.SetChunk(ControlledState(kValues, {{kDelay, 3, 74, "Exp1"}, {kSync, 0, 1}})), 1);
        state = plugin.GetChunk();
        ASSERT_NE(state.find("<Preset"), std::string::npos);
    }

    void ExpectRefused(const std::string& chunk, const std::string& what) {
        EXPECT_EQ(plugin.SetChunk(chunk), 0) << what;
        EXPECT_EQ(plugin.GetChunk(), state) << what;
    }

    /// Either refused, or taken so that the result is a state of its own, and the same one wherever
    /// it is loaded over this state.
    void ExpectAllOrNothing(const std::string& chunk, const std::string& what) {
        const VstIntPtr result = plugin.SetChunk(chunk);
        const std::string after = plugin.GetChunk();
        if (result == 0) {
            ASSERT_EQ(after, state) << what;
            return;
        }
        ASSERT_EQ(result, 1);
        ASSERT_EQ(other.SetChunk(state), 1);
        ASSERT_EQ(other.SetChunk(chunk), 1) << what;
        ASSERT_EQ(other.GetChunk(), after) << what;
        ASSERT_EQ(other.SetChunk(after), 1) << what;
        ASSERT_EQ(other.GetChunk(), after) << what;
        ASSERT_EQ(plugin.SetChunk(state), 1);
        ASSERT_EQ(plugin.GetChunk(), state) << what;
    }

    static constexpr CValues kValues{1, 0, 2, 1, 123.456, -0.75, 1};

    CInstance other{library};
    std::string state;
};

TEST_F(ChunkTest, EndsWithAZeroThatTravelsWithIt) {
    EXPECT_EQ(state.back(), '\0');
    EXPECT_EQ(state.find('\0'), state.size() - 1);
    EXPECT_EQ(plugin.SetChunk(state), 1);
    EXPECT_EQ(plugin.GetChunk(), state);
    EXPECT_EQ(plugin.SetChunk(state.substr(0, state.size() - 1)), 1); // hosts have lost it
    EXPECT_EQ(plugin.GetChunk(), state);
    EXPECT_EQ(plugin.SetChunk(state + std::string(7, '\0')), 1); // or padded it
    EXPECT_EQ(plugin.GetChunk(), state);
}

TEST_F(ChunkTest, OfTheProgramIsTheOneOfTheBank) {
    EXPECT_EQ(plugin.GetChunk(0), plugin.GetChunk(1));
    EXPECT_EQ(other.SetChunk(plugin.GetChunk(1), 0), 1);
    EXPECT_EQ(other.GetChunk(), state);
}

TEST_F(ChunkTest, StaysReadableUntilTheNextOneIsAskedFor) {
    void* data = nullptr;
    const VstIntPtr size = plugin.Ask(effGetChunk, 0, 0, &data);
    ASSERT_EQ(plugin.SetChunk(State(CValues{})), 1);
    plugin.Start();
    plugin.Run(100);
    plugin.Stop();
    EXPECT_EQ(std::string(static_cast<const char*>(data), static_cast<std::size_t>(size)), state);
}

TEST_F(ChunkTest, EmptyOnesAreRefused) {
    ExpectRefused("", "no byte");
    ExpectRefused(std::string(1, '\0'), "a zero");
    ExpectRefused(std::string(1000, '\0'), "zeros");
    ExpectRefused(" \n", "white space");
    char byte = 0;
    for (const VstIntPtr size : {VstIntPtr{-1}, std::numeric_limits<VstIntPtr>::min(),
                                 std::numeric_limits<VstIntPtr>::max()}) {
        EXPECT_EQ(plugin.Ask(effSetChunk, 0, size, &byte), 0);
    }
    EXPECT_EQ(plugin.GetChunk(), state);
}

TEST_F(ChunkTest, CutAtAnyByteItIsRefusedUnlessOnlyWhiteSpaceIsLost) {
    const std::size_t whole = state.find("</Preset>") + 9;
    for (std::size_t size = 0; size < whole; ++size) {
        ASSERT_EQ(plugin.SetChunk(state.substr(0, size)), 0) << size;
        ASSERT_EQ(plugin.GetChunk(), state) << size;
    }
    for (std::size_t size = whole; size <= state.size(); ++size) {
        ASSERT_EQ(plugin.SetChunk(state.substr(0, size)), 1) << size;
        ASSERT_EQ(plugin.GetChunk(), state) << size;
    }
}

TEST_F(ChunkTest, WithAnyBitFlippedItIsTakenWhollyOrRefused) {
    std::mt19937 random(GetOptions().seed);
    for (int round = 0; round < 3000 && !HasFatalFailure(); ++round) {
        std::string chunk = state;
        for (std::size_t flips = 1 + random() % 3; flips > 0; --flips) {
            chunk[random() % chunk.size()] ^= static_cast<char>(1U << random() % 8);
        }
        ExpectAllOrNothing(chunk, "round " + std::to_string(round) + ": " + chunk);
    }
}

TEST_F(ChunkTest, OfRandomBytesItIsRefused) {
    std::mt19937 random(GetOptions().seed);
    for (int round = 0; round < 1000; ++round) {
        std::string chunk(random() % 2000, '\0');
        for (char& byte : chunk) {
            byte = static_cast<char>(random() % 256);
        }
        if (round % 2 == 0) {
            chunk = "<Preset>" + chunk;
        }
        ASSERT_EQ(plugin.SetChunk(chunk), 0) << round;
    }
    EXPECT_EQ(plugin.GetChunk(), state);
}

TEST_F(ChunkTest, OfRandomPiecesOfStatesIsTakenWhollyOrRefused) {
    const std::vector<std::string> pieces{"<Preset>",
                                          "</Preset>",
                                          "<Preset version=\"3\">",
                                          "<inputParams count=\"7\"/>",
                                          "<inputParams p4=\"12\"/>",
                                          "<inputParams count=\"2\" p0=\"1\" p1=\"x\"/>",
                                          "<model/>",
                                          "<model>",
                                          "</model>",
                                          "<MIDIInputSettings settingCount=\"1\"><setting0/>",
                                          "</MIDIInputSettings>",
                                          "<!-- -->",
                                          "<![CDATA[",
                                          "]]>",
                                          "&amp;",
                                          "&#0;",
                                          "<",
                                          ">",
                                          "\"",
                                          " ",
                                          "text",
                                          "<GUI/>",
                                          "<inputParams/>"};
    std::mt19937 random(GetOptions().seed);
    for (int round = 0; round < 1000 && !HasFatalFailure(); ++round) {
        std::string chunk = random() % 3 > 0 ? "<Preset MIDIInputDefault=\"0\">" : "";
        for (std::size_t count = random() % 8; count > 0; --count) {
            chunk += pieces[random() % pieces.size()];
        }
        chunk += random() % 3 > 0 ? "</Preset>" : "";
        ExpectAllOrNothing(chunk, chunk);
    }
}

TEST_F(ChunkTest, OfAnotherKindIsRefused) {
    ExpectRefused("<Root version=\"3\"/>", "another root");
    ExpectRefused("<preset version=\"3\"/>", "a root in other letters");
    ExpectRefused("<Preset/><Preset/>", "two roots");
    ExpectRefused("{\"version\": 3}", "no XML");
    ExpectRefused("<!DOCTYPE Preset><Preset/>", "a document type");
    ExpectRefused("<!DOCTYPE Preset [<!ENTITY a \"aaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]>"
                  "<Preset progName=\"&b;\"/>",
                  "entities");
    ExpectRefused("<!DOCTYPE Preset SYSTEM \"file:///etc/passwd\"><Preset/>", "a file");
}

TEST_F(ChunkTest, OfSeventeenMegabytesIsRefused) {
    const std::string padding(17 << 20, ' ');
    ExpectRefused("<Preset>" + padding + "</Preset>", "white space within");
    ExpectRefused(state.substr(0, state.size() - 1) + padding, "white space behind");
    ExpectRefused("<Preset progName=\"" + std::string(17 << 20, 'x') + "\"/>", "a name");
    ExpectRefused(std::string(17 << 20, '<'), "no XML");
}

TEST_F(ChunkTest, Nested65DeepIsRefusedAnd64DeepIsNot) {
    const auto nested = [](int depth) {
        std::string text;
        for (int i = 1; i < depth; ++i) {
            text += "<a>";
        }
        for (int i = 1; i < depth; ++i) {
            text += "</a>";
        }
        return State(kValues).insert(State(kValues).find("</Preset>"), text);
    };
    ExpectRefused(nested(65), "65");
    ExpectRefused(nested(100000), "100000");
    EXPECT_EQ(plugin.SetChunk(nested(64)), 1);
}

/// A state without MIDI settings in which one parameter has this text.
std::string StateWithParam(int param, const std::string& text) {
    const std::string name = " p" + std::to_string(param) + "=\"";
    std::string chunk = State(CValues{});
    const std::size_t from = chunk.find(name) + name.size();
    return chunk.replace(from, chunk.find('"', from) - from, text);
}

TEST_F(ChunkTest, WithNumbersThatAreInfiniteOrNoneIsRefused) {
    for (const char* word : {"nan", "-nan", "NaN", "inf", "-inf", "INF"}) {
        for (const int param : {0, 4, 6}) {
            ExpectRefused(StateWithParam(param, word), word);
        }
    }
}

TEST_F(ChunkTest, TextsThatAreNoNumbersAreZero) {
    for (const char* word : {"", " ", "one"}) {
        ASSERT_EQ(plugin.SetChunk(State(kValues)), 1);
        ASSERT_EQ(plugin.SetChunk(StateWithParam(4, word)), 1) << word;
        ASSERT_EQ(other.SetChunk(State(CValues{})), 1);
        EXPECT_EQ(plugin.GetChunk(), other.GetChunk()) << word;
    }
}

TEST_F(ChunkTest, WithCountsThatLieIsRefused) {
    for (const char* count : {"8", "1000", "1000000", "2147483647", "-1", "-2147483648"}) {
        std::string chunk = State(CValues{});
        const std::size_t from = chunk.find("count=\"") + 7;
        chunk.replace(from, 1, count);
        ExpectRefused(chunk, count);
    }
    for (const char* count : {"-1", "0", "6", "x", "", "99999999999", "-2147483648"}) {
        std::string chunk = ControlledState(CValues{}, {{kSync, 0, 1}});
        const std::size_t from = chunk.find("settingCount=\"") + 14;
        chunk.replace(from, 1, count);
        ExpectRefused(chunk, count);
    }
}

TEST_F(ChunkTest, ValuesOutOfRangeAreItsEnds) {
    ASSERT_EQ(plugin.SetChunk(State({-5, 7, 1e300, -1e300, 300.5, -1.5, 1.5})), 1);
    constexpr float expected[kParamsCount] = {0, 1, 1, 0, 1, 0, 1};
    for (VstInt32 i = 0; i < kParamsCount; ++i) {
        EXPECT_EQ(plugin.GetParam(i), expected[i]) << i;
    }
}

TEST_F(ChunkTest, WhatIsMissingHasItsDefault) {
    ASSERT_EQ(plugin.SetChunk(State(kValues)), 1);
    ASSERT_EQ(plugin.SetChunk("<Preset/>"), 1);
    ASSERT_EQ(other.SetChunk(State(CValues{}, "Default")), 1);
    EXPECT_EQ(plugin.GetChunk(), other.GetChunk());
}

TEST_F(ChunkTest, UnknownKeysAndSectionsAreIgnored) {
    std::string chunk = state;
    chunk.insert(chunk.find("<inputParams ") + 13, "p7000=\"nan\" extra=\"1\" ");
    chunk.insert(chunk.find("<model"), "<unknown><p0 p1=\"3\"/></unknown>");
    EXPECT_EQ(plugin.SetChunk(chunk), 1);
    EXPECT_EQ(plugin.GetChunk(), state);
}

TEST_F(ChunkTest, WithMIDISettingsThatFollowTheGlobalOnesHasNone) {
    ASSERT_EQ(plugin.SetChunk(State(kValues)), 1);
    EXPECT_EQ(plugin.GetChunk().find("MIDIInputSettings"), std::string::npos);
    EXPECT_NE(state.find("MIDIInputSettings"), std::string::npos);
}

TEST_F(ChunkTest, CarriesWhatTheHostSetInFullPrecision) {
    std::mt19937 random(31);
    for (int round = 0; round < 200; ++round) {
        for (VstInt32 i = 0; i < kParamsCount; ++i) {
            plugin.Set(i, static_cast<float>(random()) / 4294967296.0F);
        }
        ASSERT_EQ(other.SetChunk(plugin.GetChunk()), 1);
        for (VstInt32 i = 0; i < kParamsCount; ++i) {
            ASSERT_EQ(BitsOf(other.GetParam(i)), BitsOf(plugin.GetParam(i)));
        }
    }
}

/// Names that XML has to quote, that end in odd bytes, and that are none.
std::string RandomName(std::mt19937& random) {
    const std::vector<std::string> pieces{
        "a",  "&lt;", "&amp;", "&quot;", "\xc3\xa4", "\xe2\x82\xac", "'", " ",
        "  ", "&#9;", "&#10;", "0,5",    "\xc4\xb0", "\xc4\xb1",     "I", "i"};
    std::string name;
    for (std::size_t count = random() % 12; count > 0; --count) {
        name += pieces[random() % pieces.size()];
    }
    return name;
}

std::string RandomState(std::mt19937& random) {
    CValues values = RandomValues(random);
    if (random() % 4 == 0) {
        values[random() % values.size()] = 1e-300;
    }
    if (random() % 2 == 0) {
        return State(values, RandomName(random));
    }
    const char* const curves[] = {"Log3", "Log",  "Linear", "Square Root",
                                  "Exp",  "Exp0", "Square", "Exp3"};
    std::vector<CControl> controls;
    for (VstInt32 i = 0; i < kParamsCount; ++i) {
        if (random() % 2 == 0) {
            controls.push_back({i, static_cast<int>(random() % 17),
                                static_cast<int>(random() % 128), curves[random() % 8]});
        }
    }
    return ControlledState(values, controls);
}

/// Saved, restored into a fresh instance, and saved again.
void ExpectThousandStatesKept(const CLibrary& library) {
    std::mt19937 random(GetOptions().seed);
    CInstance saving(library);
    for (int round = 0; round < 1000; ++round) {
        ASSERT_EQ(saving.SetChunk(RandomState(random)), 1) << round;
        for (VstInt32 i = 0; i < kParamsCount; ++i) {
            if (random() % 4 == 0) {
                saving.Set(i, static_cast<float>(random()) / 4294967296.0F);
            }
        }
        const std::string saved = saving.GetChunk();
        CInstance fresh(library);
        ASSERT_EQ(fresh.SetChunk(saved), 1) << saved;
        ASSERT_EQ(fresh.GetChunk(), saved) << round;
    }
}

class LocaleTest : public testing::TestWithParam<const char*> {};

TEST_P(LocaleTest, ThousandRandomStatesAreKeptToTheByteAndOneIsTheSameEverywhere) {
    const CHost host;
    const CLibrary library;
    CInstance plugin(library);
    ASSERT_EQ(plugin.SetChunk(ControlledState({0, 1, 2, 1, 12.5, -0.25, 1}, {{kDelay, 0, 1}})), 1);
    const std::string inC = plugin.GetChunk();
    const TestFiles::CLocale locale(GetParam());
    ASSERT_TRUE(locale.isThere) << "localedef and the locales package are needed";
    EXPECT_EQ(plugin.GetChunk(), inC);
    EXPECT_EQ(plugin.SetChunk(inC), 1);
    EXPECT_EQ(plugin.GetChunk(), inC);
    ExpectThousandStatesKept(library);
}

INSTANTIATE_TEST_SUITE_P(Locales, LocaleTest, testing::Values("C", "de_DE.UTF-8", "tr_TR.UTF-8"));

} // namespace
} // namespace TestHost

#include "audio/plugin/midi/MIDICCMessage.h"

#include "audio/plugin/midi/MIDITestKit.h"

#include <gtest/gtest.h>

namespace Vorin::Audio::Plugin {
namespace {

using namespace Testing;

class MIDICCMessage : public ::testing::Test {
protected:
    std::string TakeLog() { return std::exchange(log, std::string()); }

    CMIDICCMessage message;
    std::string log;
    CListener received{message.GetReceivedEvent(), [this] { log += "received "; }};
    CListener changed{message.GetChangedEvent(),
                      [this] { log += "changed " + std::to_string(message.GetValue()) + " "; }};
};

TEST_F(MIDICCMessage, StartsAsNoMessage) {
    EXPECT_EQ(message.GetChannel(), 0);
    EXPECT_EQ(message.GetNumber(), 0);
    EXPECT_EQ(message.GetValue(), 0);
}

TEST_F(MIDICCMessage, AnotherMessageIsStoredAndFiresChangedThenReceived) {
    message.Set({3, 74, 100}, false);
    EXPECT_EQ(TakeLog(), "changed 100 received ");
    EXPECT_EQ(message.GetChannel(), 3);
    EXPECT_EQ(message.GetNumber(), 74);
    EXPECT_EQ(message.GetValue(), 100);
}

TEST_F(MIDICCMessage, TheSameMessageFiresReceivedAlone) {
    message.Set({3, 74, 100}, false);
    TakeLog();
    message.Set({3, 74, 100}, false);
    EXPECT_EQ(TakeLog(), "received ");
    for (const CMIDICCValues& other :
         {CMIDICCValues{4, 74, 100}, CMIDICCValues{4, 75, 100}, CMIDICCValues{4, 75, 101}}) {
        message.Set(other, false);
        EXPECT_EQ(TakeLog(), "changed " + std::to_string(other.value) + " received ");
    }
}

TEST_F(MIDICCMessage, WithForceTheSameMessageFiresBoth) {
    message.Set({3, 74, 100}, true);
    message.Set({3, 74, 100}, true);
    EXPECT_EQ(TakeLog(), "changed 100 received changed 100 received ");
}

TEST_F(MIDICCMessage, TheValueAloneBehavesAlike) {
    message.Set({3, 74, 100}, false);
    TakeLog();
    message.SetValue(100);
    EXPECT_EQ(TakeLog(), "received ");
    message.SetValue(7);
    EXPECT_EQ(TakeLog(), "changed 7 received ");
    EXPECT_EQ(message.GetChannel(), 3);
    EXPECT_EQ(message.GetNumber(), 74);
}

} // namespace
} // namespace Vorin::Audio::Plugin

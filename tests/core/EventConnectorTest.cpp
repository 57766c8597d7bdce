#include "core/EventConnector.h"

#include <memory>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

class CCounter {
public:
    void OnChanged() { ++calls; }
    int calls = 0;
    TCommand<CCounter> command{this, &CCounter::OnChanged};
};

TEST(EventConnectorTest, CallbackHelperIsConnectedForItsLife) {
    CEventProvider provider;
    CCounter counter;
    {
        const CCallbackHelper helper(provider, counter.command);
        provider.Notify();
        EXPECT_EQ(counter.calls, 1);
    }
    provider.Notify();
    EXPECT_EQ(counter.calls, 1);
}

TEST(EventConnectorTest, ConnectorEndsTheConnectionOnDisconnect) {
    CEventProvider provider;
    CCounter counter;
    CEventConnector connector(provider, counter.command);
    provider.Notify();
    IDisconnect& connection = connector;
    connection.Disconnect();
    connection.Disconnect();
    provider.Notify();
    EXPECT_EQ(counter.calls, 1);
}

TEST(EventConnectorTest, ConnectorMayOutliveItsProvider) {
    CCounter counter;
    auto provider = std::make_unique<CEventProvider>();
    const CEventConnector connector(*provider, counter.command);
    provider.reset(); // the connector's destructor must not reach for it
    EXPECT_EQ(counter.calls, 0);
}

} // namespace

#include "core/EventConnector.h"

#include <memory>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

class CConnectionCounter {
public:
    void OnChanged() { ++calls; }
    int calls = 0;
    TCommand<CConnectionCounter> command{this, &CConnectionCounter::OnChanged};
};

TEST(EventConnectorTest, CallbackHelperIsConnectedForItsLife) {
    CEventProvider provider;
    CConnectionCounter counter;
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
    CConnectionCounter counter;
    CEventConnector connector(provider, counter.command);
    provider.Notify();
    IDisconnect& connection = connector;
    connection.Disconnect();
    connection.Disconnect();
    provider.Notify();
    EXPECT_EQ(counter.calls, 1);
}

TEST(EventConnectorTest, ConnectorMayOutliveItsProvider) {
    CConnectionCounter counter;
    auto provider = std::make_unique<CEventProvider>();
    const CEventConnector connector(*provider, counter.command);
    provider.reset(); // the connector's destructor must not reach for it
    EXPECT_EQ(counter.calls, 0);
}

} // namespace

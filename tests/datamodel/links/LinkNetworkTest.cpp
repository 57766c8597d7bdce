// Random networks of links, connections and multi-links, rings included: whatever is done to them,
// each change comes to an end, the same steps lead to the same values, and no gesture stays open.

#include "datamodel/links/CaptureParamConnection.h"
#include "datamodel/links/CaptureParamLink.h"
#include "datamodel/links/LinkTestTools.h"
#include "datamodel/links/MultipleCaptureParamLink.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace Vorin::DataModel::Objects {
namespace {

constexpr int kNetworks = 50;
constexpr int kParams = 100;
constexpr int kLinks = 200;
constexpr int kSteps = 60;

/// A generator whose numbers are the same everywhere.
class CRandom {
public:
    explicit CRandom(std::uint64_t seed) : state(seed * 2 + 1) {}

    int Below(int count) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        return static_cast<int>((state >> 33) % static_cast<std::uint64_t>(count));
    }
    bool Coin() { return Below(2) == 0; }
    double Between(double min, double max) { return min + (max - min) * Below(1000) / 999.0; }

private:
    std::uint64_t state;
};

class CNetwork {
public:
    explicit CNetwork(int seed) : random(static_cast<std::uint64_t>(seed)) {
        for (int i = 0; i < kParams; ++i) {
            const double min = random.Between(-10.0, 10.0);
            params.push_back(std::make_unique<CTestParam>(min, min + random.Between(0.0, 20.0)));
        }
        for (int i = 0; i < kLinks; ++i) {
            AddAnyLink();
        }
        for (const auto& link : links) {
            link->SetEnabled(true);
        }
    }

    ~CNetwork() {
        for (const auto& link : links) {
            link->Disconnect();
        }
    }

    void Step() {
        CTestParam& param = AnyParam();
        CLinkSwitch& link = *links[static_cast<std::size_t>(random.Below(kLinks))];
        switch (random.Below(7)) {
        case 0:
            param.Capture();
            break;
        case 1:
            param.Release();
            break;
        case 2:
            link.SetEnabled(!link.IsEnabled());
            break;
        case 3:
            link.SetPaused(!link.IsPaused());
            break;
        default:
            param.SetValue(random.Between(-10.0, 30.0));
        }
    }

    void ReleaseAll() {
        for (const auto& param : params) {
            param->Release();
        }
    }

    int CountCaptured() const {
        int count = 0;
        for (const auto& param : params) {
            count += param->IsCaptured() ? 1 : 0;
        }
        return count;
    }

    std::vector<double> GetValues() const {
        std::vector<double> values;
        for (const auto& param : params) {
            values.push_back(param->GetValue());
        }
        return values;
    }

    bool AreValuesInRange() const {
        for (const auto& param : params) {
            const IConstParamInfo& info = param->GetInfo();
            if (!(param->GetValue() >= info.GetMin() && param->GetValue() <= info.GetMax())) {
                return false;
            }
        }
        return true;
    }

private:
    CTestParam& AnyParam() { return *params[static_cast<std::size_t>(random.Below(kParams))]; }

    EParamValueCurve AnyCurve() {
        return static_cast<EParamValueCurve>(random.Below(kParamValueCurvesCount));
    }

    template <class L>
    void SetUp(L& link) {
        link.SetResponseCurve(AnyCurve());
        link.SetReversed(random.Coin());
        link.SetNormalized(random.Coin());
        link.SetDifferential(random.Below(4) == 0);
    }

    void AddAnyLink() {
        const int kind = random.Below(4);
        if (kind == 0) {
            auto connection = std::make_unique<CCaptureParamConnection>();
            connection->SetObject1(&AnyParam());
            connection->SetObject2(&AnyParam());
            SetUp(*connection);
            links.push_back(std::move(connection));
        } else if (kind == 1) {
            auto link = std::make_unique<CMultipleCaptureParamLink>();
            static const char* const words[] = {"mean", "max", "-min", "<", "+", "/"};
            link->SetMuxFunction(words[random.Below(6)]);
            for (int count = random.Below(5); count > 0; --count) {
                link->AddSource(&AnyParam());
            }
            link->SetTarget(&AnyParam());
            SetUp(*link);
            links.push_back(std::move(link));
        } else {
            auto link = std::make_unique<CCaptureParamLink>();
            link->SetSource(&AnyParam());
            link->SetTarget(&AnyParam());
            SetUp(*link);
            links.push_back(std::move(link));
        }
    }

    CRandom random;
    std::vector<std::unique_ptr<CTestParam>> params;
    std::vector<std::unique_ptr<CLinkSwitch>> links;
};

TEST(LinkNetworkTest, EachSettlesTheSameWayAndKeepsNoGestureOpen) {
    int held = 0;
    for (int seed = 1; seed <= kNetworks; ++seed) {
        CNetwork network(seed);
        CNetwork twin(seed);
        for (int step = 0; step < kSteps; ++step) {
            network.Step();
            twin.Step();
        }
        EXPECT_EQ(network.GetValues(), twin.GetValues()) << seed;
        EXPECT_TRUE(network.AreValuesInRange()) << seed;
        EXPECT_EQ(network.CountCaptured(), twin.CountCaptured()) << seed;
        held += network.CountCaptured();
        network.ReleaseAll();
        EXPECT_EQ(network.CountCaptured(), 0) << seed;
    }
    EXPECT_GT(held, kNetworks); // there was something to release
}

} // namespace
} // namespace Vorin::DataModel::Objects

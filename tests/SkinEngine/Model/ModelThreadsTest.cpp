#include "ModelTest.h"

#include "system/MessageLoop.h"

#include <functional>
#include <thread>

namespace ModelTests {
namespace {

/// A function as a command.
class CFunctionCommand final : public Core::ICommand {
public:
    explicit CFunctionCommand(std::function<void()> commandFunction)
        : function(std::move(commandFunction)) {}
    void Execute() override { function(); }

private:
    std::function<void()> function;
};

/// A model that lives on a worker thread, as the one that all plug-ins share.
class CWorkerModel {
public:
    explicit CWorkerModel(const std::string& modelPath) : path(modelPath) {
        Run([this] {
            model = std::make_unique<CSkinModel>();
            CSkinParser parser(&log);
            const CSkinModelServices services{.timers = worker};
            CSkinModelFactory factory(log, parser, *model, services);
            isLoaded = factory.LoadModelFile(path.c_str(), true);
        });
    }
    ~CWorkerModel() {
        Run([this] { model.reset(); });
    }
    CWorkerModel(const CWorkerModel&) = delete;
    CWorkerModel& operator=(const CWorkerModel&) = delete;

    void Run(std::function<void()> function) {
        CFunctionCommand command(std::move(function));
        worker.InvokeSync(&command, Core::kDontOwn);
    }

    double Get(const char* id) {
        double value = 0.0;
        Run([&] { value = model->GetConstParam(id).GetValue(); });
        return value;
    }

    CoreUtilities::CMemMessageLog log;
    bool isLoaded = false;

private:
    const std::string path;
    System::CMessageLoopThread worker;
    std::unique_ptr<CSkinModel> model;
};

constexpr const char* kWorkerModel = R"(<MODEL>
    <PARAM id="a" max="100" exposed="true"/>
    <FORMULA_PARAM id="f" formula="a*2" exposed="true"/>
    <PARAM id="moved" max="10"/>
    <PARAM_ANIMATOR id="n" param_id="moved" duration_ms="20" refresh_time_ms="1"/>
    <CURVE_FROM_PARAM_OVER_TIME id="h" param_id="moved" refresh_time_ms="1" exposed="true"/>
    <COLLECTION id="k" count="2" exposed="true">
      <PARAM id="$item_id$.p" max="100" exposed="true"/>
      <PARAM_LINK from="a" to="$item_id$.p"/></COLLECTION>
    </MODEL>)";

TEST(ModelThreadsTest, AModelLivesOnAWorkerWhileItsTimersRun) {
    const TestFiles::CTemporaryFolder folder;
    folder.Write("shared.model", kWorkerModel);
    CWorkerModel shared(folder.Path("shared.model"));
    ASSERT_TRUE(shared.isLoaded);
    for (int i = 1; i <= 50; ++i) {
        shared.Run([&] {});
        EXPECT_EQ(shared.Get("f"), 0.0);
        EXPECT_GE(shared.Get("moved"), 0.0);
    }
}

TEST(ModelThreadsTest, TwoThreadsReadAndUnreadDocumentsAtOnce) {
    const TestFiles::CTemporaryFolder folder;
    folder.Write("shared.model", kWorkerModel);
    const auto load = [&folder](bool& isLoaded) {
        for (int i = 0; i < 10; ++i) {
            CWorkerModel one(folder.Path("shared.model"));
            isLoaded = one.isLoaded && isLoaded;
        }
    };
    bool isFirstLoaded = true;
    bool isSecondLoaded = true;
    std::thread second([&] { load(isSecondLoaded); });
    load(isFirstLoaded);
    second.join();
    EXPECT_TRUE(isFirstLoaded);
    EXPECT_TRUE(isSecondLoaded);
}

} // namespace
} // namespace ModelTests

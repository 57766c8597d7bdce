#pragma once

#include "SkinEngine/Document/SkinParser.h"
#include "SkinEngine/Model/OpenUrlAction.h"
#include "SkinEngine/Model/SkinModel.h"
#include "SkinEngine/Model/SkinModelFactory.h"
#include "containers/MemMessageLog.h"
#include "files/TemporaryFolder.h"
#include "system/ManualClock.h"
#include "system/RunLoop.h"
#include "system/RunLoopTimerProvider.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace ModelTests {

using namespace Vorin;
using namespace Vorin::AppEngine;
using Lines = std::vector<std::string>;

/// Tests that load models, on a clock that the test moves. The documents are called main.model.
class CModelTest : public ::testing::Test {
protected:
    enum EPasses { kMainPass, kBothPasses };

    /// Loads what stands between <MODEL> and </MODEL>, the first on line 1 together with the text.
    bool Load(const std::string& content, EPasses passes = kMainPass) {
        return LoadDocument("<MODEL>" + content + "</MODEL>", passes);
    }

    bool LoadDocument(const std::string& document, EPasses passes = kMainPass) {
        Unload();
        log.Clear();
        folder.Write("main.model", document);
        CSkinParser parser(&log);
        CSkinModelFactory factory(log, parser, *model, GetServices());
        factory.RegisterActionFactory("OpenUrl", std::make_unique<COpenURLActionFactory>());
        Prepare(factory);
        return factory.LoadModelFile(folder.Path("main.model").c_str(), passes == kBothPasses);
    }

    /// For what a test adds before the document is read.
    virtual void Prepare(CSkinModelFactory& factory) { static_cast<void>(factory); }

    void Unload() { model = std::make_unique<CSkinModel>(); }

    CSkinModelServices GetServices() {
        return {.timers = timers,
                .clock = clock,
                .openUrl =
                    [this](const char* url) {
                        opened.emplace_back(url);
                        return true;
                    },
                .scriptHost = scriptHost};
    }

    /// FILE:LINE: error: TEXT, without mere information.
    Lines Messages() const {
        static const char* const kWords[] = {"error", "warning"};
        Lines lines;
        for (const auto& record : log.GetRecords()) {
            if (record.type != Core::kInfoMessage) {
                lines.push_back(std::string(record.place.GetFile()) + ":" +
                                std::to_string(record.place.GetLine()) + ": " +
                                kWords[record.type] + ": " + record.text);
            }
        }
        return lines;
    }

    /// One error and what follows from it.
    static Lines Failed(const std::string& message) {
        return {message, "main.model:1: error: Fatal error: model parsing failed"};
    }

    /// Loading fails with one message, at line 1.
    void ExpectError(const std::string& content, const std::string& text) {
        SCOPED_TRACE(content);
        EXPECT_FALSE(Load(content));
        EXPECT_EQ(Messages(), Failed("main.model:1: error: " + text));
    }

    template <class I>
    I* Find(const std::string& id) const {
        return FindModelObject<I>(model->GetObjects(), id.c_str());
    }

    bool Has(const std::string& id) const { return model->GetObjects().Get(id.c_str()); }

    double Get(const std::string& id) const {
        const auto* param = Find<Objects::IConstCaptureParam>(id);
        EXPECT_TRUE(param) << id;
        return param ? param->GetValue() : -12345.0;
    }

    void Set(const std::string& id, double value) const {
        auto* param = Find<Objects::ICaptureParam>(id);
        ASSERT_TRUE(param) << id;
        param->SetValue(value);
    }

    std::string GetText(const std::string& id) const {
        const auto* string = Find<Objects::IConstCaptureString>(id);
        EXPECT_TRUE(string) << id;
        return string ? string->GetValue() : "";
    }

    void SetText(const std::string& id, const char* text) const {
        auto* string = Find<Objects::ICaptureString>(id);
        ASSERT_TRUE(string) << id;
        string->SetValue(text);
    }

    /// The value of a parameter as it reads.
    std::string ValueText(const std::string& id) const {
        const auto* param = Find<Objects::IConstCaptureParam>(id);
        EXPECT_TRUE(param) << id;
        Containers::CCharString text;
        if (param) {
            param->GetInfo().GetValueToText().ValueToText(param->GetValue(), text);
        }
        return text.Get();
    }

    double Evaluate(const std::string& id, double x) const {
        const auto* curve = Find<Objects::IConstCaptureCurve>(id);
        EXPECT_TRUE(curve) << id;
        return curve ? curve->GetValue().Evaluate(x) : -12345.0;
    }

    double Evaluate(const std::string& id, double x, double y) const {
        const auto* surface = Find<Objects::IConstCaptureSurface>(id);
        EXPECT_TRUE(surface) << id;
        return surface ? surface->GetValue().Evaluate(x, y) : -12345.0;
    }

    int GetCount(const std::string& id) const {
        const auto* collection = Find<DataModel::IConstCollection>(id);
        EXPECT_TRUE(collection) << id;
        return collection ? collection->GetCount() : -1;
    }

    /// Every identifier that was added, in their order.
    Lines GetIds() const {
        Lines ids;
        for (const auto& entry : model->GetObjects().GetEntries()) {
            ids.emplace_back(entry.id);
        }
        return ids;
    }

    void Wait(int milliseconds) {
        for (int i = 0; i < milliseconds; ++i) {
            clock.Advance(1);
            loop.Pump();
        }
    }

    TestFiles::CTemporaryFolder folder;
    CoreUtilities::CMemMessageLog log;
    System::CManualClock clock;
    System::CRunLoop loop{clock};
    System::CRunLoopTimerProvider timers{loop};
    IScriptHost* scriptHost = nullptr;
    std::vector<std::string> opened;
    std::unique_ptr<CSkinModel> model = std::make_unique<CSkinModel>();
};

} // namespace ModelTests

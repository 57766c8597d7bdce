#include "SkinEngine/Document/ShowMessages.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace DocumentTests {
namespace {

using namespace Vorin;

class CDialogs : public AppEngine::IMessageDialogs {
public:
    void ShowMessage(Core::EMessageType severity, const std::string& title,
                     const std::string& text) override {
        shown.push_back(std::to_string(severity) + "|" + title + "|" + text);
    }
    std::vector<std::string> shown;
};

class CShowMessagesTest : public ::testing::Test {
protected:
    void Log(const char* kinds) {
        for (; *kinds; ++kinds) {
            log.Log(*kinds == 'e'   ? Core::kErrorMessage
                    : *kinds == 'w' ? Core::kWarningMessage
                                    : Core::kInfoMessage,
                    (std::string("text ") + *kinds).c_str(), 0);
        }
    }
    std::vector<std::string> Show(bool showWarnings, bool showInfo) {
        AppEngine::ShowMessages(log, dialogs, showWarnings, showInfo);
        return dialogs.shown;
    }

    using Shown = std::vector<std::string>;
    CoreUtilities::CMemMessageLog log;
    CDialogs dialogs;
};

TEST_F(CShowMessagesTest, ShowsErrorsWithWhatIsAskedForInOrder) {
    Log("iewe");
    EXPECT_EQ(Show(true, true),
              Shown({"0|Skin Parsing Error|There were errors while parsing the skin:\n- info: text "
                     "i\n- error: text e\n- warning: text w\n- error: text e"}));
}

TEST_F(CShowMessagesTest, ShowsErrorsAloneByDefault) {
    Log("iewe");
    EXPECT_EQ(
        Show(false, false),
        Shown({"0|Skin Parsing Error|There were errors while parsing the skin:\n- error: text "
               "e\n- error: text e"}));
    EXPECT_EQ(log.GetCount(), 4);
}

TEST_F(CShowMessagesTest, ShowsWarnings) {
    Log("wi");
    EXPECT_EQ(Show(true, false),
              Shown({"1|Skin Parsing Warning|There were warnings while parsing the skin:\n- "
                     "warning: text w"}));
}

TEST_F(CShowMessagesTest, ShowsWarningsWithInformation) {
    Log("wi");
    EXPECT_EQ(Show(true, true),
              Shown({"1|Skin Parsing Warning|There were warnings while parsing the skin:\n- "
                     "warning: text w\n- info: text i"}));
}

TEST_F(CShowMessagesTest, ShowsInformationOfASuccess) {
    Log("wi");
    EXPECT_EQ(
        Show(false, true),
        Shown({"2|Skin Parsing Info|Information logged during skin parsing:\n- text i\n- Skin "
               "parsing successful"}));
}

TEST_F(CShowMessagesTest, IsSilentOnSuccess) {
    Log("w");
    EXPECT_EQ(Show(false, false), Shown());
    ASSERT_EQ(log.GetCount(), 2);
    EXPECT_EQ(log.GetRecords()[1].text, "Skin parsing successful");
}

} // namespace
} // namespace DocumentTests

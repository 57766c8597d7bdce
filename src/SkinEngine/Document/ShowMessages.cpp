#include "SkinEngine/Document/ShowMessages.h"

namespace Vorin::AppEngine {

using CoreUtilities::CMemMessageLog;

namespace {

std::string ListMessages(const CMemMessageLog& log, const char* heading, bool showWarnings,
                         bool showInfo) {
    std::string text = heading;
    for (const CMemMessageLog::CRecord& record : log.GetRecords()) {
        if (record.type == Core::kErrorMessage) {
            text += "\n- error: " + record.text;
        } else if (record.type == Core::kWarningMessage && showWarnings) {
            text += "\n- warning: " + record.text;
        } else if (record.type == Core::kInfoMessage && showInfo) {
            text += "\n- info: " + record.text;
        }
    }
    return text;
}

std::string ListInfo(const CMemMessageLog& log) {
    std::string text = "Information logged during skin parsing:";
    for (const CMemMessageLog::CRecord& record : log.GetRecords()) {
        if (record.type == Core::kInfoMessage) {
            text += "\n- " + record.text;
        }
    }
    return text;
}

} // namespace

void ShowMessages(CMemMessageLog& log, IMessageDialogs& dialogs, bool showWarnings, bool showInfo) {
    if (log.GetCount(Core::kErrorMessage) > 0) {
        dialogs.ShowMessage(
            Core::kErrorMessage, "Skin Parsing Error",
            ListMessages(log, "There were errors while parsing the skin:", showWarnings, showInfo));
    } else if (log.GetCount(Core::kWarningMessage) > 0 && showWarnings) {
        dialogs.ShowMessage(Core::kWarningMessage, "Skin Parsing Warning",
                            ListMessages(log, "There were warnings while parsing the skin:",
                                         showWarnings, showInfo));
    } else {
        log.Log(Core::kInfoMessage, "Skin parsing successful", 0);
        if (showInfo) {
            dialogs.ShowMessage(Core::kInfoMessage, "Skin Parsing Info", ListInfo(log));
        }
    }
}

} // namespace Vorin::AppEngine

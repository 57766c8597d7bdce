#include "Messages.h"

#include "Printable.h"

#include <cstdio>

namespace Workbench {

using namespace Vorin;

namespace {

const char* MessageWord(std::uint32_t type) {
    switch (type) {
    case Core::kErrorMessage:
        return "error";
    case Core::kWarningMessage:
        return "warning";
    default:
        return "info";
    }
}

} // namespace

void PrintMessages(const CoreUtilities::CMemMessageLog& log, const std::string& document,
                   bool origins) {
    const std::string root = document.substr(document.rfind('/') + 1);
    for (const auto& record : log.GetRecords()) {
        const Core::CDocumentPlace& place = record.place;
        std::string line = (place.IsNowhere() ? root : place.GetFile()) + ":" +
                           std::to_string(place.GetLine()) + ": " + MessageWord(record.type) +
                           ": " + record.text;
        if (origins && place.HasOrigin()) {
            line += std::string(" (in the template at ") + place.GetOriginFile() + ":" +
                    std::to_string(place.GetOriginLine()) + ")";
        }
        std::fprintf(stderr, "%s\n", Printable(line).c_str());
    }
}

bool SplitAssignment(const std::string& text, std::string& name, std::string& value) {
    const std::size_t sign = text.find('=');
    if (sign == std::string::npos || sign == 0) {
        return false;
    }
    name = text.substr(0, sign);
    value = text.substr(sign + 1);
    return true;
}

} // namespace Workbench

#include "Printable.h"

namespace Workbench {

std::string Printable(std::string_view text) {
    std::string printable;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
        // U+0080 to U+009F: one of them does what escape and "[" do.
        const bool isUpperControl = byte == 0xc2 && next >= 0x80 && next < 0xa0;
        const bool isControl = byte < 0x20 || byte == 0x7f || isUpperControl;
        printable += isControl ? '?' : text[i];
        i += isUpperControl ? 1 : 0;
    }
    return printable;
}

} // namespace Workbench

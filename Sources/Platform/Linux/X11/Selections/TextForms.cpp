#include "X11/Selections/TextForms.h"

#include "X11/Selections/UTF8.h"

namespace tessel {

using namespace UTF8;

std::string latin1FromUTF8(std::string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const std::size_t plain = asciiPrefix(text);
        bytes.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty())
            break;
        const std::size_t length = leadingSequence(text).length;
        const std::uint8_t lead = byteAt(text, 0);
        const bool fits = length == 2 && lead <= 0xC3;
        bytes.push_back(fits ? static_cast<char>(((lead & 0x03) << 6) | (byteAt(text, 1) & 0x3F)) : '?');
        text.remove_prefix(length);
    }
    return bytes;
}

} // namespace tessel

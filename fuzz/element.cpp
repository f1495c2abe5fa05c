// Any bytes as elements of a message.
#include "fuzz.hpp"
#include "oruAsf.h"

#include <cstring>
#include <vector>

namespace {

constexpr uint32_t kHead = 6;
constexpr uint32_t kTextKind = 8;

/// Encoded again, an element has the bytes that it came from.
void encodeAgain(const OruAsfTtlv &element, const uint8_t *from, uint32_t size)
{
    const bool isText = element.type >> 16 == kTextKind;
    std::vector<uint8_t> bytes(size);
    const uint32_t length = element.length + (isText ? kHead : 0);
    const uint8_t *end = oruAsfPutTtlv(bytes.data(), element.type, length, element.value);
    MUST(end == bytes.data() + size);
    MUST(std::memcmp(bytes.data(), from, size) == 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    size_t at = 0;
    while (at < size) {
        const std::vector<uint8_t> rest(data + at, data + size); // nothing may be read behind
        auto consumed = static_cast<uint32_t>(rest.size());
        OruAsfTtlv *element = oruAsfGetStructTtlv(rest.data(), &consumed);
        if (element == nullptr) {
            MUST(consumed == 0);
            return 0;
        }
        MUST(consumed == kHead + element->length && consumed <= rest.size());
        encodeAgain(*element, rest.data(), consumed);
        char text[64];
        oruAsfHexStr(element->value, element->length, text, sizeof text);
        MUST(std::strlen(text) < sizeof text);
        oruAsfFreeStructTtlv(element);
        at += consumed;
    }
    return 0;
}

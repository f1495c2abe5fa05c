// The test that a text holds hexadecimal digits only.
#include "oruSdk.h"

namespace {

bool isHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

} // namespace

extern "C" {

uint32_t isHex(const char *text)
{
    if (text == nullptr) return 0;
    for (; *text != '\0'; ++text)
        if (!isHexDigit(*text)) return 0;
    return 1;
}

} // extern "C"

// Statistics: fetched as one text, from which a counter is picked by its name.
#include "core/log.hpp"
#include "core/messages.hpp"
#include "oruSdk.h"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace oru {
namespace {

using StatsReply = Reply<kReplyRoom>;

/// Copies everything behind the reply's header and tells whether WSM reports a failure (type 0).
template <class Param>
bool takeText(StatsReply &reply, Param *param)
{
    static_assert(sizeof param->statsStr > kReplyRoom - kHeaderSize);
    oruAsfNtohHdr(reply.bytes);
    uint16_t type = 0;
    std::memcpy(&type, reply.bytes, sizeof type);
    const uint32_t length = reply.size - kHeaderSize;
    std::memcpy(param->statsStr, reply.bytes + kHeaderSize, length);
    param->statsStr[length] = '\0';
    return type == 0;
}

/// The two selectors, the first one in the high byte.
template <class Param>
uint16_t selectors(const Param *param)
{
    return static_cast<uint16_t>(param->selector1 << 8 | param->selector2);
}

bool isBlank(char character)
{
    return std::isspace(static_cast<unsigned char>(character)) != 0;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkGetRadioStats(OruSdkRadioStatsParam *param)
{
    constexpr uint16_t kMessage = 273;
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");

    Request request;
    request.number16(selectors(param));
    StatsReply reply;
    if (const uint32_t code = askWsm(request.finish(kMessage), reply, kHeaderSize); code != 0)
        return code;
    if (reply.size == 0) return ORUSDK_RC_OK;
    if (takeText(reply, param))
        return fail(ORUSDK_RC_ERROR, "param->statsStr:%s\n", param->statsStr);
    return ORUSDK_RC_OK;
}

uint32_t oruSdkGetStaStats(OruSdkStaStatsParam *param)
{
    constexpr uint16_t kMessage = 275;
    if (param == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");

    Request request;
    request.number16(selectors(param)).bytes(param->macAddr, sizeof param->macAddr);
    StatsReply reply;
    if (const uint32_t code = askWsm(request.finish(kMessage), reply, kHeaderSize); code != 0)
        return code;
    if (reply.size == 0) return ORUSDK_RC_OK;
    if (takeText(reply, param)) {
        logInfo("%s\n", param->statsStr); // information only, unlike a radio's: intended
        return ORUSDK_RC_ERROR;
    }
    return ORUSDK_RC_OK;
}

int32_t oruSdkGetStatsValue(const char *name, const char *text)
{
    constexpr int32_t kNotFound = -1;
    if (name == nullptr || text == nullptr || *name == '\0') return kNotFound;
    const char *word = std::strstr(text, name);
    if (word == nullptr) return kNotFound;

    // Later occurrences are not searched, and what stands before the name is not looked at:
    // intended.
    const char *behind = word;
    while (*behind != '\0' && !isBlank(*behind)) ++behind;
    if (static_cast<size_t>(behind - word) != std::strlen(name)) return kNotFound;

    char *end = nullptr;
    const long long value = std::strtoll(behind, &end, 10);
    if (end == behind) return kNotFound;
    if (value > INT32_MAX) return INT32_MAX;
    return value < INT32_MIN ? INT32_MIN : static_cast<int32_t>(value);
}

} // extern "C"

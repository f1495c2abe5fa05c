#include "codes.hpp"

#include "oruSdk.h"

namespace oructl {
namespace {

/// Line feeds, and the blanks around them, become one blank.
std::string oneLine(std::string_view text)
{
    std::string out;
    for (const char letter : text) {
        const char flat = letter == '\n' ? ' ' : letter;
        if (flat == ' ' && (out.empty() || out.back() == ' ')) continue;
        out += flat;
    }
    if (out.ends_with(' ')) out.pop_back();
    return out;
}

/// For codes whose message is missing, general, or another code's.
std::string_view ownMeaning(int64_t code)
{
    switch (code) {
    case ORUSDK_RC_OK: return "success";
    case ORUSDK_RC_OPTION:
        return "a value is out of range: every switch and numeric option answers with this code";
    case ORUSDK_RC_AA_REQUEST:
        return "kept for callers that know it: no operation returns it, since a failed notice to "
               "AA is only logged";
    case ORUSDK_RC_RADAR_CHANNEL:
        return "the channel is a radar channel while radar detection is on (the message runs into "
               "the one of 121)";
    case ORUSDK_RC_RADAR_UNCHANGED:
        return "radar detection is already in the requested state (the message belongs to 122)";
    case ORUSDK_RC_CONFIGURED_RADAR_CHANNEL: return "the configured channel is a radar channel";
    default: return "";
    }
}

} // namespace

bool isCode(int64_t code)
{
    return code >= 0 && code <= kLastCode;
}

std::string_view tableMessage(int64_t code)
{
    if (code < 0 || code >= int64_t{ORUSDK_RC_COUNT}) return "";
    return oruSdkRcStr[code];
}

std::string messageLine(int64_t code)
{
    if (code == kLibraryFailed) return "the key is missing or no number";
    const std::string_view message = tableMessage(code);
    return message.empty() ? codeMeaning(code) : oneLine(message);
}

std::string codeMeaning(int64_t code)
{
    if (!isCode(code)) return "no such code";
    const std::string_view own = ownMeaning(code);
    return own.empty() ? oneLine(tableMessage(code)) : std::string{own};
}

} // namespace oructl

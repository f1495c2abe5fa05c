#include "calls.hpp"

#include "codes.hpp"
#include "oruSdk.h"
#include "text_output.hpp"
#include "values.hpp"

namespace oructl {
namespace {

/// A failure of a file or of a key in it.
bool concernsStorage(uint32_t code)
{
    return code == ORUSDK_RC_FILE_READ || code == ORUSDK_RC_FILE_WRITE ||
           code == ORUSDK_RC_DICT_WRITE || code == ORUSDK_RC_DICT_READ ||
           code == ORUSDK_RC_KEY_READ || code == kLibraryFailed;
}

/// "done before: the driver was told": a set that acts at once can't be taken back.
std::string stepsDone(const Call &call)
{
    std::string out;
    for (const std::string &step : call.steps)
        out.append(out.empty() ? "done before: " : ", ").append(step);
    return out;
}

/// A failure of a file, of a key in it, or of a service: no fault of the call.
bool concernsOthers(uint32_t code)
{
    return concernsStorage(code) || code == ORUSDK_RC_WSM_REQUEST || code == ORUSDK_RC_ERROR;
}

/// What is legal where the call isn't; an empty text for a call whose numbers are all legal.
std::string illegalPart(const Item &item, Use verb, const Call &call)
{
    const Bounds index = legalIndex(item.scope);
    if (item.scope != Scope::None && (call.index < index.min || call.index > index.max))
        return std::string{indexName(item.scope)} + " is " + std::to_string(index.min) + " to " +
               std::to_string(index.max);
    if (verb != Use::Set) return "";
    for (size_t i = 0; i < item.fields.size(); ++i) {
        const Field &field = item.fields[i];
        if (!call.values[i].given || isLegal(field, call.values[i])) continue;
        std::string out = field.name.empty() ? "" : std::string{field.name} + " of ";
        return out.append(item.name).append(" takes ").append(legalValues(field));
    }
    return "";
}

/// A status that says more than the code's own; kDone when there is none.
ExitStatus statusOf(const Item &item, Use verb, uint32_t code, const Call &call)
{
    const Bounds index = legalIndex(item.scope);
    if (item.scope != Scope::None && (call.index < index.min || call.index > index.max))
        return kNotFound;
    const bool stored = verb == Use::Set && item.atOnce && code == ORUSDK_RC_WSM_REQUEST;
    return stored ? kNotTaken : kDone;
}

} // namespace

std::string callAttempt(const Item &item, std::string_view verb, const Call &call,
                        const std::string &typed)
{
    if (!hasSecret(item.fields)) return typed;
    std::string text{verb};
    text.append(" ").append(item.name);
    if (item.scope != Scope::None) text.append(" ").append(std::to_string(call.index));
    return text;
}

Problem callProblem(const Item &item, Use verb, uint32_t code, const Call &call,
                    std::string attempt)
{
    const std::string illegal = illegalPart(item, verb, call);
    std::string detail = item.reason != nullptr ? item.reason(code, call) : "";
    if (detail.empty()) detail = illegal;
    const bool refused = !illegal.empty() || (!detail.empty() && !concernsOthers(code));
    if (detail.empty() && concernsStorage(code))
        detail = whereStored(item, call, verb == Use::Set ? item.reads : "");
    if (item.atOnce && !call.steps.empty())
        detail.insert(0, stepsDone(call) + (detail.empty() ? "" : "; "));
    return {.kind = refused ? "refused" : "failed",
            .attempt = std::move(attempt),
            .code = code,
            .message = messageLine(code),
            .detail = detail,
            .status = statusOf(item, verb, code, call)};
}

Problem resetProblem(int64_t bss, uint32_t code, std::string attempt)
{
    const Bounds legal = legalIndex(Scope::Bss);
    const bool illegal = bss < legal.min || bss > legal.max;
    return {.kind = "failed",
            .attempt = std::move(attempt),
            .code = code,
            .message = messageLine(code),
            .detail = illegal ? "BSS is 0 to 3" : "",
            .status = illegal ? kNotFound : kDone};
}

std::string parseResetBss(Words operands, int64_t &bss)
{
    if (operands.empty()) return "BSS is missing";
    if (operands.size() > 1) return "too many operands";
    const std::string_view text = operands.front();
    switch (parseDecimal(text, bss)) {
    case Decimal::Good: break;
    case Decimal::TooLarge: return quoted(text) + " does not fit 32 bits";
    case Decimal::NotANumber: return quoted(text) + " is no number of a BSS";
    }
    return "";
}

} // namespace oructl

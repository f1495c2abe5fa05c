#include "explain.hpp"

#include "codes.hpp"
#include "dictionary.hpp"
#include "json_output.hpp"
#include "oruSdk.h"
#include "returns.hpp"
#include "state.hpp"
#include "text_output.hpp"

#include <algorithm>

namespace oructl {
namespace {

constexpr size_t kShown = 4; // operations of one condition; JSON has them all

bool isDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

void dropNumber(std::string_view &text)
{
    while (!text.empty() && isDigit(text.front())) text.remove_prefix(1);
}

/// What to do about codes that no other value of the same item helps against.
std::string_view remedyOf(int64_t code)
{
    switch (code) {
    case ORUSDK_RC_RADIO_ID: return "radios are 0 and 1";
    case ORUSDK_RC_BSS_NUMBER: return "BSSes are 0 to 3";
    case ORUSDK_RC_FILE_READ:
    case ORUSDK_RC_KEY_READ:
    case ORUSDK_RC_DICT_READ:
    case kLibraryFailed: return "oructl doctor names the file or key that is missing";
    case ORUSDK_RC_FILE_WRITE: return "see that /var is writable and has room left";
    case ORUSDK_RC_WSM_REQUEST: return "see that WSM runs: oructl doctor";
    case ORUSDK_RC_OPEN_ENABLED:
    case ORUSDK_RC_WPA_ENABLED:
    case ORUSDK_RC_WEP_ENABLED:
    case ORUSDK_RC_NO_SECURITY_MODE:
        return "oructl set security BSS MODE switches the other modes off";
    case ORUSDK_RC_WPA_NOT_ENABLED: return "switch WPA on first: oructl set security BSS wpa2 psk";
    case ORUSDK_RC_PSK_MISSING: return "oructl set psk BSS -";
    case ORUSDK_RC_NO_RADIUS_SERVER: return "oructl set radius TIMEOUT TRIES NAME:PORT";
    case ORUSDK_RC_CONFIGURED_RADAR_CHANNEL:
        return "set another channel first: oructl set channel RADIO CHANNEL";
    case ORUSDK_RC_RADAR_CHANNEL:
        return "choose another channel, or switch detection off: oructl set radar-detect RADIO off";
    case ORUSDK_RC_NEEDS_STD_EXTENSIONS: return "oructl set standard-ext RADIO on";
    default: return "";
    }
}

/// Items whose operations return a code when something is set: those whose values it may concern.
std::vector<const Item *> itemsOf(const std::vector<Cause> &causes)
{
    std::vector<const Item *> items;
    forEachItem([&](const Item &item) {
        forEachWord(item.operations, [&](std::string_view operation) {
            const bool returned = std::any_of(causes.begin(), causes.end(), [&](const Cause &each) {
                return std::find(each.operations.begin(), each.operations.end(), operation) !=
                       each.operations.end();
            });
            if (returned && (items.empty() || items.back() != &item)) items.push_back(&item);
        });
    });
    return items;
}

std::string adviceOf(int64_t code, const std::vector<Cause> &causes)
{
    constexpr size_t kFew = 8;
    if (const std::string_view remedy = remedyOf(code); !remedy.empty() || code == ORUSDK_RC_OK)
        return std::string{remedy};
    const auto items = itemsOf(causes);
    if (items.empty() || items.size() > kFew) return items.empty() ? "" : "oructl help ITEM";
    std::string out;
    for (const Item *item : items)
        out.append(out.empty() ? "" : ", ").append("oructl help ").append(item->name);
    return out;
}

/// When a code is returned, the most frequent condition first.
std::vector<Cause> causesOf(int64_t code)
{
    std::vector<Cause> causes;
    for (const Return &row : returns()) {
        if (row.code != code || row.operation == "isHex") continue; // that gives no code
        const auto same = std::find_if(causes.begin(), causes.end(), [&](const Cause &cause) {
            return cause.condition == row.condition;
        });
        if (same == causes.end()) causes.push_back({row.condition, {row.operation}});
        else same->operations.push_back(row.operation);
    }
    std::stable_sort(causes.begin(), causes.end(), [](const Cause &a, const Cause &b) {
        return a.operations.size() > b.operations.size();
    });
    return causes;
}

std::string textCause(const Cause &cause)
{
    std::string out = "- ";
    out.append(cause.condition).append(": ");
    for (size_t i = 0; i < std::min(cause.operations.size(), kShown); ++i)
        out.append(i == 0 ? "" : ", ").append(cause.operations[i]);
    if (cause.operations.size() > kShown)
        out.append(" and ")
            .append(std::to_string(cause.operations.size() - kShown))
            .append(" more");
    return out += '\n';
}

int explainCode(Request &request, int64_t code)
{
    // That something was done is no failure: who returns it, and when, is everybody and always.
    const auto causes = code == ORUSDK_RC_OK ? std::vector<Cause>{} : causesOf(code);
    const std::string advice = adviceOf(code, causes);
    if (request.json) {
        request.output = jsonExplanation(code, causes, advice);
        return kDone;
    }
    const std::string message = messageLine(code);
    const std::string meaning = codeMeaning(code);
    request.output = std::to_string(code) + ": " + message + '\n';
    if (meaning != message) request.output += "meaning: " + meaning + '\n';
    for (const Cause &cause : causes) request.output += textCause(cause);
    if (causes.empty() && code != ORUSDK_RC_OK) request.output += "no operation returns it\n";
    if (!advice.empty()) request.output += "what to do: " + advice + '\n';
    return kDone;
}

/// The operations that an item calls: an item that is made of others has none of its own.
std::string operationsOf(const Item &item)
{
    std::string operations{item.operations};
    if (!operations.empty()) return operations;
    forEachItem([&](const Item &part) {
        forEachWord(item.keys, [&](std::string_view key) {
            if (part.keys.starts_with(key)) operations.append(part.operations).append(" ");
        });
    });
    return operations;
}

/// The codes that the operations of an item can return, in their order, each once.
std::vector<int64_t> codesOf(const Item &item)
{
    std::vector<int64_t> codes;
    const auto all = returns();
    forEachWord(operationsOf(item), [&](std::string_view operation) {
        for (const Return &row : all)
            if (row.operation == operation && row.code != ORUSDK_RC_OK && isCode(row.code))
                codes.push_back(row.code);
    });
    std::sort(codes.begin(), codes.end());
    codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
    return codes;
}

std::string textCodes(const std::vector<int64_t> &codes)
{
    std::string out = codes.empty() ? "" : "codes:\n";
    for (const int64_t code : codes)
        out.append("  ").append(std::to_string(code)).append(": ").append(codeMeaning(code)) +=
            '\n';
    return out;
}

int explainItem(Request &request, const Item &item)
{
    const auto codes = codesOf(item);
    request.output =
        request.json ? jsonExplanation(item, codes) : textHelp(item) + textCodes(codes);
    return kDone;
}

/// The key's value in a factory file; empty when there is none.
std::string factoryValue(std::string_view key, Secrets secrets)
{
    for (const char *const file : kFactoryFiles) {
        const Dictionary factory{file};
        const auto value = factory.text(std::string{key});
        if (!value) continue;
        return isSecretKey(key) && secrets == Secrets::Masked && !value->empty()
                   ? std::string{kMask}
                   : printable(*value);
    }
    return "";
}

int explainKey(Request &request, std::string_view key, const std::vector<const Item *> &items)
{
    const std::string factory = factoryValue(key, request.secrets);
    if (request.json) {
        request.output = jsonExplanation(key, items, factory);
        return kDone;
    }
    request.output = "key " + printable(key) + '\n';
    request.output += factory.empty() ? "no factory value\n" : "factory value: " + factory + '\n';
    for (const Item *item : items) request.output += '\n' + textHelp(*item);
    return kDone;
}

std::vector<const Item *> itemsWithKey(std::string_view key)
{
    std::vector<const Item *> items;
    forEachItem([&](const Item &item) {
        bool has = false;
        forEachWord(item.keys,
                    [&](std::string_view pattern) { has = has || matchesKey(pattern, key); });
        if (has) items.push_back(&item);
    });
    return items;
}

int reportUnexplained(Request &request, std::string_view text)
{
    std::vector<std::string_view> names;
    forEachItem([&](const Item &item) { names.push_back(item.name); });
    return reportUnknown(request, "code, item or key", text, names);
}

} // namespace

bool matchesKey(std::string_view pattern, std::string_view key)
{
    while (!pattern.empty() && !key.empty()) {
        const bool last = pattern.find_first_not_of("0123456789") == pattern.npos;
        if (pattern.starts_with("%d") || last) {
            if (!isDigit(key.front())) return false;
            dropNumber(key);
            pattern.remove_prefix(last ? pattern.size() : 2);
            continue;
        }
        if (pattern.front() != key.front()) return false;
        pattern.remove_prefix(1);
        key.remove_prefix(1);
    }
    return pattern.empty() && key.empty();
}

bool isSecretKey(std::string_view key)
{
    for (const std::string_view secret : {"wpaPsk", "wepKey.", "radiusSecret.", "appinpasswd"})
        if (key.find(secret) != key.npos) return true;
    return false;
}

int runExplain(Request &request)
{
    if (request.operands.empty()) return reportUsage(request, "CODE, ITEM or KEY is missing");
    if (request.operands.size() > 1) return reportUsage(request, "too many operands");
    const std::string_view text = request.operands.front();
    int64_t code = 0;
    const Decimal form = parseDecimal(text, code);
    if (form == Decimal::Good && isCode(code)) return explainCode(request, code);
    if (form != Decimal::NotANumber)
        return report(request, {.kind = "failed",
                                .attempt = typed(request),
                                .message = "no such code",
                                .detail = "codes are 0 to " + std::to_string(kLastCode)});
    if (const Item *item = findItem(text)) return explainItem(request, *item);
    const auto items = itemsWithKey(text);
    return items.empty() ? reportUnexplained(request, text) : explainKey(request, text, items);
}

} // namespace oructl

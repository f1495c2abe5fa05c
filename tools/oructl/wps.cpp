// Wi-Fi Protected Setup: enrollment and its verdict, the access point's PIN.
#include "commands.hpp"
#include "json_output.hpp"
#include "oruSdk.h"
#include "person.hpp"
#include "secrets.hpp"
#include "wsm.hpp"

#include <chrono>
#include <ctime>

namespace oructl {
namespace {

constexpr Field kPinField = {.name = "pin", .kind = Kind::Secret, .bounds = {0, 64}};
constexpr Operand kPinOperand = {.label = "-|@FILE", .field = kPinField, .optional = true};
constexpr Operand kRadioAndBss[] = {kRadioOperand, kBssOperand};
constexpr Operand kWithPin[] = {kRadioOperand, kBssOperand, kPinOperand};
constexpr Operand kBss[] = {kBssOperand};

uint32_t radioOf(const Arguments &arguments)
{
    return static_cast<uint32_t>(arguments.values[0].number);
}

uint32_t bssOf(const Arguments &arguments)
{
    return static_cast<uint32_t>(arguments.values[1].number);
}

int finishCall(Request &request, const Command &command, const Arguments &arguments, uint32_t code,
               const std::string &detail = "")
{
    if (code == ORUSDK_RC_OK) return done(request, command, arguments);
    return reportCommand(request, command, arguments, code, detail);
}

/// Reads the PIN as any secret: what "-", "@FILE" or its absence stands for, or the word itself
/// with --insecure-argv. Returns what is wrong, or an empty text.
std::string readPin(const Request &request, const Value &given, std::string &pin)
{
    if (given.given && request.insecureArgv) return pin = given.text, "";
    return SecretSource{request.secretFile}.read(given.given ? given.text : "-", "PIN", pin);
}

// ---- Enrollment

template <uint32_t Method>
int enroll(Request &request, const Command &command, const Arguments &arguments)
{
    std::string pin;
    if (Method == 0)
        if (const std::string problem = readPin(request, arguments.values[2], pin);
            !problem.empty())
            return reportUsage(request, "PIN: " + problem);
    const uint32_t code = sendWscEnroll(Method, radioOf(arguments), bssOf(arguments), pin.c_str());
    return finishCall(request, command, arguments, code,
                      code == ORUSDK_RC_NOT_SET ? "WPS is off for this BSS" : "");
}

// ---- Status

constexpr int64_t kInProgress = 1;
constexpr Word kResultWords[] = {
    {"success", 0}, {"in-progress", kInProgress}, {"key-too-long", 200}, {"invalid-checksum", 201}};
constexpr Field kResultField = {.name = "result", .kind = Kind::Choice, .words = kResultWords};

/// The result code of WSM; none when it left it out.
uint32_t askStatus(const Arguments &arguments, Value &result)
{
    constexpr uint32_t kNone = 0xA5A5A5A5;
    uint32_t number = kNone;
    const uint32_t code = oruSdkGetWscStatus(radioOf(arguments), bssOf(arguments), &number);
    result = number == kNone ? Value{} : numberValue(static_cast<int32_t>(number));
    return code;
}

std::string inWords(const Value &result)
{
    const std::string_view word = wordOf(kResultField, result.number);
    const std::string number = std::to_string(result.number);
    return word.empty() ? number : std::string{word} + " (" + number + ')';
}

int showStatus(Request &request, const Arguments &arguments, const Value &result)
{
    const Field fields[] = {kRadioOperand.field, kBssOperand.field, kResultField};
    request.output = request.json ? jsonRecord("wps", "status", fields,
                                               {arguments.values[0], arguments.values[1], result})
                                  : "result = " + inWords(result) + '\n';
    return kDone;
}

void sleepOneSecond()
{
    timespec left = {1, 0};
    while (::nanosleep(&left, &left) != 0) {}
}

/// Asks until a result comes that is not of an enrollment in progress.
int waitForResult(Request &request, const Command &command, const Arguments &arguments)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds{*arguments.seconds};
    for (;;) {
        Value result;
        if (const uint32_t code = askStatus(arguments, result); code != ORUSDK_RC_OK)
            return reportCommand(request, command, arguments, code);
        const bool settled = result.given && result.number != kInProgress;
        if (settled && result.number == 0) return showStatus(request, arguments, result);
        if (settled)
            return reportFailure(request, command, arguments,
                                 "the enrollment has failed: " + inWords(result));
        const auto now = std::chrono::steady_clock::now();
        if (now >= end)
            return reportFailure(
                request, command, arguments,
                "no outcome within " + std::to_string(*arguments.seconds) + " seconds",
                "last result: " + (result.given ? inWords(result) : "none"), kTimedOut);
        const auto left = std::chrono::ceil<std::chrono::seconds>(end - now);
        showProgress(request, "waits for the enrollment", left.count());
        sleepOneSecond();
        showProgress(request, nullptr, 0);
    }
}

int status(Request &request, const Command &command, const Arguments &arguments)
{
    if (arguments.seconds) return waitForResult(request, command, arguments);
    Value result;
    if (const uint32_t code = askStatus(arguments, result); code != ORUSDK_RC_OK)
        return reportCommand(request, command, arguments, code);
    if (!result.given)
        return reportFailure(request, command, arguments, "WSM gave no result",
                             "it answered without one, or not within 20 seconds", kTimedOut);
    return showStatus(request, arguments, result);
}

// ---- The access point's PIN

int setPin(Request &request, const Command &command, const Arguments &arguments)
{
    std::string pin;
    if (const std::string problem = readPin(request, arguments.values[2], pin); !problem.empty())
        return reportUsage(request, "PIN: " + problem);
    return finishCall(request, command, arguments,
                      oruSdkSetDevicePin(radioOf(arguments), bssOf(arguments), pin.c_str()));
}

int getPin(Request &request, const Command &command, const Arguments &arguments)
{
    char pin[65] = {};
    uint32_t length = 0;
    const auto bss = static_cast<int32_t>(arguments.values[0].number);
    if (const uint32_t code = oruSdkGetDevicePin(bss, pin, &length); code != ORUSDK_RC_OK)
        return reportCommand(request, command, arguments, code);
    const Value value = textValue({pin, length});
    const Field fields[] = {kBssOperand.field, kPinField};
    request.output = request.json ? jsonRecord("wps", "get-pin", fields,
                                               {arguments.values[0], value}, request.secrets)
                                  : "pin = " + shownValue(kPinField, value, request.secrets) + '\n';
    return kDone;
}

int generate(Request &request, const Command &command, const Arguments &arguments)
{
    return finishCall(request, command, arguments,
                      oruSdkGenPassword(radioOf(arguments), bssOf(arguments)));
}

constexpr Repeat kWait = {.option = "--wait", .seconds = 120, .legal = {1, 3600}};

constexpr Command kCommands[] = {
    {"wps", "enroll pin", kWithPin, "enrolls a station by its PIN", "sendWscEnroll", enroll<0>},
    {"wps", "enroll pbc", kRadioAndBss, "enrolls a station by push button", "sendWscEnroll",
     enroll<1>},
    {"wps", "enroll ap-pin", kRadioAndBss, "enrolls the access point by its own PIN",
     "sendWscEnroll", enroll<2>},
    {"wps", "status", kRadioAndBss, "shows the result of the last enrollment", "oruSdkGetWscStatus",
     status, kWait},
    {"wps", "set-pin", kWithPin, "stores the access point's PIN and tells it at once",
     "oruSdkSetDevicePin", setPin},
    {"wps", "get-pin", kBss, "shows the stored PIN (masked without --show-secrets)",
     "oruSdkGetDevicePin", getPin},
    {"wps", "generate", kRadioAndBss, "asks for a new password of the access point",
     "oruSdkGenPassword", generate},
};

} // namespace

std::span<const Command> wpsCommands()
{
    return kCommands;
}

} // namespace oructl

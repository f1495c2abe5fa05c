// What acts at once: the administrative status of a radio, and the disassociation of a station.
#include "adapt.hpp"
#include "air.hpp"
#include "change.hpp"
#include "commands.hpp"
#include "items.hpp"
#include "json_output.hpp"

namespace oructl {
namespace {

constexpr Word kUpDownWords[] = {{"down", 0}, {"up", 1}};
constexpr Field kUpDown[] = {
    {.name = "", .kind = Kind::Choice, .bounds = {0, 1}, .words = kUpDownWords}};

constexpr std::string_view kNotTold =
    "stored, but the radio service could not be told or has not understood";

std::string whyNotTold(uint32_t code, const Call &)
{
    return code == ORUSDK_RC_WSM_REQUEST ? std::string{kNotTold} : "";
}

constexpr Item statusItem()
{
    Item item = radioItem<OruSdkFeatureParam, oruSdkGetAdminStatus, oruSdkSetAdminStatus>(
        "admin-status", kUpDown, "oruSdkGetAdminStatus oruSdkSetAdminStatus", "radio%d.adminStatus",
        "administrative status; a change acts at once, without a commit");
    item.reason = whyNotTold;
    item.atOnce = true;
    return item;
}

constexpr Item kItems[] = {statusItem()};

template <uint32_t Status>
int switchRadio(Request &request, const Command &command, const Arguments &arguments)
{
    OruSdkFeatureParam param = {.reserved = 0,
                                .radioIndex = static_cast<uint16_t>(arguments.values[0].number),
                                .activationFlag = Status};
    Lock lock;
    if (const auto trouble = lock.take(patienceMs(request)))
        return reportTrouble(
            request, attemptOf(request, command.words, command.operands, arguments), *trouble);
    const uint32_t code = oruSdkSetAdminStatus(&param);
    if (code == ORUSDK_RC_OK) return done(request, command, arguments);
    return reportCommand(request, command, arguments, code, whyNotTold(code, {}),
                         code == ORUSDK_RC_WSM_REQUEST ? kNotTaken : kDone);
}

int disassociate(Request &request, const Command &command, const Arguments &arguments)
{
    if (isNoStation(arguments.values[0].text)) return reportNoStation(request, command, arguments);
    const uint32_t code = sendDisAssocReq(macOf(arguments.values[0]).data());
    if (code == ORUSDK_RC_OK) return done(request, command, arguments);
    return reportCommand(request, command, arguments, code);
}

constexpr Operand kRadio[] = {
    {.label = kRadioOperand.label,
     .field = {.name = "index", .kind = Kind::Number, .bounds = kRadioOperand.field.bounds},
     .holds = kRadioOperand.holds}};
constexpr Operand kStation[] = {kStationOperand};

constexpr Command kCommands[] = {
    {"radio", "up", kRadio, "switches a radio on", "oruSdkSetAdminStatus", switchRadio<1>},
    {"radio", "down", kRadio, "switches a radio off", "oruSdkSetAdminStatus", switchRadio<0>},
    {"disassoc", "", kStation, "disassociates a station", "sendDisAssocReq", disassociate},
};

} // namespace

std::span<const Item> controlItems()
{
    return kItems;
}

std::span<const Command> controlCommands()
{
    return kCommands;
}

} // namespace oructl

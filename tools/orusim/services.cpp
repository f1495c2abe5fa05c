#include "services.hpp"

namespace orusim {
namespace {

const Field kReplySize{"reply size", Field::Kind::number32};

constexpr uint32_t kRadio = 0x00020009;
constexpr uint32_t kStatus = 0x00020008;
constexpr uint32_t kResultCode = 0x0003000a;

enum Result : uint32_t { kDone = 0, kRefused = 1 };

} // namespace

Wsm::Wsm(Log log) : Service("WSM", 5000002, "/var/wsmDefaults", std::move(log))
{
    add({264,
         "set administrative status",
         {{kReplySize}, {{{kRadio, "radio"}, {kStatus, "status"}}}},
         [this](const Message &message) { return setAdminStatus(message); }});
    add({268, "commit", {}, [this](const Message &) { return reload(), std::nullopt; }, true});
}

void Wsm::configured()
{
    adminStatus_ = {static_cast<uint32_t>(configuration().number("radio0.adminStatus", 0)),
                    static_cast<uint32_t>(configuration().number("radio1.adminStatus", 0))};
}

Writer Wsm::setAdminStatus(const Message &message)
{
    const uint32_t radio = message.number(kRadio);
    const uint32_t status = message.number(kStatus);
    const bool known = radio < adminStatus_.size() && status <= 1;
    if (known) adminStatus_[radio] = status;
    return answer(265).number(kResultCode, known ? kDone : kRefused);
}

Aa::Aa(Log log) : Service("AA", 5000003, "/var/1x.conf", std::move(log))
{
    add({10498, "commit", {}, [this](const Message &) { return reload(), std::nullopt; }, true});
}

} // namespace orusim

// Which of the access point's services are there.
#pragma once

#include "oruAsf.h"
#include "oruSdk.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace oructl {

struct Service {
    std::string_view name;  ///< "WSM"
    std::string_view label; ///< "wsm"
    std::string_view means; ///< what it is
    const uint32_t *port;
};

inline constexpr std::array<Service, 2> kServices = {
    {{"WSM", "wsm", "the radio management service", &::port},
     {"AA", "aa", "the authorization agent", &::authPort}}};

/// Whether it takes connections. It is asked nothing.
inline bool isUp(const Service &service)
{
    OruAsfIpc *const ipc = oruAsfIpcOpen(2, 1, 0);
    if (ipc == nullptr) return false;
    const bool connected = oruAsfIpcConnect(ipc, "localhost", *service.port, ::vers) >= 0;
    oruAsfIpcClose(ipc);
    return connected;
}

} // namespace oructl

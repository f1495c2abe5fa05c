// The two services of the access point.
#pragma once

#include "service.hpp"

#include <array>

namespace orusim {

inline constexpr uint32_t kVersion = 1001;

/// The radio management service.
class Wsm : public Service {
public:
    explicit Wsm(Log log);

    /// The administrative status of a radio, 1 up; radio 0 or 1.
    [[nodiscard]] uint32_t adminStatus(size_t radio) const { return adminStatus_.at(radio); }

protected:
    void configured() override;

private:
    Writer setAdminStatus(const Message &message);

    std::array<uint32_t, 2> adminStatus_{};
};

/// The authorization agent.
class Aa : public Service {
public:
    explicit Aa(Log log);
};

} // namespace orusim

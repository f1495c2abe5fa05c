// The two services of the access point.
#pragma once

#include "clock.hpp"
#include "service.hpp"
#include "world.hpp"
#include "wps.hpp"

namespace orusim {

inline constexpr uint32_t kVersion = 1001;

/// The radio management service.
class Wsm : public Service {
public:
    Wsm(Log log, const Clock &clock, uint64_t seed);

    /// Brings the world to the present.
    void catchUp() override;

    /// The administrative status of a radio, 1 up; radio 0 or 1.
    [[nodiscard]] uint32_t adminStatus(size_t radio) const
    {
        return world_.radio(radio).up ? 1 : 0;
    }

    World &world() { return world_; }
    Wps &wps() { return wps_; }
    [[nodiscard]] const World &world() const { return world_; }
    [[nodiscard]] const Wps &wps() const { return wps_; }

protected:
    void configured() override;

private:
    void addTables();
    void addControls();
    void addWps();

    Writer radios() const;
    Writer stations(const Message &message) const;
    Writer scanList() const;
    Writer bssList(const Message &message) const;
    Writer radioInfo() const;
    Writer radioStatistics(const Message &message) const;
    Writer stationStatistics(const Message &message) const;
    Writer disassociate(const Message &message);
    Writer setAdminStatus(const Message &message);
    Writer enroll(const Message &message);
    Writer wpsSettings(const Message &message);

    const Clock &clock_;
    World world_;
    Wps wps_;
};

/// The authorization agent.
class Aa : public Service {
public:
    explicit Aa(Log log);

protected:
    /// Says which security mode each BSS has, and what is missing.
    void configured() override;
};

/// The security mode of a BSS in words, and what is missing.
std::string securityMode(const Configuration &configuration, size_t bss);

} // namespace orusim

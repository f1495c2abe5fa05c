#include "services.hpp"

#include <algorithm>

namespace orusim {
namespace {

constexpr size_t kServers = 3;

/// One BSS's keys.
class Keys {
public:
    Keys(const Configuration &configuration, size_t bss)
        : configuration_(configuration), prefix_(format("bss%zu.", bss))
    {
    }

    [[nodiscard]] bool on(const char *key) const
    {
        return configuration_.text(prefix_ + key) == "true";
    }
    [[nodiscard]] int number(const char *key) const
    {
        return configuration_.number(prefix_ + key, -1);
    }
    [[nodiscard]] bool has(const std::string &key) const
    {
        return !configuration_.text(prefix_ + key).value_or("").empty();
    }
    [[nodiscard]] bool hasServer() const
    {
        for (size_t server = 1; server <= kServers; ++server)
            if (!configuration_.text(format("radiusServer.%zu", server)).value_or("").empty())
                return true;
        return false;
    }

private:
    const Configuration &configuration_;
    std::string prefix_;
};

std::string throughServer(const Keys &keys, const std::string &mode)
{
    return mode + " through RADIUS" + (keys.hasServer() ? "" : ": no RADIUS server");
}

std::string wpa(const Keys &keys)
{
    const char *const names[] = {"WPA", "WPA2", "WPA + WPA2"};
    const int ie = keys.number("mixedIeMode");
    const std::string name = ie >= 1 && ie <= 3 ? names[ie - 1] : "WPA of an unknown kind";
    switch (keys.number("wpaAuthTypes")) {
    case 0: return throughServer(keys, name);
    case 1: return name + " with a pre-shared key" + (keys.has("wpaPsk") ? "" : ": PSK missing");
    default: return name + ": authentication type unknown";
    }
}

std::string wep(const Keys &keys)
{
    const std::string key = format("wepKey.%d", keys.number("wepDefaultKey"));
    return std::string("WEP") + (keys.has(key) ? "" : ": default key missing");
}

} // namespace

std::string securityMode(const Configuration &configuration, size_t bss)
{
    const Keys keys{configuration, bss};
    const bool dynamic = keys.on("dynamicWepEnabled") || keys.on("dynWepEnabled");
    std::vector<std::string> on;
    if (keys.on("openAccessEnabled")) on.emplace_back("open");
    if (dynamic) on.push_back(throughServer(keys, "dynamic WEP"));
    else if (keys.on("wepEnabled")) on.push_back(wep(keys));
    if (keys.on("wpaEnabled")) on.push_back(wpa(keys));

    if (on.empty()) return "no security mode";
    if (on.size() == 1) return on[0];
    std::string text = on.size() == 2 ? "two modes are on" : "three modes are on";
    for (size_t i = 0; i < on.size(); ++i) text += (i == 0 ? " (" : "; ") + on[i];
    return text + ")";
}

Aa::Aa(Log log) : Service("AA", 5000003, "/var/1x.conf", std::move(log))
{
    add({10498, "commit", {}, [this](const Message &) { return reload(), std::nullopt; }, true});
}

void Aa::configured()
{
    for (size_t bss = 0; bss < kBsses; ++bss)
        say(format("bss %zu: %s", bss, securityMode(configuration(), bss).c_str()));
}

} // namespace orusim

// Checks of BSSes and of their security.
#include "doctor.hpp"

#include "values.hpp"

#include <algorithm>

namespace oructl {
namespace {

constexpr int kBsses = 4;
constexpr int kServers = 3;

/// Calls visit with the number of each BSS and the beginning of its keys.
template <class Visit>
void forEachBss(Visit &&visit)
{
    for (int bss = 0; bss < kBsses; ++bss) {
        const std::string number = std::to_string(bss);
        visit(number, "bss" + number + '.');
    }
}

void ssid(const Patient &patient, Findings &findings)
{
    forEachBss([&](const std::string &bss, const std::string &key) {
        const auto ours = patient.radio.text(key + "ssId");
        const auto theirs = patient.security.text(key + "ssId");
        if (ours == theirs) return;
        const std::string name = ours ? *ours : *theirs;
        findings.push_back(
            {"the two files name BSS " + bss + " differently",
             "oructl set ssid " + bss + " --hex " + (name.empty() ? "''" : hexOf(name))});
    });
}

void assignment(const Patient &patient, Findings &findings)
{
    forEachBss([&](const std::string &bss, const std::string &key) {
        const auto mask = patient.radio.number(key + "radio");
        if (!mask || mask == patient.security.number(key + "radioctrl")) return;
        // A set to what one file says already writes nothing: there and back.
        const bool on = (*mask & 1) != 0;
        const std::string set = "oructl set assign " + bss + " 0 ";
        findings.push_back({"the two files assign BSS " + bss + " to different radios",
                            set + (on ? "off" : "on") + " && " + set + (on ? "on" : "off")});
    });
}

std::string modesOf(const Dictionary &security, const std::string &key, int &count)
{
    std::string modes;
    count = 0;
    const auto add = [&](const char *flag, const char *name) {
        if (!security.isOn(key + flag)) return;
        modes.append(count++ == 0 ? "" : " and ").append(name);
    };
    add("openAccessEnabled", "open access");
    add("wepEnabled", "WEP");
    add("wpaEnabled", "WPA");
    return modes;
}

void severalModes(const Patient &patient, Findings &findings)
{
    forEachBss([&](const std::string &bss, const std::string &key) {
        int count = 0;
        const std::string modes = modesOf(patient.security, key, count);
        if (count > 1)
            findings.push_back({"BSS " + bss + " has " + modes + " on at once",
                                "oructl set security " + bss + " MODE"});
    });
}

void noMode(const Patient &patient, Findings &findings)
{
    forEachBss([&](const std::string &bss, const std::string &key) {
        int count = 0;
        (void)modesOf(patient.security, key, count);
        if (count == 0 && !patient.security.isOn(key + "dynWepEnabled"))
            findings.push_back({"BSS " + bss + " has no security mode, and no commit takes it",
                                "oructl set security " + bss + " MODE"});
    });
}

bool runs(const Patient &patient, const std::string &key)
{
    return patient.radio.number(key + "radio").value_or(0) != 0;
}

void openAccess(const Patient &patient, Findings &findings)
{
    forEachBss([&](const std::string &bss, const std::string &key) {
        if (runs(patient, key) && patient.security.isOn(key + "openAccessEnabled"))
            findings.push_back({"BSS " + bss + " is open to everybody, and nothing is encrypted",
                                "oructl set security " + bss + " wpa2 psk --psk -"});
    });
}

void wep(const Patient &patient, Findings &findings)
{
    forEachBss([&](const std::string &bss, const std::string &key) {
        if (runs(patient, key) && patient.security.isOn(key + "wepEnabled"))
            findings.push_back({"BSS " + bss + " has WEP, which is broken within minutes",
                                "oructl set security " + bss + " wpa2 psk --psk -"});
    });
}

constexpr int32_t kRadius = 0;
constexpr int32_t kPreSharedKey = 1;

bool hasWpaWith(const Patient &patient, const std::string &key, int32_t authentication)
{
    return patient.security.isOn(key + "wpaEnabled") &&
           patient.security.number(key + "wpaAuthTypes") == authentication;
}

void psk(const Patient &patient, Findings &findings)
{
    forEachBss([&](const std::string &bss, const std::string &key) {
        if (hasWpaWith(patient, key, kPreSharedKey) && !patient.security.text(key + "wpaPsk"))
            findings.push_back({"BSS " + bss + " has WPA without its pre-shared key",
                                "oructl set psk " + bss + " -"});
    });
}

constexpr const char *kSetRadius = "oructl set radius TIMEOUT TRIES NAME:PORT...";

void radiusServer(const Patient &patient, Findings &findings)
{
    if (patient.security.text("radiusServer.1")) return;
    forEachBss([&](const std::string &bss, const std::string &key) {
        const bool dynamicWep = patient.security.isOn(key + "wepEnabled") &&
                                patient.security.isOn(key + "dynamicWepEnabled");
        if (dynamicWep || hasWpaWith(patient, key, kRadius))
            findings.push_back(
                {"BSS " + bss + " needs a RADIUS server, and there is none", kSetRadius});
    });
}

void radiusSecret(const Patient &patient, Findings &findings)
{
    const int32_t count = patient.security.number("numRadiusServers").value_or(0);
    for (int32_t i = 1; i <= std::min(count, kServers); ++i) {
        const std::string number = std::to_string(i);
        if (!patient.security.text("radiusServer." + number)) continue;
        if (patient.security.text("radiusSecret." + number).value_or("").empty())
            findings.push_back({"RADIUS server " + number + " has no secret", kSetRadius});
    }
}

void unusedSecret(const Patient &patient, Findings &findings)
{
    for (int i = 1; i <= kServers; ++i) {
        const std::string number = std::to_string(i);
        if (patient.security.text("radiusSecret." + number) &&
            !patient.security.text("radiusServer." + number))
            findings.push_back(
                {"there is a RADIUS secret " + number + " without its server", kSetRadius});
    }
}

/// What the radio has to know of WPA stands in its own file.
void radioFlags(const Patient &patient, Findings &findings)
{
    forEachBss([&](const std::string &bss, const std::string &key) {
        const auto rsn = patient.radio.number(key + "BpRSNFlag");
        const auto withKey = patient.radio.number(key + "BpPskFlag");
        const bool wpa = patient.security.isOn(key + "wpaEnabled");
        const auto number = [&](const char *name) {
            return wpa ? patient.security.number(key + name).value_or(0) : 0;
        };
        const bool same = rsn.value_or(0) == number("wpaEncTypes") + (wpa ? 1 : 0) &&
                          withKey.value_or(0) == number("wpaAuthTypes");
        if (!same)
            findings.push_back({"the two files disagree on whether BSS " + bss +
                                    " has WPA, or on "
                                    "its cipher or authentication",
                                "oructl set wpa " + bss + (wpa ? " MODE AUTH CIPHER" : " off")});
    });
}

constexpr Check kChecks[] = {
    {"ssid", Level::Error, ssid},
    {"assignment", Level::Error, assignment},
    {"several-modes", Level::Error, severalModes},
    {"no-mode", Level::Error, noMode},
    {"psk", Level::Error, psk},
    {"radius-server", Level::Error, radiusServer},
    {"radius-secret", Level::Error, radiusSecret},
    {"unused-secret", Level::Warning, unusedSecret},
    {"radio-flags", Level::Error, radioFlags},
    {"open-access", Level::Warning, openAccess},
    {"wep", Level::Warning, wep},
};

} // namespace

std::span<const Check> securityChecks()
{
    return kChecks;
}

} // namespace oructl

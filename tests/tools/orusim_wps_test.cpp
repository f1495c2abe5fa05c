// Enrollments, PINs, and what the authorization agent says of each BSS.
#include "living.hpp"

namespace orusim::test {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr uint32_t kPin = 0;
constexpr uint32_t kButton = 1;
constexpr uint32_t kEnrollee = 2;

class WpsTest : public LivingTest {
protected:
    void enroll(uint32_t method, const char *pin = "12345670")
    {
        EXPECT_EQ(call([&] { return sendWscEnroll(method, 0, 0, pin); }), 0u);
    }
    uint32_t status(uint32_t radio = 0, uint32_t bss = 0)
    {
        uint32_t result = 0xffffffff;
        EXPECT_EQ(call([&] { return oruSdkGetWscStatus(radio, bss, &result); }), 0u);
        return result;
    }
    const std::string &pin() { return sim->wsm().wps().pin(0); }
    std::string stage() { return sim->wsm().wps().stage(0, 0); }
};

TEST_F(WpsTest, JudgesAPin)
{
    struct {
        const char *pin;
        WpsResult result;
    } const rows[] = {
        {"12345670", WpsResult::done},
        {"00000000", WpsResult::done},
        {"12345671", WpsResult::wrongCheckDigit},
        {"21345670", WpsResult::wrongCheckDigit},
        {"1234567x", WpsResult::wrongCheckDigit},
        {"1234567", WpsResult::wrongCheckDigit},
        {"1234", WpsResult::done}, // too short to have a check digit
        {"123x", WpsResult::wrongCheckDigit},
        {"", WpsResult::wrongCheckDigit},
        {"123456789", WpsResult::tooLong},
        {"xxxxxxxxx", WpsResult::tooLong},
    };
    for (const auto &[pin, result] : rows) EXPECT_EQ(verdictOn(pin), result) << pin;
}

TEST_F(WpsTest, IsIdleAtFirst)
{
    EXPECT_EQ(status(), 2u);
    EXPECT_EQ(status(7, 9), 2u) << "there is no such BSS";
}

TEST_F(WpsTest, EnrollsAStationByItsPin)
{
    enroll(kPin);
    EXPECT_EQ(status(), 1u);
    pass(1'999);
    EXPECT_EQ(stage(), "waiting");
    pass(1);
    EXPECT_EQ(stage(), "exchanging");
    pass(2'999);
    EXPECT_EQ(status(), 1u);
    EXPECT_EQ(world().stations().size(), 0u);
    pass(1);
    EXPECT_EQ(status(), 0u);
    ASSERT_EQ(world().stations().size(), 1u);
    EXPECT_EQ(world().stations()[0].bss, 0u);
    EXPECT_THAT(lines, Contains("WSM: WPS of bss 0 on radio 0: done"));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("12345670"))));
    EXPECT_EQ(status(1, 0), 2u) << "nothing was started on the other radio";
}

TEST_F(WpsTest, EnrollsOnTheRadioAndTheBssThatAreNamed)
{
    Box::set("/var/wsmDefaults", "bss2.radio", "2");
    commit();
    box.write("/var/1x.conf", box.read("/var/1x.conf") + "bss2.wscEnabledFlag=1\n");
    EXPECT_EQ(call([] { return sendWscEnroll(kButton, 1, 2, ""); }), 0u);
    EXPECT_EQ(status(1, 2), 1u);
    EXPECT_EQ(status(0, 2), 2u);
    pass(13'000);
    ASSERT_EQ(world().stations().size(), 1u);
    EXPECT_EQ(world().stations()[0].bss, 2u);
    EXPECT_EQ(world().stations()[0].radio, 1u);
}

TEST_F(WpsTest, AStationJoinsAtItsTimeHoweverTimePasses)
{
    const auto joined = [this](int64_t stepMs) {
        start(3);
        enroll(kPin);
        for (int64_t ms = 0; ms < 20'000; ms += stepMs) pass(stepMs);
        const std::vector<Station> &stations = world().stations();
        return stations.size() == 1 ? std::pair{stations[0].joinedAt, stations[0].counters.txBytes}
                                    : std::pair{int64_t{-1}, uint64_t{0}};
    };
    const auto inSteps = joined(500);
    EXPECT_EQ(inSteps.first, 4000) << "the step before the end of the enrollment";
    EXPECT_GT(inSteps.second, 0u);
    EXPECT_EQ(joined(20'000), inSteps);
}

TEST_F(WpsTest, TellsAPinThatIsWrongAndStartsNothing)
{
    enroll(kPin, "12345671");
    EXPECT_EQ(status(), 201u);
    enroll(kPin, "123456700");
    EXPECT_EQ(status(), 200u);
    pass(200'000);
    EXPECT_EQ(status(), 200u);
    EXPECT_EQ(world().stations().size(), 0u);
}

TEST_F(WpsTest, APushButtonWaitsForTheOtherOne)
{
    enroll(kButton);
    pass(9'999);
    EXPECT_EQ(stage(), "waiting");
    pass(3'001);
    EXPECT_EQ(status(), 0u);
    EXPECT_EQ(world().stations().size(), 1u);
}

TEST_F(WpsTest, ThePushButtonsWindowClosesAfterTwoMinutes)
{
    EXPECT_EQ(command("wps peer off"), "ok\n");
    enroll(kButton);
    pass(119'999);
    EXPECT_EQ(status(), 1u);
    pass(1);
    EXPECT_EQ(status(), 3u);
    EXPECT_EQ(command("wps peer on"), "ok\n");
    pass(60'000);
    EXPECT_EQ(status(), 3u) << "too late";
    EXPECT_EQ(world().stations().size(), 0u);
}

TEST_F(WpsTest, TheOtherSideMayComeWithinTheWindow)
{
    command("wps peer off");
    enroll(kButton);
    pass(119'000);
    command("wps peer on");
    pass(2'999);
    EXPECT_EQ(status(), 1u) << "an exchange that has begun goes on";
    pass(1);
    EXPECT_EQ(status(), 0u);
}

TEST_F(WpsTest, EndsTheSameWhenTimePassesAtOnce)
{
    enroll(kButton);
    pass(500'000);
    EXPECT_EQ(status(), 0u);
}

TEST_F(WpsTest, TheAccessPointEnrollsWithItsOwnPin)
{
    enroll(kEnrollee);
    pass(5'000);
    EXPECT_EQ(status(), 0u);
    EXPECT_EQ(world().stations().size(), 0u) << "no station joins by that";

    Box::set("/var/wsmDefaults", "bss0.appinpasswd", "12345671");
    commit();
    enroll(kEnrollee);
    EXPECT_EQ(status(), 201u);
}

TEST_F(WpsTest, RefusesABssThatIsNotOnTheAir)
{
    sim->wsm().world().setUp(0, false);
    enroll(kButton);
    EXPECT_EQ(status(), 2u) << "nothing was started";
    EXPECT_EQ(sim->wsm().wps().enroll(0, 0, Wps::Method::button, "", 0), WpsResult::refused);
    EXPECT_EQ(sim->wsm().wps().enroll(4, 0, Wps::Method::button, "", 0), WpsResult::refused);
    EXPECT_EQ(sim->wsm().wps().enroll(0, 2, Wps::Method::button, "", 0), WpsResult::refused);
}

TEST_F(WpsTest, EndsWithTheRadio)
{
    enroll(kButton);
    sim->wsm().world().setUp(0, false);
    pass(1);
    EXPECT_EQ(status(), 4u);
}

TEST_F(WpsTest, TakesADevicePinThatIsRight)
{
    EXPECT_EQ(call([] { return oruSdkSetDevicePin(0, 0, "00000000"); }), 0u);
    EXPECT_EQ(pin(), "00000000");
    EXPECT_EQ(call([] { return oruSdkSetDevicePin(0, 0, "00000001"); }), 0u);
    EXPECT_EQ(pin(), "00000000") << "refused, which the library only logs";
    EXPECT_THAT(lines, Not(Contains(HasSubstr("00000000"))));

    const Bytes request{1, 24,  0,   26,  0,   0, 0, 0, 0,  8, 0, 14, 0,
                        4, '1', '2', '3', '4', 0, 2, 0, 17, 0, 2, 0,  0};
    EXPECT_EQ(sim->wsm().receive(request).answer,
              (Bytes{1, 25, 0, 22, 0, 2, 0, 14, 0, 2, 0, 1, 0, 3, 0, 10, 0, 4, 0, 0, 0, 0}));
    EXPECT_EQ(pin(), "1234");
}

TEST_F(WpsTest, ACommitBringsTheSavedPinWhenItHasChanged)
{
    EXPECT_EQ(call([] { return oruSdkGenPassword(0, 0); }), 0u);
    const std::string generated = pin();
    EXPECT_NE(generated, "12345670");
    EXPECT_EQ(verdictOn(generated), WpsResult::done);
    EXPECT_EQ(generated.size(), 8u);
    commit();
    EXPECT_EQ(pin(), generated) << "the saved one is the same as before";
    Box::set("/var/wsmDefaults", "bss0.appinpasswd", "1234");
    commit();
    EXPECT_EQ(pin(), "1234");
}

TEST_F(WpsTest, GeneratesTheSamePinsFromTheSameSeed)
{
    call([] { return oruSdkGenPassword(0, 0); });
    const std::string first = pin();
    start(1);
    call([] { return oruSdkGenPassword(0, 0); });
    EXPECT_EQ(pin(), first);
    start(2);
    call([] { return oruSdkGenPassword(0, 0); });
    EXPECT_NE(pin(), first);
}

TEST_F(WpsTest, EveryGeneratedPinIsRight)
{
    for (int i = 0; i < 1000; ++i) {
        EXPECT_EQ(sim->wsm().wps().generatePin(3), WpsResult::done);
        EXPECT_EQ(verdictOn(sim->wsm().wps().pin(3)), WpsResult::done);
    }
    EXPECT_EQ(sim->wsm().wps().generatePin(4), WpsResult::refused);
    EXPECT_EQ(sim->wsm().wps().setPin(4, "1234"), WpsResult::refused);
}

// ---- The authorization agent

struct ModeRow {
    const char *name;
    std::vector<const char *> on; // boolean keys of the BSS
    std::vector<std::pair<const char *, const char *>> keys;
    const char *text;
};

const ModeRow kModes[] = {
    {"none", {}, {}, "no security mode"},
    {"open", {"openAccessEnabled"}, {}, "open"},
    {"WPA", {"wpaEnabled"}, {{"bss0.mixedIeMode", "1"}}, "WPA with a pre-shared key: PSK missing"},
    {"WPA2", {"wpaEnabled"}, {{"bss0.wpaPsk", "hush hush"}}, "WPA2 with a pre-shared key"},
    {"both",
     {"wpaEnabled"},
     {{"bss0.mixedIeMode", "3"}, {"bss0.wpaPsk", "hush hush"}},
     "WPA + WPA2 with a pre-shared key"},
    {"another kind",
     {"wpaEnabled"},
     {{"bss0.mixedIeMode", "0"}, {"bss0.wpaPsk", "hush hush"}},
     "WPA of an unknown kind with a pre-shared key"},
    {"another authentication",
     {"wpaEnabled"},
     {{"bss0.wpaAuthTypes", "2"}},
     "WPA2: authentication type unknown"},
    {"no server",
     {"wpaEnabled"},
     {{"bss0.wpaAuthTypes", "0"}},
     "WPA2 through RADIUS: no RADIUS server"},
    {"a server",
     {"wpaEnabled"},
     {{"bss0.wpaAuthTypes", "0"}, {"radiusServer.1", "10.0.0.1"}},
     "WPA2 through RADIUS"},
    {"WEP", {"wepEnabled"}, {{"bss0.wepKey.1", "0a:1b"}}, "WEP"},
    {"WEP without its key",
     {"wepEnabled"},
     {{"bss0.wepKey.1", "0a:1b"}, {"bss0.wepDefaultKey", "2"}},
     "WEP: default key missing"},
    {"dynamic WEP",
     {"wepEnabled", "dynamicWepEnabled"},
     {{"radiusServer.1", "10.0.0.1"}},
     "dynamic WEP through RADIUS"},
    {"dynamic WEP without a server",
     {"dynWepEnabled"},
     {},
     "dynamic WEP through RADIUS: no RADIUS server"},
    {"two modes",
     {"openAccessEnabled", "wpaEnabled"},
     {{"bss0.wpaPsk", "hush hush"}},
     "two modes are on (open; WPA2 with a pre-shared key)"},
    {"three modes",
     {"openAccessEnabled", "wpaEnabled", "wepEnabled"},
     {},
     "three modes are on (open; WEP: default key missing; WPA2 with a pre-shared key: PSK "
     "missing)"},
};

TEST_F(WpsTest, TheAgentTellsTheModeOfEachBss)
{
    const std::string factory = box.read("/var/1x.conf");
    for (const auto &[name, on, keys, text] : kModes) {
        box.write("/var/1x.conf", factory);
        Box::set("/var/1x.conf", "bss0.openAccessEnabled", "false");
        for (const char *key : on)
            Box::set("/var/1x.conf", (std::string("bss0.") + key).c_str(), "true");
        for (const auto &[key, value] : keys) Box::set("/var/1x.conf", key, value);
        lines.clear();
        sim->aa().receive(kAaCommit);
        EXPECT_THAT(lines, Contains(std::string("AA: bss 0: ") + text)) << name;
        EXPECT_THAT(lines, Contains("AA: bss 3: open")) << name;
    }
}

} // namespace
} // namespace orusim::test

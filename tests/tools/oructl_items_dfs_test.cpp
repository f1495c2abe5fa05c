// Items of DFS and preferred channels, through the real program and the factory file.
#include "tools/oructl_radio_items.hpp"

using namespace oru::test;

namespace {

// ---- What a set writes and a get shows

const Row kRows[] = {
    {"DfsPreferredBand",
     {},
     "dfs-preferred-band 0 2",
     {{"dfsPreferredBand", "2"}},
     "dfs-preferred-band[0] = 2\n",
     "2"},
    {"DfsPreferredBandAny",
     {{"dfsPreferredBand", "1"}},
     "dfs-preferred-band 0 any",
     {{"dfsPreferredBand", "0"}},
     "dfs-preferred-band[0] = any\n",
     "0"},
    {"DfsWeightMargin",
     {},
     "dfs-weight-margin 1 100",
     {{"dfsWeightMargin", "100"}},
     "dfs-weight-margin[1] = 100\n",
     "100"},
    {"CbSwitch",
     {},
     "cb-switch 0 1000000000",
     {{"cbSwitch", "1000000000"}},
     "cb-switch[0] = 1000000000\n",
     "1000000000"},
    {"DfsRadarWeightFactor",
     {},
     "dfs-radar-weight-factor 0 7",
     {{"dfsRdrChanWghtFactor", "7"}},
     "dfs-radar-weight-factor[0] = 7\n",
     "7"},
    {"DfsPersistRadar",
     {},
     "dfs-persist-radar 0 off",
     {{"dfsPersistRdr", "0"}},
     "dfs-persist-radar[0] = off\n",
     R"({"word":"off","number":0})"},
    {"DfsForceChannel",
     {},
     "dfs-force-channel 1 on",
     {{"dfsForceChSelChan", "1"}},
     "dfs-force-channel[1] = on\n",
     R"({"word":"on","number":1})"},
    {"DfsRadarParking",
     {},
     "dfs-radar-parking 0 on",
     {{"dfsRdrParking", "1"}},
     "dfs-radar-parking[0] = on\n",
     R"({"word":"on","number":1})"},
    {"DfsUniiBands",
     {},
     "dfs-unii-bands 0 on off on",
     {{"dfsMidUNIIBand", "0"}},
     "dfs-unii-bands[0].low = on\ndfs-unii-bands[0].mid = off\ndfs-unii-bands[0].high = on\n",
     R"({"low":{"word":"on","number":1},"mid":{"word":"off","number":0},)"
     R"("high":{"word":"on","number":1}})"},
    {"DfsPreferredChannels",
     {{"dfsPreferredBand", "1"}},
     "dfs-preferred-channels 0 2.4ghz 1 5",
     {{"dfsPreferred24GPrimChan", "1"}, {"dfsPreferred24GSecdChan", "5"}},
     "dfs-preferred-channels[0].preferred-band = 1\n"
     "dfs-preferred-channels[0].24ghz-primary = 1\n"
     "dfs-preferred-channels[0].24ghz-secondary = 5\n"
     "dfs-preferred-channels[0].5ghz-primary = 36\n"
     "dfs-preferred-channels[0].5ghz-secondary = none\n",
     R"({"preferred-band":1,"24ghz-primary":1,"24ghz-secondary":5,"5ghz-primary":36,)"
     R"("5ghz-secondary":0})"},
    {"DfsPreferredChannelsAndBand",
     {},
     "dfs-preferred-channels 1 2.4ghz 11 7 --preferred-band 2",
     {{"dfsPreferred24GPrimChan", "11"},
      {"dfsPreferred24GSecdChan", "7"},
      {"dfsPreferredBand", "2"}},
     "dfs-preferred-channels[1].preferred-band = 2\n"
     "dfs-preferred-channels[1].24ghz-primary = 11\n"
     "dfs-preferred-channels[1].24ghz-secondary = 7\n"
     "dfs-preferred-channels[1].5ghz-primary = 36\n"
     "dfs-preferred-channels[1].5ghz-secondary = none\n",
     R"({"preferred-band":2,"24ghz-primary":11,"24ghz-secondary":7,"5ghz-primary":36,)"
     R"("5ghz-secondary":0})"},
};

INSTANTIATE_TEST_SUITE_P(Dfs, EachItem, ::testing::ValuesIn(kRows), nameOf<Row>);

// ---- Why a call is refused

const Refused kRefused[] = {
    {"WeightMarginBeyondItsByte",
     {},
     "set dfs-weight-margin 0 300",
     47,
     "refused",
     "dfs-weight-margin takes 0 to 100"},
    {"WeightMarginNegative",
     {},
     "set dfs-weight-margin 0 -1",
     47,
     "refused",
     "dfs-weight-margin takes 0 to 100"},
    {"CbSwitch",
     {},
     "set cb-switch 0 1000000001",
     47,
     "refused",
     "cb-switch takes 0 to 1000000000"},
    {"UniiBand",
     {},
     "set dfs-unii-bands 0 257 on on",
     47,
     "refused",
     "low of dfs-unii-bands takes on or off"},
    {"PreferredBand",
     {},
     "set dfs-preferred-channels 0 3 6 10",
     40,
     "refused",
     "band of dfs-preferred-channels takes 2.4ghz or 5ghz"},
    {"PreferredBandBeyondItsByte",
     {},
     "set dfs-preferred-channels 0 258 6 10",
     40,
     "refused",
     "band of dfs-preferred-channels takes 2.4ghz or 5ghz"},
    {"PreferredChannels24",
     {},
     "set dfs-preferred-channels 0 2.4ghz 6 6",
     19,
     "refused",
     "at 2.4 GHz the primary channel is 1 to 14 (1 to 13 with channel bonding), and the secondary "
     "one 1 to 13, four channels above or below"},
    {"PreferredChannels5",
     {},
     "set dfs-preferred-channels 1 5ghz 100 none",
     88,
     "refused",
     "in its country (US) radio 1 may use 36, 40, 44, 48, 52, 56 at 5 GHz, not 100",
     Wsm::BothBands},
    {"PreferredSecondary5",
     {{"radio1.channelBondingMode", "1"}},
     "set dfs-preferred-channels 1 5ghz 36 60",
     106,
     "refused",
     "in its country (US) radio 1 may use 36, 40, 44, 48, 52, 56 at 5 GHz, not 60",
     Wsm::BothBands},
    {"PreferredChannelsOfLowRadio",
     {},
     "set dfs-preferred-channels 0 5ghz 36 none",
     88,
     "refused",
     "in its country (US) radio 0 may use no channel at 5 GHz, not 36",
     Wsm::BothBands},
};

INSTANTIATE_TEST_SUITE_P(Dfs, EachRefusal, ::testing::ValuesIn(kRefused), nameOf<Refused>);

} // namespace

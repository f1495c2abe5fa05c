// Transcripts of whole runs, one file a command. ORU_UPDATE_GOLDEN=1 writes them anew.
#include "tools/oructl_run.hpp"

#include <cstdlib>
#include <fstream>
#include <sstream>

using namespace oru::test;

namespace {

struct Command {
    const char *file;
    Arguments arguments;
    bool factory = false; ///< the files are those of an access point that leaves the factory
};

const Command kCommands[] = {
    {"no_verb", {}},
    {"help", {"help"}},
    {"help_json", {"--json", "help", "version"}},
    {"help_get", {"help", "get"}},
    {"help_set", {"help", "set"}},
    {"help_commit", {"help", "commit"}},
    {"help_reset", {"help", "reset"}},
    {"help_list", {"help", "list"}},
    {"help_explain", {"help", "explain"}},
    {"help_version", {"help", "version"}},
    {"help_help", {"help", "help"}},
    {"help_item", {"help", "bss-width-trigger-scan-interval"}},
    {"help_item_shared", {"help", "mimo"}},
    {"get_switch", {"get", "mimo", "0"}},
    {"get_switch_json", {"--json", "get", "mimo", "0"}},
    {"get_choice", {"get", "preamble-type", "1"}},
    {"get_number", {"get", "nwk-density-value", "0"}},
    {"get_number_json", {"--json", "get", "nwk-density-value", "0"}},
    {"get_wrong_radio", {"get", "mimo", "2"}},
    {"get_wrong_radio_json", {"--json", "get", "mimo", "2"}},
    {"get_unknown_item", {"get", "mpdu-densty", "0"}},
    {"get_unknown_item_json", {"--json", "get", "mpdu-densty", "0"}},
    {"get_rate", {"get", "rate", "0"}},
    {"get_world_mode", {"get", "world-mode"}},
    {"help_item_options", {"help", "channel"}},
    {"set_radar_channel", {"set", "channel", "0", "52"}},
    {"set_radar_channel_json", {"--json", "set", "channel", "0", "52"}},
    {"set_conflict", {"set", "channel", "0", "6", "--keep-periodic"}},
    {"set_switch", {"set", "mimo", "0", "off"}},
    {"set_switch_json", {"--json", "set", "mimo", "0", "off"}},
    {"set_refused", {"set", "tx-power", "0", "9"}},
    {"set_refused_json", {"--json", "set", "tx-power", "0", "9"}},
    {"set_no_number", {"set", "tx-power", "0", "1x"}},
    {"set_no_number_json", {"--json", "set", "tx-power", "0", "1x"}},
    {"commit", {"commit"}},
    {"commit_json", {"--json", "commit", "radio"}},
    {"commit_until", {"commit", "--until", "on-air"}},
    {"plan_nothing", {"plan"}},
    {"plan_nothing_json", {"--json", "plan"}},
    {"confirm_nothing", {"confirm", "abc"}},
    {"confirm_without_token", {"confirm"}},
    {"revert_nothing_json", {"--json", "revert"}},
    {"guard_nothing_json", {"--json", "guard"}},
    {"commit_unknown", {"commit", "everything"}},
    {"reset_all", {"reset", "all"}},
    {"reset_all_json", {"--json", "reset", "all"}},
    {"reset_bss_json", {"--json", "reset", "bss", "3"}},
    {"reset_bss_refused", {"reset", "bss", "4"}},
    {"help_show", {"help", "show"}},
    {"help_stats", {"help", "stats"}},
    {"help_radio", {"help", "radio"}},
    {"help_disassoc", {"help", "disassoc"}},
    {"help_wps", {"help", "wps"}},
    {"help_item_admin_status", {"help", "admin-status"}},
    {"help_export", {"help", "export"}},
    {"help_import", {"help", "import"}},
    {"help_batch", {"help", "batch"}},
    {"help_diff", {"help", "diff"}},
    {"import_missing_file", {"import", "/nowhere/export"}},
    {"import_without_file", {"import"}},
    {"batch_missing_file_json", {"--json", "batch", "/nowhere/batch"}},
    {"diff_without_commit", {"diff"}},
    {"diff_without_commit_json", {"--json", "diff"}},
    {"diff_both", {"diff", "--factory", "--against", "/nowhere/export"}},
    {"show_without_service", {"show", "stations", "0", "1"}},
    {"show_without_service_json", {"--json", "show", "stations", "0", "1"}},
    {"show_radio", {"show", "radio", "0"}},
    {"show_bss_json", {"--json", "show", "bss", "3"}},
    {"show_bss_one", {"show", "bss", "3"}},
    {"show_bss_info", {"show", "bss-info", "0"}},
    {"show_bss_info_json", {"--json", "show", "bss-info", "0"}},
    {"show_unknown", {"show", "station", "0", "1"}},
    {"show_wrong_operand", {"show", "stations", "0", "one"}},
    {"show_wrong_bss_json", {"--json", "show", "stations", "0", "4"}},
    {"radio_without_word", {"radio"}},
    {"wps_unknown", {"wps", "stats"}},
    {"list", {"list"}},
    {"list_pattern", {"list", "density"}},
    {"list_json", {"--json", "list", "tx-power-adj"}},
    {"explain", {"explain", "7"}},
    {"explain_0", {"explain", "0"}},
    {"explain_97", {"explain", "97"}},
    {"explain_120", {"explain", "120"}},
    {"explain_121", {"explain", "121"}},
    {"explain_122", {"explain", "122"}},
    {"explain_json", {"--json", "explain", "121"}},
    {"explain_unknown", {"explain", "-5"}},
    {"explain_unknown_json", {"--json", "explain", "4294967296"}},
    {"help_doctor", {"help", "doctor"}},
    {"doctor", {"doctor"}, true},
    {"doctor_json", {"--json", "doctor"}, true},
    {"doctor_terse", {"--terse", "doctor"}, true},
    {"doctor_operand", {"doctor", "radio0"}, true},
    {"help_metrics", {"help", "metrics"}},
    {"metrics", {"metrics"}, true},
    {"metrics_json", {"--json", "metrics"}, true},
    {"metrics_operand", {"metrics", "radio0"}, true},
    {"explain_106", {"explain", "106"}},
    {"explain_item", {"explain", "beacon"}},
    {"explain_item_json", {"--json", "explain", "mac-auth"}},
    {"explain_key", {"explain", "radio0.txPower"}},
    {"explain_key_json", {"--json", "explain", "bss1.macAuthType"}},
    {"explain_nothing", {"explain"}},
    {"explain_no_name", {"explain", "tx-powr"}},
    {"version", {"version"}},
    {"version_json", {"--json", "version"}},
    {"help_item_secret", {"help", "psk"}},
    {"help_security", {"help", "security"}},
    {"get_several_fields", {"get", "wpa", "0"}},
    {"get_ssid_json", {"--json", "get", "ssid", "0"}},
    {"set_ether_vlan", {"set", "ether-vlan", "77", "100", "10", "20"}},
    {"set_ether_vlan_json", {"--json", "set", "ether-vlan", "77", "100"}},
    {"set_other_mode_is_on", {"set", "wpa", "0", "wpa2", "psk"}},
    {"set_security", {"set", "security", "0", "wpa2", "psk"}},
    {"set_security_json", {"--json", "set", "security", "0", "wep"}},
    {"set_secret_in_argv", {"set", "psk", "0", "secret of the house"}},
    {"set_radius_refused",
     {"--insecure-argv", "set", "radius", "10", "2", "radius.example:1812,hush"}},
    {"unknown_verb", {"gett", "mimo", "0"}},
    {"unknown_option", {"--verbose", "get", "mimo", "0"}},
};

std::string textOf(const Command &command, const Transcript &run)
{
    std::string text = "$ oructl";
    for (const std::string &argument : command.arguments) text += ' ' + argument;
    return text + "\n--- exit " + std::to_string(run.exit) + "\n--- stdout\n" + run.out +
           "--- stderr\n" + run.err;
}

class Golden : public OructlTest, public ::testing::WithParamInterface<Command> {};

TEST_P(Golden, TranscriptIsTheStoredOne)
{
    const std::string path =
        std::string(ORU_SOURCE_DIR "/tests/tools/golden/") + GetParam().file + ".txt";
    if (GetParam().factory) installFactoryFiles();
    const std::string text = textOf(GetParam(), run(GetParam().arguments));
    if (std::getenv("ORU_UPDATE_GOLDEN") != nullptr) {
        std::ofstream{path, std::ios::binary} << text;
        return;
    }
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file) << path << " is missing";
    std::ostringstream stored;
    stored << file.rdbuf();
    EXPECT_EQ(text, stored.str());
}

INSTANTIATE_TEST_SUITE_P(Oructl, Golden, ::testing::ValuesIn(kCommands),
                         [](const auto &info) { return std::string(info.param.file); });

} // namespace

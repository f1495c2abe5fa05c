// "metrics": the text format to the letter, with and without services.
#include "living.hpp"
#include "metrics.hpp"
#include "tools/oructl_run.hpp"

#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

using namespace oru::test;
using testing::HasSubstr;
using testing::Not;

namespace {

/// Reads the text format as strictly as a scraper may, and yields the samples: "name{labels}" and
/// the value.
std::map<std::string, std::string> samplesOf(const std::string &text)
{
    static const std::regex kHelp{R"(# HELP (oru_[a-z0-9_]+) [^\n]*[^ \n])"};
    static const std::regex kType{R"(# TYPE (oru_[a-z0-9_]+) (gauge|counter))"};
    static const std::regex kSample{
        R"re((oru_[a-z0-9_]+)\{([a-z]+="([^"\\\n]|\\[\\"n])*"(,[a-z]+="([^"\\\n]|\\[\\"n])*")*)\} (-?[0-9]+))re"};
    EXPECT_TRUE(text.ends_with('\n'));
    std::map<std::string, std::string> samples;
    std::set<std::string> families;
    std::string family;
    std::string type;
    std::istringstream lines{text};
    std::smatch match;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("# HELP ")) {
            EXPECT_TRUE(std::regex_match(line, match, kHelp)) << line;
            family = match[1];
            EXPECT_TRUE(families.insert(family).second) << "twice: " << family;
            type.clear();
        } else if (line.starts_with("# TYPE ")) {
            EXPECT_TRUE(std::regex_match(line, match, kType)) << line;
            EXPECT_EQ(match[1], family);
            type = match[2];
            EXPECT_EQ(type == "counter", family.ends_with("_total")) << family;
        } else {
            EXPECT_TRUE(std::regex_match(line, match, kSample)) << line;
            EXPECT_EQ(match[1], family) << "samples of a metric stand together";
            EXPECT_FALSE(type.empty()) << line;
            EXPECT_TRUE(samples.emplace(line.substr(0, line.rfind(' ')), match[6]).second) << line;
        }
    }
    return samples;
}

class Metrics : public OructlTest {
protected:
    Metrics() { installFactoryFiles(); }
};

TEST_F(Metrics, AServiceThatIsAwayIsAMetric)
{
    const Transcript run = this->run({"metrics"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.err, "");
    auto samples = samplesOf(run.out);
    EXPECT_EQ(samples["oru_service_up{service=\"wsm\"}"], "0");
    EXPECT_EQ(samples["oru_service_up{service=\"aa\"}"], "0");
    EXPECT_EQ(samples["oru_radio_up{radio=\"0\"}"], "1");
    EXPECT_EQ(samples["oru_radio_configured_channel{radio=\"1\"}"], "36");
    EXPECT_EQ(samples["oru_bss_assigned{bss=\"1\",radio=\"0\"}"], "0");
    EXPECT_EQ(samples["oru_bss_wps_enabled{bss=\"0\"}"], "1");
    EXPECT_EQ(samples["oru_bss_wps_configured{bss=\"0\"}"], "0");
    EXPECT_THAT(run.out, Not(HasSubstr("oru_bss_stations")));
    EXPECT_THAT(run.out, Not(HasSubstr("oru_uncommitted_keys")));
}

TEST_F(Metrics, WithoutFilesTheServicesAreLeft)
{
    for (const char *file : {kWsm, kAa}) remove(file);
    const Transcript run = this->run({"metrics"});
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(samplesOf(run.out).size(), 2u);
}

TEST_F(Metrics, LabelsAreEscaped)
{
    EXPECT_EQ(run({"set", "ssid", "0", "--hex", "615c62226309ff"}).exit, 0);
    EXPECT_EQ(run({"set", "ssid", "1", "--hex", "c3a95c22"}).exit, 0);
    auto samples = samplesOf(run({"metrics"}).out);
    EXPECT_EQ(samples[R"(oru_bss_info{bss="1",ssid="é\\\""})"], "1");
    EXPECT_THAT(run({"metrics"}).out, HasSubstr(R"(bss="0",ssid="a\\)"));
    EXPECT_EQ(oructl::exposition({{"oru_x", "gauge", "X.", {{{{"a", "1\n\"\\"}}, -5}}}}),
              "# HELP oru_x X.\n# TYPE oru_x gauge\noru_x{a=\"1\\n\\\"\\\\\"} -5\n");
}

TEST_F(Metrics, ChangesThatWaitForACommitAreCounted)
{
    std::filesystem::create_directories(root() + "/var/oructl/committed");
    write("/var/oructl/committed/wsmDefaults", read(kWsm));
    write("/var/oructl/committed/1x.conf", read(kAa));
    EXPECT_EQ(run({"set", "tx-power", "0", "2"}).exit, 0);
    auto samples = samplesOf(run({"metrics"}).out);
    EXPECT_EQ(samples["oru_uncommitted_keys{file=\"/var/wsmDefaults\"}"], "1");
    EXPECT_EQ(samples["oru_uncommitted_keys{file=\"/var/1x.conf\"}"], "0");
}

TEST(CounterName, IsAMetricsName)
{
    EXPECT_EQ(oructl::counterName("txPackets"), "oru_radio_tx_packets_total");
    EXPECT_EQ(oructl::counterName("FCSErrors"), "oru_radio_fcserrors_total");
    EXPECT_EQ(oructl::counterName("rx-bytes.5G"), "oru_radio_rx_bytes_5_g_total");
    EXPECT_EQ(oructl::counterName("txPower"), "oru_radio_tx_power") << "no sum";
    EXPECT_EQ(oructl::counterName("{}\""), "");
    EXPECT_EQ(oructl::counterName(""), "");
}

// ---- A living access point

class MetricsAtWork : public orusim::test::LivingTest {
protected:
    std::string outputOf(const std::string &command)
    {
        return call([&] {
            std::string out;
            FILE *const pipe = ::popen(command.c_str(), "r");
            std::array<char, 4096> bytes{};
            for (size_t got = 1; got > 0;) {
                got = std::fread(bytes.data(), 1, bytes.size(), pipe);
                out.append(bytes.data(), got);
            }
            status_ = ::pclose(pipe);
            return out;
        });
    }
    int status_ = -1;
};

TEST_F(MetricsAtWork, HaveCountersAndStationsWithoutTheirAddresses)
{
    start(1, 3);
    pass(10000);
    const std::string text = outputOf(ORUCTL " metrics");
    auto samples = samplesOf(text);
    EXPECT_EQ(samples["oru_service_up{service=\"wsm\"}"], "1");
    EXPECT_EQ(samples["oru_service_up{service=\"aa\"}"], "1");
    EXPECT_TRUE(samples.contains("oru_radio_tx_packets_total{radio=\"0\"}")) << text;
    EXPECT_TRUE(samples.contains("oru_radio_errors_total{radio=\"1\"}")) << "zeros stay";
    EXPECT_EQ(std::stoi(samples["oru_radio_stations{radio=\"0\"}"]) +
                  std::stoi(samples["oru_radio_stations{radio=\"1\"}"]),
              3);
    const std::regex address{"[0-9a-f]{2}(:[0-9a-f]{2}){5}"};
    EXPECT_FALSE(std::regex_search(text, address)) << text;
    const std::string open = outputOf(ORUCTL " metrics --with-macs");
    EXPECT_TRUE(std::regex_search(open, address)) << open;
    EXPECT_GT(samplesOf(open).size(), samples.size());
}

TEST_F(MetricsAtWork, PassTheCheckOfPrometheus)
{
    if (std::system("command -v promtool >/dev/null") != 0)
        GTEST_SKIP() << "promtool (Debian package prometheus) is not installed";
    start(1, 3);
    const std::string verdict =
        outputOf(ORUCTL " metrics --with-macs | promtool check metrics 2>&1");
    EXPECT_EQ(status_, 0) << verdict;
    EXPECT_EQ(verdict, "");
}

} // namespace

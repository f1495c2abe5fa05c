#include "tools/oructl_run.hpp"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace oru::test {
namespace {

constexpr const char *kSharedSettings = R"(dot11Mode=4
localPowerConstraint=3
bss2040CoexistElement=0
dot11BSSWidthTriggerScanInterval=300
numSs=2
spectrumManagementFlag=0
reverseFcsFlag=0
proximity=0
mimoFlag=1
radioProprietaryExt=0
worldModeSupport=0
countryCodeFlag=1
countryCode="USI"
)";

constexpr std::array kRadioSettings = {"ShortGuardInterval40MHz=1",
                                       "ShortGuardInterval20MHz=0",
                                       "RifsSupport=1",
                                       "sbsEnabled=0",
                                       "GreenfieldCapability=0",
                                       "11bSupport=1",
                                       "enchRatesFlag=0",
                                       "dot112040BSSCoexistenceManagementSupport=1",
                                       "MaxMpduFactor=3",
                                       "MpduDensity=5",
                                       "BlockAckAuto=1",
                                       "txPowerAdj=4",
                                       "txPower=2",
                                       "networkDensityValue=100",
                                       "networkDensity=1",
                                       "shortPreambleFlag=1",
                                       "radarDetectFlag=1",
                                       "fixedRate=104"};

std::string radioFile()
{
    std::string text = kSharedSettings;
    for (const char radio : {'0', '1'})
        for (const char *setting : kRadioSettings)
            text.append("radio").append(1, radio).append(".").append(setting).append("\n");
    for (const char bss : {'0', '1', '2', '3'})
        for (const char *setting : {"ssId=\"factory\"", "suppressSSIDFlag=0", "BpRSNFlag=0",
                                    "enforcepintimeout=0", "wvid=1"})
            text.append("bss").append(1, bss).append(".").append(setting).append("\n");
    return text;
}

std::string securityFile()
{
    std::string text;
    for (const char bss : {'0', '1', '2', '3'})
        for (const char *setting :
             {"openAccessEnabled=true", "wpaEnabled=false", "wepEnabled=false",
              "dynamicWepEnabled=false", "mixedIeMode=3", "wpaAuthTypes=1", "wpaEncTypes=0",
              "macAuthType=0", "wepKeyLen=5", "wepDefaultKey=1"})
            text.append("bss").append(1, bss).append(".").append(setting).append("\n");
    return text;
}

/// Reads both pipes until their ends.
void drain(int out, int err, Transcript &transcript)
{
    std::array<pollfd, 2> pipes = {{{out, POLLIN, 0}, {err, POLLIN, 0}}};
    std::array<std::string *, 2> texts = {&transcript.out, &transcript.err};
    while (pipes[0].fd >= 0 || pipes[1].fd >= 0) {
        ASSERT_GE(::poll(pipes.data(), pipes.size(), 60000), 1) << "oructl hangs";
        for (size_t i = 0; i < pipes.size(); ++i) {
            if (pipes[i].fd < 0 || pipes[i].revents == 0) continue;
            std::array<char, 4096> bytes{};
            const ssize_t got = ::read(pipes[i].fd, bytes.data(), bytes.size());
            if (got > 0) texts[i]->append(bytes.data(), static_cast<size_t>(got));
            else pipes[i].fd = -1;
        }
    }
}

} // namespace

OructlTest::OructlTest()
{
    std::string pattern = std::filesystem::temp_directory_path() / "oructlXXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr) std::abort();
    root_ = pattern;
    std::filesystem::create_directories(root_ + "/var");
    for (const char *path : {kWsm, kWsmFactory}) write(path, radioFile());
    for (const char *path : {kAa, kAaFactory}) write(path, securityFile());
}

OructlTest::~OructlTest()
{
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
}

Transcript OructlTest::run(const Arguments &arguments, Stdout where) const
{
    return runWith(-1, arguments, where);
}

int exitOfRefusal(int code, const std::string &reason)
{
    constexpr int kNotFound = 10;
    constexpr int kIncomplete = 6;
    if (reason.starts_with("BSS is ") || reason.starts_with("RADIO is ")) return kNotFound;
    return code == 72 || code == 73 || code == 74 || code == 80 || code == 81 ? kIncomplete : 1;
}

Transcript OructlTest::runWithInput(const std::string &input, const Arguments &arguments) const
{
    std::array<int, 2> in{};
    if (::pipe2(in.data(), O_CLOEXEC) != 0) std::abort();
    EXPECT_EQ(::write(in[1], input.data(), input.size()), static_cast<ssize_t>(input.size()));
    ::close(in[1]);
    const Transcript transcript = runWith(in[0], arguments, Stdout::Pipe);
    ::close(in[0]);
    return transcript;
}

nlohmann::json OructlTest::jsonOf(const Arguments &arguments, int exit) const
{
    const Transcript run = this->run(arguments);
    EXPECT_EQ(run.exit, exit);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out.find('\n'), run.out.size() - 1) << "one line";
    nlohmann::json object = nlohmann::json::parse(run.out, nullptr, false);
    EXPECT_FALSE(object.is_discarded()) << run.out;
    EXPECT_EQ(object.value("schema", ""), "oructl/1");
    return object;
}

std::vector<std::string> OructlTest::environment() const
{
    std::vector<std::string> variables = {"ORU_ROOT=" + root_, "ORU_LOG=" + log_,
                                          "LC_ALL=" + locale_,
                                          "PATH=" + root_ + "/bin:/usr/bin:/bin", "TERM=xterm"};
    variables.insert(variables.end(), variables_.begin(), variables_.end());
    if (preload_.empty()) return variables;
    variables.push_back("LD_PRELOAD=" + preload_);
    variables.emplace_back("ASAN_OPTIONS=verify_asan_link_order=0"); // of a sanitized build
    return variables;
}

Transcript OructlTest::runWith(int input, const Arguments &arguments, Stdout where) const
{
    std::array<int, 2> out{};
    std::array<int, 2> err{};
    if (::pipe2(out.data(), O_CLOEXEC) != 0 || ::pipe2(err.data(), O_CLOEXEC) != 0) std::abort();

    posix_spawn_file_actions_t files;
    ::posix_spawn_file_actions_init(&files);
    if (input >= 0) ::posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
    if (where == Stdout::Pipe) ::posix_spawn_file_actions_adddup2(&files, out[1], STDOUT_FILENO);
    if (where == Stdout::Full)
        ::posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/full", O_WRONLY, 0);
    if (where == Stdout::Closed) ::posix_spawn_file_actions_addclose(&files, STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&files, err[1], STDERR_FILENO);

    std::vector<const char *> words = {"oructl"};
    for (const std::string &argument : arguments) words.push_back(argument.c_str());
    words.push_back(nullptr);
    const std::vector<std::string> variables = this->environment();
    std::vector<const char *> environment;
    for (const std::string &variable : variables) environment.push_back(variable.c_str());
    environment.push_back(nullptr);
    pid_t child = -1;
    const int started =
        ::posix_spawn(&child, ORUCTL, &files, nullptr, const_cast<char *const *>(words.data()),
                      const_cast<char *const *>(environment.data()));
    ::posix_spawn_file_actions_destroy(&files);
    ::close(out[1]);
    ::close(err[1]);

    Transcript transcript;
    if (started != 0) {
        ADD_FAILURE() << "can't start " << ORUCTL;
    } else {
        drain(out[0], err[0], transcript);
        int status = 0;
        ::waitpid(child, &status, 0);
        transcript.exit = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    ::close(out[0]);
    ::close(err[0]);
    return transcript;
}

std::string OructlTest::read(const std::string &path) const
{
    std::ifstream file(root_ + path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void OructlTest::write(const std::string &path, const std::string &text) const
{
    std::ofstream{root_ + path, std::ios::binary} << text;
}

void OructlTest::useFactoryRadios() const
{
    std::ifstream factory(ORU_SOURCE_DIR "/share/wsmDefaults.orig", std::ios::binary);
    std::ostringstream text;
    text << factory.rdbuf();
    write(kWsm, text.str());
}

void OructlTest::installFactoryFiles() const
{
    const auto install = [&](const char *from, const char *to) {
        const std::filesystem::path target = root_ + to;
        std::filesystem::create_directories(target.parent_path());
        std::filesystem::copy_file(std::string(ORU_SOURCE_DIR "/share/") + from, target,
                                   std::filesystem::copy_options::overwrite_existing);
        std::filesystem::permissions(target, std::filesystem::perms{0600});
    };
    for (const char *to : {kWsm, kWsmFactory}) install("wsmDefaults.orig", to);
    for (const char *to : {kAa, kAaFactory}) install("1x.conf.orig", to);
    install("wsmSavedRadarDetectList", "/config/wsmSavedRadarDetectList");
}

void OructlTest::standIn(const std::string &program, const std::string &script) const
{
    std::filesystem::create_directories(root_ + "/bin");
    write("/bin/" + program, "#!/bin/sh\n" + script);
    std::filesystem::permissions(root_ + "/bin/" + program, std::filesystem::perms::owner_all);
}

void OructlTest::remove(const std::string &path) const
{
    std::filesystem::remove(root_ + path);
}

std::optional<std::string> OructlTest::value(const std::string &path, const std::string &key) const
{
    std::istringstream lines{read(path)};
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(key + '=')) return line.substr(key.size() + 1);
    return std::nullopt;
}

void OructlTest::set(const std::string &path, const std::string &key,
                     const std::string &value) const
{
    std::istringstream lines{read(path)};
    std::string text;
    for (std::string line; std::getline(lines, line);)
        if (!line.starts_with(key + '=')) text += line + '\n';
    write(path, text + key + '=' + value + '\n');
}

} // namespace oru::test

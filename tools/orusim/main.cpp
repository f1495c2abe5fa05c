// orusim: the program.
#include "options.hpp"
#include "orusim/control.hpp"
#include "orusim/factory.hpp"
#include "orusim/simulator.hpp"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <memory>
#include <sys/resource.h>

namespace {

using namespace orusim;
namespace fs = std::filesystem;

enum Exit { kOk = 0, kFailed = 1, kUsage = 2 };

const Simulator *running = nullptr; // for the signal handlers

int fail(const std::string &text, int status = kFailed)
{
    std::fprintf(stderr, "orusim: %s\n", text.c_str());
    return status;
}

/// Where lines go: standard output, a file, both or neither.
class Journal {
public:
    explicit Journal(bool quiet) : quiet_(quiet) {}

    bool open(const std::string &path)
    {
        file_.reset(std::fopen(path.c_str(), "ae"));
        return file_ != nullptr;
    }

    void write(std::string_view text) const
    {
        const std::string line = stamp() + ' ' + std::string(text) + '\n';
        if (!quiet_) put(stdout, line);
        if (file_) put(file_.get(), line);
    }

private:
    struct Close {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };

    static std::string stamp()
    {
        timespec now{};
        ::clock_gettime(CLOCK_REALTIME, &now);
        tm parts{};
        ::gmtime_r(&now.tv_sec, &parts);
        char text[40];
        const size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &parts);
        return std::string(text, length) + format(".%03ldZ", now.tv_nsec / 1000000);
    }

    static void put(std::FILE *file, const std::string &line)
    {
        std::fwrite(line.data(), 1, line.size(), file);
        std::fflush(file);
    }

    bool quiet_;
    std::unique_ptr<std::FILE, Close> file_;
};

/// Takes over --root, and makes sure that nobody works on the machine's own files by accident.
std::string chooseRoot(const CommandLine &line)
{
    std::error_code error;
    if (!line.root.empty())
        ::setenv("ORU_ROOT", fs::absolute(line.root, error).lexically_normal().c_str(), 1);
    const fs::path root = fs::weakly_canonical(rooted("/"), error);
    if (root != "/" || line.onDevice) return {};
    return "no folder given: --root DIR, ORU_ROOT, or --on-device for this machine's own /";
}

std::string factoryFolder(const CommandLine &line)
{
    if (!line.factory.empty()) return line.factory;
    if (const char *folder = ::secure_getenv("ORUSIM_FACTORY"); folder != nullptr) return folder;
    // Beside the program, when the whole was moved after its installation.
    std::error_code error;
    const fs::path beside =
        fs::read_symlink("/proc/self/exe", error).parent_path() / "../share/oru";
    return fs::exists(beside / "wsmDefaults.orig", error) ? beside.string() : ORUSIM_FACTORY_FOLDER;
}

void raiseDescriptorLimit()
{
    constexpr rlim_t kPlenty = 65536;
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= kPlenty) return;
    limit.rlim_cur = limit.rlim_max < kPlenty ? limit.rlim_max : kPlenty;
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

void onSignal(int signal)
{
    if (signal == SIGHUP) running->reload();
    else running->stop();
}

void handleSignals(const Simulator &simulator)
{
    running = &simulator;
    struct sigaction action {};
    action.sa_handler = onSignal;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) ::sigaction(signal, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

bool announce(int readyDescriptor)
{
    std::puts("orusim: ready");
    std::fflush(stdout);
    return readyDescriptor < 0 ||
           (::write(readyDescriptor, "\n", 1) == 1 && ::close(readyDescriptor) == 0);
}

int init(const CommandLine &line)
{
    const std::string error = initialise(
        factoryFolder(line), line.force,
        [&](std::string_view text) {
            if (!line.quiet) std::printf("%s\n", std::string(text).c_str());
        },
        line.product);
    return error.empty() ? int{kOk} : fail(error);
}

int control(const CommandLine &line)
{
    const auto answer = sendCommand(line.command);
    if (!answer) return fail("no simulator answers below " + rooted("/"));
    const bool done = answer->starts_with("ok");
    std::fputs(answer->c_str(), done ? stdout : stderr);
    return done ? kOk : kFailed;
}

int run(const CommandLine &line)
{
    Journal journal{line.quiet};
    if (!line.logFile.empty() && !journal.open(line.logFile))
        return fail("can't open " + line.logFile);

    raiseDescriptorLimit();
    const SteadyClock clock;
    Simulator simulator{{.log = [&](std::string_view text) { journal.write(text); },
                         .seed = line.seed,
                         .speed = line.speed,
                         .stations = line.stations},
                        clock};
    handleSignals(simulator);
    if (const std::string error = simulator.start(); !error.empty()) return fail(error);
    if (!announce(line.readyDescriptor)) return fail("can't write to the descriptor of --ready-fd");
    simulator.run();
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) std::signal(signal, SIG_IGN);
    return kOk;
}

} // namespace

int main(int argc, char **argv)
{
    using Verb = CommandLine::Verb;
    const CommandLine line = parseCommandLine(argc, argv);
    if (line.verb == Verb::wrong) {
        std::fputs("Usage: orusim [OPTION]...; 'orusim --help' tells more.\n", stderr);
        return kUsage;
    }
    if (line.verb == Verb::help) return std::printf("%s%s", kHelp, kCommands), kOk;
    if (line.verb == Verb::version) return std::printf("orusim %s\n", ORUSIM_VERSION), kOk;
    if (const std::string error = chooseRoot(line); !error.empty()) return fail(error, kUsage);

    switch (line.verb) {
    case Verb::init: return init(line);
    case Verb::control: return control(line);
    default: return run(line);
    }
}

#include "options.hpp"

#include "orusim/text.hpp"

#include <cstdio>
#include <getopt.h>

namespace orusim {
namespace {

enum Option {
    kRoot = 256,
    kInit,
    kForce,
    kFactory,
    kProduct,
    kSeed,
    kSpeed,
    kStations,
    kQuiet,
    kLog,
    kForeground,
    kReadyFd,
    kControl,
    kOnDevice,
    kHelpOption,
    kVersionOption
};

constexpr option kOptions[] = {
    {"root", required_argument, nullptr, kRoot},
    {"init", no_argument, nullptr, kInit},
    {"force", no_argument, nullptr, kForce},
    {"factory", required_argument, nullptr, kFactory},
    {"product", required_argument, nullptr, kProduct},
    {"seed", required_argument, nullptr, kSeed},
    {"speed", required_argument, nullptr, kSpeed},
    {"stations", required_argument, nullptr, kStations},
    {"quiet", no_argument, nullptr, kQuiet},
    {"log", required_argument, nullptr, kLog},
    {"foreground", no_argument, nullptr, kForeground},
    {"ready-fd", required_argument, nullptr, kReadyFd},
    {"control", required_argument, nullptr, kControl},
    {"on-device", no_argument, nullptr, kOnDevice},
    {"help", no_argument, nullptr, kHelpOption},
    {"version", no_argument, nullptr, kVersionOption},
    {nullptr, 0, nullptr, 0},
};

/// Takes a number between bounds; says so when it is none.
template <class Number>
bool takeNumber(Number &number, const char *name, const char *value, uint32_t least, uint32_t most)
{
    const auto read = toNumber(value);
    if (read && *read >= least && *read <= most) return number = static_cast<Number>(*read), true;
    std::fprintf(stderr, "orusim: --%s takes a number from %u to %u\n", name, least, most);
    return false;
}

bool take(CommandLine &line, int option, const char *value)
{
    using Verb = CommandLine::Verb;
    switch (option) {
    case kRoot: return line.root = value, true;
    case kInit: return line.verb = Verb::init, true;
    case kForce: return line.force = true;
    case kFactory: return line.factory = value, true;
    case kQuiet: return line.quiet = true;
    case kLog: return line.logFile = value, true;
    case kForeground: return true; // it never does anything else
    case kControl: return line.verb = Verb::control, line.command = value, true;
    case kOnDevice: return line.onDevice = true;
    case 'h':
    case kHelpOption: return line.verb = Verb::help, true;
    case kVersionOption: return line.verb = Verb::version, true;
    case kProduct: return line.product = value, true;
    case kSeed: return takeNumber(line.seed, "seed", value, 0, UINT32_MAX);
    case kSpeed: return takeNumber(line.speed, "speed", value, 1, 1000);
    case kStations: return takeNumber(line.stations, "stations", value, 0, 256);
    case kReadyFd: return takeNumber(line.readyDescriptor, "ready-fd", value, 0, 65535);
    default: return false;
    }
}

} // namespace

const char kHelp[] =
    "Usage: orusim [OPTION]...\n"
    "Simulates an access point: the services WSM and AA, below a folder of its own.\n"
    "\n"
    "  --root DIR      the access point's folder (default: the environment's ORU_ROOT)\n"
    "  --init          make the folder, with the factory files, and end; what exists is kept\n"
    "  --force         with --init: put factory files over those that exist\n"
    "  --factory DIR   where the factory files are (default: the environment's ORUSIM_FACTORY,\n"
    "                  or where they were installed)\n"
    "  --product NAME  with --init: the radios of the product us, jp or bg (2.4 GHz alone)\n"
    "  --stations N    so many stations are there in the middle (default: 4)\n"
    "  --seed N        what chance decides; the same number gives the same world (default: 1)\n"
    "  --speed N       the world runs N times as fast (default: 1)\n"
    "  --quiet         don't print what happens\n"
    "  --log FILE      append what happens to FILE\n"
    "  --foreground    stay in the foreground (always so)\n"
    "  --ready-fd N    write a byte to descriptor N when callers can connect; \"orusim: ready\" "
    "is\n"
    "                  printed in any case\n"
    "  --control LINE  send a command to the simulator that runs below the folder, and end\n"
    "  --on-device     allow the folder to be this machine's own /\n"
    "  --help          this text\n"
    "  --version       the version\n"
    "\n"
    "Commands:\n";

CommandLine parseCommandLine(int argc, char **argv)
{
    CommandLine line;
    int option = 0;
    while ((option = ::getopt_long(argc, argv, "h", kOptions, nullptr)) != -1)
        if (!take(line, option, ::optarg)) return line.verb = CommandLine::Verb::wrong, line;
    if (::optind < argc) {
        std::fprintf(stderr, "orusim: what is '%s'?\n", argv[::optind]);
        line.verb = CommandLine::Verb::wrong;
    }
    return line;
}

} // namespace orusim

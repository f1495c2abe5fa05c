// The command line.
#pragma once

#include <cstdint>
#include <string>

namespace orusim {

struct CommandLine {
    enum class Verb { run, init, control, help, version, wrong };
    Verb verb = Verb::run;
    std::string root; // empty: as ORU_ROOT says
    std::string factory;
    std::string logFile;
    std::string command;
    std::string product;
    uint32_t seed = 1;
    uint32_t speed = 1;
    uint32_t stations = 4;
    int readyDescriptor = -1;
    bool force = false;
    bool quiet = false;
    bool onDevice = false;
};

/// Reads the command line; says on standard error what is wrong with it.
CommandLine parseCommandLine(int argc, char **argv);

extern const char kHelp[];

} // namespace orusim

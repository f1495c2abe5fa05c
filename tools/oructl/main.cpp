// oructl: reads and changes the configuration of the access point from a command line.
#include "complete.hpp"
#include "request.hpp"
#include "values.hpp"

#include <fcntl.h>
#include <getopt.h>
#include <unistd.h>

namespace oructl {
namespace {

enum OptionId : int { kJson = 1, kHelp, kVersion, kComplete, kShowSecrets, kInsecureArgv, kFile };

const option kOptions[] = {{"json", no_argument, nullptr, kJson},
                           {"help", no_argument, nullptr, kHelp},
                           {"version", no_argument, nullptr, kVersion},
                           {"complete", no_argument, nullptr, kComplete},
                           {"show-secrets", no_argument, nullptr, kShowSecrets},
                           {"insecure-argv", no_argument, nullptr, kInsecureArgv},
                           {"secret-file", required_argument, nullptr, kFile},
                           {nullptr, 0, nullptr, 0}};

struct Options {
    bool help = false;
    bool version = false;
    bool complete = false;
    const char *unknown = nullptr;    ///< the first that is none
    const char *incomplete = nullptr; ///< the one without its value
};

bool isNegativeNumber(std::string_view word)
{
    return word.size() > 1 && word[0] == '-' && word[1] >= '0' && word[1] <= '9';
}

/// Reads the options behind words[0], up to the first operand, and returns where that stands.
int parseOptions(int count, char **words, Options &options, Request &request)
{
    ::opterr = 0;
    ::optind = 0; // a new scan
    int next = 1;
    while (words[next] != nullptr && !options.complete && !isNegativeNumber(words[next])) {
        const int id = ::getopt_long(count, words, "+:", kOptions, nullptr);
        if (id == -1) return ::optind;
        switch (id) {
        case kJson: request.json = true; break;
        case kHelp: options.help = true; break;
        case kVersion: options.version = true; break;
        case kComplete: options.complete = true; break;
        case kShowSecrets: request.secrets = Secrets::Shown; break;
        case kInsecureArgv: request.insecureArgv = true; break;
        case kFile: request.secretFile = ::optarg; break;
        case ':': options.incomplete = words[next]; break;
        default:
            if (options.unknown == nullptr) options.unknown = words[next];
        }
        next = ::optind;
    }
    return next;
}

int runVerb(Request &request, std::string_view name)
{
    request.verb = findVerb(name);
    return request.verb->run(request);
}

int reportUnknownVerb(Request &request, std::string_view name)
{
    std::vector<std::string_view> names;
    for (const Verb &verb : verbs()) names.push_back(verb.name);
    return reportUnknown(request, "verb", name, names);
}

int runVerbWithOptions(Request &request, int count, char **words)
{
    request.verb = findVerb(words[0]);
    if (request.verb == nullptr) return reportUnknownVerb(request, words[0]);
    Options options;
    const int operand = parseOptions(count, words, options, request);
    if (options.complete) options.unknown = "--complete";
    if (options.unknown != nullptr)
        return reportUsage(request, quoted(options.unknown) + " is no option of a verb");
    if (options.incomplete != nullptr)
        return reportUsage(request, std::string{options.incomplete} + " needs a value");
    if (options.version) return runVerb(request, "version");
    if (!options.help) {
        request.operands = Words{words + operand, static_cast<size_t>(count - operand)};
        return request.verb->run(request);
    }
    const char *const topic[] = {words[0]};
    request.operands = topic;
    return runVerb(request, "help");
}

int run(Request &request, int count, char **words)
{
    Options options;
    const int operand = count == 0 ? 0 : parseOptions(count, words, options, request);
    if (options.unknown != nullptr)
        return reportUsage(request, quoted(options.unknown) + " is no option");
    if (options.incomplete != nullptr)
        return reportUsage(request, std::string{options.incomplete} + " needs a value");
    if (options.complete) {
        request.output = completions(Words{words + operand, static_cast<size_t>(count - operand)});
        return kDone;
    }
    if (options.help) return runVerb(request, "help");
    if (options.version) return runVerb(request, "version");
    if (operand == count) return reportUsage(request, "VERB is missing");
    return runVerbWithOptions(request, count - operand, words + operand);
}

/// A closed standard stream's number must not become that of a file that the library opens.
void holdStandardStreams()
{
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd)
        if (::fcntl(fd, F_GETFD) == -1)
            (void)!::open("/dev/null", fd == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

} // namespace
} // namespace oructl

int main(int argc, char **argv)
{
    using namespace oructl;
    holdStandardStreams();
    Request request;
    return finish(request, run(request, argc, argv));
}

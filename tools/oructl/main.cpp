// oructl: reads and changes the configuration of the access point from a command line.
#include "complete.hpp"
#include "man.hpp"
#include "options.hpp"
#include "request.hpp"

#include <fcntl.h>
#include <unistd.h>

namespace oructl {
namespace {

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
    int operand = 0;
    const std::string problem = parseOptions(count, words, request.verb->options, request, operand);
    if (!problem.empty()) return reportUsage(request, problem);
    if (request.version) return runVerb(request, "version");
    if (!request.help) {
        request.operands = Words{words + operand, static_cast<size_t>(count - operand)};
        return request.verb->run(request);
    }
    const char *const topic[] = {words[0]};
    request.operands = topic;
    return runVerb(request, "help");
}

/// What is not for people: what shells ask, and the sources of the manual. False for anything else.
bool writeForTools(Request &request, std::string_view what, Words words)
{
    if (what == "--man" && words.size() == 2) {
        request.output = manPage(words[0], words[1]);
        return !request.output.empty();
    }
    if (what == "--complete-args") request.output = completions(words);
    else if (what == "--complete") request.output = describedCompletions(words);
    else return false;
    return true;
}

int run(Request &request, int count, char **words)
{
    if (count > 1 && writeForTools(request, words[1], {words + 2, static_cast<size_t>(count - 2)}))
        return kDone;
    int operand = count;
    const std::string problem = count == 0 ? "" : parseOptions(count, words, {}, request, operand);
    if (!problem.empty()) return reportUsage(request, problem);
    if (request.help) return runVerb(request, "help");
    if (request.version) return runVerb(request, "version");
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

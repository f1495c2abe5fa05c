#include "request.hpp"

#include "color.hpp"
#include "json_output.hpp"
#include "nearest.hpp"
#include "values.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace oructl {
namespace {

ExitStatus exitStatus(const Problem &problem)
{
    if (problem.status != kDone) return problem.status;
    if (problem.kind == "usage") return kWrongUsage;
    return problem.code ? exitStatusOf(*problem.code) : kFailed;
}

/// For standard error.
std::string problemLine(const Request &request, const Problem &problem)
{
    const bool colored = inColor(request.color, STDERR_FILENO);
    std::string line = painted("oructl:", Paint::Error, colored) + ' ';
    if (!problem.attempt.empty()) line.append(problem.attempt).append(": ");
    if (problem.code) line.append(problem.kind).append(": ");
    line.append(problem.message);
    if (problem.code) line.append(" (code ").append(std::to_string(*problem.code)).append(")");
    if (!problem.detail.empty()) line.append("; ").append(problem.detail);
    return line.append("\n");
}

} // namespace

const char *Request::option(std::string_view name) const
{
    for (const GivenOption &given : options)
        if (given.option->name == name) return given.value != nullptr ? given.value : "";
    return nullptr;
}

int finish(Request &request, int status)
{
    if (request.output.empty()) return status;
    const std::string text = std::move(request.output);
    request.output.clear();
    if (std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0)
        return status;
    std::fprintf(stderr, "oructl: can't write standard output: %s\n", std::strerror(errno));
    return status == kDone ? kFailed : status;
}

std::string reportText(const Request &request, const Problem &problem)
{
    return request.json ? jsonError(problem) : problemLine(request, problem);
}

int report(Request &request, const Problem &problem)
{
    if (request.json) request.output = jsonError(problem);
    else std::fputs(problemLine(request, problem).c_str(), stderr);
    return exitStatus(problem);
}

int reportAll(Request &request, const std::string &attempt, const std::vector<Problem> &problems)
{
    const Problem all{.kind = problems.front().kind,
                      .attempt = attempt,
                      .code = {},
                      .message = "nothing is stored"};
    if (request.json) {
        request.output = jsonErrors(all, problems);
        return exitStatus(problems.front());
    }
    for (const Problem &each : problems) std::fputs(problemLine(request, each).c_str(), stderr);
    std::fputs(problemLine(request, all).c_str(), stderr);
    return exitStatus(problems.front());
}

int reportUsage(Request &request, const std::string &message, const Item *item)
{
    Problem problem{.kind = "usage", .message = message};
    if (request.verb != nullptr) problem.attempt = request.verb->name;
    if (item != nullptr) problem.attempt.append(" ").append(item->name);
    const int status = report(request, problem);
    if (!request.json) std::fprintf(stderr, "usage: %s\n", usageOf(request.verb, item).c_str());
    return status;
}

int reportUsage(Request &request, std::string_view words, const std::string &message,
                const std::string &synopsis)
{
    Problem problem{
        .kind = "usage", .attempt = std::string{request.verb->name}, .message = message};
    if (!words.empty()) problem.attempt.append(" ").append(words);
    const int status = report(request, problem);
    if (!request.json) std::fprintf(stderr, "usage: oructl [OPTION...] %s\n", synopsis.c_str());
    return status;
}

int reportUnknown(Request &request, std::string_view what, std::string_view typed,
                  const std::vector<std::string_view> &names)
{
    std::string message = "no ";
    message.append(what).append(" is called ").append(quoted(typed));
    return reportUsage(request, message.append(didYouMean(typed, names)));
}

std::string usageOf(const Verb *verb, const Item *item)
{
    std::string usage = "oructl [OPTION...] ";
    if (verb == nullptr) return usage.append("VERB [ITEM] [INDEX] [VALUE...]");
    usage.append(verb->name);
    if (item == nullptr) {
        if (!verb->operands.empty()) usage.append(" ").append(verb->operands);
        return usage;
    }
    const std::string operands = operandSynopsis(*item, verb->name == "set" ? Use::Set : Use::Get);
    usage.append(" ").append(item->name);
    if (!operands.empty()) usage.append(" ").append(operands);
    return usage;
}

std::string typed(const Request &request)
{
    std::string text{request.verb->name};
    for (const char *word : request.operands) text.append(" ").append(printable(word));
    return text;
}

} // namespace oructl

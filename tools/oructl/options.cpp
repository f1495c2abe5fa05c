#include "options.hpp"

#include "nearest.hpp"
#include "request.hpp"
#include "state.hpp"

#include <getopt.h>
#include <vector>

namespace oructl {
namespace {

constexpr Option kGlobal[] = {
    {"json", nullptr, "output as one line of JSON, failures too"},
    {"terse", nullptr, "output for scripts: values alone, between tabs"},
    {"fields", "A,B", "shows these fields or columns only, in this order"},
    {"quiet", nullptr, "says nothing but what was asked for and what failed"},
    {"dry-run", nullptr, "checks a change and says what it would store, but stores nothing"},
    {"yes", nullptr, "does without asking"},
    {"timeout", "SECONDS", "gives up waiting after so long (0 to 3600)"},
    {"force", nullptr, "stores over what somebody else has changed meanwhile"},
    {"root", "DIR", "works on the access point below this folder"},
    {"color", "WHEN", "colours: auto, always or never", "auto always never"},
    {"show-secrets", nullptr, "shows PINs and keys, which are masked otherwise"},
    {"secret-file", "FILE", "reads secrets from FILE, one a line, not from standard input"},
    {"insecure-argv", nullptr, "takes secrets from the command line, where others see them"},
    {"help", nullptr, "this text, or the help of the verb"},
    {"version", nullptr, "the versions of oructl and of the library"},
};

bool isNegativeNumber(std::string_view word)
{
    return word.size() > 1 && word[0] == '-' && word[1] >= '0' && word[1] <= '9';
}

std::string readTimeout(std::string_view text, Request &request)
{
    int64_t seconds = 0;
    if (parseDecimal(text, seconds) != Decimal::Good || seconds < 0 || seconds > 3600)
        return "--timeout takes 0 to 3600 seconds, not " + quoted(text);
    request.timeout = seconds;
    return "";
}

std::string readColor(std::string_view text, Request &request)
{
    if (text == "auto") request.color = Color::Auto;
    else if (text == "always") request.color = Color::Always;
    else if (text == "never") request.color = Color::Never;
    else return "--color takes auto, always or never, not " + quoted(text);
    return "";
}

std::string readRoot(const char *folder)
{
    char *const absolute = ::realpath(folder, nullptr);
    if (absolute == nullptr) return "--root: there is no folder " + quoted(folder);
    setRootFolder(std::string_view{absolute} == "/" ? "" : absolute);
    std::free(absolute);
    return "";
}

std::string take(const Option &option, const char *value, Request &request)
{
    const std::string_view name = option.name;
    if (name == "json") request.json = true;
    else if (name == "terse") request.terse = true;
    else if (name == "fields") request.fields = value;
    else if (name == "quiet") request.quiet = true;
    else if (name == "dry-run") request.dryRun = true;
    else if (name == "yes") request.yes = true;
    else if (name == "timeout") return readTimeout(value, request);
    else if (name == "force") request.force = true;
    else if (name == "root") return readRoot(value);
    else if (name == "color") return readColor(value, request);
    else if (name == "show-secrets") request.secrets = Secrets::Shown;
    else if (name == "secret-file") request.secretFile = value;
    else if (name == "insecure-argv") request.insecureArgv = true;
    else if (name == "help") request.help = true;
    else if (name == "version") request.version = true;
    else request.options.push_back({&option, value});
    return "";
}

std::string unknownOption(std::string_view word, const std::vector<const Option *> &rows)
{
    std::vector<std::string_view> names;
    for (const Option *row : rows) names.emplace_back(row->name);
    std::string message = quoted(word) + " is no option";
    const auto near = nearest(word.starts_with("--") ? word.substr(2) : word, names);
    if (near.empty()) return message;
    return message.append("; did you mean --").append(near.front()).append("?");
}

} // namespace

std::span<const Option> globalOptions()
{
    return kGlobal;
}

std::string parseOptions(int count, char **words, std::span<const Option> ofVerb, Request &request,
                         int &operand)
{
    std::vector<const Option *> rows;
    for (const Option &row : kGlobal) rows.push_back(&row);
    for (const Option &row : ofVerb) rows.push_back(&row);
    std::vector<option> table;
    for (const Option *row : rows)
        table.push_back({row->name, row->value != nullptr ? required_argument : no_argument,
                         nullptr, static_cast<int>(table.size()) + 1});
    table.push_back({nullptr, 0, nullptr, 0});

    ::opterr = 0;
    ::optind = 0; // a new scan
    operand = 1;
    std::string problem; // the first; the rest is read all the same, since it may say --json
    while (words[operand] != nullptr && !isNegativeNumber(words[operand])) {
        const char *const word = words[operand];
        const int id = ::getopt_long(count, words, "+:", table.data(), nullptr);
        operand = ::optind;
        if (id == -1) break;
        std::string found;
        if (id == ':') found = std::string{word} + " needs a value";
        else if (id == '?') found = unknownOption(word, rows);
        else found = take(*rows[static_cast<size_t>(id) - 1], ::optarg, request);
        if (problem.empty()) problem = std::move(found);
    }
    return problem;
}

} // namespace oructl

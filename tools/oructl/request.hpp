// A command line, taken apart, and what comes of it.
#pragma once

#include "catalogue.hpp"
#include "exit_status.hpp"
#include "operands.hpp"
#include "options.hpp"
#include "values.hpp"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace oructl {

enum class Color : uint8_t { Auto, Always, Never };

struct Verb;

struct Request {
    const Verb *verb = nullptr;
    Words operands = {};
    bool json = false;
    bool terse = false;
    const char *fields = nullptr; ///< the names of those to show, between commas; NULL: all
    bool quiet = false;
    bool dryRun = false;
    bool yes = false;
    bool force = false;
    bool help = false;
    bool version = false;
    std::optional<int64_t> timeout = {}; ///< in seconds
    Color color = Color::Auto;
    Secrets secrets = Secrets::Masked;
    bool insecureArgv = false;             ///< secrets stand on the command line
    const char *secretFile = nullptr;      ///< where secrets are read from; NULL: standard input
    std::vector<GivenOption> options = {}; ///< those of the verb alone
    std::string output = {};               ///< for standard output, written at the end

    /// The value of an option of the verb, empty for one that stands alone; NULL when not given.
    [[nodiscard]] const char *option(std::string_view name) const;
};

struct Verb {
    std::string_view name;
    std::string_view operands;
    std::string_view summary;
    std::string_view details;
    int (*run)(Request &);
    std::span<const Option> options = {}; ///< of this verb alone
};

std::span<const Verb> verbs();
const Verb *findVerb(std::string_view name);

/// Writes the output and empties it. Yields the status, or that of a failure when it can't be
/// written.
int finish(Request &request, int status);

/// What went wrong, in the parts that both output forms show.
struct Problem {
    std::string_view kind;            ///< "usage", "refused" or "failed"
    std::string attempt = {};         ///< "set tx-power 0 9"
    std::optional<int64_t> code = {}; ///< of the operation that failed
    std::string message;
    std::string detail = {};   ///< what is legal, or where to look
    ExitStatus status = kDone; ///< kDone: what the kind and the code stand for
};

/// Reports a problem and yields its exit status: a line on standard error or, with --json, an error
/// object on standard output.
int report(Request &request, const Problem &problem);

/// Reports several problems of one change of which nothing is stored, and yields the exit status of
/// the first.
int reportAll(Request &request, const std::string &attempt, const std::vector<Problem> &problems);

/// What report() says.
std::string reportText(const Request &request, const Problem &problem);

/// Reports a wrong command line, with the usage of the item's verb or of the verb.
int reportUsage(Request &request, const std::string &message, const Item *item = nullptr);

/// Reports a wrong command line of the verb's command or view with these words.
int reportUsage(Request &request, std::string_view words, const std::string &message,
                const std::string &synopsis);

/// Reports an operand that is the name of nothing, with the names that it resembles.
int reportUnknown(Request &request, std::string_view what, std::string_view typed,
                  const std::vector<std::string_view> &names);

/// "oructl [OPTION...] set tx-power RADIO VALUE".
std::string usageOf(const Verb *verb, const Item *item = nullptr);

/// The verb and its operands as they were typed, printable.
std::string typed(const Request &request);

} // namespace oructl

#include "commit.hpp"

#include "air.hpp"
#include "change.hpp"
#include "codes.hpp"
#include "json_output.hpp"
#include "nearest.hpp"
#include "oruSdk.h"
#include "person.hpp"
#include "plan.hpp"
#include "radio_state.hpp"
#include "reasons.hpp"
#include "snapshot.hpp"
#include "trial.hpp"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <unistd.h>

namespace oructl {
namespace {

constexpr int64_t kAnswerMs = 5000; // that a service has for all its tables
constexpr int64_t kPauseMs = 250;   // between two looks

struct Order {
    std::string_view what = "all";
    int64_t wait = 0;                    ///< seconds until it is on the air
    std::optional<int64_t> confirm = {}; ///< seconds for the confirmation
    bool untilOnAir = false;
    std::optional<int64_t> untilStations = {};
};

// ---- Reading the order

std::string readSeconds(const Request &request, std::string_view name, std::optional<int64_t> &to)
{
    const char *const text = request.option(name);
    if (text == nullptr) return "";
    int64_t seconds = 0;
    if (parseDecimal(text, seconds) != Decimal::Good || seconds < 1 || seconds > 3600)
        return concat({"--", name, " takes 1 to 3600 seconds, not ", quoted(text)});
    to = seconds;
    return "";
}

std::string readUntil(const Request &request, Order &order)
{
    constexpr std::string_view kStations = "stations>=";
    const char *const given = request.option("until");
    if (given == nullptr) return "";
    if (!order.confirm) return "--until needs --confirm SECONDS";
    const std::string_view text = given;
    int64_t count = 0;
    order.untilOnAir = text == "on-air";
    if (order.untilOnAir) return "";
    if (!text.starts_with(kStations) ||
        parseDecimal(text.substr(kStations.size()), count) != Decimal::Good || count < 0)
        return "--until takes on-air or 'stations>=N', not " + quoted(text);
    order.untilStations = count;
    return "";
}

std::string readOrder(const Request &request, Order &order)
{
    if (request.operands.size() > 1) return "too many operands";
    if (!request.operands.empty()) order.what = request.operands.front();
    if (order.what != "radio" && order.what != "all")
        return quoted(order.what) + " is neither radio nor all" +
               didYouMean(order.what, {"radio", "all"});
    std::optional<int64_t> wait;
    std::string problem = readSeconds(request, "wait", wait);
    if (problem.empty()) problem = readSeconds(request, "confirm", order.confirm);
    if (problem.empty()) problem = readUntil(request, order);
    if (problem.empty() && wait && order.confirm) problem = "--wait and --confirm exclude another";
    order.wait = wait.value_or(0);
    return problem;
}

// ---- Committing

uint32_t tell(const Order &order)
{
    return order.what == "all" ? oruSdkCommitAll() : oruSdkCommitRadio();
}

Committed partOf(const Order &order)
{
    return order.what == "all" ? Committed::All : Committed::Radio;
}

int reportRefused(Request &request, uint32_t code)
{
    return report(request, {.kind = "failed",
                            .attempt = typed(request),
                            .code = code,
                            .message = messageLine(code),
                            .detail = commitReason(code)});
}

/// Commits under the lock. The trial, if there is one, is kept before.
int commitStored(Request &request, const Order &order, const Trial *trial)
{
    Lock lock;
    if (const auto trouble = lock.take(patienceMs(request)))
        return reportTrouble(request, typed(request), *trouble);
    const auto failed = [&](const char *what) {
        return reportTrouble(request, typed(request), systemTrouble(what, errno));
    };
    if (!ensureSnapshot()) return failed("keep what was committed");
    if (trial != nullptr && !beginTrial(*trial)) return failed("prepare the trial");
    if (const uint32_t code = tell(order); code != ORUSDK_RC_OK) {
        if (trial != nullptr && !dropTrial()) return failed("end the trial");
        return reportRefused(request, code);
    }
    if (trial == nullptr && !renewSnapshot(partOf(order))) return failed("keep what was committed");
    return kDone;
}

// ---- What has become of it

int64_t answerMs(const Request &request)
{
    return request.timeout ? *request.timeout * 1000 : kAnswerMs;
}

CommitReport look(const Order &order, int64_t waitMs)
{
    CommitReport report{.what = order.what};
    if (order.what == "all") report.aa = aaListens() ? Reach::Listens : Reach::Away;
    if (!wsmListens()) return report;
    const auto air = askAir(waitMs, Tables::Radios);
    report.wsm = air ? Reach::Answers : Reach::Silent;
    if (!air) return report;
    report.missing = missingOnAir(*air);
    report.onAir = report.missing.empty();
    return report;
}

void pause(int64_t ms)
{
    const timespec time = {static_cast<time_t>(ms / 1000), static_cast<long>(ms % 1000) * 1000000};
    ::nanosleep(&time, nullptr);
}

int64_t nowMs()
{
    timespec now = {};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

CommitReport lookUntilOnAir(const Request &request, const Order &order)
{
    const int64_t end = nowMs() + order.wait * 1000;
    CommitReport report = look(order, order.wait == 0 ? answerMs(request) : end - nowMs());
    while (report.onAir != true && nowMs() < end) {
        showProgress(request, "waits until it is on the air", (end - nowMs() + 999) / 1000);
        pause(std::min(kPauseMs, end - nowMs()));
        report = look(order, std::max<int64_t>(end - nowMs(), 1000)); // time to answer
    }
    if (order.wait > 0) showProgress(request, nullptr, 0);
    return report;
}

std::string_view reachText(Reach reach)
{
    switch (reach) {
    case Reach::Untold: return "is not told";
    case Reach::Away: return "is away";
    case Reach::Listens: return "listens";
    case Reach::Silent: return "listens but does not answer";
    case Reach::Answers: return "answers";
    }
    return "";
}

bool isMissing(Reach reach)
{
    return reach == Reach::Away || reach == Reach::Silent;
}

/// "WSM is away, AA is away".
std::string notThere(const CommitReport &report)
{
    std::string out;
    if (isMissing(report.wsm)) out.append("WSM ").append(reachText(report.wsm));
    if (isMissing(report.aa))
        out.append(out.empty() ? "AA " : ", AA ").append(reachText(report.aa));
    return out;
}

std::string textReport(const CommitReport &report)
{
    std::string out = "saved   yes\ntaken   WSM ";
    out.append(reachText(report.wsm));
    if (report.aa != Reach::Untold) out.append(", AA ").append(reachText(report.aa));
    out.append("\non air  ");
    if (!report.onAir) out.append("not known");
    else if (*report.onAir) out.append("yes");
    else out.append("not yet");
    for (const std::string &each : report.missing)
        out.append(&each == &report.missing.front() ? ": " : "; ").append(each);
    return out.append("\n");
}

/// Shows what has become of it and yields the status. Failures are said on standard error too.
int show(Request &request, const Order &order, const CommitReport &found)
{
    Problem problem{.kind = "failed", .attempt = typed(request), .message = {}};
    if (isMissing(found.wsm) || isMissing(found.aa)) {
        problem.message = notThere(found);
        problem.detail = "what is saved is taken when the service starts";
        problem.status = kNotTaken;
    }
    if (order.wait > 0 && found.onAir != true) {
        problem.message = "not on the air within " + std::to_string(order.wait) + " seconds";
        if (problem.status == kDone) problem.status = kTimedOut;
    }
    if (request.json) request.output = jsonCommit(found);
    else if (!request.quiet) request.output = textReport(found);
    if (problem.status == kDone || request.json) return problem.status;
    return report(request, problem);
}

// ---- On trial

volatile std::sig_atomic_t interrupted = 0;

void noteSignal(int signal)
{
    interrupted = signal;
}

/// The connection of whoever has ordered the trial may be what it breaks.
void catchSignals()
{
    struct sigaction action = {};
    action.sa_handler = noteSignal;
    for (const int each : {SIGINT, SIGTERM}) ::sigaction(each, &action, nullptr);
    for (const int each : {SIGHUP, SIGPIPE}) ::signal(each, SIG_IGN);
}

/// What the user waits for is on the air.
bool holds(const Order &order, int64_t leftMs)
{
    if (!order.untilOnAir && !order.untilStations) return false;
    const Tables tables = order.untilStations ? Tables::Stations : Tables::Radios;
    const auto air = askAir(std::min(leftMs, kAnswerMs), tables);
    if (!air) return false;
    return order.untilStations ? air->stations() >= *order.untilStations
                               : missingOnAir(*air).empty();
}

/// How a trial has ended.
struct Ending {
    std::string_view reason; ///< as in JSON
    std::string_view words;
    int status;
};

Ending endingOf(Outcome outcome, bool expired)
{
    if (outcome == Outcome::Confirmed) return {"confirmed", "confirmed: it stays", kDone};
    if (interrupted != 0)
        return {"interrupted", "interrupted: the configuration before is back", 128 + interrupted};
    if (expired)
        return {"expired", "not confirmed in time: the configuration before is back", kTimedOut};
    return {"reverted", "reverted: the configuration before is back", kFailed};
}

/// Waits until the trial is confirmed or has to end, and ends it.
std::optional<Trouble> waitForEnd(const Request &request, const Order &order, const Trial &trial,
                                  bool &expired)
{
    for (;;) {
        const auto pending = pendingTrial();
        if (!pending || pending->token != trial.token) return std::nullopt;
        const int64_t left = msLeft(trial);
        expired = left == 0;
        if (interrupted != 0 || expired)
            return endTrial(trial.token, Outcome::Reverted, Lock::kPatienceMs);
        if (holds(order, left)) return endTrial(trial.token, Outcome::Confirmed, left);
        showProgress(request, "waits to be confirmed", (left + 999) / 1000);
        pause(std::min(kPauseMs, left));
    }
}

int commitOnTrial(Request &request, const Order &order)
{
    const Trial trial = newTrial(*order.confirm, partOf(order));
    catchSignals();
    if (const int status = commitStored(request, order, &trial); status != kDone) return status;
    CommitReport found = look(order, std::min(answerMs(request), msLeft(trial)));
    found.token = trial.token;
    found.trialSeconds = order.confirm;
    (void)show(request, order, found);
    if (!request.json)
        request.output.append("confirm within " + std::to_string(*order.confirm) +
                              " seconds with: oructl confirm " + trial.token + "\n");
    (void)finish(request, kDone); // nobody reads it any more: the trial goes on

    bool expired = false;
    const auto trouble = waitForEnd(request, order, trial, expired);
    showProgress(request, nullptr, 0);
    if (trouble) return reportTrouble(request, typed(request), *trouble);
    const Ending ending = endingOf(outcomeOf(trial.token), expired);
    if (request.json) request.output = jsonAction("trial", ending.reason);
    else if (!request.quiet) request.output = std::string{ending.words} + '\n';
    return ending.status;
}

/// Ends the trial that is under way.
int endPending(Request &request, const Trial &trial, Outcome outcome)
{
    const bool kept = outcome == Outcome::Confirmed;
    if (const auto trouble = endTrial(trial.token, outcome, patienceMs(request)))
        return reportTrouble(request, typed(request), *trouble);
    if (request.json) request.output = jsonAction("trial", kept ? "confirmed" : "reverted");
    else if (!request.quiet)
        request.output = kept ? "confirmed: it stays\n" : "the configuration before is back\n";
    return kDone;
}

/// Brings the committed settings back into the files.
int revertStored(Request &request)
{
    const std::string root = rootFolder();
    const std::vector<NewFile> files = committedSettings();
    return changeAll(
        request, typed(request),
        [&]() -> uint32_t {
            for (const NewFile &each : files)
                if (!copyDictionary(root, each.path, rootFolder(), kConfigurationFiles[each.file]))
                    return ORUSDK_RC_FILE_COPY;
            return ORUSDK_RC_OK;
        },
        [&](uint32_t code) { return reportRefused(request, code); });
}

} // namespace

const Option kCommitOptions[3] = {
    {"wait", "SECONDS", "waits until it is on the air (1 to 3600)"},
    {"confirm", "SECONDS", "on trial: what was before comes back, unless confirmed in time"},
    {"until", "CONDITION", "confirms the trial itself once 'stations>=N' or on-air holds"},
};

int runCommit(Request &request)
{
    Order order;
    const std::string problem = readOrder(request, order);
    if (!problem.empty()) return reportUsage(request, problem);
    if (request.dryRun) return showPlan(request);
    if (order.confirm) return commitOnTrial(request, order);
    if (const int status = commitStored(request, order, nullptr); status != kDone) return status;
    return show(request, order, lookUntilOnAir(request, order));
}

int runConfirm(Request &request)
{
    if (request.operands.empty()) return reportUsage(request, "TOKEN is missing");
    if (request.operands.size() > 1) return reportUsage(request, "too many operands");
    const auto trial = pendingTrial();
    if (!trial)
        return reportTrouble(request, typed(request), {kFailed, "no commit is on trial", ""});
    if (trial->token != request.operands.front())
        return reportTrouble(request, typed(request), {kFailed, "this is not its token", ""});
    if (msLeft(*trial) == 0)
        return reportTrouble(request, typed(request),
                             {kTimedOut, "its time is over",
                              "bring back what was before with: "
                              "oructl guard"});
    return endPending(request, *trial, Outcome::Confirmed);
}

int runRevert(Request &request)
{
    if (!request.operands.empty()) return reportUsage(request, "too many operands");
    const auto trial = pendingTrial();
    if (trial && request.dryRun) return reportUsage(request, "a trial can't end dry");
    if (trial) return endPending(request, *trial, Outcome::Reverted);
    if (const int status = revertStored(request); status != kDone || request.dryRun) return status;
    if (request.json) request.output = jsonAction("revert", "stored");
    return kDone;
}

int runGuard(Request &request)
{
    if (!request.operands.empty()) return reportUsage(request, "too many operands");
    const auto trial = pendingTrial();
    if (trial && msLeft(*trial) == 0) return endPending(request, *trial, Outcome::Reverted);
    if (request.json) request.output = jsonAction("trial", trial ? "waiting" : "none");
    return kDone;
}

} // namespace oructl

// What each verb does.
#include "batch.hpp"
#include "calls.hpp"
#include "change.hpp"
#include "codes.hpp"
#include "command.hpp"
#include "commit.hpp"
#include "diff.hpp"
#include "doctor.hpp"
#include "explain.hpp"
#include "export.hpp"
#include "import.hpp"
#include "json_output.hpp"
#include "metrics.hpp"
#include "nearest.hpp"
#include "oruSdk.h"
#include "person.hpp"
#include "plan.hpp"
#include "request.hpp"
#include "select.hpp"
#include "show.hpp"
#include "terse_output.hpp"
#include "text_output.hpp"
#include "values.hpp"

namespace oructl {
namespace {

/// Names of all items that the test accepts.
template <class Test>
std::vector<std::string_view> itemNames(Test &&accepts)
{
    std::vector<std::string_view> names;
    forEachItem([&](const Item &item) {
        if (accepts(item)) names.push_back(item.name);
    });
    return names;
}

int reportCall(Request &request, const Item &item, Use verb, uint32_t code, const Call &call)
{
    return report(request,
                  callProblem(item, verb, code, call,
                              callAttempt(item, request.verb->name, call, typed(request))));
}

int reportCode(Request &request, uint32_t code, const std::string &detail = "",
               ExitStatus status = kDone)
{
    return report(request, {.kind = "failed",
                            .attempt = typed(request),
                            .code = code,
                            .message = messageLine(code),
                            .detail = detail,
                            .status = status});
}

/// The item and call of a get or set; NULL after a report of what is wrong, with the exit status.
const Item *parseCall(Request &request, Use verb, Call &call, int &status)
{
    const auto able = [verb](const Item &item) {
        return verb == Use::Get ? item.get != nullptr : item.set != nullptr;
    };
    if (request.operands.empty()) {
        status = reportUsage(request, "ITEM is missing");
        return nullptr;
    }
    const std::string_view name = request.operands.front();
    const Item *item = findItem(name);
    if (item == nullptr) {
        status = reportUnknown(request, "item", name, itemNames(able));
        return nullptr;
    }
    if (!able(*item)) {
        status = reportUsage(request, std::string{name} +
                                          (verb == Use::Get ? " can't be read" : " can't be set"));
        return nullptr;
    }
    SecretSource secrets{request.secretFile};
    const std::string problem = parseOperands(*item, verb, request.operands.subspan(1), call,
                                              request.insecureArgv ? nullptr : &secrets);
    if (problem.empty()) return item;
    status = reportUsage(request, problem, item);
    return nullptr;
}

int runGet(Request &request)
{
    Call call;
    int status = kDone;
    const Item *item = parseCall(request, Use::Get, call, status);
    if (item == nullptr) return status;
    if (const uint32_t code = item->get(call); code != ORUSDK_RC_OK)
        return reportCall(request, *item, Use::Get, code, call);
    const Selection selection = select(request, item->fields);
    if (!selection.problem.empty()) return reportUsage(request, selection.problem, item);
    Item shown = *item;
    shown.fields = selection.fields;
    call.values = selection.of(call.values);
    if (request.terse) request.output = terseLine(shown.fields, call.values, request.secrets);
    else
        request.output = request.json ? jsonValue(shown, call, request.secrets)
                                      : textValue(shown, call, request.secrets);
    return kDone;
}

/// Stores a value that reaches its driver or service in the same moment: there is no trying it out.
int setAtOnce(Request &request, const Item &item, const Call &call)
{
    if (request.dryRun)
        return reportUsage(request, std::string{item.name} + " acts at once: it can't be tried");
    Lock lock;
    if (const auto trouble = lock.take(patienceMs(request)))
        return reportTrouble(request, callAttempt(item, "set", call, typed(request)), *trouble);
    if (const uint32_t code = item.set(call); code != ORUSDK_RC_OK)
        return reportCall(request, item, Use::Set, code, call);
    return kDone;
}

int setStored(Request &request, const Item &item, const Call &call)
{
    return changeAll(
        request, callAttempt(item, "set", call, typed(request)), [&] { return item.set(call); },
        [&](uint32_t code) { return reportCall(request, item, Use::Set, code, call); });
}

int runSet(Request &request)
{
    Call call;
    int status = kDone;
    const Item *item = parseCall(request, Use::Set, call, status);
    if (item == nullptr) return status;
    status = item->atOnce ? setAtOnce(request, *item, call) : setStored(request, *item, call);
    if (status != kDone || request.dryRun || request.quiet) return status;
    request.output = request.json ? jsonSet(*item, call) : textSteps(*item, call);
    return kDone;
}

int reportNotAllowed(Request &request)
{
    return report(request, {.kind = "failed", .attempt = typed(request), .message = "not done"});
}

int resetAll(Request &request)
{
    if (request.operands.size() > 1) return reportUsage(request, "too many operands");
    if (!isAllowed(request, "Store factory values for everything?"))
        return reportNotAllowed(request);
    const int status = changeAll(request, typed(request), oruSdkResetToDefaults,
                                 [&](uint32_t code) { return reportCode(request, code); });
    if (status == kDone && request.json && !request.dryRun)
        request.output = jsonAction("reset", "all");
    return status;
}

int resetBss(Request &request)
{
    int64_t bss = 0;
    const std::string problem = parseResetBss(request.operands.subspan(1), bss);
    if (!problem.empty()) return reportUsage(request, problem);
    if (!isAllowed(request, "Store factory values for BSS " + std::to_string(bss) + "?"))
        return reportNotAllowed(request);
    const int status = changeAll(
        request, typed(request), [&] { return oruSdkResetToBss(static_cast<int32_t>(bss)); },
        [&](uint32_t code) { return report(request, resetProblem(bss, code, typed(request))); });
    if (status == kDone && request.json && !request.dryRun)
        request.output = jsonAction("reset", "bss", bss);
    return status;
}

int runReset(Request &request)
{
    if (request.operands.empty()) return reportUsage(request, "all or bss is missing");
    const std::string_view what = request.operands.front();
    if (what == "all") return resetAll(request);
    if (what == "bss") return resetBss(request);
    return reportUsage(request,
                       quoted(what) + " is neither all nor bss" + didYouMean(what, {"all", "bss"}));
}

int runList(Request &request)
{
    if (request.operands.size() > 1) return reportUsage(request, "too many operands");
    const std::string_view pattern = request.operands.empty() ? "" : request.operands.front();
    std::vector<const Item *> items;
    forEachItem([&](const Item &item) {
        if (item.name.find(pattern) != item.name.npos || item.keys.find(pattern) != item.keys.npos)
            items.push_back(&item);
    });
    request.output = request.json ? jsonList(items) : textList(items);
    return kDone;
}

int runVersion(Request &request)
{
    if (!request.operands.empty()) return reportUsage(request, "too many operands");
    const std::string library = oruSdkGetVersion();
    request.output = request.json ? jsonVersions(ORUCTL_VERSION, library)
                                  : "oructl " ORUCTL_VERSION "\nlibrary " + library + '\n';
    return kDone;
}

int runHelp(Request &request)
{
    if (request.operands.size() > 1) return reportUsage(request, "too many operands");
    const std::string_view topic = request.operands.empty() ? "" : request.operands.front();
    const Verb *verb = findVerb(topic);
    const Item *item = findItem(topic);
    if (!topic.empty() && verb == nullptr && item == nullptr) {
        auto names = itemNames([](const Item &) { return true; });
        for (const Verb &each : verbs()) names.push_back(each.name);
        return reportUnknown(request, "verb or item", topic, names);
    }
    std::string text = topic.empty() ? textOverview() : "";
    if (verb != nullptr) text = textHelp(*verb);
    if (item != nullptr) text.append(text.empty() ? "" : "\n").append(textHelp(*item));
    request.output = request.json ? jsonHelp(topic, text) : text;
    return kDone;
}

constexpr Verb kVerbs[] = {
    {"get", "ITEM [INDEX]", "shows the stored value of an item",
     "Shows the stored value of an item, one line a field: 'mimo[0] = on'.\n"
     "A number that has no word is shown as it is stored.",
     runGet},
    {"set", "ITEM [INDEX] VALUE...", "stores a new value of an item",
     "Stores a new value of an item; silent when it is done, but for items that say what they "
     "did.\n"
     "The access point takes it with the next commit. Switches take on, off, true, false, 1 and "
     "0;\n"
     "numbers are whole and decimal. A value of bytes may be given as --hex HEX, a list's entries "
     "as\n"
     "the lines of --file FILE. Secrets are read from standard input (-) or the first line of a\n"
     "file (@FILE), and at a terminal without echo; several of them one a line.",
     runSet},
    {"commit", "[radio|all]", "makes the access point take what is stored",
     "Makes the access point take what is stored: 'radio' the settings of the radios and BSSes,\n"
     "'all' (the default) those of security too, after a check that every BSS has a complete\n"
     "security configuration. Says what is known of it: whether it is saved, whether the services\n"
     "WSM and AA are there to take it, and whether WSM's tables show it on the air.\n"
     "With --confirm it is a trial, in the foreground: 'oructl confirm TOKEN' from elsewhere "
     "keeps\n"
     "it; otherwise, or when interrupted, the configuration before comes back. Should oructl be\n"
     "killed or the power fail, 'oructl guard' brings it back.",
     runCommit, kCommitOptions},
    {"confirm", "TOKEN", "keeps a commit that is on trial",
     "Ends the trial of 'commit --confirm': what was committed stays.", runConfirm},
    {"revert", "", "goes back to what was committed",
     "Ends the trial of 'commit --confirm' at once: the configuration before comes back. Without "
     "a\n"
     "trial, brings the files back to what was committed last, and commits nothing.",
     runRevert},
    {"guard", "", "ends a trial whose time is over",
     "Brings back the configuration before a trial whose time is over, or after which the machine\n"
     "was started anew. For the boot and for timers; silent when there is nothing to do.",
     runGuard},
    {"plan", "", "says what a commit would do",
     "Says what a commit would do: what differs from the last commit, and the stations that may\n"
     "drop or must join anew. Nothing is stored or committed.",
     runPlan},
    {"reset", "all|bss BSS", "stores factory values",
     "Stores the factory values again: 'all' of them, or those of one BSS (0 to 3). The access\n"
     "point takes them with the next commit.",
     runReset},
    {"show", "VIEW [OPERAND...] [--watch [SECONDS]]", "shows the access point's state and settings",
     "Shows a view, as a table: what the access point says at this moment, or, where a view says\n"
     "so, what is stored. With --watch again and again, every 2 seconds or as many as given: in\n"
     "place on a terminal, one below the other elsewhere. '-' stands for what is not known. Names\n"
     "that no standard gives are those of oruSdk.h.",
     runShow},
    {"stats", "get NAME RADIO [STATION-MAC]", "shows a counter",
     "Shows one counter of a radio or of a station ('show stats' has them all).", runCommand},
    {"radio", "up|down RADIO", "switches a radio on or off, at once",
     "Switches a radio on ('up') or off ('down'): stores it and tells the radio service at once,\n"
     "without a commit. When the service can't be told, what is stored stays.",
     runCommand},
    {"disassoc", "STATION-MAC", "disassociates a station, at once",
     "Asks the radio service to disassociate a station, at once. Its verdict is in the log alone.",
     runCommand},
    {"wps", "COMMAND [OPERAND...]", "Wi-Fi Protected Setup",
     "Wi-Fi Protected Setup, at once. The verdict on an enrollment is asked for by 'wps status':\n"
     "0 success, 200 key too long, 201 invalid checksum; with --wait it asks once a second until\n"
     "one of these comes, for 120 seconds or as many as given, and fails unless it is success.\n"
     "A PIN, a station's too, is a secret: the next line of standard input (- or nothing; asked\n"
     "for without echo on a terminal), the first line of a file (@FILE), or with --insecure-argv\n"
     "the PIN itself.",
     runCommand},
    {"export", "[FILE|-]", "writes all that is stored, as JSON",
     "Writes every item that can be read and set, at every index, to standard output or to FILE:\n"
     "one JSON object a line, as 'oructl --json get' shows it. Secrets are masked; with\n"
     "--show-secrets they are not, and nobody else may read the FILE.",
     runExport},
    {"import", "FILE|-", "stores what was exported",
     "Stores what 'oructl export' or 'oructl --json get' has written, all of it or nothing, in "
     "the\n"
     "order that the items need. What is stored already is left alone, and so is what a masked\n"
     "secret stands for. With --dry-run it is checked alone. What acts at once can't be imported.",
     runImport},
    {"batch", "FILE|-", "does several changes, all of them or none",
     "Does what the lines of FILE or standard input say, all of it or nothing: 'set ITEM ...' and\n"
     "'reset ...', as they are typed behind 'oructl'. Words stand in quotes as in a shell, a # "
     "begins\n"
     "a comment. Secrets stand in the lines themselves. What acts at once can't be part of it.",
     runBatch},
    {"diff", "", "shows what has changed since the last commit",
     "Shows what is stored now and was not at the last commit, one line a value; keys that no "
     "item\n"
     "stands for by their names alone. Secrets are never shown. The exit status is 20 when there "
     "are\n"
     "differences, and 0 when there are none.",
     runDiff, kDiffOptions},
    {"list", "[PATTERN]", "lists the items",
     "Lists the items whose name or key contains PATTERN, or all: name, operands, legal values,\n"
     "key and file. In a key, %d stands for the index; a key without it is one for all.",
     runList},
    {"doctor", "", "looks for what is wrong with the configuration",
     "Looks for what doesn't hold between the configuration files, and between them and the\n"
     "services: one line a finding, an error, a warning or a note, with the command that mends "
     "it.\n"
     "Ends with 20 when there is an error or a warning, and with 0 otherwise. Changes nothing.",
     runDoctor},
    {"metrics", "", "shows metrics in the text format of Prometheus",
     "Shows what monitoring wants to know, in the text format of Prometheus: services, radios,\n"
     "BSSes, stations, counters, WPS, changes that wait for a commit. A service that is away is a\n"
     "metric (oru_service_up 0) and no failure.",
     runMetrics, kMetricsOptions},
    {"explain", "CODE|ITEM|KEY", "says what a return code, an item or a key means",
     "Of a return code: its message, what it means, which operations return it when, and what to\n"
     "do. Of an item: its help and the codes that it can return. Of a key, such as "
     "radio0.txPower:\n"
     "its factory value, and the items that read or change it. No service is asked.",
     runExplain},
    {"version", "", "shows the versions of oructl and of the library",
     "Shows the versions of oructl and of the library.", runVersion},
    {"help", "[VERB|ITEM]", "shows help", "Shows the verbs, or the help of one verb or item.",
     runHelp},
};

} // namespace

std::span<const Verb> verbs()
{
    return kVerbs;
}

const Verb *findVerb(std::string_view name)
{
    for (const Verb &verb : kVerbs)
        if (verb.name == name) return &verb;
    return nullptr;
}

} // namespace oructl

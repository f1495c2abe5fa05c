#include "doctor.hpp"

#include "color.hpp"
#include "json_output.hpp"
#include "patience.hpp"
#include "terse_output.hpp"

#include <algorithm>
#include <iterator>
#include <unistd.h>

namespace oructl {
namespace {

constexpr Field kColumns[] = {{.name = "level", .kind = Kind::Text},
                              {.name = "check", .kind = Kind::Text},
                              {.name = "message", .kind = Kind::Text},
                              {.name = "mend", .kind = Kind::Text}};

Paint paintOf(Level level)
{
    switch (level) {
    case Level::Error: return Paint::Error;
    case Level::Warning: return Paint::Warning;
    case Level::Note: break;
    }
    return Paint::Note;
}

void runChecks(std::span<const Check> checks, const Patient &patient, std::vector<Diagnosis> &all)
{
    for (const Check &check : checks) {
        Findings findings;
        check.look(patient, findings);
        for (Finding &finding : findings) all.push_back({&check, std::move(finding)});
    }
}

/// Errors first.
std::vector<Diagnosis> diagnose()
{
    const Patient patient;
    std::vector<Diagnosis> all;
    runChecks(fileChecks(), patient, all);
    if (patient.radio && patient.security)
        for (const auto family : {keyChecks(), securityChecks(), radioChecks()})
            runChecks(family, patient, all);
    std::stable_sort(all.begin(), all.end(), [](const Diagnosis &a, const Diagnosis &b) {
        return a.check->level < b.check->level;
    });
    return all;
}

std::string textLine(const Diagnosis &diagnosis, bool colored)
{
    const auto &[check, finding] = diagnosis;
    std::string out = painted(levelName(check->level), paintOf(check->level), colored);
    out.append(": ").append(check->name).append(": ").append(finding.message);
    return out.append("; ").append(finding.mend).append("\n");
}

std::string terseDiagnosis(const Diagnosis &diagnosis)
{
    const auto &[check, finding] = diagnosis;
    std::vector<Value> values;
    for (const std::string_view cell :
         {levelName(check->level), check->name, std::string_view{finding.message},
          std::string_view{finding.mend}})
        values.push_back({.given = true, .text = std::string{cell}});
    return terseLine(kColumns, values, Secrets::Masked);
}

} // namespace

std::string_view levelName(Level level)
{
    switch (level) {
    case Level::Error: return "error";
    case Level::Warning: return "warning";
    case Level::Note: break;
    }
    return "note";
}

int runDoctor(Request &request)
{
    if (!request.operands.empty()) return reportUsage(request, "too many operands");
    const Patience patience{request, "doctor"};
    const std::vector<Diagnosis> all = diagnose();
    if (request.json) request.output = jsonDiagnoses(all);
    const bool colored = inColor(request.color, STDOUT_FILENO);
    for (const Diagnosis &each : all) {
        if (request.json) break;
        request.output += request.terse ? terseDiagnosis(each) : textLine(each, colored);
    }
    const bool ill = std::any_of(all.begin(), all.end(), [](const Diagnosis &each) {
        return each.check->level != Level::Note;
    });
    return ill ? kDifferent : kDone;
}

} // namespace oructl

// The output of each verb as one line of JSON. docs/oructl-json.md describes the objects.
#pragma once

#include "capture.hpp"
#include "catalogue.hpp"
#include "commit.hpp"
#include "doctor.hpp"
#include "explain.hpp"
#include "metrics.hpp"
#include "plan.hpp"
#include "request.hpp"
#include "show.hpp"
#include "transaction.hpp"
#include "values.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace oructl {

/// The member for a field with a name: "session-timeout-seconds".
std::string jsonName(const Field &field);

std::string jsonValue(const Item &item, const Call &call, Secrets secrets = Secrets::Masked);
std::string jsonSet(const Item &item, const Call &call);

/// The keys that a dry run would have changed.
std::string jsonChanges(const std::vector<KeyChange> &changes);

/// What has become of a commit.
std::string jsonCommit(const CommitReport &report);

/// What a commit would do.
std::string jsonPlan(const std::vector<Step> &steps);

/// What reset has done: {"reset":"bss","index":1}.
std::string jsonAction(std::string_view verb, std::string_view target,
                       std::optional<int64_t> index = {});

/// What a verb has done or read, with its operands and results: {"wps":"generate","radio":0}.
std::string jsonRecord(std::string_view verb, std::string_view what, std::span<const Field> fields,
                       const std::vector<Value> &values, Secrets secrets = Secrets::Masked);
std::string jsonView(const View &view, const Arguments &arguments, const Answer &answer,
                     Secrets secrets);
std::string jsonList(const std::vector<const Item *> &items);
std::string jsonExplanation(int64_t code, const std::vector<Cause> &causes,
                            std::string_view advice);
std::string jsonExplanation(const Item &item, const std::vector<int64_t> &codes);
std::string jsonExplanation(std::string_view key, const std::vector<const Item *> &items,
                            std::string_view factoryValue);
std::string jsonDiagnoses(const std::vector<Diagnosis> &all);
std::string jsonMetrics(const std::vector<Metric> &metrics);
std::string jsonVersions(std::string_view tool, std::string_view library);
std::string jsonHelp(std::string_view topic, std::string_view text);
std::string jsonError(const Problem &problem);

/// An error that stands for several, which it holds.
std::string jsonErrors(const Problem &all, const std::vector<Problem> &problems);

/// An item of an export: its value, or the code for which it can't be read.
std::string jsonCaptured(const Captured &captured, Secrets secrets);

/// Items that differ, and keys that no item stands for. Secrets are masked always.
std::string jsonDifferences(const Differences &differences);

/// An item that an import left alone, and why.
struct Note {
    std::string item;
    std::string text;
};

/// What an import or a batch has done: how many changes, and what there is to say.
std::string jsonDone(std::string_view verb, size_t changes, const std::vector<Note> &notes);

} // namespace oructl

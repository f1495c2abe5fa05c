#include "json_output.hpp"

#include "codes.hpp"
#include "oruSdk.h"
#include "values.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace oructl {
namespace {

using Json = nlohmann::ordered_json;

Json document()
{
    return Json{{"schema", "oructl/1"}};
}

/// Never throws: bytes that are no UTF-8 become U+FFFD. ASCII alone, so that no text of somebody
/// else drives a terminal.
std::string line(const Json &object)
{
    return object.dump(-1, ' ', true, Json::error_handler_t::replace) + '\n';
}

Json wordOrNull(std::string_view text)
{
    return text.empty() ? Json(nullptr) : Json(text);
}

template <class Value>
Json orNull(const std::optional<Value> &value)
{
    return value ? Json(*value) : Json(nullptr);
}

Json wordsOf(std::string_view words)
{
    Json list = Json::array();
    forEachWord(words, [&](std::string_view word) { list.push_back(word); });
    return list;
}

/// The bytes in hexadecimal digits, and as text where they are one.
Json bytesOf(std::string_view bytes)
{
    return Json{{"text", isUtf8(bytes) ? Json(bytes) : Json(nullptr)}, {"hex", hexOf(bytes)}};
}

Json fieldsOf(std::span<const Field> fields, const std::vector<Value> &values, Secrets secrets);

Json valueOf(const Field &field, const Value &value, Secrets secrets)
{
    if (!value.given) return nullptr;
    if (field.coded != nullptr)
        return Json{{"word", wordOrNull(field.coded->word(value.number))},
                    {"number", value.number},
                    {"meaning", field.coded->meaning(value.number)}};
    switch (field.kind) {
    case Kind::Number: return value.text.empty() ? Json(value.number) : Json(value.text);
    case Kind::Switch:
    case Kind::Choice:
        return Json{{"word", wordOrNull(wordOf(field, value.number))}, {"number", value.number}};
    case Kind::Text:
    case Kind::Mac: return value.text;
    case Kind::Bytes: return bytesOf(value.text);
    case Kind::Secret:
        return secrets == Secrets::Shown || value.text.empty() ? Json(value.text) : Json(kMask);
    case Kind::List: break;
    }
    Json list = Json::array();
    for (const auto &entry : value.entries) list.push_back(fieldsOf(field.entry, entry, secrets));
    return list;
}

void addFields(Json &object, std::span<const Field> fields, const std::vector<Value> &values,
               Secrets secrets)
{
    for (size_t i = 0; i < fields.size(); ++i)
        if (fields[i].belongsTo(Use::Get))
            object[jsonName(fields[i])] = valueOf(fields[i], values[i], secrets);
}

/// The value itself of a single field without a name, an object of several.
Json fieldsOf(std::span<const Field> fields, const std::vector<Value> &values, Secrets secrets)
{
    if (fields.size() == 1 && fields[0].name.empty()) return valueOf(fields[0], values[0], secrets);
    Json object = Json::object();
    addFields(object, fields, values, secrets);
    return object;
}

Json itemMembers(const Item &item, int64_t index)
{
    return Json{{"item", item.name},
                {"index", item.scope == Scope::None ? Json(nullptr) : Json(index)}};
}

Json itemDocument(const Item &item, const Call &call)
{
    Json object = document();
    object.update(itemMembers(item, call.index));
    return object;
}

/// Items by name, and the failures of those that have no value.
void addItems(Json &object, const std::vector<Reading> &readings, Secrets secrets)
{
    object["items"] = Json::object();
    object["failed"] = Json::object();
    for (const Reading &reading : readings) {
        const std::string name{reading.item->name};
        const bool good = reading.code == ORUSDK_RC_OK;
        object["items"][name] =
            good ? fieldsOf(reading.item->fields, reading.call.values, secrets) : Json(nullptr);
        if (!good)
            object["failed"][name] =
                Json{{"code", reading.code}, {"message", messageLine(reading.code)}};
    }
}

Json keysOf(const std::vector<KeyChange> &changes)
{
    Json list = Json::array();
    for (const KeyChange &change : changes)
        list.push_back({{"key", change.key}, {"file", change.file}});
    return list;
}

Json errorOf(const Problem &problem)
{
    return Json{{"kind", problem.kind},
                {"attempt", wordOrNull(problem.attempt)},
                {"code", problem.code ? Json(*problem.code) : Json(nullptr)},
                {"message", problem.message},
                {"detail", wordOrNull(problem.detail)}};
}

std::string_view kindName(Kind kind)
{
    switch (kind) {
    case Kind::Number: return "number";
    case Kind::Switch: return "switch";
    case Kind::Choice: return "choice";
    case Kind::Text: return "text";
    case Kind::Bytes: return "bytes";
    case Kind::Secret: return "secret";
    case Kind::Mac: return "mac";
    case Kind::List: break;
    }
    return "list";
}

std::string_view scopeName(Scope scope)
{
    switch (scope) {
    case Scope::None: break;
    case Scope::Radio: return "radio";
    case Scope::Bss: return "bss";
    case Scope::Port: return "port";
    }
    return "none";
}

Json describe(std::span<const Field> fields)
{
    Json list = Json::array();
    for (const Field &field : fields) {
        Json object{{"name", wordOrNull(field.name)}, {"kind", kindName(field.kind)},
                    {"min", field.bounds.min},        {"max", field.bounds.max},
                    {"unit", wordOrNull(field.unit)}, {"option", wordOrNull(field.option)}};
        object["flag"] = field.flag;
        object["words"] = Json::array();
        for (const Word &word : field.words)
            object["words"].push_back(Json{{"word", word.word}, {"number", word.number}});
        if (!field.entry.empty()) object["entry"] = describe(field.entry);
        list.push_back(std::move(object));
    }
    return list;
}

Json describe(const Item &item)
{
    return Json{{"item", item.name},
                {"summary", item.summary},
                {"scope", scopeName(item.scope)},
                {"get", item.get != nullptr},
                {"set", item.set != nullptr},
                {"fields", describe(item.fields)},
                {"keys", wordsOf(item.keys)},
                {"files", wordsOf(item.files)},
                {"reads", wordsOf(item.reads)},
                {"operations", wordsOf(item.operations)}};
}

} // namespace

std::string jsonName(const Field &field)
{
    std::string name{field.name};
    if (name.empty() || field.unit.empty()) return name;
    name.append("-").append(field.unit);
    std::replace(name.begin(), name.end(), ' ', '-');
    return name;
}

std::string jsonValue(const Item &item, const Call &call, Secrets secrets)
{
    Json object = itemDocument(item, call);
    object["value"] = fieldsOf(item.fields, call.values, secrets);
    const Field &first = item.fields.front();
    if (first.name.empty() && !first.unit.empty()) object["unit"] = first.unit;
    return line(object);
}

std::string jsonSet(const Item &item, const Call &call)
{
    Json object = itemDocument(item, call);
    object["set"] = true;
    if (!call.steps.empty()) object["steps"] = call.steps;
    return line(object);
}

std::string jsonChanges(const std::vector<KeyChange> &changes)
{
    Json object = document();
    object["dryRun"] = true;
    object["changes"] = keysOf(changes);
    return line(object);
}

std::string jsonAction(std::string_view verb, std::string_view target, std::optional<int64_t> index)
{
    Json object = document();
    object[std::string{verb}] = target;
    if (index) object["index"] = *index;
    return line(object);
}

std::string jsonCommit(const CommitReport &report)
{
    constexpr std::string_view kReach[] = {"untold", "away", "listens", "silent", "answers"};
    const auto reach = [&](Reach of) { return kReach[static_cast<size_t>(of)]; };
    Json object = document();
    object["commit"] = report.what;
    object["saved"] = true;
    object["taken"] = Json{{"wsm", reach(report.wsm)}, {"aa", reach(report.aa)}};
    object["onAir"] = orNull(report.onAir);
    object["missing"] = report.missing;
    if (report.token)
        object["trial"] = Json{{"token", *report.token}, {"seconds", orNull(report.trialSeconds)}};
    return line(object);
}

std::string jsonPlan(const std::vector<Step> &steps)
{
    Json object = document();
    object["plan"] = Json::array();
    for (const Step &step : steps)
        object["plan"].push_back({{"radio", orNull(step.radio)},
                                  {"bss", orNull(step.bss)},
                                  {"changes", orNull(step.changes)},
                                  {"stations", orNull(step.stations)},
                                  {"text", step.text}});
    return line(object);
}

std::string jsonRecord(std::string_view verb, std::string_view what, std::span<const Field> fields,
                       const std::vector<Value> &values, Secrets secrets)
{
    Json object = document();
    object[std::string{verb}] = what.empty() ? Json(true) : Json(what);
    addFields(object, fields, values, secrets);
    return line(object);
}

std::string jsonView(const View &view, const Arguments &arguments, const Answer &answer,
                     Secrets secrets)
{
    Json object = document();
    object["show"] = view.name;
    for (size_t i = 0; i < view.operands.size(); ++i)
        addFields(object, {&view.operands[i].field, 1}, {arguments.values[i]}, secrets);
    if (!view.facts.empty()) object["facts"] = fieldsOf(view.facts, answer.facts, secrets);
    if (!answer.items.empty()) addItems(object, answer.items, secrets);
    if (view.columns.empty() && view.parts.empty()) return line(object);
    object["rows"] = Json::array();
    for (const auto &readings : answer.readings)
        addItems(object["rows"].emplace_back(Json{{"index", readings.front().call.index}}),
                 readings, secrets);
    for (const Row &row : answer.rows)
        object["rows"].push_back(fieldsOf(view.columns, row, secrets));
    return line(object);
}

std::string jsonList(const std::vector<const Item *> &items)
{
    Json object = document();
    object["items"] = Json::array();
    for (const Item *item : items) object["items"].push_back(describe(*item));
    return line(object);
}

std::string jsonExplanation(int64_t code, const std::vector<Cause> &causes, std::string_view advice)
{
    Json object = document();
    object["code"] = code;
    object["message"] = wordOrNull(tableMessage(code));
    object["meaning"] = codeMeaning(code);
    object["causes"] = Json::array();
    for (const Cause &cause : causes)
        object["causes"].push_back(
            Json{{"condition", cause.condition}, {"operations", cause.operations}});
    object["advice"] = wordOrNull(advice);
    return line(object);
}

std::string jsonExplanation(const Item &item, const std::vector<int64_t> &codes)
{
    Json object = document();
    object.update(describe(item));
    object["codes"] = Json::array();
    for (const int64_t code : codes)
        object["codes"].push_back(Json{{"code", code}, {"meaning", codeMeaning(code)}});
    return line(object);
}

std::string jsonExplanation(std::string_view key, const std::vector<const Item *> &items,
                            std::string_view factoryValue)
{
    Json object = document();
    object["key"] = key;
    object["factory"] = wordOrNull(factoryValue);
    object["items"] = Json::array();
    for (const Item *item : items) object["items"].push_back(describe(*item));
    return line(object);
}

std::string jsonDiagnoses(const std::vector<Diagnosis> &all)
{
    Json object = document();
    object["findings"] = Json::array();
    for (const auto &[check, finding] : all)
        object["findings"].push_back(Json{{"level", levelName(check->level)},
                                          {"check", check->name},
                                          {"message", finding.message},
                                          {"mend", finding.mend}});
    return line(object);
}

std::string jsonMetrics(const std::vector<Metric> &metrics)
{
    Json object = document();
    object["metrics"] = Json::array();
    for (const Metric &metric : metrics) {
        Json samples = Json::array();
        for (const Sample &sample : metric.samples) {
            Json labels = Json::object();
            for (const Label &label : sample.labels) labels[std::string{label.name}] = label.value;
            samples.push_back(Json{{"labels", std::move(labels)}, {"value", sample.value}});
        }
        object["metrics"].push_back(Json{{"name", metric.name},
                                         {"type", metric.type},
                                         {"help", metric.help},
                                         {"samples", std::move(samples)}});
    }
    return line(object);
}

std::string jsonVersions(std::string_view tool, std::string_view library)
{
    Json object = document();
    object["oructl"] = tool;
    object["library"] = library;
    return line(object);
}

std::string jsonHelp(std::string_view topic, std::string_view text)
{
    Json object = document();
    object["topic"] = wordOrNull(topic);
    object["text"] = text;
    return line(object);
}

std::string jsonError(const Problem &problem)
{
    Json object = document();
    object["error"] = errorOf(problem);
    return line(object);
}

std::string jsonErrors(const Problem &all, const std::vector<Problem> &problems)
{
    Json object = document();
    object["error"] = errorOf(all);
    object["error"]["problems"] = Json::array();
    for (const Problem &each : problems) object["error"]["problems"].push_back(errorOf(each));
    return line(object);
}

std::string jsonCaptured(const Captured &captured, Secrets secrets)
{
    const Call call{.index = captured.index, .values = captured.values};
    if (captured.code == 0) return jsonValue(*captured.item, call, secrets);
    Json object = itemDocument(*captured.item, call);
    object["error"] = Json{{"code", captured.code}, {"message", messageLine(captured.code)}};
    return line(object);
}

std::string jsonDifferences(const Differences &differences)
{
    const auto side = [](const Captured *captured) {
        return captured == nullptr
                   ? Json(nullptr)
                   : fieldsOf(captured->item->fields, captured->values, Secrets::Masked);
    };
    Json object = document();
    object["differences"] = Json::array();
    for (const Difference &each : differences.items) {
        Json difference = itemMembers(*each.item, each.index);
        difference["from"] = side(each.from);
        difference["to"] = side(each.to);
        object["differences"].push_back(std::move(difference));
    }
    object["keys"] = keysOf(differences.keys);
    return line(object);
}

std::string jsonDone(std::string_view verb, size_t changes, const std::vector<Note> &notes)
{
    Json object = document();
    object[std::string{verb}] = changes;
    object["notes"] = Json::array();
    for (const Note &note : notes)
        object["notes"].push_back(Json{{"item", note.item}, {"note", note.text}});
    return line(object);
}

} // namespace oructl

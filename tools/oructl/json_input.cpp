#include "json_input.hpp"

#include "json_output.hpp"

#include "operands.hpp"
#include "values.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace oructl {
namespace {

using Json = nlohmann::json;

constexpr std::string_view kReplacement = "\xef\xbf\xbd";

std::string readValue(const Field &field, const Json &json, Value &value);

/// A number, word or text as a word of a command line; none for what has no such form.
std::optional<std::string> wordOf(const Json &json)
{
    if (json.is_string()) return json.get<std::string>();
    if (json.is_boolean()) return json.get<bool>() ? "on" : "off";
    if (json.is_number_integer()) return json.dump();
    return std::nullopt;
}

/// A number, a word, or an object of both, of which the number counts.
std::string readNumber(const Field &field, const Json &json, Value &value)
{
    if (json.is_object() && json.contains("number"))
        return readNumber(field, json["number"], value);
    const auto word = wordOf(json.is_object() && json.contains("word") ? json["word"] : json);
    return word ? parseValue(field, *word, value) : "a number or a word is missing";
}

/// A rate: its code with the word that sets it, or a word alone.
std::string readRate(const Field &field, const Json &json, Value &value)
{
    Value number;
    if (!json.is_object() || !json.contains("number")) {
        std::string problem = readNumber(field, json, number);
        if (!problem.empty()) return problem;
        const std::string_view word = oructl::wordOf(field, number.number);
        value = {.given = true,
                 .number = kUnknownCode,
                 .text = word.empty() ? std::to_string(number.number) : std::string{word}};
        return "";
    }
    if (!json["number"].is_number_integer()) return "number is no whole number";
    if (std::string problem =
            parseValue({.name = "", .kind = Kind::Number}, json["number"].dump(), value);
        !problem.empty())
        return problem;
    if (json.contains("word") && json["word"].is_string())
        value.text = json["word"].get<std::string>();
    return "";
}

std::string readText(const Field &field, const Json &json, Value &value)
{
    if (!json.is_string()) return "it is no text";
    value = {.given = true, .number = 0, .text = json.get<std::string>()};
    if (value.text.find('\0') != value.text.npos) return "a text can't hold the byte 00";
    if (field.kind != Kind::Secret && value.text.find(kReplacement) != value.text.npos)
        return "it holds U+FFFD, which stands for bytes that JSON could not show";
    return field.kind == Kind::Mac && !value.text.empty() ? parseValue(field, value.text, value)
                                                          : "";
}

std::string readBytes(const Field &field, const Json &json, Value &value)
{
    if (!json.is_object()) return readText(field, json, value);
    if (json.contains("hex") && json["hex"].is_string())
        return parseHex(json["hex"].get<std::string>(), value);
    return json.contains("text") ? readText(field, json["text"], value) : "hex is missing";
}

std::string unknownMember(std::span<const Field> fields, const Json &object)
{
    for (const auto &member : object.items()) {
        const bool known = std::any_of(fields.begin(), fields.end(), [&](const Field &field) {
            return field.belongsTo(Use::Get) && jsonName(field) == member.key();
        });
        if (!known) return "no field of it is called " + oructl::quoted(member.key());
    }
    return "";
}

/// What becomes of fields that a get shows, but no set takes.
enum class Shown : uint8_t { Read, LeftOut };

/// The value itself of a single field without a name, an object of several.
std::string readFields(std::span<const Field> fields, const Json &json, std::vector<Value> &values,
                       Shown shown = Shown::Read)
{
    values.resize(fields.size());
    if (fields.size() == 1 && fields[0].name.empty()) return readValue(fields[0], json, values[0]);
    if (!json.is_object()) return "it is no object of fields";
    for (size_t i = 0; i < fields.size(); ++i) {
        const std::string name = jsonName(fields[i]);
        if (!fields[i].belongsTo(Use::Get) || !json.contains(name)) continue;
        if (shown == Shown::LeftOut && !fields[i].belongsTo(Use::Set)) continue;
        const std::string problem = readValue(fields[i], json[name], values[i]);
        if (!problem.empty()) return std::string{name}.append(": ").append(problem);
    }
    return unknownMember(fields, json);
}

std::string readList(const Field &list, const Json &json, Value &value)
{
    if (!json.is_array()) return "it is no list";
    value.given = true;
    for (const Json &each : json) {
        auto &entry = value.entries.emplace_back();
        std::string problem = readFields(list.entry, each, entry);
        for (size_t i = 0; problem.empty() && i < entry.size(); ++i)
            if (!entry[i].given) problem = operandName(list.entry[i]) + " is missing";
        if (!problem.empty())
            return "entry " + std::to_string(value.entries.size()) + ": " + problem;
    }
    return "";
}

std::string readValue(const Field &field, const Json &json, Value &value)
{
    if (json.is_null()) return "";
    if (field.coded != nullptr) return readRate(field, json, value);
    switch (field.kind) {
    case Kind::Number:
    case Kind::Switch:
    case Kind::Choice: return readNumber(field, json, value);
    case Kind::Text:
    case Kind::Secret:
    case Kind::Mac: return readText(field, json, value);
    case Kind::Bytes: return readBytes(field, json, value);
    case Kind::List: break;
    }
    return readList(field, json, value);
}

std::string readIndex(const Item &item, const Json &object, int64_t &index)
{
    const Json given = object.value("index", Json(nullptr));
    if (item.scope == Scope::None) return given.is_null() ? "" : "it has no index";
    if (!given.is_number_integer() || parseDecimal(given.dump(), index) != Decimal::Good)
        return "index is no number of a " + std::string{indexName(item.scope)};
    if (index < item.index.min || index > item.index.max)
        return "the index does not fit the " + std::string{indexName(item.scope)};
    return "";
}

std::string readItem(const Json &object, Wanted &wanted)
{
    if (!object.is_object()) return "it is no object";
    if (object.contains("schema") && object["schema"] != "oructl/1")
        return "its schema is not oructl/1";
    if (!object.contains("item") || !object["item"].is_string()) return "it names no item";
    const auto name = object["item"].get<std::string>();
    wanted.item = findItem(name);
    if (wanted.item == nullptr) return "no item is called " + oructl::quoted(name);
    const Item &item = *wanted.item;
    if (item.get == nullptr || item.set == nullptr) return name + " can't be read and set";
    if (std::string problem = readIndex(item, object, wanted.index); !problem.empty())
        return name + ": " + problem;
    wanted.unreadable = object.contains("error") && !object.contains("value");
    if (wanted.unreadable) return "";
    if (!object.contains("value") || object["value"].is_null()) return name + ": it has no value";
    const Shown shown = item.restore != nullptr ? Shown::Read : Shown::LeftOut;
    std::string problem = readFields(item.fields, object["value"], wanted.values, shown);
    if (problem.empty()) return "";
    if (hasSecret(item.fields)) problem = withoutQuotation(problem);
    return nameOf(item, wanted.index) + ": " + problem;
}

class Reader {
public:
    explicit Reader(std::vector<Problem> &problems) : problems_(problems) {}

    void read(const Json &json, const std::string &place)
    {
        Wanted wanted{.place = place};
        std::string problem = json.is_discarded() ? "it is no JSON" : readItem(json, wanted);
        if (problem.empty()) problem = repeated(wanted);
        if (problem.empty()) wanted_.push_back(std::move(wanted));
        else problems_.push_back({.kind = "usage", .attempt = place, .message = problem});
    }
    [[nodiscard]] std::vector<Wanted> take() { return std::move(wanted_); }

private:
    [[nodiscard]] std::string repeated(const Wanted &wanted) const
    {
        for (const Wanted &each : wanted_)
            if (each.item == wanted.item && each.index == wanted.index)
                return nameOf(*wanted.item, wanted.index) + " stands in " + each.place + " already";
        return "";
    }

    std::vector<Problem> &problems_;
    std::vector<Wanted> wanted_;
};

} // namespace

std::vector<Wanted> parseExport(const std::string &text, std::vector<Problem> &problems)
{
    Reader reader{problems};
    const Json whole = Json::parse(text, nullptr, false);
    if (whole.is_object()) reader.read(whole, "line 1");
    for (size_t i = 0; whole.is_array() && i < whole.size(); ++i)
        reader.read(whole[i], "entry " + std::to_string(i + 1));
    if (!whole.is_discarded()) return reader.take();
    size_t number = 0;
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        ++number;
        if (line.find_first_not_of(" \t\r") == line.npos) continue;
        reader.read(Json::parse(line, nullptr, false), "line " + std::to_string(number));
    }
    return reader.take();
}

} // namespace oructl

#include "text_output.hpp"

#include "command.hpp"

#include <algorithm>
#include <array>

namespace oructl {
namespace {

void addFields(std::string &out, const std::string &prefix, std::span<const Field> fields,
               const std::vector<Value> &values, Secrets secrets);

void addField(std::string &out, const std::string &name, const Field &field, const Value &value,
              Secrets secrets)
{
    out.append(name).append(" = ").append(shownValue(field, value, secrets)).append("\n");
    for (size_t i = 0; i < value.entries.size(); ++i)
        addFields(out, name + '.' + std::to_string(i + 1), field.entry, value.entries[i], secrets);
}

void addFields(std::string &out, const std::string &prefix, std::span<const Field> fields,
               const std::vector<Value> &values, Secrets secrets)
{
    for (size_t i = 0; i < fields.size(); ++i) {
        const Field &field = fields[i];
        if (!field.belongsTo(Use::Get) || !values[i].given) continue;
        addField(out, field.name.empty() ? prefix : prefix + '.' + std::string{field.name}, field,
                 values[i], secrets);
    }
}

/// "mimo[0]".
std::string prefixOf(const Item &item, const Call &call)
{
    std::string prefix{item.name};
    if (item.scope != Scope::None) prefix += '[' + std::to_string(call.index) + ']';
    return prefix;
}

using Row = std::array<std::string, 5>;

Row listRow(const Item &item)
{
    return {std::string{item.name},
            operandSynopsis(item, item.set != nullptr ? Use::Set : Use::Get, Synopsis::Brief),
            legalValuesOf(item), std::string{item.keys}, std::string{item.files}};
}

/// A label of fixed width and what belongs to it.
void addEntry(std::string &out, std::string_view label, std::string_view text)
{
    constexpr size_t kWidth = 12;
    if (text.empty()) return;
    out.append("  ").append(label);
    out.append(label.size() < kWidth ? kWidth - label.size() : 1, ' ');
    out.append(text).append("\n");
}

/// "--timeout SECONDS" and what it does, one option a line.
std::string textOptions(std::span<const Option> options)
{
    constexpr size_t kWidth = 20;
    std::string out;
    for (const Option &option : options) {
        std::string name = "--" + std::string{option.name};
        if (option.value != nullptr) name.append(" ").append(option.value);
        out.append("  ").append(name).append(std::max(kWidth, name.size() + 1) - name.size(), ' ');
        out.append(option.summary).append("\n");
    }
    return out;
}

} // namespace

std::string textValue(const Item &item, const Call &call, Secrets secrets)
{
    std::string out;
    addFields(out, prefixOf(item, call), item.fields, call.values, secrets);
    return out;
}

std::string textSteps(const Item &item, const Call &call)
{
    std::string out;
    for (const std::string &step : call.steps)
        out.append(prefixOf(item, call)).append(": ").append(step).append("\n");
    return out;
}

std::string textList(const std::vector<const Item *> &items)
{
    constexpr size_t kWidest = 48; // longer cells shift their own row alone
    std::vector<Row> rows;
    rows.reserve(items.size());
    for (const Item *item : items) rows.push_back(listRow(*item));
    std::array<size_t, std::tuple_size_v<Row>> widths{};
    for (const Row &row : rows)
        for (size_t i = 0; i < row.size(); ++i)
            if (row[i].size() <= kWidest) widths[i] = std::max(widths[i], row[i].size());
    std::string out;
    for (const Row &row : rows) {
        for (size_t i = 0; i + 1 < row.size(); ++i)
            out.append(row[i]).append(std::max(widths[i], row[i].size()) - row[i].size() + 2, ' ');
        out.append(row.back()).append("\n");
    }
    return out;
}

std::string textOverview()
{
    std::string out = "usage: " + usageOf(nullptr) +
                      "\n\nReads and changes the configuration of the access point.\n\nVerbs:\n";
    size_t width = 0;
    for (const Verb &verb : verbs())
        width = std::max(width, verb.name.size() + verb.operands.size());
    for (const Verb &verb : verbs()) {
        out.append("  ").append(verb.name).append(" ").append(verb.operands);
        out.append(width + 2 - verb.name.size() - verb.operands.size(), ' ');
        out.append(verb.summary).append("\n");
    }
    out += "\nOptions, before the verb or right behind it:\n" + textOptions(globalOptions());
    out += "\nA change waits in the files until 'oructl commit'.\n"
           "'oructl list' shows the items, 'oructl help ITEM' one of them.\n\nExit status:\n";
    for (const ExitMeaning &each : exitMeanings())
        addEntry(out, std::to_string(each.status), each.meaning);
    return out;
}

std::string textHelp(const Verb &verb)
{
    std::string out = "usage: " + usageOf(&verb) + "\n\n";
    out.append(verb.details).append("\n");
    if (!verb.options.empty()) out.append("\nOptions:\n").append(textOptions(verb.options));
    return out.append(textCommands(verb));
}

std::string textHelp(const Item &item)
{
    std::string out{item.name};
    out.append(": ").append(item.summary).append("\n");
    if (item.get != nullptr) addEntry(out, "read", usageOf(findVerb("get"), &item));
    if (item.set != nullptr) addEntry(out, "change", usageOf(findVerb("set"), &item));
    for (const Field &field : item.fields) {
        std::string text = field.flag ? "" : legalValues(field);
        if (!field.meaning.empty()) text.append(text.empty() ? "" : ": ").append(field.meaning);
        addEntry(out, field.name.empty() ? "VALUE" : field.name, text);
    }
    std::string keys{item.keys};
    if (item.scope == Scope::Radio && !keys.empty() && keys.find("%d") == keys.npos)
        keys += " (one for both radios)";
    addEntry(out, "key", keys);
    addEntry(out, "file", item.files);
    addEntry(out, "checks read", item.reads);
    addEntry(out, "operations", item.operations);
    return out;
}

std::string legalValuesOf(const Item &item)
{
    const Use verb = item.set != nullptr ? Use::Set : Use::Get;
    const bool positional = nextPositional(item, 0) != nullptr;
    std::string out;
    for (const Field &field : item.fields) {
        if (!field.belongsTo(verb) || field.flag) continue;
        if (positional && !field.option.empty()) continue;
        if (!out.empty()) out += ", ";
        if (!field.name.empty()) out.append(field.name).append(" ");
        out.append(legalValues(field));
    }
    return out;
}

std::string whereStored(const Item &item, const Call &call, std::string_view more)
{
    std::string keys;
    const auto add = [&](std::string_view pattern) {
        if (!keys.empty()) keys += ", ";
        const size_t at = pattern.find("%d");
        keys.append(pattern.substr(0, at));
        if (at != pattern.npos)
            keys.append(std::to_string(call.index)).append(pattern.substr(at + 2));
    };
    forEachWord(item.keys, add);
    forEachWord(more, add);
    std::string files;
    forEachWord(item.files, [&](std::string_view file) {
        files.append(files.empty() ? "" : " and ").append(file);
    });
    if (keys.empty()) return files;
    return (keys.find(',') == keys.npos ? "key " : "keys ") + keys + " of " + files;
}

} // namespace oructl

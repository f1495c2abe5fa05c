#include "wanted.hpp"

#include "operands.hpp"
#include "oruSdk.h"
#include "values.hpp"

#include <algorithm>

namespace oructl {
namespace {

bool isMask(const Field &field, const Value &value)
{
    return field.kind == Kind::Secret && value.given && value.text == kMask;
}

/// An entry like this one but for its secrets; NULL when there is none.
const std::vector<Value> *entryLike(const Field &list, const std::vector<Value> &entry,
                                    const Value &stored)
{
    for (const auto &each : stored.entries)
        if (std::equal(entry.begin(), entry.end(), each.begin(), each.end(),
                       [&](const Value &one, const Value &other) {
                           const Field &field = list.entry[static_cast<size_t>(&one - &entry[0])];
                           return field.kind == Kind::Secret || sameValue(field, one, other);
                       }))
            return &each;
    return nullptr;
}

Value unmaskedValue(const Field &field, Value wanted, const Value &stored)
{
    if (isMask(field, wanted) && !stored.text.empty()) return stored;
    for (auto &entry : wanted.entries)
        if (const auto *like = entryLike(field, entry, stored); like != nullptr)
            entry = unmasked(field.entry, std::move(entry), *like);
    return wanted;
}

/// A rate by its word, whose code depends on other settings.
bool isSameWord(const Field &field, const Value &wanted, const Value &stored)
{
    return field.coded != nullptr && wanted.number == kUnknownCode && stored.given &&
           wanted.text == field.coded->word(stored.number);
}

bool isEmptyOptional(const Field &field, const Value &value)
{
    return (field.kind == Kind::Secret || field.kind == Kind::Mac) && value.text.empty();
}

} // namespace

bool isMasked(std::span<const Field> fields, const std::vector<Value> &values)
{
    for (size_t i = 0; i < fields.size(); ++i) {
        if (isMask(fields[i], values[i])) return true;
        for (const auto &entry : values[i].entries)
            if (isMasked(fields[i].entry, entry)) return true;
    }
    return false;
}

std::vector<Value> unmasked(std::span<const Field> fields, std::vector<Value> wanted,
                            const std::vector<Value> &stored)
{
    for (size_t i = 0; i < fields.size(); ++i)
        wanted[i] = unmaskedValue(fields[i], std::move(wanted[i]), stored[i]);
    return wanted;
}

std::vector<Value> completed(std::span<const Field> fields, const std::vector<Value> &wanted,
                             const std::vector<Value> &stored)
{
    std::vector<Value> values = unmasked(fields, wanted, stored);
    for (size_t i = 0; i < fields.size(); ++i) {
        if (!values[i].given || isSameWord(fields[i], values[i], stored[i])) values[i] = stored[i];
        if (fields[i].coded != nullptr && values[i].number != kUnknownCode) values[i].text.clear();
    }
    return values;
}

bool isStored(const Wanted &wanted, const Captured &stored)
{
    if (stored.code != ORUSDK_RC_OK) return false;
    const auto fields = wanted.item->fields;
    const std::vector<Value> values = completed(fields, wanted.values, stored.values);
    for (size_t i = 0; i < fields.size(); ++i)
        if (!sameValue(fields[i], values[i], stored.values[i])) return false;
    return true;
}

bool isRestored(const Item &item, const std::vector<Value> &values)
{
    return item.restore != nullptr &&
           std::none_of(values.begin(), values.end(),
                        [](const Value &value) { return value.number == kUnknownCode; });
}

std::string callFor(const Item &item, std::vector<Value> wanted, Call &call)
{
    call.values = std::move(wanted);
    if (isMasked(item.fields, call.values)) return "the secret is masked, and none is stored";
    if (isRestored(item, call.values)) return "";
    for (size_t i = 0; i < item.fields.size(); ++i) {
        const Field &field = item.fields[i];
        Value &value = call.values[i];
        if (!field.belongsTo(Use::Set) || (value.given && isEmptyOptional(field, value)))
            value = {};
        if (value.given && field.coded != nullptr)
            (void)parseValue(field, std::string{value.text}, value);
        const bool needed = field.belongsTo(Use::Set) && field.option.empty() && !field.optional;
        if (needed && !value.given) return operandName(field) + " is missing";
    }
    return item.conflict != nullptr ? item.conflict(call) : "";
}

} // namespace oructl

#include "faults.hpp"

#include <algorithm>

namespace orusim {
namespace {

struct KindRow {
    Fault::Kind kind;
    const char *name;
    bool hasArgument;
    uint32_t least;
    uint32_t most;
};

constexpr KindRow kKinds[] = {
    {Fault::Kind::none, "none", false, 0, 0},
    {Fault::Kind::silent, "silent", false, 0, 0},
    {Fault::Kind::slow, "slow", true, 0, 3600 * 1000},
    {Fault::Kind::close, "close", false, 0, 0},
    {Fault::Kind::wrong, "wrong", false, 0, 0},
    // A packet of no bytes would look like a closed connection.
    {Fault::Kind::cut, "cut", true, 1, 65535},
};

const KindRow &rowOf(Fault::Kind kind)
{
    return *std::ranges::find(kKinds, kind, &KindRow::kind);
}

} // namespace

std::string Fault::text() const
{
    const KindRow &row = rowOf(kind);
    return row.hasArgument ? format("%s %u", row.name, argument) : row.name;
}

void Faults::set(Fault fault, std::optional<uint32_t> count)
{
    fault_ = count == 0u ? Fault{} : fault;
    left_ = fault_.kind == Fault::Kind::none ? std::nullopt : count;
}

Fault Faults::next()
{
    const Fault fault = fault_;
    if (left_ && --*left_ == 0) clear();
    return fault;
}

std::string Faults::text() const
{
    return left_ ? format("%s (%u left)", fault_.text().c_str(), *left_) : fault_.text();
}

std::optional<Fault> parseFault(std::vector<std::string_view> &words)
{
    if (words.empty()) return {};
    const auto row = std::ranges::find(kKinds, words[0], &KindRow::name);
    if (row == std::end(kKinds)) return {};

    Fault fault{row->kind, 0};
    if (row->hasArgument) {
        const auto number = words.size() > 1 ? toNumber(words[1]) : std::nullopt;
        if (!number || *number < row->least || *number > row->most) return {};
        fault.argument = *number;
    }
    words.erase(words.begin(), words.begin() + (row->hasArgument ? 2 : 1));
    return fault;
}

} // namespace orusim

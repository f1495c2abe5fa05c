#include "catalogue.hpp"

#include "items.hpp"

namespace oructl {

std::span<const Family> families()
{
    static const Family all[] = {
        {"Radio", radioSwitches()}, {"Radio", radioOptions()}, {"Channel", channelItems()},
        {"DFS", dfsItems()},        {"Rates", rateItems()},    {"MAC", macItems()},
        {"QoS", qosItems()},        {"BSS", bssItems()},       {"Security", securityItems()},
        {"RADIUS", radiusItems()},  {"WPS", wpsItems()},       {"Control", controlItems()}};
    return all;
}

const Item *findItem(std::string_view name)
{
    for (const Family &family : families())
        for (const Item &item : family.items)
            if (item.name == name) return &item;
    return nullptr;
}

std::string_view indexName(Scope scope)
{
    switch (scope) {
    case Scope::None: break;
    case Scope::Radio: return "RADIO";
    case Scope::Bss: return "BSS";
    case Scope::Port: return "PORT";
    }
    return "";
}

Bounds legalIndex(Scope scope)
{
    switch (scope) {
    case Scope::None: break;
    case Scope::Radio: return {0, 1};
    case Scope::Bss: return {0, 3};
    case Scope::Port: return {0, INT32_MAX};
    }
    return {0, 0};
}

} // namespace oructl

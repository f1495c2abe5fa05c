#include "returns.hpp"

#include <charconv>

namespace oructl {
namespace {

// One text and no table: nothing to relocate when the process starts. The build makes it.
constexpr char kReturns[] =
#include "returns.inc"
    ;

} // namespace

std::vector<Return> returns()
{
    std::vector<Return> all;
    std::string_view operation;
    std::string_view rest = kReturns;
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(line.size() + 1);
        if (line.starts_with('>')) {
            operation = line.substr(1);
            continue;
        }
        int64_t code = 0;
        const char *const end = std::from_chars(line.data(), line.data() + line.size(), code).ptr;
        all.push_back({operation, code, line.substr(static_cast<size_t>(end - line.data()) + 1)});
    }
    return all;
}

} // namespace oructl

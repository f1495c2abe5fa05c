// Any text as a file for "import".
#include "fuzz.hpp"
#include "json_input.hpp"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::vector<oructl::Problem> problems;
    const std::string text{reinterpret_cast<const char *>(data), size};
    oructl::parseExport(text, problems);
    return 0;
}

#include "color.hpp"

#include <cstdlib>
#include <unistd.h>

namespace oructl {
namespace {

std::string_view environment(const char *name)
{
    const char *const value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string_view sequenceOf(Paint paint)
{
    switch (paint) {
    case Paint::Error: return "\x1b[1;31m";
    case Paint::Warning: return "\x1b[33m";
    case Paint::Old: return "\x1b[31m";
    case Paint::New: return "\x1b[32m";
    case Paint::Note: break;
    }
    return "\x1b[36m";
}

} // namespace

bool inColor(Color wanted, int fd)
{
    if (wanted != Color::Auto) return wanted == Color::Always;
    const std::string_view terminal = environment("TERM");
    return environment("NO_COLOR").empty() && !terminal.empty() && terminal != "dumb" &&
           ::isatty(fd) == 1;
}

std::string painted(std::string_view text, Paint paint, bool colored)
{
    if (!colored) return std::string{text};
    return std::string{sequenceOf(paint)}.append(text).append("\x1b[0m");
}

} // namespace oructl

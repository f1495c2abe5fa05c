#include "mdoc.hpp"

#include "catalogue.hpp"

namespace oructl {
namespace {

/// A word that no formatter takes for anything but itself. A dash stays the one of options.
std::string escaped(std::string_view word)
{
    std::string out;
    for (const char c : word) {
        if (c == '\\') out += "\\e";
        else if (c == '-' && word.starts_with('-')) out += "\\-";
        else out += c;
    }
    return out;
}

bool endsSentence(std::string_view word)
{
    while (word.ends_with(')') || word.ends_with('\'')) word.remove_suffix(1);
    return word.ends_with('.') || word.ends_with('?') || word.ends_with('!');
}

std::string lineOf(std::string_view text)
{
    std::string line;
    forEachWord(text, [&](std::string_view word) {
        line.append(line.empty() ? "" : " ").append(escaped(word));
    });
    return line;
}

/// A line must not begin as a request does.
std::string guarded(std::string line)
{
    if (line.starts_with('.') || line.starts_with('\'')) line.insert(0, "\\&");
    return line;
}

} // namespace

Mdoc::Mdoc(std::string_view name, std::string_view section, std::string_view date,
           std::string_view summary)
{
    std::string title;
    for (const char c : name) title += c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
    raw(".\\\" Written by the program; not meant to be edited.");
    raw(std::string{".Dd "}.append(date));
    raw(".Dt " + title.append(" ").append(section));
    raw(".Os");
    raw(".Sh NAME");
    raw(std::string{".Nm "}.append(name));
    raw(std::string{".Nd "}.append(summary));
}

void Mdoc::macro(std::string_view name, std::string_view words)
{
    source_.append(".").append(name).append(" ").append(words).append("\n");
}

void Mdoc::text(std::string_view text)
{
    constexpr size_t kWidth = 76; // with room for a guard
    std::string plain{text};
    for (char &c : plain)
        if (c == '\n') c = ' ';
    std::string line;
    const auto flush = [&] {
        if (!line.empty()) raw(guarded(line));
        line.clear();
    };
    forEachWord(plain, [&](std::string_view word) {
        const std::string shown = escaped(word);
        if (line.size() + shown.size() > kWidth) flush();
        line.append(line.empty() ? "" : " ").append(shown);
        if (endsSentence(word)) flush();
    });
    flush();
}

void Mdoc::paragraph(std::string_view text)
{
    raw(".Pp");
    this->text(text);
}

void Mdoc::literal(std::string_view text)
{
    raw(".Bd -literal -offset indent -compact");
    while (!text.empty()) {
        const size_t end = text.find('\n');
        raw(guarded(lineOf(text.substr(0, end))));
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
    }
    raw(".Ed");
}

void Mdoc::tag(std::string_view words)
{
    raw(".It Xo");
    raw(".Sy " + lineOf(words));
    raw(".Xc");
}

void Mdoc::seeAlso(std::initializer_list<std::string_view> pages)
{
    section("SEE ALSO");
    size_t left = pages.size();
    for (const std::string_view page : pages)
        raw(std::string{".Xr "}.append(page).append(--left == 0 ? "" : " ,"));
}

} // namespace oructl

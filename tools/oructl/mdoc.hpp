// Writes the source of a manual page.
#pragma once

#include <string>
#include <string_view>

namespace oructl {

class Mdoc {
public:
    /// The title line, NAME and what belongs to them.
    Mdoc(std::string_view name, std::string_view section, std::string_view date,
         std::string_view summary);

    void section(std::string_view title) { macro("Sh", title); }
    void subsection(std::string_view title) { macro("Ss", title); }

    /// Text that is filled: each sentence begins a line, and no line is long.
    void text(std::string_view text);
    void paragraph(std::string_view text);

    /// Text as it stands, indented.
    void literal(std::string_view text);

    void beginTags() { source_ += ".Bl -tag -width Ds\n"; }
    void tag(std::string_view words);
    void endTags() { source_ += ".El\n"; }

    /// "name 7", a page.
    void seeAlso(std::initializer_list<std::string_view> pages);

    void raw(std::string_view line) { source_.append(line).append("\n"); }
    [[nodiscard]] const std::string &source() const { return source_; }

private:
    void macro(std::string_view name, std::string_view words);

    std::string source_;
};

} // namespace oructl

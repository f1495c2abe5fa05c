// A part of the terminal that is drawn again and again. Whatever ends the process, the cursor comes
// back.
#pragma once

#include <string>
#include <string_view>

namespace oructl {

/// A text on standard output that replaces the one before it. Hides the cursor while it lives; an
/// interrupt shows it again and ends the process with 128 and the signal's number.
class LiveText {
public:
    LiveText();
    ~LiveText();
    LiveText(const LiveText &) = delete;
    LiveText &operator=(const LiveText &) = delete;

    /// Cuts what doesn't fit the terminal. False when it can't be written.
    bool draw(std::string_view text);

private:
    size_t lines_ = 0; // that the text before takes
};

/// A terminal stands behind standard output and can move its cursor.
bool outputIsTerminal();

} // namespace oructl

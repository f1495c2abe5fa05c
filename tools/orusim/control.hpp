// Commands from outside, as lines of text over a socket.
#pragma once

#include "descriptor.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orusim {

class Simulator;

inline constexpr size_t kControlRoom = 4096; // the longest command or answer

/// Carries a command out. The answer begins with "ok" or "error: "; lines of a report follow.
std::string obey(Simulator &simulator, std::string_view command);

/// The socket on which commands come in; this user alone may connect.
class CommandListener {
public:
    /// Nothing when that fails.
    static std::unique_ptr<CommandListener> make();
    ~CommandListener();

    [[nodiscard]] int number() const { return socket_.number(); }

private:
    CommandListener(Descriptor folder, Descriptor socket);

    Descriptor folder_; // kept so that the socket is removed from where it was made
    Descriptor socket_;
};

/// Sends a command to a simulator that runs. The answer, or nothing when none runs.
std::optional<std::string> sendCommand(std::string_view command);

/// What commands there are.
extern const char kCommands[];

} // namespace orusim

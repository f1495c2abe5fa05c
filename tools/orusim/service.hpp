// A simulated service: a table of messages, a configuration file, a fault.
#pragma once

#include "configuration.hpp"
#include "faults.hpp"
#include "message.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orusim {

/// What a service does with one packet.
struct Outcome {
    bool close = false;          // the connection, without an answer
    std::optional<Bytes> answer; // to be sent
    int64_t delayMs = 0;         // before it is sent
};

class Service {
public:
    /// A row of the table of messages. A handler answers, or returns nothing for a notice.
    struct Row {
        uint16_t type;
        const char *name;
        Shape shape;
        std::function<std::optional<Writer>(const Message &)> handler;
        bool notice = false;
    };

    Service(std::string name, uint32_t port, std::string path, Log log);
    virtual ~Service() = default;
    Service(const Service &) = delete;
    Service &operator=(const Service &) = delete;

    [[nodiscard]] const std::string &name() const { return name_; }
    [[nodiscard]] uint32_t port() const { return port_; }
    [[nodiscard]] const std::string &path() const { return path_; }
    [[nodiscard]] const Configuration &configuration() const { return configuration_; }
    [[nodiscard]] uint64_t messages() const { return messages_; }
    Faults &faults() { return faults_; }

    /// Takes the configuration file as it is now, without comparing.
    void load();

    /// Takes the configuration file again and reports what has changed.
    void reload();

    /// Decodes, logs and handles one packet.
    Outcome receive(std::span<const uint8_t> packet);

    /// Called before each packet.
    virtual void catchUp() {}

    /// Writes a line behind the service's name.
    void say(std::string_view text) const;

protected:
    void add(Row row) { rows_.push_back(std::move(row)); }

    /// Called when the configuration has been taken.
    virtual void configured() {}

private:
    Outcome handle(const Row &row, const Message &message);
    Outcome spoilt(Fault fault, const Writer &answered) const;

    std::string name_;
    uint32_t port_;
    std::string path_;
    Log log_;
    std::vector<Row> rows_;
    Configuration configuration_;
    Faults faults_;
    uint64_t messages_ = 0;
};

} // namespace orusim

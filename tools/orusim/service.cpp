#include "service.hpp"

#include <algorithm>

namespace orusim {
namespace {

constexpr size_t kShownBytes = 32; // of a packet that can't be decoded

/// An element that no answer has.
constexpr uint32_t kWrongElement = 0x00030003;

std::string beginning(std::span<const uint8_t> packet)
{
    const std::string text = hex(packet.first(std::min(packet.size(), kShownBytes)));
    return packet.size() > kShownBytes ? text + "..." : text;
}

} // namespace

Service::Service(std::string name, uint32_t port, std::string path, Log log)
    : name_(std::move(name)), port_(port), path_(std::move(path)), log_(std::move(log))
{
}

void Service::say(std::string_view text) const
{
    if (log_) log_(name_ + ": " + std::string(text));
}

void Service::load()
{
    auto loaded = Configuration::load(path_);
    if (!loaded) return say("can't read " + path_);
    configuration_ = std::move(*loaded);
    say(format("loaded %s: %zu keys", path_.c_str(), configuration_.size()));
    configured();
}

void Service::reload()
{
    auto loaded = Configuration::load(path_);
    if (!loaded) return say("can't read " + path_ + ", keeping what was loaded");

    const std::vector<Change> changes = configuration_.changesTo(*loaded);
    configuration_ = std::move(*loaded);
    say(format("reloaded %s: %zu %s", path_.c_str(), changes.size(),
               changes.size() == 1 ? "change" : "changes"));
    for (const Change &change : changes) say("  " + change.text());
    configured();
}

Outcome Service::receive(std::span<const uint8_t> packet)
{
    ++messages_;
    catchUp();
    const auto type = messageType(packet);
    const auto row = type ? std::ranges::find(rows_, *type, &Row::type) : rows_.end();
    if (type && row == rows_.end()) {
        say(format("unknown message %u of %zu bytes, closing", *type, packet.size()));
        return {true, {}, 0};
    }
    const auto message = type ? decode(packet, row->shape) : std::nullopt;
    if (!message) {
        say(format("malformed message of %zu bytes, closing: %s", packet.size(),
                   beginning(packet).c_str()));
        return {true, {}, 0};
    }
    return handle(*row, *message);
}

Outcome Service::handle(const Row &row, const Message &message)
{
    say(format("%u %s%s%s", row.type, row.name, message.description.empty() ? "" : ": ",
               message.description.c_str()));
    const Fault fault = row.notice ? Fault{} : faults_.next();
    if (fault.kind != Fault::Kind::none) say("  fault: " + fault.text());
    if (fault.kind == Fault::Kind::close) return {true, {}, 0};

    const auto answered = row.handler(message);
    return answered ? spoilt(fault, *answered) : Outcome{};
}

Outcome Service::spoilt(Fault fault, const Writer &answered) const
{
    Bytes bytes = answered.message();
    switch (fault.kind) {
    case Fault::Kind::silent: return {};
    case Fault::Kind::slow: return {false, std::move(bytes), fault.argument};
    case Fault::Kind::wrong:
        return {false, answered.withoutElements().number(kWrongElement, 0).message(), 0};
    case Fault::Kind::cut: bytes.resize(std::min<size_t>(bytes.size(), fault.argument)); break;
    default: break;
    }
    return {false, std::move(bytes), 0};
}

} // namespace orusim

// A configuration file in memory, freed by its owner's end.
#pragma once

#include "oruAsf.h"

#include <cstdint>
#include <utility>

namespace oru {

constexpr const char kRadioFile[] = "/var/wsmDefaults"; // radios and BSSes, read by WSM
constexpr const char kSecurityFile[] = "/var/1x.conf";  // security, read by AA
constexpr const char kRadioFactoryFile[] = "/var/wsmDefaults.orig";
constexpr const char kSecurityFactoryFile[] = "/var/1x.conf.orig";

class Dict {
public:
    Dict() = default;
    explicit Dict(const char *path) : open_(oruAsfDictCreate(&handle_, path) == 0) {}
    ~Dict()
    {
        if (open_) oruAsfDictFree(handle_);
    }
    Dict(Dict &&other) noexcept : handle_(other.handle_), open_(std::exchange(other.open_, false))
    {
    }
    Dict &operator=(Dict &&other) noexcept
    {
        std::swap(handle_, other.handle_);
        std::swap(open_, other.open_);
        return *this;
    }

    explicit operator bool() const { return open_; }
    operator OruAsfDict *() const { return handle_; }

    /// Leaves the handle open for good. Only where that is intended, with a comment that says so.
    void keepOpen() { open_ = false; }

private:
    OruAsfDict *handle_ = nullptr;
    bool open_ = false;
};

} // namespace oru

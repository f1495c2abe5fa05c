// A configuration file in memory, freed by its owner's end.
#pragma once

#include "core/key.hpp"
#include "oruAsf.h"

#include <cstdint>
#include <utility>

namespace oru {

inline constexpr char kRadioFile[] = "/var/wsmDefaults"; // radios and BSSes, read by WSM
inline constexpr char kSecurityFile[] = "/var/1x.conf";  // security, read by AA
inline constexpr char kRadioFactoryFile[] = "/var/wsmDefaults.orig";
inline constexpr char kSecurityFactoryFile[] = "/var/1x.conf.orig";

class Dict {
public:
    Dict() = default;
    explicit Dict(const char *path) : Dict(create(path)) {}
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
    void keepOpen();

private:
    /// What a creation yields: small, so that a dictionary lives in registers.
    struct Created {
        OruAsfDict *handle;
        bool open;
    };
    static Created create(const char *path);
    explicit Dict(Created created) : handle_(created.handle), open_(created.open) {}

    OruAsfDict *handle_ = nullptr;
    bool open_ = false;
};

// The dictionary operations of the support library, for a key with indexes.
int32_t getInt(OruAsfDict *dict, Key key, int32_t *value, int32_t flag);
int32_t getBool(OruAsfDict *dict, Key key, int32_t *value, int32_t flag);
int32_t getString(OruAsfDict *dict, Key key, const char **value, int32_t flag);
int32_t getDelimitedString(OruAsfDict *dict, Key key, const char **value, int32_t flag);
int32_t setString(OruAsfDict *dict, Key key, const char *value);
int32_t setString(OruAsfDict *dict, Key key, Number value);
int32_t setDelimitedString(OruAsfDict *dict, Key key, const char *value);

} // namespace oru

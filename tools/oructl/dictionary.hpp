// A dictionary file of the access point, for looking.
#pragma once

#include "oruAsf.h"

#include <optional>
#include <string>

namespace oructl {

class Dictionary {
public:
    explicit Dictionary(const char *path)
    {
        if (oruAsfDictCreate(&dict_, path) != 0) dict_ = nullptr;
    }
    ~Dictionary()
    {
        if (dict_ != nullptr) oruAsfDictFree(dict_);
    }
    Dictionary(const Dictionary &) = delete;
    Dictionary &operator=(const Dictionary &) = delete;

    [[nodiscard]] explicit operator bool() const { return dict_ != nullptr; }

    /// The text of a key, without its quotes; none when there is no such key.
    [[nodiscard]] std::optional<std::string> text(const std::string &key) const
    {
        const char *value = nullptr;
        if (dict_ == nullptr || oruAsfDictGetDelimitedString(dict_, key.c_str(), &value, 0) < 0)
            return std::nullopt;
        return value;
    }

    [[nodiscard]] std::optional<int32_t> number(const std::string &key) const
    {
        int32_t value = 0;
        if (dict_ == nullptr || oruAsfDictGetInt(dict_, key.c_str(), &value, 0) != 0)
            return std::nullopt;
        return value;
    }

    /// Off where it can't be read.
    [[nodiscard]] bool isOn(const std::string &key) const
    {
        int32_t value = 0;
        return dict_ != nullptr && oruAsfDictGetBool(dict_, key.c_str(), &value, 0) == 0 &&
               value != 0;
    }

private:
    OruAsfDict *dict_ = nullptr;
};

} // namespace oructl

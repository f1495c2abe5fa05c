#include "configuration.hpp"

#include "oruAsf.h"
#include "text.hpp"

#include <charconv>
#include <memory>

namespace orusim {
namespace {

std::string shown(const std::string &key, const std::optional<std::string> &value)
{
    if (!value) return "(absent)";
    return isSecret(key) ? "***" : printable(*value);
}

} // namespace

bool isSecret(std::string_view key)
{
    return key.ends_with(".wpaPsk") || key.ends_with(".appinpasswd") ||
           key.find(".wepKey.") != key.npos || key.starts_with("radiusSecret.");
}

std::string Change::text() const
{
    return printable(key) + ": " + shown(key, before) + " -> " + shown(key, after);
}

std::optional<Configuration> Configuration::load(const std::string &path)
{
    OruAsfDict *handle = nullptr;
    if (oruAsfDictCreate(&handle, path.c_str()) != 0) return {};
    const std::unique_ptr<OruAsfDict, decltype(&oruAsfDictFree)> dict{handle, &oruAsfDictFree};

    Configuration configuration;
    const int32_t status = oruAsfDictVisit(
        dict.get(),
        [](void *context, const char *key, const char *value) {
            auto *values = static_cast<std::map<std::string, std::string> *>(context);
            (*values)[key] = value != nullptr ? value : "(damaged)";
            return int32_t{0};
        },
        &configuration.values_);
    if (status != 0) return {};
    return configuration;
}

std::optional<std::string> Configuration::text(const std::string &key) const
{
    const auto found = values_.find(key);
    if (found == values_.end()) return {};
    return found->second;
}

int Configuration::number(const std::string &key, int fallback) const
{
    const auto found = values_.find(key);
    if (found == values_.end()) return fallback;
    int number = 0;
    const char *end = found->second.data() + found->second.size();
    const auto [at, error] = std::from_chars(found->second.data(), end, number);
    return error == std::errc{} && at == end ? number : fallback;
}

std::vector<Change> Configuration::changesTo(const Configuration &other) const
{
    std::vector<Change> changes;
    auto old = values_.begin();
    auto now = other.values_.begin();
    while (old != values_.end() || now != other.values_.end()) {
        if (now == other.values_.end() || (old != values_.end() && old->first < now->first)) {
            changes.push_back({old->first, old->second, {}});
            ++old;
        } else if (old == values_.end() || now->first < old->first) {
            changes.push_back({now->first, {}, now->second});
            ++now;
        } else {
            if (old->second != now->second)
                changes.push_back({old->first, old->second, now->second});
            ++old, ++now;
        }
    }
    return changes;
}

} // namespace orusim

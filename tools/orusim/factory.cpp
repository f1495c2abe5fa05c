#include "factory.hpp"

#include "descriptor.hpp"
#include "radiofacts.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

namespace orusim {
namespace {

namespace fs = std::filesystem;

constexpr const char *kFolders[] = {"/var", "/config", "/run/oru"};

struct File {
    const char *source;
    const char *path;
};

constexpr File kFiles[] = {
    {"wsmDefaults.orig", "/var/wsmDefaults.orig"},
    {"1x.conf.orig", "/var/1x.conf.orig"},
    {"wsmDefaults.orig", "/var/wsmDefaults"},
    {"1x.conf.orig", "/var/1x.conf"},
    {"wsmSavedRadarDetectList", "/config/wsmSavedRadarDetectList"},
};

std::string failure(const std::string &path)
{
    return path + ": " + std::strerror(errno);
}

std::optional<std::string> readAll(const std::string &path)
{
    const Descriptor file{::open(path.c_str(), O_RDONLY | O_CLOEXEC)};
    if (!file) return {};
    std::string text;
    char buffer[4096];
    ssize_t got = 0;
    while ((got = ::read(file.number(), buffer, sizeof buffer)) > 0)
        text.append(buffer, static_cast<size_t>(got));
    if (got < 0) return {};
    return text;
}

bool writeAll(int file, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written < 0) return false;
        text.remove_prefix(static_cast<size_t>(written));
    }
    return ::fchmod(file, 0600) == 0 && ::fsync(file) == 0;
}

enum class Placed { written, kept, failed };

/// Writes beside the place first, so that a half-written file never stands there.
Placed place(const std::string &path, std::string_view text, bool force)
{
    std::string beside = path + ".XXXXXX";
    const Descriptor file{::mkostemp(beside.data(), O_CLOEXEC)};
    if (!file) return Placed::failed;

    Placed placed = Placed::failed;
    if (writeAll(file.number(), text)) {
        if (force ? ::rename(beside.c_str(), path.c_str()) == 0
                  : ::link(beside.c_str(), path.c_str()) == 0)
            placed = Placed::written;
        else if (errno == EEXIST) placed = Placed::kept;
    }
    const int error = errno;
    ::unlink(beside.c_str());
    errno = error;
    return placed;
}

/// Puts a file in its place and tells of it. An empty text, or what went wrong.
std::string placeAndTell(const std::string &path, std::string_view text, bool force, const Log &log)
{
    const Placed placed = place(rooted(path), text, force);
    if (placed == Placed::failed) return failure(rooted(path));
    if (log) log((placed == Placed::written ? "wrote " : "kept ") + rooted(path));
    return {};
}

} // namespace

std::string initialise(const std::string &factory, bool force, const Log &log,
                       const std::string &product)
{
    const auto radios = productFile(product.empty() ? "us" : product);
    if (!radios) return "no such product: " + product + " (us, jp and bg are)";
    // All are read before anything is made.
    std::vector<std::string> texts;
    for (const File &file : kFiles) {
        const std::string from = factory + "/" + file.source;
        const auto text = readAll(from);
        if (!text) return failure(from) + " (--factory names the folder of the factory files)";
        texts.push_back(*text);
    }
    for (const char *folder : kFolders) {
        std::error_code error;
        fs::create_directories(rooted(folder), error);
        if (error) return rooted(folder) + ": " + error.message();
    }
    for (size_t i = 0; i < texts.size(); ++i) {
        std::string error = placeAndTell(kFiles[i].path, texts[i], force, log);
        if (!error.empty()) return error;
    }
    return placeAndTell(kRadioFactsPath, *radios, force || !product.empty(), log);
}

} // namespace orusim

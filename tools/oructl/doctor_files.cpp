// Checks of the configuration files as files, and of the keys that must stand in them.
#include "doctor.hpp"

#include "codes.hpp"
#include "oruSdk.h"
#include "state.hpp"
#include "uncommitted.hpp"

#include <array>
#include <cstring>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace oructl {
namespace {

/// The files of settings: without them nothing works.
constexpr std::array<const char *, 2> kSettings = {kConfigurationFiles[0], kConfigurationFiles[1]};

bool exists(const std::string &path)
{
    struct stat status = {};
    return ::lstat((rootFolder() + path).c_str(), &status) == 0;
}

void missing(const Patient &patient, Findings &findings)
{
    const Dictionary *const read[] = {&patient.radio, &patient.security};
    for (size_t i = 0; i < std::size(read); ++i)
        if (!*read[i])
            findings.push_back({std::string{kSettings[i]} + " can't be read", "oructl reset all"});
}

void factory(const Patient &, Findings &findings)
{
    for (const char *const file : kFactoryFiles)
        if (!Dictionary{file})
            findings.push_back({std::string{file} + " can't be read: no reset is possible",
                                "put it back from the firmware"});
}

/// Calls visit with each configuration file that there is, its path and its mode.
template <class Visit>
void forEachFile(Visit &&visit)
{
    for (const char *const file : kConfigurationFiles) {
        const std::string path = rootFolder() + file;
        struct stat status = {};
        if (::stat(path.c_str(), &status) == 0) visit(std::string{file}, path, status.st_mode);
    }
}

void readableByOthers(const Patient &, Findings &findings)
{
    forEachFile([&](const std::string &file, const std::string &path, mode_t mode) {
        if ((mode & (S_IROTH | S_IWOTH)) != 0 && file != kConfigurationFiles[2])
            findings.push_back({file + " holds secrets, and everybody can read or write it",
                                "chmod o-rwx " + path});
    });
}

void notWritable(const Patient &, Findings &findings)
{
    forEachFile([&](const std::string &file, const std::string &path, mode_t mode) {
        if ((mode & S_IWUSR) == 0)
            findings.push_back({file + " is not writable", "chmod u+w " + path});
    });
}

void leftover(const Patient &, Findings &findings)
{
    const auto look = [&](const std::string &path) {
        if (exists(path))
            findings.push_back({path + " is left from a change that was interrupted",
                                "rm -r " + rootFolder() + path});
    };
    for (const char *const file : kConfigurationFiles) {
        const char *const name = std::strrchr(file, '/') + 1;
        look(std::string(file, name).append(".").append(name).append(".new"));
    }
    for (const char *const folder : {"/install.new", "/install.done"})
        look(std::string{kOwnFolder} + folder);
}

void uncommitted(const Patient &, Findings &findings)
{
    for (const UncommittedFile &each : comparedFiles()) {
        if (each.keys == 0) continue;
        findings.push_back({std::to_string(each.keys) + (each.keys == 1 ? " key" : " keys") +
                                " of " + each.file + " changed since the last commit",
                            "oructl commit"});
    }
}

// ---- keys

std::string keyOf(std::string_view pattern, int64_t index)
{
    std::string key{pattern};
    if (const size_t at = key.find("%d"); at != key.npos) key.replace(at, 2, std::to_string(index));
    return key;
}

bool isThere(const Patient &patient, const Item &item, const std::string &key)
{
    bool there = false;
    forEachWord(item.files, [&](std::string_view file) {
        if (file == kConfigurationFiles[0]) there = there || patient.radio.text(key);
        else if (file == kConfigurationFiles[1]) there = there || patient.security.text(key);
        else there = there || Dictionary{std::string{file}.c_str()}.text(key);
    });
    return there;
}

/// The keys of an item that aren't there. Of several numbered ones each may be absent.
std::vector<std::string> absentKeys(const Patient &patient, const Item &item, int64_t index)
{
    std::vector<std::string> named;
    std::vector<std::string> numbered;
    forEachWord(item.keys, [&](std::string_view pattern) {
        const std::string key = keyOf(pattern, index);
        if (isThere(patient, item, key)) return;
        const bool last = pattern.back() >= '0' && pattern.back() <= '9';
        (last ? numbered : named).push_back(key);
    });
    return named.empty() ? numbered : named;
}

/// Whether a get fails since a key is missing.
bool getFails(const Item &item, int64_t index)
{
    Call call{.index = index, .values = std::vector<Value>(item.fields.size())};
    const uint32_t code = item.get(call);
    return code == ORUSDK_RC_KEY_READ || code == ORUSDK_RC_DICT_READ || code == kLibraryFailed;
}

/// Some sets read the key before they write it, so that factory values are the other way.
std::string mendOf(const Item &item, int64_t index)
{
    std::string reset =
        item.scope == Scope::Bss ? "oructl reset bss " + std::to_string(index) : "oructl reset all";
    if (item.set == nullptr) return reset;
    std::string synopsis = operandSynopsis(item, Use::Set, Synopsis::Brief);
    const std::string_view label = indexName(item.scope);
    if (!label.empty()) synopsis.replace(0, label.size(), std::to_string(index));
    return std::string{"oructl set "}.append(item.name).append(" ").append(synopsis) + ", or " +
           reset;
}

/// Calls visit for each get that fails, with the keys that it lacks.
template <class Visit>
void forEachFailing(const Patient &patient, Visit visit)
{
    forEachItem([&](const Item &item) {
        if (item.get == nullptr) return;
        const Bounds legal = item.scope == Scope::Port ? Bounds{0, 1} : legalIndex(item.scope);
        for (int64_t index = legal.min; index <= legal.max; ++index)
            if (getFails(item, index)) visit(item, index, absentKeys(patient, item, index));
    });
}

void missingKeys(const Patient &patient, Findings &findings)
{
    std::set<std::string> found; // some keys belong to several items
    forEachFailing(patient, [&](const Item &item, int64_t index, const auto &absent) {
        for (const std::string &key : absent)
            if (found.insert(key).second)
                findings.push_back({"key " + key + " is missing", mendOf(item, index)});
    });
}

/// What stands there is not what the item holds: no number, say.
void badValues(const Patient &patient, Findings &findings)
{
    forEachFailing(patient, [&](const Item &item, int64_t index, const auto &absent) {
        if (!absent.empty() || item.name == "ssid") return; // which has a check of its own
        std::string name{item.name};
        if (item.scope != Scope::None) name += ' ' + std::to_string(index);
        std::string keys;
        forEachWord(item.keys, [&](std::string_view pattern) {
            keys.append(keys.empty() ? "" : ", ").append(keyOf(pattern, index));
        });
        findings.push_back(
            {name + " can't be read from what is stored as " + keys, mendOf(item, index)});
    });
}

constexpr Check kFileChecks[] = {
    {"missing-file", Level::Error, missing},
    {"factory-file", Level::Warning, factory},
    {"readable-by-others", Level::Warning, readableByOthers},
    {"not-writable", Level::Error, notWritable},
    {"leftover", Level::Warning, leftover},
    {"uncommitted", Level::Note, uncommitted},
};
constexpr Check kKeyChecks[] = {{"missing-key", Level::Error, missingKeys},
                                {"bad-value", Level::Error, badValues}};

} // namespace

std::span<const Check> fileChecks()
{
    return kFileChecks;
}

std::span<const Check> keyChecks()
{
    return kKeyChecks;
}

} // namespace oructl

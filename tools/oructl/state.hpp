// Where the access point's files and oructl's own ones lie, and how they are read and written. The
// own ones stand in /var/oructl, which nobody else may enter: they hold copies of secrets.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace oructl {

/// What is configured: the settings of radios and BSSes, those of security, and the channels on
/// which radar was detected.
inline constexpr std::array<const char *, 3> kConfigurationFiles = {
    "/var/wsmDefaults", "/var/1x.conf", "/config/wsmSavedRadarDetectList"};
inline constexpr std::array<const char *, 2> kFactoryFiles = {"/var/wsmDefaults.orig",
                                                              "/var/1x.conf.orig"};
inline constexpr std::string_view kOwnFolder = "/var/oructl";

/// The folder that holds the access point; empty for this machine itself.
std::string rootFolder();

/// Makes a folder the access point's, for this process and what it starts.
void setRootFolder(const std::string &folder);

/// The access point moved to another folder while this lives.
class MovedRoot {
public:
    explicit MovedRoot(const std::string &folder) : before_(rootFolder()) { setRootFolder(folder); }
    ~MovedRoot() { setRootFolder(before_); }
    MovedRoot(const MovedRoot &) = delete;
    MovedRoot &operator=(const MovedRoot &) = delete;

private:
    std::string before_;
};

/// A whole file; none when it can't be read, with the reason in errno.
std::optional<std::string> readFile(const std::string &path);

/// Copies a dictionary file, durably and atomically, into a file of another root folder.
bool copyDictionary(const std::string &fromRoot, const std::string &from, const std::string &toRoot,
                    const std::string &to);

/// Makes the folder of oructl's own files below the root. False with the reason in errno.
bool makeOwnFolder();

/// Makes the names in a folder durable.
bool syncFolder(const std::string &path);

/// Removes a folder and what is in it, but follows no link out of it.
void removeFolder(const std::string &path);

} // namespace oructl

// Puts configuration files in place: all of them or none, also when the power is cut meanwhile.
#pragma once

#include "state.hpp"

#include <string>
#include <vector>

namespace oructl {

/// Where a folder of copies keeps a configuration file: "/var/oructl/install/1x.conf".
std::string copyIn(const std::string &folder, size_t file);

/// A configuration file and where its new contents stand.
struct NewFile {
    size_t file; ///< its place among kConfigurationFiles
    std::string root;
    std::string path;
};

/// Puts files in place below the root folder. The lock is held. What failed is undone; but once a
/// first file is in place, all of them are promised, and whoever takes the lock next goes on.
bool install(const std::vector<NewFile> &files);

/// Whether files are still to be put in place.
bool isPromised();

/// Finishes what a killed oructl had promised to put in place. The lock is held.
bool finishInstall();

/// Copies files into a new folder below oructl's own, durably.
bool copyFiles(const std::vector<NewFile> &files, const std::string &folder);

/// Gives a folder below oructl's own its final name, durably.
bool renameOwn(const std::string &from, const std::string &to);

bool existsBelowRoot(const std::string &path);

} // namespace oructl

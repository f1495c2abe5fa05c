#include "exit_status.hpp"

#include "codes.hpp"
#include "oruSdk.h"
#include "state.hpp"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace oructl {
namespace {

constexpr ExitMeaning kMeanings[] = {
    {kDone, "done"},
    {kFailed, "refused by the library, or failed"},
    {kWrongUsage, "wrong command line"},
    {kTimedOut, "nobody answered in time"},
    {kNotTaken, "saved, but a service did not take it"},
    {kConflict, "another oructl is at work, or the file has changed meanwhile"},
    {kIncomplete, "the configuration is incomplete"},
    {kFileFailed, "a file can't be read or written"},
    {kNoPermission, "no permission"},
    {kNotFound, "no such radio, BSS, port, station or counter"},
    {kDifferent, "differences were found"},
};

/// Whether this user may not do with the configuration what has just failed.
bool isForbidden()
{
    for (const char *const file : kConfigurationFiles)
        if (::faccessat(AT_FDCWD, (rootFolder() + file).c_str(), R_OK | W_OK, AT_EACCESS) != 0 &&
            errno == EACCES)
            return true;
    const std::string folder = rootFolder() + "/var";
    return ::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0 && errno == EACCES;
}

} // namespace

std::span<const ExitMeaning> exitMeanings()
{
    return kMeanings;
}

ExitStatus exitStatusOf(int64_t code)
{
    switch (code) {
    case ORUSDK_RC_OK: return kDone;
    case ORUSDK_RC_FILE_READ:
    case ORUSDK_RC_FILE_WRITE:
    case ORUSDK_RC_FILE_COPY: return isForbidden() ? kNoPermission : kFileFailed;
    case ORUSDK_RC_NO_SECURITY_MODE:
    case ORUSDK_RC_AUTH_TYPE_MISSING:
    case ORUSDK_RC_ENC_TYPE_MISSING:
    case ORUSDK_RC_PSK_MISSING:
    case ORUSDK_RC_NO_RADIUS_SERVER: return kIncomplete;
    default: return kFailed;
    }
}

} // namespace oructl

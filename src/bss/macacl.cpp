// MAC access-control list: one list of station addresses for all BSSes, and how AA applies it.
#include "core/dict.hpp"
#include "core/key.hpp"
#include "core/log.hpp"
#include "core/store.hpp"
#include "oruSdk.h"

#include <cstring>

namespace oru {
namespace {

constexpr uint32_t kModeOff = 0;
constexpr uint32_t kLastMode = 2;
constexpr int32_t kEntries = 256;
constexpr size_t kField = 18; // an address of 17 characters and its terminator

Key entryKey(int32_t number)
{
    return Key{"localMacAcl.%d", number};
}

/// Removes every entry, so that none of a longer list survives. What can't be removed is left.
void removeEntries(OruAsfDict *dict)
{
    for (int32_t number = 1; number <= kEntries; ++number)
        setString(dict, entryKey(number), nullptr);
}

uint32_t writeList(OruAsfDict *dict, int32_t count, const char *entries)
{
    if (setString(dict, "localMacAclCount", Number{count}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write localMacAclCount to dictionary");
    removeEntries(dict);
    for (int32_t number = 1; number <= count; ++number, entries += kField) {
        char address[kField];
        std::memcpy(address, entries, kField);
        address[kField - 1] = '\0';
        if (setString(dict, entryKey(number), address) != 0)
            return fail(ORUSDK_RC_DICT_WRITE, "Unable to write localMacAcl.%d to dictionary",
                        number);
    }
    return ORUSDK_RC_OK;
}

/// Fills the caller's fields one behind the other: an absent entry takes none.
uint32_t readList(OruAsfDict *dict, int32_t count, char *entries)
{
    for (int32_t number = 1; number <= count; ++number) {
        const char *address = nullptr;
        if (getString(dict, entryKey(number), &address, 0) != 0)
            return fail(ORUSDK_RC_MAC_ACL_INCOMPLETE,
                        "Unable to read localMacAcl.%d from dictionary", number);
        if (address == nullptr) continue;
        std::strncpy(entries, address, kField - 1);
        entries[kField - 1] = '\0';
        entries += kField;
    }
    return ORUSDK_RC_OK;
}

} // namespace
} // namespace oru

using namespace oru;

extern "C" {

uint32_t oruSdkSetMacAclList(const uint32_t *mode, const int32_t *count, const char *entries)
{
    if (mode == nullptr) return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
    if (*mode > kLastMode) return fail(ORUSDK_RC_MAC_ACL_MODE, "Invalid macAcl:%d", *mode);

    const Dict dict{kSecurityFile};
    if (!dict)
        return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    if (setString(dict, "localMacAcl", Number{*mode}) != 0)
        return fail(ORUSDK_RC_DICT_WRITE, "Unable to write localMacAcl to dictionary");
    if (*mode == kModeOff) {
        setString(dict, "localMacAclCount", nullptr);
        removeEntries(dict);
    } else {
        if (count == nullptr || entries == nullptr)
            return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");
        if (*count > kEntries) // a negative count passes and stores no entry: intended
            return fail(ORUSDK_RC_MAC_ACL_COUNT, "Invalid numEntries:%d", *count);
        if (const uint32_t code = writeList(dict, *count, entries); code != 0) return code;
    }
    return saveSecurityFile(dict);
}

uint32_t oruSdkGetMacAclList(uint32_t *mode, int32_t *count, char *entries)
{
    if (mode == nullptr || count == nullptr || entries == nullptr)
        return fail(ORUSDK_RC_NULL_POINTER, "NULL pointer");

    Dict dict{kSecurityFile};
    if (!dict)
        return fail(ORUSDK_RC_FILE_READ, "Unable to read AA Defaults file %s", kSecurityFile);
    int32_t value = 0;
    if (getInt(dict, "localMacAcl", &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read localMacAcl from dictionary");
    *mode = static_cast<uint32_t>(value);
    if (*mode == kModeOff || *mode > kLastMode) return ORUSDK_RC_OK;

    if (getInt(dict, "localMacAclCount", &value, 0) != 0)
        return fail(ORUSDK_RC_DICT_READ, "Unable to read localMacAclCount from dictionary");
    *count = value;
    if (*count > kEntries) {
        dict.keepOpen(); // this refusal leaves its handle open: intended
        return fail(ORUSDK_RC_MAC_ACL_COUNT, "Invalid numEntries:%d", *count);
    }
    return readList(dict, *count, entries);
}

} // extern "C"

// Where a plain path lies.
#include "asf/root.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

using std::string;

namespace {

/// The place of a path while ORU_ROOT has a value; nullptr: it has none.
string placed(const char *path, const char *root)
{
    if (root == nullptr) ::unsetenv("ORU_ROOT");
    else ::setenv("ORU_ROOT", root, 1);
    const oru::RootedPath place{path};
    EXPECT_EQ(place.empty(), place.text()[0] == '\0');
    ::unsetenv("ORU_ROOT");
    return place.text();
}

} // namespace

// That a set-uid process has no ORU_ROOT is secure_getenv()'s; no test can be one.
TEST(Root, IsPutBeforeAbsolutePaths)
{
    const struct {
        const char *path;
        const char *root;
        const char *place;
        const char *reason;
    } rows[] = {
        {"/var/wsmDefaults", nullptr, "/var/wsmDefaults", "no root"},
        {"/var/wsmDefaults", "", "/var/wsmDefaults", "an empty root"},
        {"/var/wsmDefaults", "/tmp/ap", "/tmp/ap/var/wsmDefaults", "a root"},
        {"/var/wsmDefaults", "/tmp/ap/", "/tmp/ap/var/wsmDefaults", "a slash behind it"},
        {"/var/wsmDefaults", "/tmp/ap//", "/tmp/ap/var/wsmDefaults", "slashes behind it"},
        {"/var/wsmDefaults", "/", "/var/wsmDefaults", "the machine's own root"},
        {"/var/wsmDefaults", "ap", "ap/var/wsmDefaults", "a relative root"},
        {"var/wsmDefaults", "/tmp/ap", "var/wsmDefaults", "a relative path"},
        {"", "/tmp/ap", "", "no path"},
        {nullptr, "/tmp/ap", "", "a NULL path"},
    };
    for (const auto &row : rows) EXPECT_EQ(placed(row.path, row.root), row.place) << row.reason;
}

TEST(Root, ThatMakesAPathTooLongMakesItEmpty)
{
    const string most(PATH_MAX - 1 - 4, 'r'); // and "/var" and a NUL
    EXPECT_EQ(placed("/var", most.c_str()), most + "/var");
    EXPECT_EQ(placed("/var", (most + "r").c_str()), "");
    EXPECT_EQ(placed(("/" + string(PATH_MAX, 'x')).c_str(), nullptr), "");
}

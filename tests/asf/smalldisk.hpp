// A file system of a known size for a test's child.
#pragma once

#include "asf/child.hpp"
#include "support/tempdir.hpp"

#include <fstream>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

namespace oru::test {

constexpr int kNotHere = 77; // a child's status: this machine can't do that

/// Runs body() in a child that has a file system of 64 KiB below ORU_ROOT, in /disk.
template <class Body>
int onSmallDisk(const TempDir &box, Body body)
{
    ::mkdir(box.at("/disk").c_str(), 0755);
    return inChild([&] {
        const uid_t user = ::geteuid();
        const gid_t group = ::getegid();
        if (::unshare(user == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0) return kNotHere;
        if (user != 0) {
            std::ofstream{"/proc/self/setgroups"} << "deny";
            std::ofstream{"/proc/self/uid_map"} << "0 " << user << " 1";
            std::ofstream{"/proc/self/gid_map"} << "0 " << group << " 1";
        }
        if (::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("none", box.at("/disk").c_str(), "tmpfs", 0, "size=64k") != 0)
            return kNotHere;
        return body();
    });
}

} // namespace oru::test

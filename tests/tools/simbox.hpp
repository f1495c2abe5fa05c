// What the tests of orusim share: a folder of its own as ORU_ROOT, and a caller of the services.
#pragma once

#include "oruAsf.h"
#include "orusim/factory.hpp"
#include "orusim/text.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

namespace orusim::test {

namespace fs = std::filesystem;

inline constexpr uint32_t kWsmPort = 5000002;
inline constexpr uint32_t kAaPort = 5000003;
inline constexpr const char *kFactory = ORU_SOURCE_DIR "/share";

/// A temporary folder, named by ORU_ROOT, empty at first.
class Box {
public:
    Box()
    {
        std::string path = (fs::temp_directory_path() / "orusim-test-XXXXXX").string();
        if (::mkdtemp(path.data()) == nullptr) throw std::runtime_error("can't make a folder");
        root_ = path;
        ::setenv("ORU_ROOT", root_.c_str(), 1);
        ::setenv("ORU_LOG", "none", 1);
    }
    ~Box()
    {
        std::error_code ignored;
        fs::remove_all(root_, ignored);
    }
    Box(const Box &) = delete;
    Box &operator=(const Box &) = delete;

    [[nodiscard]] const std::string &root() const { return root_; }
    [[nodiscard]] std::string at(const std::string &path) const { return root_ + path; }

    [[nodiscard]] std::string read(const std::string &path) const
    {
        std::ifstream file(at(path), std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }
    void write(const std::string &path, const std::string &text) const
    {
        std::ofstream(at(path), std::ios::binary | std::ios::trunc) << text;
    }
    static void set(const char *path, const char *key, const char *value)
    {
        OruAsfDict *dict = nullptr;
        ASSERT_EQ(oruAsfDictCreate(&dict, path), 0) << path;
        EXPECT_EQ(oruAsfDictSetDelimitedString(dict, key, value), 0) << key;
        EXPECT_EQ(oruAsfDictSave(dict, path), 0) << path;
        oruAsfDictFree(dict);
    }

private:
    std::string root_;
};

/// A caller, as liboruSdk is one, that never waits.
class Caller {
public:
    explicit Caller(uint32_t port, uint32_t version = 1001) : ipc_(oruAsfIpcOpen(2, 1, 0))
    {
        connected_ = oruAsfIpcConnect(ipc_, "localhost", port, version) == 0;
    }
    ~Caller() { oruAsfIpcClose(ipc_); }
    Caller(Caller &&other) noexcept
        : ipc_(std::exchange(other.ipc_, nullptr)), connected_(other.connected_)
    {
    }
    Caller &operator=(Caller &&) = delete;

    [[nodiscard]] bool connected() const { return connected_; }
    [[nodiscard]] bool send(const Bytes &message) const
    {
        const auto size = static_cast<uint32_t>(message.size());
        return oruAsfIpcSend(ipc_, message.data(), size) == static_cast<int32_t>(size);
    }
    /// Something has come: an answer, or the end.
    [[nodiscard]] bool ready(uint32_t waitMs = 0) const
    {
        return oruAsfIpcCheck(ipc_, waitMs) != 0;
    }
    /// The answer; empty when the service has closed the connection.
    [[nodiscard]] Bytes receive() const
    {
        Bytes buffer(20000);
        const int32_t got = oruAsfIpcRecv(ipc_, buffer.data(), 20000);
        buffer.resize(got > 0 ? static_cast<size_t>(got) : 0);
        return buffer;
    }
    [[nodiscard]] bool closed() const { return ready() && receive().empty(); }

private:
    OruAsfIpc *ipc_;
    bool connected_ = false;
};

/// Message 264, byte by byte.
inline Bytes adminStatus(uint8_t radio, uint8_t status)
{
    return {0x01, 0x08, 0x00, 0x18,  0x00, 0x00, 0x4e, 0x20, 0x00, 0x02, 0x00, 0x09,
            0x00, 0x02, 0x00, radio, 0x00, 0x02, 0x00, 0x08, 0x00, 0x02, 0x00, status};
}

inline const Bytes kWsmCommit{0x01, 0x0c, 0x00, 0x04};
inline const Bytes kAaCommit{0x29, 0x02, 0x00, 0x04};

/// The answer to message 264 with a result code.
inline Bytes result(uint8_t code)
{
    return {0x01, 0x09, 0x00, 0x12, 0, 0, 0, 0, 0x00, 0x03, 0x00, 0x0a, 0x00, 0x04, 0, 0, 0, code};
}

} // namespace orusim::test

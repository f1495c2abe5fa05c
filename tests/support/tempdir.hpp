// A temporary folder that ORU_ROOT names for as long as it lives.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace oru::test {

class TempDir {
public:
    TempDir()
    {
        if (::mkdtemp(path_.data()) == nullptr) std::abort();
        ::chmod(path_.c_str(), 0755); // a child may look into it as another user
        ::setenv("ORU_ROOT", path_.c_str(), 1);
    }
    ~TempDir()
    {
        ::unsetenv("ORU_ROOT");
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempDir(const TempDir &) = delete;
    TempDir &operator=(const TempDir &) = delete;

    /// Where a plain path ("/config") lies.
    [[nodiscard]] std::string at(const std::string &plain = "") const { return path_ + plain; }

    [[nodiscard]] std::string read(const std::string &plain) const
    {
        std::ifstream file{at(plain), std::ios::binary};
        return {std::istreambuf_iterator<char>{file}, {}};
    }

    /// Writes in place; what the file was stays.
    void write(const std::string &plain, const std::string &bytes) const
    {
        std::ofstream file{at(plain), std::ios::binary | std::ios::trunc};
        file << bytes;
        file.flush();
        if (!file) std::abort();
    }

    /// The names in the folder, sorted.
    [[nodiscard]] std::vector<std::string> names(const std::string &plain = "") const
    {
        std::vector<std::string> found;
        for (const auto &entry : std::filesystem::directory_iterator{at(plain)})
            found.push_back(entry.path().filename());
        std::sort(found.begin(), found.end());
        return found;
    }

private:
    std::string path_ = std::filesystem::temp_directory_path() / "oru-XXXXXX";
};

} // namespace oru::test

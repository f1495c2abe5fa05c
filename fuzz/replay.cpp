// Feeds a target every file of its corpus.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

int main(int argc, char **argv)
{
    int count = 0;
    for (int i = 1; i < argc; ++i)
        for (const auto &entry : std::filesystem::directory_iterator{argv[i]}) {
            std::ifstream file{entry.path(), std::ios::binary};
            const std::vector<char> bytes{std::istreambuf_iterator<char>{file}, {}};
            std::fprintf(stderr, "%s\n", entry.path().c_str());
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size());
            ++count;
        }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}

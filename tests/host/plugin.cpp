// plugin LIBRARY: a program that loads liboruSdk, uses it and unloads it, again and again. Nothing
// of it may stay behind: no descriptor, no mapping, no memory, no call at the end of a thread or of
// the program.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <malloc.h>
#include <pthread.h>

namespace {

struct Feature {
    uint16_t reserved, radio;
    uint32_t value;
};

struct Remains {
    long descriptors;
    long mappings;
    size_t blocks;
};

long entriesOf(const char *folder)
{
    long count = 0;
    DIR *open = ::opendir(folder);
    while (open != nullptr && ::readdir(open) != nullptr) ++count;
    ::closedir(open);
    return count;
}

/// Mappings that belong to a file; how the heap is cut up is its own business.
long mappingsOf()
{
    char line[1024];
    long count = 0;
    std::FILE *maps = std::fopen("/proc/self/maps", "re");
    while (maps != nullptr && std::fgets(line, sizeof line, maps) != nullptr)
        if (std::strchr(line, '/') != nullptr) ++count;
    if (maps != nullptr) std::fclose(maps);
    return count;
}

Remains remains()
{
    const long mappings = mappingsOf();
    return {entriesOf("/proc/self/fd"), mappings, ::mallinfo2().uordblks};
}

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "plugin: %s\n", what);
    std::exit(1);
}

/// Its thread ends while the library is there, or, odd, when it has gone.
void *useIt(void *library)
{
    using Operation = uint32_t (*)(Feature *);
    const auto get = reinterpret_cast<Operation>(::dlsym(library, "oruSdkGetMimo"));
    const auto set = reinterpret_cast<Operation>(::dlsym(library, "oruSdkSetMimo"));
    const auto commit = reinterpret_cast<uint32_t (*)()>(::dlsym(library, "oruSdkCommitRadio"));
    Feature param{};
    if (get == nullptr || set == nullptr || commit == nullptr || get(&param) != 0)
        fail("can't read");
    param.value ^= 1;
    if (set(&param) != 0 || commit() != 0) fail("can't write");
    param.value = 9;
    if (set(&param) == 0) fail("sets anything");
    return nullptr;
}

void once(const char *path, bool inThread)
{
    void *library = ::dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) fail(::dlerror());
    pthread_t thread{};
    if (inThread) {
        if (::pthread_create(&thread, nullptr, useIt, library) != 0) fail("no thread");
        ::pthread_join(thread, nullptr);
    } else {
        useIt(library);
    }
    ::dlclose(library);
    if (::dlopen(path, RTLD_NOW | RTLD_NOLOAD) != nullptr) fail("the library stays");
}

} // namespace

int main(int argc, char **argv)
{
    constexpr int kRounds = 1000;
    if (argc != 2) fail("takes the library");
    for (int round = 0; round < 10; ++round) once(argv[1], round % 2 == 0);
    const Remains before = remains();
    for (int round = 0; round < kRounds; ++round) once(argv[1], round % 2 == 0);
    const Remains after = remains();
    std::printf(
        "%d times: descriptors %ld, then %ld; mappings %ld, then %ld; bytes %zu, then %zu\n",
        kRounds, before.descriptors, after.descriptors, before.mappings, after.mappings,
        before.blocks, after.blocks);
    std::printf("torture: host programs, loaded and unloaded: %d times\n", kRounds);
    const bool same = before.descriptors == after.descriptors &&
                      before.mappings == after.mappings && before.blocks == after.blocks;
    return same ? 0 : 1;
}

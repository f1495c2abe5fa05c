// Dictionaries that an operation leaves open, some of them on purpose.
#include "fuzz.hpp"
#include "library.hpp"
#include "oruAsf.h"

#include <algorithm>
#include <dlfcn.h>
#include <vector>

namespace {

std::vector<OruAsfDict *> open;

template <class Function>
Function *behind(const char *name)
{
    void *found = ::dlsym(RTLD_NEXT, name);
    MUST(found != nullptr);
    return reinterpret_cast<Function *>(found);
}

} // namespace

extern "C" int32_t oruAsfDictCreate(OruAsfDict **dict, const char *path)
{
    static auto *const real = behind<decltype(oruAsfDictCreate)>("oruAsfDictCreate");
    const int32_t status = real(dict, path);
    if (status == 0) open.push_back(*dict);
    return status;
}

extern "C" void oruAsfDictFree(OruAsfDict *dict)
{
    static auto *const real = behind<decltype(oruAsfDictFree)>("oruAsfDictFree");
    const auto known = std::find(open.begin(), open.end(), dict);
    MUST(known != open.end());
    open.erase(known);
    real(dict);
}

int oru::fuzz::freeDicts()
{
    const auto count = static_cast<int>(open.size());
    while (!open.empty()) oruAsfDictFree(open.back());
    return count;
}

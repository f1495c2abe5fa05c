#include "root.hpp"

#include <cstdlib>
#include <cstring>

namespace oru {

RootedPath::RootedPath(const char *plain)
{
    text_[0] = '\0';
    if (plain == nullptr) return;

    const char *root = plain[0] == '/' ? ::secure_getenv("ORU_ROOT") : nullptr;
    size_t rootLength = root != nullptr ? std::strlen(root) : 0;
    const size_t plainLength = std::strlen(plain);
    while (rootLength > 0 && root[rootLength - 1] == '/') --rootLength;
    if (rootLength + plainLength >= sizeof text_) return;

    if (rootLength > 0) std::memcpy(text_, root, rootLength);
    std::memcpy(text_ + rootLength, plain, plainLength + 1);
}

} // namespace oru

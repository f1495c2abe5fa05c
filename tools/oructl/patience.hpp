// How long the user is willing to wait for a service.
#pragma once

#include "request.hpp"

#include <string>

namespace oructl {

/// While this lives, the process ends with an error when the request's --timeout has passed: what
/// the library waits for is out of reach otherwise. Without --timeout it does nothing.
class Patience {
public:
    Patience(const Request &request, const std::string &attempt);

    /// For what may come or not: says these words on standard output and is done.
    Patience(int64_t seconds, const std::string &words);
    ~Patience();
    Patience(const Patience &) = delete;
    Patience &operator=(const Patience &) = delete;
};

} // namespace oructl

// The verb "import".
#pragma once

#include "request.hpp"

namespace oructl {

int runImport(Request &request);

} // namespace oructl

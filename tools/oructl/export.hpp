// The verb "export".
#pragma once

#include "request.hpp"

namespace oructl {

int runExport(Request &request);

} // namespace oructl

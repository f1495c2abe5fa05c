// The families of views, one source file a family.
#pragma once

#include "show.hpp"

namespace oructl {

std::span<const View> bssViews();
std::span<const View> statusViews();
std::span<const View> radioViews();

} // namespace oructl

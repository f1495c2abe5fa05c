// The files of an access point as it leaves the factory, with WPS on on BSS 2.
#pragma once

namespace oru::fuzz {

/// Puts back the files that were written to.
void restoreFactoryFiles();

} // namespace oru::fuzz

// Keys of one hash.
#pragma once

namespace oru::test {

/// Pairs that share a hash where bytes are little-endian; elsewhere they are keys like any others.
inline constexpr const char *kSameHash[][2] = {{"key22173", "key31131"},
                                               {"key17173", "key132923"}, // longer by a byte
                                               {"key132923", "key17173"}};

} // namespace oru::test

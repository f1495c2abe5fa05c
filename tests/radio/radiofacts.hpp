// What WSM says about the radios, as tests of the settings that depend on it let it say.
#pragma once

#include "support/standin.hpp"

#include <string>

namespace oru::test {

/// Appends one radio's entry of the reply; the third byte of bandSupport is 0 on a product without
/// 5 GHz.
inline void appendRadio(Bytes &reply, const std::string &country, uint8_t thirdOfBandSupport)
{
    Bytes entry(29, 0);
    for (size_t at = 0; at < 3; ++at) entry[at] = static_cast<uint8_t>(country[at]);
    entry[24] = 1;
    entry[26] = thirdOfBandSupport;
    entry[28] = 2;
    entry.push_back(1);
    entry.push_back(6);
    reply.insert(reply.end(), entry.begin(), entry.end());
}

/// The reply for two radios.
inline Bytes radioFacts(const std::string &country0, const std::string &country1,
                        uint8_t thirdOfBandSupport0 = 1, uint8_t thirdOfBandSupport1 = 1)
{
    Bytes reply{0x01, 0x0a, 0, 66};
    appendRadio(reply, country0, thirdOfBandSupport0);
    appendRadio(reply, country1, thirdOfBandSupport1);
    return reply;
}

} // namespace oru::test

// Steps of a sweep that the operations on "/var/wsmDefaults" have in common.
#pragma once

#include "support/sweep.hpp"

#include <string>

namespace oru::test {

inline const Step kLoad{"oruAsfDictCreate /var/wsmDefaults", 7,
                        "Unable to read WSM Defaults file /var/wsmDefaults"};
inline const Step kSave{"oruAsfDictSave /var/wsmDefaults", 8,
                        "Unable to write WSM Defaults file /var/wsmDefaults"};

/// A number that can't be read; the text names the file at its end.
inline Step readStep(const std::string &key, const std::string &log)
{
    return {"oruAsfDictGetInt " + key, 42, log + " from config file /var/wsmDefaults"};
}

/// A key that can't be written.
inline Step writeStep(const std::string &key, const std::string &log)
{
    return {"oruAsfDictSetString " + key, 25, log + " to dictionary"};
}

} // namespace oru::test

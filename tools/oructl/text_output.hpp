// The output of the verbs as text for people and for grep.
#pragma once

#include "catalogue.hpp"
#include "request.hpp"
#include "values.hpp"

#include <string>
#include <vector>

namespace oructl {

/// One line a field: "mimo[0] = on", "thresholds[0].fragment = 2346"; entries of a list with their
/// number from 1: "stations[0].1.mac = 00:11:22:33:44:55".
std::string textValue(const Item &item, const Call &call, Secrets secrets = Secrets::Masked);

/// One line a step of a set that has taken several: "security[1]: WEP switched off".
std::string textSteps(const Item &item, const Call &call);

/// One line an item: name, operands, legal values, keys and files.
std::string textList(const std::vector<const Item *> &items);

std::string textOverview();
std::string textHelp(const Verb &verb);
std::string textHelp(const Item &item);

/// The legal values of all fields that are set by position, or by option when there are none: "0 to
/// 2", "fragment 256 to 2346, rts 1 to 2347".
std::string legalValuesOf(const Item &item);

/// "key radio0.txPower of /var/wsmDefaults", and more keys, between blanks.
std::string whereStored(const Item &item, const Call &call, std::string_view more = {});

} // namespace oructl

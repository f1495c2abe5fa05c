// What a run gives back, so that the next one begins like the first.
#pragma once

namespace oru::fuzz {

/// Lets the next operation ask WSM for its radios again.
void forgetRadios();

/// Frees the dictionaries that operations leave open on purpose. Yields how many they were.
int freeDicts();

} // namespace oru::fuzz

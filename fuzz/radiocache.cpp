// The library's radio facts as they are, and a way to forget them: a process asks WSM for them
// once, a run anew.
#include "radio/radioinfo.cpp"

#include "library.hpp"

void oru::fuzz::forgetRadios()
{
    oru::cache = {};
}

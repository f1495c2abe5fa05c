// Millions of short runs: few freed blocks are kept back, and callers are noted to a small depth.
// ASAN_OPTIONS overrides each of these, to look closer at a finding.
extern "C" const char *__asan_default_options();

extern "C" const char *__asan_default_options()
{
    return "quarantine_size_mb=4:thread_local_quarantine_size_kb=64:malloc_context_size=4:"
           "max_malloc_fill_size=256";
}

// Refusals that leave their dictionary open on purpose; the cases count the open ones themselves.
// Every other leak is one.
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:oruSdkSetWpaPsk\nleak:oruSdkGetMacAclList\n";
}

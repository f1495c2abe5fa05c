/* guestnet BSS SSID: makes a BSS a guest network of radio 0, with WPA2 and the pass-phrase that
 * standard input's first line holds, and lets the access point take it. */
#include <oruSdk.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* Tells what an operation refused. The table has 122 texts; codes may be above. */
static int done(const char *step, uint32_t code)
{
    if (code == ORUSDK_RC_OK) return 1;
    fprintf(stderr, "guestnet: %s: %s (code %u)\n", step,
            code < ORUSDK_RC_COUNT ? oruSdkRcStr[code] : "unknown code", (unsigned)code);
    return 0;
}

/* One mode at a time: the others go off first. */
static int secure(int32_t bss, const char *passPhrase)
{
    const uint32_t kWpa2 = 2, kPreSharedKey = 1, kAes = 0;
    return done("open access off", oruSdkSetSecModeOpen(bss, 0)) &&
           done("WEP off", oruSdkSetSecModeWep(bss, 0, 13, 1, NULL, NULL, NULL, NULL)) &&
           done("WPA2", oruSdkSetSecModeWpa(bss, kWpa2, (int32_t)kPreSharedKey, kAes)) &&
           done("pass-phrase", oruSdkSetWpaPsk(bss, passPhrase));
}

/* Guests reach the network, and not each other. */
static int place(int32_t bss)
{
    OruSdkAssignBssParam assign = {bss, 0, 1};
    return done("radio", oruSdkAssignBss(&assign)) && done("relay", oruSdkSetIntraBss(bss, 0));
}

static int show(int32_t bss)
{
    OruSdkBssInfoParam info = {0};
    info.bssIndex = bss;
    if (!done("summary", oruSdkGetBssInfoParam(&info))) return 0;
    printf("BSS %d: \"%s\", %s\n", (int)bss, info.ssid, info.securityMode);
    return 1;
}

int main(int argc, char **argv)
{
    char passPhrase[65] = "";
    if (argc != 3 || strlen(argv[1]) != 1 || argv[1][0] < '0' || argv[1][0] > '3') {
        fprintf(stderr, "usage: guestnet 0|1|2|3 SSID, the pass-phrase on standard input\n");
        return 2;
    }
    if (fgets(passPhrase, sizeof passPhrase, stdin) == NULL) return 2;
    passPhrase[strcspn(passPhrase, "\n")] = '\0';

    const int32_t bss = argv[1][0] - '0';
    if (!done("SSID", oruSdkSetSsid(bss, argv[2])) || !secure(bss, passPhrase) || !place(bss) ||
        !done("commit", oruSdkCommitAll()))
        return 1;
    return show(bss) ? 0 : 1;
}

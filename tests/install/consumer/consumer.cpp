/* Reads and changes a setting: exits 0 when the library answers as it should. */
#include <cstdio>
#include <cstring>
#include <oruSdk.h>

int main()
{
    OruSdkFeatureParam param = {0, 0, 2};
    uint32_t code = oruSdkSetMimo(&param);
    std::printf("%s: %u %s\n", oruSdkGetVersion(), code, oruSdkRcStr[code]);
    return code == ORUSDK_RC_OPTION && std::strcmp(oruSdkGetVersion(), "5.0.600.16") == 0 ? 0 : 1;
}

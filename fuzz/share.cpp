#include "share.hpp"

#include "fuzz.hpp"
#include "memory.hpp"

#include <cstdio>
#include <string>

namespace oru::fuzz {
namespace {

/// A file of share/.
std::string readAll(const char *path)
{
    std::string text;
    std::FILE *file = std::fopen(path, "rb");
    MUST(file != nullptr);
    for (int byte = std::fgetc(file); byte != EOF; byte = std::fgetc(file))
        text += static_cast<char>(byte);
    std::fclose(file);
    return text;
}

/// With what the readers of replies need: WPS of BSS 2.
std::string withWps(std::string text)
{
    constexpr std::string_view kKey = "bss2.wscEnabledFlag=";
    const size_t at = text.find(kKey);
    MUST(at != std::string::npos);
    text[at + kKey.size()] = '1';
    return text;
}

struct Factory {
    std::string wsm = readAll(ORU_SOURCE_DIR "/share/wsmDefaults.orig");
    std::string aa = readAll(ORU_SOURCE_DIR "/share/1x.conf.orig");
    std::string aaWithWps = withWps(aa);
    std::string radar = readAll(ORU_SOURCE_DIR "/share/wsmSavedRadarDetectList");
};

void restore(const char *path, const std::string &text)
{
    if (textOf(path) != text) putText(path, text);
}

} // namespace

void restoreFactoryFiles()
{
    static const Factory factory;
    restore(kWsm, factory.wsm);
    restore(kWsmFactory, factory.wsm);
    restore(kAa, factory.aaWithWps);
    restore(kAaFactory, factory.aa);
    restore(kRadarList, factory.radar);
}

} // namespace oru::fuzz

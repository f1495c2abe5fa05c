// Any bytes as the reply to an operation; the first one chooses the operation.
#include "fuzz.hpp"
#include "library.hpp"
#include "memory.hpp"
#include "oruSdk.h"
#include "settings.hpp"
#include "share.hpp"
#include "support/readers.hpp"
#include "support/reply.hpp"

#include <cstring>

using namespace oru::fuzz;
using oru::test::Bytes;
using oru::test::Reader;

namespace {

class Answer : public Service {
public:
    std::string_view reply(uint16_t /*type*/) override { return reply_; }
    void become(const uint8_t *data, size_t size)
    {
        reply_ = {reinterpret_cast<const char *>(data), size};
    }

private:
    std::string_view reply_;
};

Answer answer;

/// The radios of a product for both bands, both in one country.
Bytes radios()
{
    Bytes radio(29, 1);
    std::memcpy(radio.data(), "US ", 3);
    const Bytes channels{1, 6, 11, 36, 40, 149, 153};
    radio[28] = static_cast<uint8_t>(channels.size());
    radio.insert(radio.end(), channels.begin(), channels.end());
    return oru::test::joined({{1, 11, 0, 4}, radio, radio});
}

/// The operations that ask WSM for its radios the first time that they need to know.
std::vector<Reader> askersForRadios()
{
    const auto row = [](const char *name, uint32_t (*call)(), std::set<uint32_t> codes) {
        return Reader{name, call, radios(), {}, std::move(codes)};
    };
    return {
        row("GetWorldMode",
            [] {
                OruSdkWorldModeParam param{};
                return oruSdkGetWorldMode(&param);
            },
            {0, 1, 48}),
        row("SetChannelParam",
            [] {
                OruSdkChannelParam param{1, 149, 0, 0, 0};
                return oruSdkSetChannelParam(&param);
            },
            {0, 1, 48, 88, 93}),
        row("SetDfsPrefChans",
            [] {
                OruSdkDfsParam param{};
                param.preferred5GPrimChan = 149;
                return oruSdkSetDfsPrefChans(&param, 1);
            },
            {0, 88}),
        row("SetRadioPersona",
            [] {
                OruSdkOptionParam param{0, 1, 0};
                return oruSdkSetRadioPersona(&param);
            },
            {0, 95}),
        row("SetChannelSet",
            [] {
                OruSdkOptionParam param{0, 1, 2};
                return oruSdkSetChannelSet(&param);
            },
            {0, 94}),
        row("SetDot11Mode",
            [] {
                const Dict dict = load(kWsm);
                MUST(oruAsfDictSetString(dict.get(), "radio0.configuredChannel", "14") == 0);
                MUST(oruAsfDictSave(dict.get(), kWsm) == 0);
                OruSdkOptionParam param{0, 0, 3};
                return oruSdkSetDot11Mode(&param);
            },
            {0, 1, 48, 64}),
    };
}

uint32_t run(const Reader &reader, const uint8_t *data, size_t size)
{
    restoreFactoryFiles();
    answer.become(data, size);
    forgetRadios();
    const uint32_t code = reader.call();
    MUST(freeDicts() == 0);
    expectTidy();
    return code;
}

/// Every operation, each of which takes its good reply.
const std::vector<Reader> &operations()
{
    static const std::vector<Reader> all = [] {
        std::vector<Reader> rows = oru::test::readers();
        for (const Reader &row : askersForRadios()) rows.push_back(row);
        for (const Reader &row : rows) {
            const Bytes good = row.good();
            if (const uint32_t code = run(row, good.data(), good.size()); code != 0) {
                std::fprintf(stderr, "%s: %u\n", row.name.c_str(), code);
                MUST(code == 0);
            }
        }
        return rows;
    }();
    return all;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool ready = (enterMemory(), serve(&answer), true);
    MUST(ready);
    if (size < 1) return 0;
    const Reader &reader = operations()[data[0] % operations().size()];
    const uint32_t code = run(reader, data + 1, size - 1);
    if (reader.codes.count(code) == 0) std::fprintf(stderr, "%s: %u\n", reader.name.c_str(), code);
    MUST(reader.codes.count(code) == 1);
    return 0;
}

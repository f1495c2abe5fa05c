// The first checks of the operations on rates, MAC parameters, protection, scanning and QoS: the
// record, then the radio, before any value.
#include "oruSdk.h"
#include "support/accesspoint.hpp"

#include <gmock/gmock.h>

#include <cstring>
#include <functional>

namespace oru::test {
namespace {

using ::testing::IsEmpty;

struct Operation {
    std::string name;
    std::function<uint32_t()> withNull;
    std::function<uint32_t(uint32_t radio)> withRadio; // and values that are out of range
    bool wide = true;                                  // the radio has 32 bits
    std::string noRadio = "Invalid radio ID: %d";
};

std::ostream &operator<<(std::ostream &to, const Operation &operation)
{
    return to << operation.name;
}

/// A record with every byte set: each value in it is out of its range.
template <class Param>
Operation row(const char *name, uint32_t (*operation)(Param *))
{
    return {name, [=] { return operation(nullptr); },
            [=](uint32_t radio) {
                Param param;
                std::memset(&param, 0xff, sizeof param);
                param.radioIndex = static_cast<decltype(param.radioIndex)>(radio);
                Param before = param;
                const uint32_t code = operation(&param);
                EXPECT_EQ(std::memcmp(&param, &before, sizeof param), 0);
                return code;
            },
            sizeof(Param::radioIndex) == 4};
}

#define ROW(name) row(#name, oruSdk##name)

std::vector<Operation> operations()
{
    Operation getBasicRates = ROW(GetBasicRateSetParam);
    getBasicRates.noRadio = "Invalid radio ID"; // without the number
    return {
        getBasicRates,
        ROW(SetBasicRateSetParam),
        ROW(GetDot11MacParam),
        ROW(SetDot11MacParam),
        ROW(GetBeaconParam),
        ROW(SetBeaconParam),
        ROW(GetDot11Protection),
        ROW(SetDot11Protection),
        ROW(GetDot11StdExt),
        ROW(SetDot11StdExt),
        ROW(GetBgScanning),
        ROW(SetBgScanning),
        ROW(GetStaAcceptCriteria),
        ROW(SetStaAcceptCriteria),
        ROW(GetWmm),
        ROW(SetWmm),
        ROW(GetEdcaProfile),
        ROW(SetEdcaProfile),
        ROW(GetDynamicProfileSelect),
        ROW(SetDynamicProfileSelect),
        ROW(GetChannelBondingMode),
        ROW(SetChannelBondingMode),
    };
}

struct Arguments : AccessPointTest, ::testing::WithParamInterface<Operation> {
    const Operation &operation = GetParam();
};

TEST_P(Arguments, NullRecordIs2)
{
    EXPECT_EQ(operation.withNull(), 2u);
    EXPECT_LOGGED("NULL pointer");
    EXPECT_THAT(standIn.calls, IsEmpty());
}

TEST_P(Arguments, RadioIsCheckedBeforeTheValuesAndTheFile)
{
    const std::string before = box.everything();
    const std::vector<uint32_t> radios = operation.wide
                                             ? std::vector<uint32_t>{2, 0x80000000, 0xffffffff}
                                             : std::vector<uint32_t>{2, 0x8000, 0xffff};
    for (const uint32_t radio : radios) {
        EXPECT_EQ(operation.withRadio(radio), 3u);
        std::string text = operation.noRadio;
        if (const size_t at = text.find("%d"); at != std::string::npos)
            text.replace(at, 2, std::to_string(static_cast<int32_t>(radio)));
        EXPECT_LOGGED(text);
    }
    EXPECT_THAT(standIn.calls, IsEmpty());
    EXPECT_EQ(box.everything(), before);
}

INSTANTIATE_TEST_SUITE_P(Radio, Arguments, ::testing::ValuesIn(operations()),
                         [](const auto &info) { return info.param.name; });

} // namespace
} // namespace oru::test

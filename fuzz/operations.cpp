// Any bytes as a sequence of operations on one access point: settings of the catalogue, as the
// library takes them, between hostile stored texts and hostile replies.
#include "catalogue.hpp"
#include "fuzz.hpp"
#include "input.hpp"
#include "library.hpp"
#include "lines.hpp"
#include "memory.hpp"
#include "oruSdk.h"
#include "settings.hpp"
#include "share.hpp"
#include "support/readers.hpp"
#include "values.hpp"

#include <array>
#include <cstring>

using namespace oru::fuzz;
using namespace oructl;

namespace {

constexpr uint16_t kRadiosWanted = 266; // the request for radio facts
constexpr size_t kMostSteps = 8;

/// Who answers: the radio facts that the first byte chooses, and any bytes for the rest.
class Answer : public Service {
public:
    std::string_view reply(uint16_t type) override
    {
        return type == kRadiosWanted ? radios : std::string_view{bytes};
    }
    std::string_view radios;
    std::string bytes;
};

Answer answer;

using Texts = std::array<std::string, std::size(kConfiguration)>;

/// The texts of all files, copied only when one was written to.
const Texts &textsNow()
{
    static Texts texts;
    static uint64_t known = ~uint64_t{0};
    if (known != writes())
        for (size_t i = 0; i < texts.size(); ++i) texts[i] = textOf(kConfiguration[i]);
    known = writes();
    return texts;
}

/// Whatever was stored, and however: each file can be loaded.
void expectLoadable()
{
    static uint64_t known = 0;
    if (known != writes())
        for (const char *path : {kWsm, kAa, kRadarList}) load(path);
    known = writes();
}

// ---- Setters and getters

const std::vector<const Item *> &items()
{
    static const std::vector<const Item *> all = [] {
        std::vector<const Item *> found;
        forEachItem([&](const Item &item) { found.push_back(&item); });
        return found;
    }();
    return all;
}

int64_t chooseNumber(Input &input, const Field &field)
{
    const uint8_t how = input.byte();
    if (how >= 224) return input.number();
    if (how % 2 == 1 && !field.words.empty())
        return field.words[how / 2 % field.words.size()].number;
    const int64_t range = field.bounds.max - field.bounds.min + 1;
    return field.bounds.min + (range > 256 ? input.number() & 0xffff : how / 2) % range;
}

std::string chooseText(Input &input, const Field &field)
{
    const uint8_t how = input.byte();
    if (field.kind == Kind::Mac && how < 128)
        return "00:11:22:33:44:" + std::to_string(10 + how % 90);
    if (how < 128) return input.text(how);
    // Hexadecimal digits of the lengths that keys and identifiers have.
    constexpr size_t kSizes[] = {8, 10, 26, 32, 63, 64, 65};
    return std::string(kSizes[how % std::size(kSizes)], static_cast<char>('a' + how % 7));
}

std::vector<Value> chooseValues(Input &input, std::span<const Field> fields)
{
    const uint8_t left = input.byte(); // bits of fields that are not given
    std::vector<Value> values(fields.size());
    for (size_t i = 0; i < fields.size(); ++i) {
        const Field &field = fields[i];
        const bool optional = field.optional || !field.option.empty();
        if (!field.belongsTo(Use::Set) || (optional && (left >> i % 8 & 1) != 0)) continue;
        Value &value = values[i];
        value.given = true;
        switch (field.kind) {
        case Kind::Number:
        case Kind::Switch:
        case Kind::Choice: value.number = chooseNumber(input, field); break;
        case Kind::Text:
        case Kind::Bytes:
        case Kind::Secret:
        case Kind::Mac: value.text = chooseText(input, field); break;
        case Kind::List:
            for (int count = input.byte() % 5; count > 0; --count)
                value.entries.push_back(chooseValues(input, field.entry));
        }
    }
    return values;
}

int64_t chooseIndex(Input &input, const Item &item)
{
    if (item.scope == Scope::None) return 0;
    const uint8_t how = input.byte();
    if (how >= 240) return input.number();
    return how % 5;
}

/// A return code, or the status of liboruAsf that two getters pass on, on purpose.
void expectCode(uint32_t code)
{
    MUST(code <= ORUSDK_RC_CONFIGURED_RADAR_CHANNEL || code == UINT32_MAX);
}

Call get(const Item &item, int64_t index, uint32_t &code)
{
    Call call{.index = index, .values = std::vector<Value>(item.fields.size())};
    code = item.get(call);
    expectCode(code);
    return call;
}

/// What was set, as far as it is stored.
void expectSame(const Field &field, const Value &set, const Value &got)
{
    MUST(static_cast<int32_t>(set.number) == static_cast<int32_t>(got.number));
    constexpr size_t kAddress = 17;
    const size_t most = // of some texts, the rest is not read
        field.kind == Kind::Mac ? kAddress : static_cast<size_t>(field.bounds.max);
    MUST(set.text == got.text || (most > 0 && set.text.substr(0, most) == got.text));
    if (field.kind != Kind::List) return;
    MUST(set.entries.size() == got.entries.size());
    for (size_t i = 0; i < set.entries.size(); ++i)
        for (size_t k = 0; k < field.entry.size(); ++k)
            expectSame(field.entry[k], set.entries[i][k], got.entries[i][k]);
}

/// Whether a value is stored, rather than one that means none or leaves what was stored.
bool isStored(const Item &item, const Call &set, size_t at)
{
    const Field &field = item.fields[at];
    const Value &value = set.values[at];
    if (item.name == "channel" && field.name == "mode") return value.number != 2;
    if (item.name == "mac-acl" && field.kind == Kind::List)
        return set.values[0].number != 0 &&
               std::none_of(value.entries.begin(), value.entries.end(),
                            [](const auto &entry) { return entry[0].text.empty(); });
    return field.kind != Kind::List || isLegal(field, value);
}

/// A getter gives what was set, in the fields that both verbs share.
void expectReadBack(const Item &item, const Call &set)
{
    if (item.get == nullptr) return;
    if (item.conflict != nullptr && !item.conflict(set).empty()) return; // one value hides another
    uint32_t code = 0;
    const Call got = get(item, set.index, code);
    if (code != ORUSDK_RC_OK) return; // of other keys, which may be damaged
    for (size_t i = 0; i < item.fields.size(); ++i) {
        const Field &field = item.fields[i];
        if (field.use != Use::Both || field.coded != nullptr) continue;
        if (!set.values[i].given || !got.values[i].given) continue;
        if (isStored(item, set, i)) expectSame(field, set.values[i], got.values[i]);
    }
}

/// A key without its indexes.
std::string withoutNumbers(std::string_view key)
{
    std::string text;
    for (size_t i = 0; i < key.size(); ++i) {
        if (key.substr(i).starts_with("%d")) ++i;
        else if ((key[i] < '0' || key[i] > '9') && key[i] != '-') text += key[i];
    }
    return text;
}

/// Keys that a set writes besides the item's own.
constexpr struct {
    std::string_view item;
    std::string_view key;
} kWritesToo[] = {
    {"standard-ext", "adminDot11bStaFlag"},
    {"channel", "measurementDisabled"},
    {"channel", "radio%d.broadcastRate5GHz"},
    {"ssid", "bss%d.wpsstate"},
    {"standard-ext", "radio%d.dot11Mode"},
    {"standard-ext", "wmmEnabledFlag"},
    {"wep", "bss%d.BpRSNFlag"},
    {"dot11-mode", "ERPFlag"},
    {"channel", "periodicMeasFlag"},
    {"channel-bonding", "radio%d.broadcastRate24GHz"},
    {"channel-bonding", "radio%d.broadcastRate5GHz"},
};

bool isKeyOf(const Item &item, std::string_view line)
{
    const std::string key = withoutNumbers(oru::nameOfLine(line));
    bool found = false;
    for (const auto &row : kWritesToo)
        found |= row.item == item.name && withoutNumbers(row.key) == key;
    forEachWord(item.keys,
                [&](std::string_view pattern) { found |= withoutNumbers(pattern) == key; });
    return found;
}

std::string_view firstLine(std::string_view text)
{
    return text.substr(0, text.find('\n'));
}

/// Leaves of two texts what begins near the first line that differs.
void skipCommon(std::string_view &before, std::string_view &after)
{
    constexpr size_t kBlock = 128;
    const size_t most = std::min(before.size(), after.size());
    size_t same = 0;
    while (same + kBlock <= most &&
           std::memcmp(before.data() + same, after.data() + same, kBlock) == 0)
        same += kBlock;
    const size_t feed = before.substr(0, same).rfind('\n');
    const size_t start = feed == before.npos ? 0 : feed + 1;
    before.remove_prefix(start);
    after.remove_prefix(start);
}

/// From one text to the other, no line differs but those of the item's keys.
void expectOwnLinesChanged(const Item &item, std::string_view before, std::string_view after)
{
    const auto next = [](std::string_view &text) {
        text.remove_prefix(std::min(text.size(), firstLine(text).size() + 1));
    };
    if (before == after) return;
    skipCommon(before, after);
    while (!before.empty() || !after.empty()) {
        const std::string_view was = firstLine(before);
        const std::string_view is = firstLine(after);
        if (!before.empty() && !after.empty() && was == is) {
            next(before);
            next(after);
        } else if (!before.empty() && isKeyOf(item, was)) {
            next(before);
        } else {
            MUST(!after.empty() && isKeyOf(item, is));
            next(after);
        }
    }
}

/// Whether a set consists of several steps, some of which are done when a later one fails.
bool isComposed(const Item &item)
{
    return item.operations.empty() || item.name == "dfs-unii-bands" || item.name == "admin-status";
}

void setItem(Input &input)
{
    const Item &item = *items()[input.byte() % items().size()];
    Call call{.index = chooseIndex(input, item), .values = {}};
    call.values = chooseValues(input, item.fields);
    if (item.set == nullptr) return;
    // The one item whose record has no room for what its conflict keeps away.
    if (item.name == "basic-rates" && !item.conflict(call).empty()) return;
    const Texts before = textsNow();
    const uint32_t code = item.set(call);
    expectCode(code);
    if (code != ORUSDK_RC_OK) {
        MUST(isComposed(item) || textsNow() == before);
        return;
    }
    if (!item.operations.empty())
        for (size_t i = 0; i < before.size(); ++i)
            expectOwnLinesChanged(item, before[i], textsNow()[i]);
    expectReadBack(item, call);
}

void getItem(Input &input)
{
    const Item &item = *items()[input.byte() % items().size()];
    const int64_t index = chooseIndex(input, item);
    const uint64_t before = writes();
    uint32_t code = 0;
    if (item.get != nullptr) get(item, index, code);
    MUST(writes() == before);
}

// ---- What is no item

/// The operation that takes a command line.
void setPortVlans(Input &input)
{
    std::vector<std::string> words = {"oructl", "set", "ether-vlan"};
    for (int count = input.byte() % 24; count > 0; --count)
        words.push_back(input.text(input.byte() % 16));
    std::vector<char *> argv;
    for (std::string &word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    const Texts before = textsNow();
    const uint32_t code = oruSdkSetEtherVlanId(static_cast<int32_t>(words.size()), argv.data());
    const Texts &after = textsNow();
    if (code != ORUSDK_RC_OK) MUST(after == before);
    for (size_t i = 0; i < before.size(); ++i)
        expectOwnLinesChanged(*findItem("ether-vlan"), before[i], after[i]);
}

/// Records that hold any bytes, texts without an end among them.
void setRecord(Input &input)
{
    const Texts before = textsNow();
    uint32_t code = 0;
    switch (input.byte() % 3) {
    case 0: {
        auto record = std::make_unique<OruSdkBasicRateSetParam>();
        record->radioIndex = input.byte() % 3;
        record->rateMode = input.byte() % 5;
        input.fill(record->rateSet, sizeof record->rateSet);
        code = oruSdkSetBasicRateSetParam(record.get());
        break;
    }
    case 1: {
        const auto servers = std::make_unique<OruSdkRadiusServer[]>(3);
        const int32_t timeout = input.byte() % 24;
        const int32_t count = input.byte() % 5;
        for (size_t i = 0; i < 3; ++i) input.fill(&servers[i], sizeof(OruSdkRadiusServer));
        code = oruSdkSetRadiusConf(timeout, 1, 0, count, servers.get());
        break;
    }
    default: {
        constexpr size_t kEntry = 18;
        const uint32_t mode = input.byte() % 4;
        const int32_t count = input.byte() % 6;
        const auto entries = std::make_unique<char[]>(kEntry * static_cast<size_t>(count));
        input.fill(entries.get(), kEntry * static_cast<size_t>(count));
        code = oruSdkSetMacAclList(&mode, &count, entries.get());
    }
    }
    MUST(code == 0 || textsNow() == before);
}

void commitOrReset(Input &input)
{
    const uint64_t before = writes();
    switch (input.byte() % 5) {
    case 0:
        MUST(oruSdkCommitRadio() == 0);
        MUST(writes() == before);
        break;
    case 1:
        oruSdkCommitAll();
        MUST(writes() == before);
        break;
    case 2:
        MUST(oruSdkResetToDefaults() == 0);
        MUST(textOf(kWsm) == textOf(kWsmFactory) && textOf(kAa) == textOf(kAaFactory));
        break;
    case 3: {
        const Texts texts = textsNow();
        if (oruSdkResetToBss(static_cast<int8_t>(input.byte())) != 0) MUST(textsNow() == texts);
        break;
    }
    default: {
        OruSdkBssInfoParam info{};
        info.bssIndex = input.byte() % 6;
        const uint32_t code = oruSdkGetBssInfoParam(&info);
        MUST(code != 0 || ::strnlen(info.ssid, sizeof info.ssid) < sizeof info.ssid);
        MUST(::strnlen(info.securityMode, sizeof info.securityMode) < sizeof info.securityMode);
        MUST(writes() == before);
    }
    }
}

/// An operation that asks a service, which answers with any bytes.
void ask(Input &input)
{
    const auto &readers = oru::test::readers();
    const auto &reader = readers[input.byte() % readers.size()];
    answer.bytes = input.text(input.byte());
    reader.call();
}

void readTexts(Input &input)
{
    const std::string name = input.text(input.byte() % 16);
    const std::string text = input.text(input.byte());
    oruSdkGetStatsValue(name.c_str(), text.c_str());
    isHex(text.c_str());
    convertExtToIntRateCode(static_cast<int32_t>(input.number()));
}

/// Any text behind a key of the catalogue, as somebody else's program may have stored it.
void storeText(Input &input)
{
    const Item &item = *items()[input.byte() % items().size()];
    std::vector<std::string_view> keys;
    forEachWord(item.keys, [&](std::string_view key) { keys.push_back(key); });
    if (keys.empty()) return;
    const uint8_t choice = input.byte();
    std::string line{keys[choice % keys.size()]};
    if (const size_t at = line.find("%d"); at != line.npos)
        line.replace(at, 2, std::to_string(choice / 16 % 4));
    line += '=' + input.text(input.byte());
    const char *path = item.files.starts_with(kAa) || (choice & 8) != 0 ? kAa : kWsm;
    putText(path, std::string{textOf(path)} + line + '\n');
}

/// Any text as a whole file.
void storeFile(Input &input)
{
    const char *path = kConfiguration[input.byte() % std::size(kConfiguration)];
    putText(path, input.text(input.byte()));
}

constexpr void (*kSteps[])(Input &) = {setItem,   setItem,      setItem,       setItem,
                                       getItem,   storeText,    ask,           readTexts,
                                       storeFile, setPortVlans, commitOrReset, setRecord};

/// What WSM says of its radios: for both bands, for 2.4 GHz alone, of Japan, damaged, or nothing.
std::string_view radiosOf(uint8_t choice)
{
    static const auto reply = [](const char *country, char band, std::string channels) {
        std::string entry(29, '\1');
        entry.replace(0, 3, country, 3);
        entry[26] = band;
        entry[28] = static_cast<char>(channels.size());
        entry += channels;
        return std::string{"\1\13\0\4", 4} + entry + entry;
    };
    static const std::string all[] = {
        reply("US ", 1, "\1\2\5\6\11\13\44\50\64\225\231"), reply("DE ", 0, "\1\6\15"),
        reply("JP ", 1, "\1\5\6\12\15\16\44\50"), reply("XX ", 1, std::string(63, '\1')), ""};
    return all[choice % std::size(all)];
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool ready = (enterMemory(), serve(&answer), true);
    MUST(ready);
    Input input{data, size};
    restoreFactoryFiles();
    forgetRadios();
    answer.radios = radiosOf(input.byte());
    answer.bytes.clear();
    for (size_t step = 0; step < kMostSteps && !input.empty(); ++step) {
        kSteps[input.byte() % std::size(kSteps)](input);
        freeDicts();
        expectLoadable();
        expectTidy();
    }
    return 0;
}

// What is set on a radio, and the channels that this leaves to it.
#include "views.hpp"

#include "channel_rules.hpp"
#include "codes.hpp"

#include <algorithm>
#include <array>
#include <set>

namespace oructl {
namespace {

// ---- channels

constexpr Operand kRadio[] = {kRadioOperand};

constexpr Word kYesNoWords[] = {{"yes", 1}, {"no", 0}};

/// Named after the item to change, where there is one.
constexpr Word kCheckWords[] = {{"radar-detect", int64_t(Check::RadarDetect)},
                                {"channel-bonding", int64_t(Check::ChannelBonding)},
                                {"dot11-mode", int64_t(Check::Dot11Mode)},
                                {"no-such-channel", int64_t(Check::NoSuchChannel)},
                                {"product", int64_t(Check::Product)},
                                {"channel-set", int64_t(Check::ChannelSet)},
                                {"country", int64_t(Check::Country)},
                                {"rate", int64_t(Check::Rate)}};
constexpr Field kSecondaryFields[] = {{.name = "", .kind = Kind::Number}};
constexpr Field kRefusalFields[] = {{.name = "check", .kind = Kind::Choice, .words = kCheckWords},
                                    {.name = "code", .kind = Kind::Number}};
constexpr Field kChannelColumns[] = {
    {.name = "channel", .kind = Kind::Number},
    {.name = "allowed", .kind = Kind::Switch, .words = kYesNoWords},
    {.name = "secondary", .kind = Kind::List, .entry = kSecondaryFields},
    {.name = "refused-by", .kind = Kind::List, .entry = kRefusalFields}};

constexpr Word kBandWords[] = {{"2.4ghz", 0}, {"2.4ghz-and-5ghz", 1}};
constexpr Field kChannelFacts[] = {{.name = "country", .kind = Kind::Text},
                                   {.name = "bands", .kind = Kind::Choice, .words = kBandWords}};

/// An item of one number, which the answer shows too.
uint32_t readSetting(std::string_view item, int64_t radio, Answer &answer, int64_t &number)
{
    const Reading &reading = answer.items.emplace_back(readItem(*findItem(item), radio));
    number = reading.call.values[0].number;
    return reading.code;
}

/// In the order in which "set channel" reads them.
uint32_t readSettings(int64_t radio, Answer &answer, ChannelSettings &settings)
{
    const std::pair<std::string_view, int64_t &> items[] = {{"radar-detect", settings.radarDetect},
                                                            {"channel-bonding", settings.bonding},
                                                            {"dot11-mode", settings.mode},
                                                            {"channel-set", settings.channelSet},
                                                            {"rate", settings.rate}};
    for (const auto &[item, number] : items)
        if (const uint32_t code = readSetting(item, radio, answer, number); code != 0) return code;
    settings.facts = radioFacts(radio);
    if (settings.facts.code == ORUSDK_RC_OK && !settings.facts.told)
        answer.problem = "WSM tells of no " + radioName(radio);
    return settings.facts.code;
}

Row rowOf(const ChannelSettings &settings, uint8_t channel)
{
    Value secondaries{.given = settings.bonding == 1};
    for (const uint8_t each : secondariesOf(settings, channel))
        secondaries.entries.push_back({numberValue(each)});
    Value refusals{.given = true};
    for (const Refusal &each : refusalsOf(settings, channel))
        refusals.entries.push_back({numberValue(int64_t(each.check)), numberValue(each.code)});
    return {numberValue(channel), numberValue(refusals.entries.empty() ? 1 : 0), secondaries,
            refusals};
}

uint32_t fetchChannels(const Arguments &arguments, Answer &answer)
{
    ChannelSettings settings;
    if (const uint32_t code = readSettings(arguments.values[0].number, answer, settings);
        code != ORUSDK_RC_OK || !answer.problem.empty())
        return code;
    answer.facts = {textValue(settings.facts.country),
                    numberValue(settings.facts.only24GHz ? 0 : 1)};
    for (const uint8_t channel : knownChannels(settings.facts))
        answer.rows.push_back(rowOf(settings, channel));
    return ORUSDK_RC_OK;
}

// ---- radio

/// The getters of DFS settings know no more of a radio's number.
constexpr Operand kAnyRadio[] = {
    {.label = "RADIO", .field = kRadioOperand.field, .holds = {0, UINT8_MAX}}};

uint32_t fetchRadio(const Arguments &arguments, Answer &answer)
{
    forEachItem([&](const Item &item) {
        if (item.scope == Scope::Radio && item.get != nullptr)
            answer.items.push_back(readItem(item, arguments.values[0].number));
    });
    const bool any = std::any_of(answer.items.begin(), answer.items.end(),
                                 [](const Reading &reading) { return reading.code == 0; });
    return any ? uint32_t{ORUSDK_RC_OK} : answer.items.front().code;
}

bool isShared(const Item &item)
{
    return item.keys.find("%d") == item.keys.npos;
}

/// The settings of one family; a name with a star is one for both radios.
struct Section {
    std::string_view heading;
    std::vector<Line> settings = {};
};

std::vector<Section> sectionsOf(const Answer &answer, Secrets secrets)
{
    std::vector<Section> sections;
    auto reading = answer.items.begin();
    for (const Family &family : families()) {
        if (sections.empty() || sections.back().heading != family.name)
            sections.push_back({family.name});
        for (const Item &item : family.items) {
            if (reading == answer.items.end() || reading->item != &item) continue;
            for (Line &line : linesOf(*reading++, secrets)) {
                if (isShared(item)) line[0] += '*';
                sections.back().settings.push_back(std::move(line));
            }
        }
    }
    std::erase_if(sections, [](const Section &section) { return section.settings.empty(); });
    return sections;
}

void addSection(std::vector<std::string> &column, const Section &section)
{
    if (!column.empty()) column.emplace_back();
    column.emplace_back(section.heading);
    const std::string rows = aligned(section.settings);
    for (size_t at = 0; at < rows.size();) {
        const size_t end = rows.find('\n', at);
        column.push_back("  " + rows.substr(at, end - at));
        at = end + 1;
    }
}

/// What the codes in the columns mean, each once.
std::string messagesOf(const Answer &answer)
{
    std::set<uint32_t> codes;
    for (const Reading &reading : answer.items)
        if (reading.code != ORUSDK_RC_OK) codes.insert(reading.code);
    std::string out;
    for (const uint32_t code : codes)
        out.append("code ").append(std::to_string(code)).append(": ").append(messageLine(code)) +=
            '\n';
    return out;
}

/// Two columns of families, of which the first one ends with the family that passes half of it.
std::string textRadio(const Answer &answer, Secrets secrets)
{
    const std::vector<Section> sections = sectionsOf(answer, secrets);
    size_t left = 0;
    for (const Section &section : sections) left += section.settings.size();
    left /= 2;

    std::array<std::vector<std::string>, 2> columns;
    for (const Section &section : sections) addSection(columns[columns[0].size() > left], section);
    std::vector<Line> lines;
    for (size_t i = 0; i < std::max(columns[0].size(), columns[1].size()); ++i) {
        Line &line = lines.emplace_back(1);
        if (i < columns[0].size()) line[0] = columns[0][i];
        if (i < columns[1].size() && !columns[1][i].empty()) line.push_back(columns[1][i]);
    }
    return aligned(lines) + "\n* one for both radios\n" + messagesOf(answer);
}

constexpr View kViews[] = {
    {.name = "radio",
     .operands = kAnyRadio,
     .columns = {},
     .empty = "",
     .summary = "all that is stored of a radio",
     .operations = "convertExtToIntRateCode",
     .fetch = fetchRadio,
     .text = textRadio},
    {.name = "channels",
     .operands = kRadio,
     .columns = kChannelColumns,
     .empty = "no channels",
     .summary = "the channels that a radio may be set to, and what forbids the others",
     .operations = "oruSdkGetRadioInfo",
     .fetch = fetchChannels,
     .facts = kChannelFacts},
};

} // namespace

std::span<const View> radioViews()
{
    return kViews;
}

} // namespace oructl

#include "capture.hpp"

#include "oruSdk.h"
#include "scratch.hpp"
#include "snapshot.hpp"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <set>
#include <unistd.h>

namespace oructl {
namespace {

/// Of the keys that stand twice the last one counts. The country is that of the file, always:
/// else a service is asked for it.
constexpr std::string_view kCountryOfTheFile = "\ncountryCodeFlag=1\n";

/// A copy of the configuration where no service answers: what is read there is what files say.
bool fill(Scratch &scratch, const Texts &texts)
{
    if (!scratch) return false;
    (void)::unlink((scratch.root() + "/run").c_str());
    for (size_t i = 0; i < texts.size(); ++i) {
        const char *const file = kConfigurationFiles[i];
        if (!texts[i]) (void)::unlink((scratch.root() + file).c_str());
        else if (!scratch.write(file, *texts[i] + std::string{i == 0 ? kCountryOfTheFile : ""}))
            return false;
    }
    return true;
}

/// The numbers of "ethN." at the beginnings of lines.
std::set<int64_t> portsOf(const std::string &text)
{
    constexpr std::string_view kPort = "eth";
    std::set<int64_t> ports;
    for (size_t at = 0; at < text.size(); at = text.find('\n', at), ++at) {
        if (text.compare(at, kPort.size(), kPort) == 0) {
            const char *const number = text.c_str() + at + kPort.size();
            char *end = nullptr;
            const unsigned long port = std::strtoul(number, &end, 10);
            if (end != number && *end == '.' && port <= INT32_MAX)
                ports.insert(static_cast<int64_t>(port));
        }
        if (text.find('\n', at) == text.npos) break;
    }
    return ports;
}

template <class Visit>
void forEachIndex(const Item &item, const std::set<int64_t> &ports, Visit &&visit)
{
    const Bounds legal = legalIndex(item.scope);
    if (item.scope == Scope::Port) {
        for (const int64_t port : ports) visit(port);
        return;
    }
    for (int64_t index = legal.min; index <= legal.max; ++index) visit(index);
}

bool sameEntries(std::span<const Field> fields, const std::vector<Value> &one,
                 const std::vector<Value> &other)
{
    for (size_t i = 0; i < fields.size(); ++i)
        if (fields[i].belongsTo(Use::Get) && !sameValue(fields[i], one[i], other[i])) return false;
    return true;
}

const Captured *find(const Capture &capture, const Captured &like)
{
    for (const Captured &each : capture.items)
        if (each.item == like.item && each.index == like.index) return &each;
    return nullptr;
}

const Captured *readable(const Captured *captured)
{
    return captured != nullptr && captured->code == ORUSDK_RC_OK ? captured : nullptr;
}

std::string_view withoutNumber(std::string_view key)
{
    while (!key.empty() && std::isdigit(static_cast<unsigned char>(key.back())) != 0)
        key.remove_suffix(1);
    return key;
}

/// Whether a key belongs to an item; of a list its pattern names the first one.
bool hasKey(const Item &item, int64_t index, std::string_view key)
{
    bool found = false;
    forEachWord(item.keys, [&](std::string_view pattern) {
        std::string name{pattern};
        if (const size_t at = name.find("%d"); at != name.npos)
            name.replace(at, 2, std::to_string(index));
        const std::string_view list = withoutNumber(name);
        found = found || name == key || (list.size() < name.size() && list == withoutNumber(key));
    });
    return found;
}

} // namespace

Texts storedTexts(const std::string &root)
{
    Texts texts;
    for (size_t i = 0; i < texts.size(); ++i) texts[i] = readFile(root + kConfigurationFiles[i]);
    return texts;
}

Texts factoryTexts(const std::string &root)
{
    Texts texts = storedTexts(root); // for what the factory has no file of
    for (size_t i = 0; i < kFactoryFiles.size(); ++i) texts[i] = readFile(root + kFactoryFiles[i]);
    return texts;
}

Texts committedTexts()
{
    Texts texts = storedTexts(rootFolder());
    if (!hasSnapshot()) return texts;
    for (size_t i = 0; i < texts.size(); ++i) texts[i] = committedText(i);
    return texts;
}

Captured capturedNow(const Item &item, int64_t index)
{
    Call call{.index = index, .values = std::vector<Value>(item.fields.size())};
    uint32_t code = item.get(call);
    if (std::any_of(call.values.begin(), call.values.end(), [](const Value &v) { return v.given; }))
        code = ORUSDK_RC_OK;
    return {&item, index, code, std::move(call.values)};
}

std::optional<Capture> capture(const Texts &texts)
{
    Scratch scratch;
    if (!fill(scratch, texts)) return std::nullopt;
    const MovedRoot moved{scratch.root()};
    const std::set<int64_t> ports = portsOf(texts[0].value_or(""));
    Capture capture{texts, {}};
    forEachItem([&](const Item &item) {
        if (item.get == nullptr || item.set == nullptr) return;
        forEachIndex(item, ports,
                     [&](int64_t index) { capture.items.push_back(capturedNow(item, index)); });
    });
    return capture;
}

std::string nameOf(const Item &item, int64_t index)
{
    std::string name{item.name};
    if (item.scope != Scope::None) name.append("[").append(std::to_string(index)).append("]");
    return name;
}

bool sameValue(const Field &field, const Value &one, const Value &other)
{
    return one.given == other.given && one.number == other.number && one.text == other.text &&
           std::equal(one.entries.begin(), one.entries.end(), other.entries.begin(),
                      other.entries.end(), [&](const auto &left, const auto &right) {
                          return sameEntries(field.entry, left, right);
                      });
}

Differences differences(const Capture &from, const Capture &to)
{
    Differences found;
    const auto add = [&](const Captured &like, const Captured *old, const Captured *now) {
        if (old == now) return; // neither can be read
        if (old != nullptr && now != nullptr &&
            sameEntries(like.item->fields, old->values, now->values))
            return;
        found.items.push_back({like.item, like.index, old, now});
    };
    for (const Captured &old : from.items) add(old, readable(&old), readable(find(to, old)));
    for (const Captured &now : to.items)
        if (find(from, now) == nullptr) add(now, nullptr, readable(&now));
    for (size_t i = 0; i < from.texts.size(); ++i)
        for (KeyChange &change : changedKeys(from.texts[i].value_or(""), to.texts[i].value_or(""),
                                             kConfigurationFiles[i]))
            if (std::none_of(found.items.begin(), found.items.end(), [&](const Difference &each) {
                    return hasKey(*each.item, each.index, change.key);
                }))
                found.keys.push_back(std::move(change));
    return found;
}

} // namespace oructl

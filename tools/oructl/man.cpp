#include "man.hpp"

#include "command.hpp"
#include "exit_status.hpp"
#include "mdoc.hpp"
#include "oruSdk.h"
#include "show.hpp"
#include "state.hpp"
#include "text_output.hpp"

#include <cctype>

namespace oructl {
namespace {

/// A sentence of a summary, which is a part of one.
std::string sentence(std::string_view summary)
{
    std::string out{summary};
    if (out.empty()) return out;
    out[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(out[0])));
    return out.ends_with('.') ? out : out + '.';
}

void addOptions(Mdoc &page, std::span<const Option> options)
{
    page.beginTags();
    for (const Option &option : options) {
        std::string name = "--" + std::string{option.name};
        if (option.value != nullptr) name.append(" ").append(option.value);
        page.tag(name);
        page.text(sentence(option.summary));
    }
    page.endTags();
}

/// Its commands or views, as the verb's help lists them.
void addCommands(Mdoc &page, const Verb &verb)
{
    const std::vector<CommandLine> lines = commandLines(verb);
    if (lines.size() < 2) return;
    page.beginTags();
    for (const auto &[line, summary] : lines) {
        page.tag(line);
        page.text(sentence(summary));
    }
    page.endTags();
}

void addVerbs(Mdoc &page)
{
    page.beginTags();
    for (const Verb &verb : verbs()) {
        page.tag(std::string{verb.name}.append(" ").append(verb.operands));
        page.text(verb.details);
        if (!verb.options.empty()) {
            page.paragraph("Its options:");
            addOptions(page, verb.options);
        }
        addCommands(page, verb);
    }
    page.endTags();
}

struct Entry {
    std::string_view name;
    std::string_view text;
};

constexpr Entry kEnvironment[] = {
    {"ORU_ROOT", "The folder that holds the access point's files and sockets; without it this "
                 "machine's own. --root goes before it."},
    {"ORU_LOG",
     "Where the library's log lines go: syslog (unless set), stderr, none or file:PATH."},
    {"ORU_LOG_LEVEL", "The highest level that is logged, 0 to 7."},
    {"NO_COLOR", "Without colours, when it is set and not empty; --color goes before it."},
    {"LC_ALL, LC_CTYPE, LANG", "Whether names of networks are shown in UTF-8."},
    {"TMPDIR", "Where a change is tried before it is stored, when /dev/shm is not there."},
};

constexpr Entry kFiles[] = {
    {"/var/wsmDefaults", "The settings of the radios and BSSes."},
    {"/var/1x.conf", "The settings of security."},
    {"/var/wsmDefaults.orig", "Factory settings of the radios and BSSes."},
    {"/var/1x.conf.orig", "Factory settings of security."},
    {"/config/wsmSavedRadarDetectList", "Channels on which radar was detected."},
    {"/var/oructl", "What the program itself keeps; only its owner may enter it."},
};

/// Each of them ends with 0 on an access point as it comes from the factory, with its services.
constexpr Entry kExamples[] = {
    {"oructl get tx-power 0", "What is stored:"},
    {"oructl set tx-power 0 1\noructl set ssid 0 \"Lobby\"\noructl commit radio",
     "Two changes, which the access point takes with the commit:"},
    {"oructl set security 0 wpa2 psk\necho 'secret of the house' | oructl set psk 0 -",
     "A BSS with WPA2 and a pre-shared key, which is in no list of processes:"},
    {"oructl --dry-run set channel 1 auto --mode once", "What a change would store:"},
    {"oructl --json get dot11-mac 0", "For a script, as one line of JSON:"},
    {"oructl --terse --fields rts-threshold get dot11-mac 0", "One value, bare:"},
    {"oructl --json list tx-power", "All about the items of this name:"},
    {"oructl show bss 0", "All that is stored of a BSS:"},
    {"oructl explain 47", "What a return code means:"},
};

void addEntries(Mdoc &page, std::string_view title, std::span<const Entry> entries)
{
    page.section(title);
    page.beginTags();
    for (const auto &[name, text] : entries) {
        page.tag(name);
        page.text(text);
    }
    page.endTags();
}

void addExitStatus(Mdoc &page)
{
    page.section("EXIT STATUS");
    page.beginTags();
    for (const ExitMeaning &each : exitMeanings()) {
        page.tag(std::to_string(each.status));
        page.text(sentence(each.meaning));
    }
    page.endTags();
}

void addExamples(Mdoc &page)
{
    page.section("EXAMPLES");
    for (const auto &[command, text] : kExamples) {
        if (&text != &kExamples[0].text) page.raw(".Pp");
        page.text(text);
        page.literal(command);
    }
}

std::string programPage(std::string_view date)
{
    Mdoc page{"oructl", "1", date, "configuration of an access point"};
    page.section("SYNOPSIS");
    page.raw(".Nm\n.Op Ar option ...\n.Ar verb\n.Op Ar item\n.Op Ar index\n.Op Ar value ...");
    page.section("DESCRIPTION");
    page.text("The program reads and changes the configuration of a dual-radio access point, and "
              "shows its state. What it changes waits in files until a commit.");
    page.paragraph("Options stand before the verb or right behind it: they end at the first "
                   "operand, so that a negative number or a text that begins with a dash is a "
                   "value. An item has options of its own, behind its values.");
    page.subsection("Verbs");
    addVerbs(page);
    page.subsection("Options");
    addOptions(page, globalOptions());
    addEntries(page, "ENVIRONMENT", kEnvironment);
    addEntries(page, "FILES", kFiles);
    addExitStatus(page);
    addExamples(page);
    page.seeAlso({"oruSdk 3", "oructl-items 7"});
    return page.source();
}

void addItem(Mdoc &page, const Item &item)
{
    page.tag(item.name);
    page.text(sentence(item.summary));
    std::string usage;
    for (const auto &[verb, use] : {std::pair{"get", Use::Get}, std::pair{"set", Use::Set}}) {
        if ((use == Use::Get ? item.get == nullptr : item.set == nullptr)) continue;
        usage.append(usage.empty() ? "" : "\n").append(verb).append(" ").append(item.name);
        usage.append(" ").append(operandSynopsis(item, use));
    }
    page.literal(usage);
    for (const Field &field : item.fields) {
        std::string text = field.flag ? "" : legalValues(field);
        if (!field.meaning.empty()) text.append(text.empty() ? "" : ": ").append(field.meaning);
        page.paragraph(sentence(operandName(field) + ": " + text));
    }
    if (!item.keys.empty())
        page.paragraph(
            sentence("Stored as " + std::string{item.keys} + " in " + std::string{item.files}));
    if (!item.operations.empty())
        page.paragraph(sentence("Operations: " + std::string{item.operations}));
}

std::string itemsPage(std::string_view date)
{
    Mdoc page{"oructl-items", "7", date, "what oructl reads and changes"};
    page.section("DESCRIPTION");
    page.text("The items of oructl, family by family: what they mean, how they are read and "
              "changed, their values, the keys that store them, where %d stands for the index, and "
              "the operations of the library.");
    std::string_view before;
    for (const Family &family : families()) {
        if (family.name != before && !before.empty()) page.endTags();
        if (family.name != before) {
            page.subsection(family.name);
            page.beginTags();
        }
        before = family.name;
        for (const Item &item : family.items) addItem(page, item);
    }
    page.endTags();
    page.seeAlso({"oructl 1", "oruSdk 3"});
    return page.source();
}

} // namespace

std::string manPage(std::string_view name, std::string_view date)
{
    if (name == "oructl") return programPage(date);
    if (name == "oructl-items") return itemsPage(date);
    return "";
}

} // namespace oructl

#include "show.hpp"

#include "codes.hpp"
#include "display.hpp"
#include "json_output.hpp"
#include "oruSdk.h"
#include "patience.hpp"
#include "readings.hpp"
#include "select.hpp"
#include "terminal.hpp"
#include "terse_output.hpp"
#include "views.hpp"

#include <algorithm>
#include <ctime>

namespace oructl {
namespace {

/// Entries of a list: their fields between blanks, entry by entry between commas.
std::string cellOfList(const Field &list, const Value &value, Charset charset, Secrets secrets)
{
    std::string out;
    for (const auto &entry : value.entries) {
        if (!out.empty()) out += ',';
        for (size_t i = 0; i < entry.size(); ++i)
            out.append(i == 0 ? "" : " ").append(cellOf(list.entry[i], entry[i], charset, secrets));
    }
    return out.empty() ? std::string{kAbsent} : out;
}

} // namespace

std::string cellOf(const Field &field, const Value &value, Charset charset, Secrets secrets)
{
    if (!value.given) return std::string{kAbsent};
    switch (field.kind) {
    case Kind::Text:
    case Kind::Bytes: return quotedText(value.text, charset);
    case Kind::List: return cellOfList(field, value, charset, secrets);
    case Kind::Number: return value.text.empty() ? shownValue(field, value) : printable(value.text);
    default: return shownValue(field, value, secrets);
    }
}

std::string headerOf(const Field &field)
{
    std::string out{field.name};
    if (!field.unit.empty()) out.append("(").append(field.unit).append(")");
    return out;
}

namespace {

int reportView(Request &request, const View &view, const Arguments &arguments, uint32_t code,
               const Answer &answer)
{
    const std::string illegal = illegalOperand(view.operands, arguments);
    Problem problem{.kind = illegal.empty() ? "failed" : "refused",
                    .attempt = attemptOf(request, view.name, view.operands, arguments),
                    .message = answer.problem,
                    .detail = illegal.empty() ? answer.detail : illegal};
    if (!illegal.empty()) problem.status = kNotFound;
    else if (!answer.problem.empty()) problem.status = answer.status;
    if (code != ORUSDK_RC_OK) {
        problem.code = code;
        problem.message = messageLine(code);
    }
    return report(request, problem);
}

bool fetched(const View &view, const Arguments &arguments, Answer &answer, uint32_t &code)
{
    code = view.fetch(arguments, answer);
    return code == ORUSDK_RC_OK && answer.problem.empty();
}

/// Values alone: a line for each row, or one of the facts where there is nothing else. Items of a
/// view without both have a line each, behind their names.
std::string terseView(const View &view, const Answer &answer, Secrets secrets)
{
    if (!view.parts.empty()) return terseReadings(answer, secrets);
    std::string out;
    for (const Reading &reading : answer.items) {
        if (!view.columns.empty() || !view.facts.empty()) break;
        out.append(reading.item->name).append("\t");
        const bool good = reading.code == ORUSDK_RC_OK;
        out += good ? terseLine(reading.item->fields, reading.call.values, secrets) : "\n";
    }
    if (!out.empty()) return out;
    if (view.columns.empty()) return terseLine(view.facts, answer.facts, secrets);
    for (const Row &row : answer.rows) out += terseLine(view.columns, row, secrets);
    return out;
}

/// The columns that the request chooses; of a view without columns the items, or the facts.
Selection selectColumns(const Request &request, const View &view)
{
    if (!view.parts.empty()) return select(request, itemNames(view.parts));
    return select(request, view.columns.empty() ? view.facts : view.columns);
}

std::string shown(const Request &request, const View &view, const Arguments &arguments,
                  Answer answer)
{
    const Selection chosen = selectColumns(request, view);
    View part = view;
    std::vector<Part> parts;
    if (!view.parts.empty()) {
        if (request.fields != nullptr) parts = chooseParts(view.parts, chosen.places, answer);
        if (request.fields != nullptr) part.parts = parts;
    } else if (view.columns.empty()) {
        part.facts = chosen.fields;
        answer.facts = chosen.of(answer.facts);
    } else {
        part.columns = chosen.fields;
        for (Row &row : answer.rows) row = chosen.of(row);
    }
    if (request.terse) return terseView(part, answer, request.secrets);
    return request.json ? jsonView(part, arguments, answer, request.secrets)
                        : textView(part, answer, request.secrets);
}

void sleepSeconds(int64_t seconds)
{
    timespec left = {static_cast<time_t>(seconds), 0};
    while (::nanosleep(&left, &left) != 0) {} // a stop and a continue cut it short
}

/// Draws the view in place until it fails. An interrupt ends the process.
uint32_t watchOnTerminal(const Request &request, const View &view, const Arguments &arguments,
                         Answer &answer)
{
    LiveText screen;
    uint32_t code = ORUSDK_RC_OK;
    while (fetched(view, arguments, answer, code)) {
        if (!screen.draw(shown(request, view, arguments, answer))) break;
        sleepSeconds(*arguments.seconds);
        answer = {};
    }
    return code;
}

/// One view behind the other, for pipes and files; as text with an empty line between them.
int watchInPipe(Request &request, const View &view, const Arguments &arguments)
{
    for (bool first = true;; first = false) {
        Answer answer;
        uint32_t code = ORUSDK_RC_OK;
        if (!fetched(view, arguments, answer, code))
            return reportView(request, view, arguments, code, answer);
        request.output = first || request.json ? "" : "\n";
        request.output += shown(request, view, arguments, answer);
        if (const int status = finish(request, kDone); status != kDone) return status;
        sleepSeconds(*arguments.seconds);
    }
}

int runView(Request &request, const View &view, const Arguments &arguments)
{
    Answer answer;
    uint32_t code = ORUSDK_RC_OK;
    if (!arguments.seconds) {
        const Patience patience{request, attemptOf(request, view.name, view.operands, arguments)};
        if (!fetched(view, arguments, answer, code))
            return reportView(request, view, arguments, code, answer);
        request.output = shown(request, view, arguments, answer);
        return kDone;
    }
    if (request.json || !outputIsTerminal()) return watchInPipe(request, view, arguments);
    code = watchOnTerminal(request, view, arguments, answer);
    if (code == ORUSDK_RC_OK && answer.problem.empty()) answer.problem = "the terminal is gone";
    return reportView(request, view, arguments, code, answer);
}

} // namespace

std::span<const std::span<const View>> viewFamilies()
{
    static const std::span<const View> all[] = {statusViews(), radioViews(), bssViews()};
    return all;
}

const View *findView(std::string_view name)
{
    for (const auto family : viewFamilies())
        for (const View &view : family)
            if (view.name == name) return &view;
    return nullptr;
}

Reading readItem(const Item &item, int64_t index)
{
    Reading reading{.item = &item,
                    .call = {.index = index, .values = std::vector<Value>(item.fields.size())}};
    reading.code = item.get(reading.call);
    return reading;
}

std::string aligned(const std::vector<Line> &lines)
{
    std::vector<size_t> widths;
    for (const Line &line : lines) {
        widths.resize(std::max(widths.size(), line.size()));
        for (size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], displayWidth(line[i]));
    }
    std::string out;
    for (const Line &line : lines) {
        for (size_t i = 0; i + 1 < line.size(); ++i)
            out.append(line[i]).append(widths[i] - displayWidth(line[i]) + 2, ' ');
        out.append(line.back()).append("\n");
    }
    return out;
}

std::vector<Line> linesOf(const Reading &reading, Secrets secrets)
{
    const std::string name{reading.item->name};
    if (reading.code != ORUSDK_RC_OK)
        return {{name, std::string{kAbsent}.append(" (code ").append(std::to_string(reading.code)) +
                           ')'}};
    std::vector<Line> lines;
    for (size_t i = 0; i < reading.call.values.size(); ++i) {
        const Field &field = reading.item->fields[i];
        const Value &value = reading.call.values[i];
        if (!field.belongsTo(Use::Get) || !value.given) continue;
        std::string shown = cellOf(field, value, charsetOfEnvironment(), secrets);
        const bool plain = field.coded == nullptr && wordOf(field, value.number).empty();
        if (plain && !field.unit.empty()) shown.append(" ").append(field.unit);
        lines.push_back({field.name.empty() ? name : name + '.' + std::string{field.name}, shown});
    }
    return lines;
}

std::string textView(const View &view, const Answer &answer, Secrets secrets)
{
    if (view.text != nullptr) return view.text(answer, secrets);
    if (!view.parts.empty()) return textReadings(view, answer, secrets);
    const Charset charset = charsetOfEnvironment();
    std::vector<Line> facts;
    for (size_t i = 0; i < view.facts.size(); ++i)
        facts.push_back(
            {headerOf(view.facts[i]), cellOf(view.facts[i], answer.facts[i], charset, secrets)});
    for (const Reading &reading : answer.items)
        for (const Line &line : linesOf(reading, secrets)) facts.push_back(line);
    std::string out = aligned(facts);
    if (view.columns.empty()) return out;
    if (!facts.empty()) out += '\n';
    if (answer.rows.empty()) return out.append(view.empty).append("\n");

    std::vector<Line> table(1);
    for (const Field &column : view.columns) table[0].push_back(headerOf(column));
    for (const Row &row : answer.rows) {
        Line &line = table.emplace_back();
        for (size_t i = 0; i < view.columns.size(); ++i)
            line.push_back(cellOf(view.columns[i], row[i], charset, secrets));
    }
    return out += aligned(table);
}

int runShow(Request &request)
{
    if (request.operands.empty()) return reportUsage(request, "VIEW is missing");
    const View *view = findView(request.operands.front());
    if (view == nullptr) {
        std::vector<std::string_view> names;
        forEachView([&](const View &each) { names.push_back(each.name); });
        return reportUnknown(request, "view", request.operands.front(), names);
    }
    Arguments arguments;
    std::string problem = selectColumns(request, *view).problem;
    if (problem.empty())
        problem = parseArguments(view->operands, kWatch, request.operands.subspan(1), arguments);
    if (problem.empty()) return runView(request, *view, arguments);
    return reportUsage(request, view->name, problem,
                       "show " + std::string{view->name} + ' ' +
                           argumentsSynopsis(view->operands, kWatch));
}

} // namespace oructl

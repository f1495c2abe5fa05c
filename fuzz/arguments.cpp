// A line of any text as a command line: everything up to the verb's work.
#include "batch.hpp"
#include "command.hpp"
#include "complete.hpp"
#include "fuzz.hpp"
#include "memory.hpp"
#include "options.hpp"
#include "request.hpp"

namespace {

using namespace oructl;

/// The operands of get and set, and those of the commands.
void readOperands(const Verb &verb, Words words)
{
    if (words.empty()) return;
    const bool isSet = verb.name == std::string_view{"set"};
    if (const Item *item = findItem(words[0]); item != nullptr) {
        Call call;
        const std::string problem =
            parseOperands(*item, isSet ? Use::Set : Use::Get, words.subspan(1), call);
        MUST(withoutQuotation(problem).empty() == problem.empty());
    }
    if (const Command *command = findCommand(verb.name, words); command != nullptr) {
        Arguments arguments;
        parseArguments(command->operands, command->repeat, words, arguments);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    oru::fuzz::enterMemory(); // anew: the run before may have given another root
    std::vector<std::string> texts;
    const std::string line{reinterpret_cast<const char *>(data), size};
    if (!parseLine(line, texts).empty()) return 0;
    std::vector<const char *> words;
    for (const std::string &text : texts) words.push_back(text.c_str());
    completions(Words{words});

    words.insert(words.begin(), "oructl");
    const int argc = static_cast<int>(words.size());
    words.push_back(nullptr); // as main() gets them
    auto **argv = const_cast<char **>(words.data());
    Request request;
    int operand = argc;
    if (!parseOptions(argc, argv, {}, request, operand).empty() || operand >= argc) return 0;
    const Verb *verb = findVerb(words[static_cast<size_t>(operand)]);
    if (verb == nullptr) return 0;
    int behind = 0;
    if (!parseOptions(argc - operand, argv + operand, verb->options, request, behind).empty())
        return 0;
    MUST(behind >= 1 && behind <= argc - operand);
    const auto begin = static_cast<size_t>(operand + behind);
    readOperands(*verb, Words{words}.subspan(begin, static_cast<size_t>(argc) - begin));
    return 0;
}

// Every operation of the public header, with arguments that make it go a long way.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace oru::test {

struct Operation {
    std::string name; // as it is declared; an operation may have several rows
    std::function<uint32_t()> call;
};

/// All of them. Radio and BSS are the first ones; what a row sets differs from the factory file.
const std::vector<Operation> &operations();

/// Whether an operation runs the shell, which is a program of its own.
inline bool runsShell(const Operation &operation)
{
    return operation.name == "oruSdkResetToDefaults";
}

} // namespace oru::test

#include "export.hpp"

#include "capture.hpp"
#include "input.hpp"
#include "json_output.hpp"

#include <cerrno>
#include <cstring>

namespace oructl {
namespace {

int reportFile(Request &request, const std::string &message)
{
    const int error = errno;
    return report(request, {.kind = "failed",
                            .attempt = typed(request),
                            .message = message + ": " + std::strerror(error),
                            .status = error == EACCES ? kNoPermission : kFileFailed});
}

} // namespace

int runExport(Request &request)
{
    if (request.operands.size() > 1) return reportUsage(request, "too many operands");
    const std::string root = rootFolder();
    for (size_t i = 0; i < kFactoryFiles.size(); ++i) // the third may be missing
        if (!readFile(root + kConfigurationFiles[i]))
            return reportFile(request, std::string{"can't read "} + kConfigurationFiles[i]);
    const auto all = capture(storedTexts(root));
    if (!all) return reportFile(request, "can't copy the configuration");
    std::string text;
    for (const Captured &each : all->items) text += jsonCaptured(each, request.secrets);
    if (request.operands.empty() || std::string_view{request.operands[0]} == "-") {
        request.output = std::move(text);
        return kDone;
    }
    if (!writeOutput(request.operands[0], text, request.secrets == Secrets::Shown))
        return reportFile(request, "can't write it");
    return kDone;
}

} // namespace oructl

// Secrets, which come from anywhere but the command line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace oructl {

/// Reads one secret a line from a file, from standard input or, without echo, from a terminal.
class SecretSource {
public:
    /// Without a file, secrets come from standard input.
    explicit SecretSource(const char *file) : file_(file) {}
    ~SecretSource();
    SecretSource(const SecretSource &) = delete;
    SecretSource &operator=(const SecretSource &) = delete;

    /// Whether secrets that nothing on the command line stands for can be read: from a file, or by
    /// asking at a terminal.
    [[nodiscard]] bool answersUnasked() const;

    /// Reads the secret that a word stands for: "-" the next line, "@FILE" the first line of FILE.
    /// Returns what is wrong, without any of the word, or an empty text.
    std::string read(std::string_view word, const std::string &name, std::string &secret);

private:
    std::string next(const std::string &name, std::string &secret);

    const char *file_;
    int fd_ = -1; ///< of the file, once it is open
};

/// Reads a file's lines, but for empty ones and those that begin with "#". Returns what is wrong,
/// or an empty text.
std::string readLines(const char *path, std::vector<std::string> &lines);

} // namespace oructl

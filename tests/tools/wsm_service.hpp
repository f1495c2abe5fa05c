// A radio management service that answers what the test tells it to.
#pragma once

#include "support/reply.hpp"

#include "oruAsf.h"

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace oru::test {

/// What WSM says of one radio.
Bytes radioEntry(const std::string &country, bool at5GHz, const Bytes &channels);

/// The answer to message 266.
Bytes radioInfo(const std::vector<Bytes> &radios);

/// Listens under a root folder until its end. A request without an answer stays without one.
class WsmService {
public:
    explicit WsmService(const std::string &root);
    ~WsmService();
    WsmService(const WsmService &) = delete;
    WsmService &operator=(const WsmService &) = delete;

    /// The answers to a message type, one after the other; the last one stays.
    void answer(uint16_t type, const std::vector<Bytes> &replies);

    /// The requests until now.
    [[nodiscard]] std::vector<Bytes> requests();

private:
    void serve();
    void handle(OruAsfIpc *caller);

    OruAsfListener *listener_;
    std::atomic<bool> ends_ = false;
    std::mutex lock_;
    std::map<uint16_t, std::vector<Bytes>> answers_;
    std::vector<Bytes> requests_;
    std::vector<OruAsfIpc *> silent_;
    std::thread thread_;
};

} // namespace oru::test

#include "tools/wsm_service.hpp"

#include <algorithm>
#include <cstdlib>

namespace oru::test {

Bytes radioEntry(const std::string &country, bool at5GHz, const Bytes &channels)
{
    Bytes entry(28);
    std::copy(country.begin(), country.end(), entry.begin());
    entry[26] = at5GHz ? 1 : 0;
    entry.push_back(static_cast<uint8_t>(channels.size()));
    entry.insert(entry.end(), channels.begin(), channels.end());
    return entry;
}

Bytes radioInfo(const std::vector<Bytes> &radios)
{
    Bytes answer = {1, 11, 0, 0};
    for (const Bytes &radio : radios) answer.insert(answer.end(), radio.begin(), radio.end());
    return answer;
}

WsmService::WsmService(const std::string &root)
{
    constexpr uint32_t kPort = 5000002;
    constexpr uint32_t kVersion = 1001;
    ::setenv("ORU_ROOT", root.c_str(), 1);
    listener_ = oruAsfIpcListen(kPort, kVersion);
    if (listener_ == nullptr) std::abort();
    thread_ = std::thread([this] { serve(); });
}

WsmService::~WsmService()
{
    ends_ = true;
    thread_.join();
    for (OruAsfIpc *caller : silent_) oruAsfIpcClose(caller);
    oruAsfIpcUnlisten(listener_);
    ::unsetenv("ORU_ROOT");
}

void WsmService::answer(uint16_t type, const std::vector<Bytes> &replies)
{
    const std::lock_guard guard{lock_};
    answers_[type] = replies;
}

std::vector<Bytes> WsmService::requests()
{
    const std::lock_guard guard{lock_};
    return requests_;
}

void WsmService::serve()
{
    while (!ends_)
        if (OruAsfIpc *const caller = oruAsfIpcAccept(listener_, 20); caller != nullptr)
            handle(caller);
}

void WsmService::handle(OruAsfIpc *caller)
{
    Bytes request(2000);
    const int32_t size =
        oruAsfIpcCheck(caller, 10000) == 0
            ? -1
            : oruAsfIpcRecv(caller, request.data(), static_cast<uint32_t>(request.size()));
    if (size < 4) return oruAsfIpcClose(caller);
    request.resize(static_cast<size_t>(size));

    const std::lock_guard guard{lock_};
    requests_.push_back(request);
    auto &replies = answers_[oruAsfGet16(request.data())];
    if (replies.empty()) return silent_.push_back(caller);
    oruAsfIpcSend(caller, replies.front().data(), static_cast<uint32_t>(replies.front().size()));
    if (replies.size() > 1) replies.erase(replies.begin());
    oruAsfIpcClose(caller);
}

} // namespace oru::test

// Any bytes as the reply to an operation; the first one chooses the operation.
#include "fuzz.hpp"
#include "support/accesspoint.hpp"
#include "support/readers.hpp"

using namespace oru::test;

namespace {

/// The files of an access point on which every operation works.
const AccessPoint &accessPoint()
{
    static const AccessPoint box;
    static const bool ready = (box.set(kAa, kReadersKey, "1"), true);
    MUST(ready);
    return box;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 2) return 0;
    accessPoint();
    StandIn &standIn = StandIn::get();
    standIn.reset();
    standIn.replyWith(Bytes(data + 1, data + size));
    const Reader &reader = readers()[data[0] % readers().size()];
    MUST(reader.codes.count(reader.call()) == 1);
    MUST(standIn.openElements() == 0);
    MUST(standIn.openConnections() == 0);
    MUST(standIn.openDicts() == 0);
    return 0;
}

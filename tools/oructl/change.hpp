// Changes of the configuration by a verb: in a transaction, with what the options ask for.
#pragma once

#include "patience.hpp"
#include "request.hpp"
#include "transaction.hpp"

#include <string>

namespace oructl {

/// How long the request waits for another oructl.
int64_t patienceMs(const Request &request);

int reportTrouble(Request &request, const std::string &attempt, const Trouble &trouble);

/// Ends a change: puts it in place, or says what a dry run would have stored.
int finishChange(Request &request, Transaction &change, const std::string &attempt);

/// Stores what an operation changes, all of it or nothing: `operate` returns the code of the
/// library, and `fail` reports one that is not 0.
template <class Operate, class Fail>
int changeAll(Request &request, const std::string &attempt, Operate &&operate, Fail &&fail)
{
    Transaction change{request.dryRun ? Transaction::Kind::DryRun : Transaction::Kind::Real};
    if (const auto trouble = change.begin(patienceMs(request)))
        return reportTrouble(request, attempt, *trouble);
    uint32_t code = 0;
    {
        const Patience patience{request, attempt};
        code = operate();
    }
    return code != 0 ? fail(code) : finishChange(request, change, attempt);
}

} // namespace oructl

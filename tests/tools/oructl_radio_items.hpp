// What the tests of a radio's items share: the factory's file, WSM's answers, and the two shapes of
// tables. Each family has its rows in a file of its own.
#pragma once

#include "tools/oructl_run.hpp"
#include "tools/wsm_service.hpp"

#include <map>
#include <memory>
#include <ostream>
#include <sstream>

namespace oru::test {

using Settings = std::map<std::string, std::string>;

inline Arguments wordsOf(const std::string &text)
{
    Arguments words;
    std::istringstream in{text};
    for (std::string word; in >> word;) words.push_back(word == "''" ? "" : word);
    return words;
}

inline const Bytes kLowChannels = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
inline const Bytes kHighChannels = {36, 40, 44, 48, 52, 56};

class RadioItems : public OructlTest {
protected:
    RadioItems() { useFactoryRadios(); }

    void apply(const Settings &settings) const
    {
        for (const auto &[key, value] : settings) set(kWsm, key, value);
    }

    Settings stored() const
    {
        Settings settings;
        std::istringstream lines{read(kWsm)};
        for (std::string line; std::getline(lines, line);)
            if (const size_t at = line.find('='); at != line.npos && line[0] != '#')
                settings[line.substr(0, at)] = line.substr(at + 1);
        return settings;
    }

    /// What of the file differs from before.
    Settings changedSince(const Settings &before) const
    {
        Settings changed;
        for (const auto &[key, value] : stored())
            if (const auto old = before.find(key); old == before.end() || old->second != value)
                changed[key] = value;
        return changed;
    }

    void startWsm(const std::vector<Bytes> &radios)
    {
        wsm_ = std::make_unique<WsmService>(root());
        wsm_->answer(266, {radioInfo(radios)});
    }

    void startWsmOfBothBands()
    {
        startWsm({radioEntry("USI", true, kLowChannels), radioEntry("USI", true, kHighChannels)});
    }

private:
    std::unique_ptr<WsmService> wsm_;
};
// ---- What a set writes and a get shows

struct Row {
    const char *name;
    Settings given;    ///< on top of the factory's
    const char *set;   ///< "ITEM INDEX VALUES"
    Settings written;  ///< all that changes
    const char *shown; ///< by a get
    const char *value; ///< its JSON
};

inline void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.set;
}
class EachItem : public RadioItems, public ::testing::WithParamInterface<Row> {};

// ---- Why a call is refused

enum class Wsm { None, BothBands, Low, Japan };

struct Refused {
    const char *name;
    Settings given;
    const char *call; ///< "VERB ITEM INDEX VALUES"
    int code;
    const char *kind;
    const char *detail; ///< empty: the message says all
    Wsm wsm = Wsm::None;
};

inline void PrintTo(const Refused &row, std::ostream *out)
{
    *out << row.call;
}
class EachRefusal : public RadioItems, public ::testing::WithParamInterface<Refused> {
protected:
    void start(Wsm wsm)
    {
        const Bytes japan = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 14};
        if (wsm == Wsm::BothBands) startWsmOfBothBands();
        if (wsm == Wsm::Low)
            startWsm({radioEntry("USI", false, kLowChannels), radioEntry("USI", true, {})});
        if (wsm == Wsm::Japan)
            startWsm({radioEntry("JPI", true, japan), radioEntry("JPI", true, kHighChannels)});
    }
};

/// A row's name for its case.
template <class Param>
std::string nameOf(const ::testing::TestParamInfo<Param> &info)
{
    return info.param.name;
}

} // namespace oru::test

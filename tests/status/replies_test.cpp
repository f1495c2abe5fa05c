// Every operation that reads replies, over its good reply with one thing wrong. ORU_TORTURE=1 takes
// every value of a byte, otherwise some.
#include "support/readers.hpp"
#include "support/reply.hpp"
#include "support/sweep.hpp"

#include <cstdio>
#include <cstdlib>

namespace oru::test {
namespace {

class TortureReplies : public AccessPointTest, public ::testing::WithParamInterface<size_t> {
protected:
    TortureReplies() { box.set(kAa, kReadersKey, "1"); }
    ~TortureReplies() override
    {
        std::printf("torture: replies with one thing wrong: %zu replies, %zu taken\n", count_,
                    taken_);
    }

    /// Gives a reply. Its code is one of the operation's, and nothing stays open.
    void give(const Bytes &bytes, const std::string &what)
    {
        standIn.reset();
        standIn.replyWith(bytes);
        const uint32_t code = reader_.call();
        ASSERT_EQ(reader_.codes.count(code), 1u) << what << ": code " << code;
        ASSERT_EQ(standIn.openElements(), 0) << what;
        ASSERT_EQ(standIn.openConnections(), 0) << what;
        ASSERT_EQ(standIn.openDicts(), 0) << what;
        ++count_;
        taken_ += code == 0 ? 1 : 0;
    }

    void give(const std::vector<Bytes> &elements, const std::string &what)
    {
        Bytes bytes = reader_.head;
        const Bytes body = joined(elements);
        bytes.insert(bytes.end(), body.begin(), body.end());
        give(bytes, what);
    }

    /// Where the reply's and its elements' 16-bit lengths stand.
    [[nodiscard]] std::vector<size_t> lengths() const
    {
        std::vector<size_t> places{2};
        size_t at = reader_.head.size();
        for (const Bytes &one : reader_.elements) {
            places.push_back(at + 4);
            at += one.size();
        }
        return places;
    }

    const Reader &reader_ = readers()[GetParam()];
    const Bytes good_ = reader_.good();
    const bool whole_ = std::getenv("ORU_TORTURE") != nullptr;

private:
    size_t count_ = 0;
    size_t taken_ = 0;
};

} // namespace

TEST_P(TortureReplies, GoodOnesAreTaken)
{
    standIn.replyWith(good_);
    EXPECT_EQ(reader_.call(), 0u);
}

TEST_P(TortureReplies, EachByteThroughEveryValue)
{
    for (size_t at = 0; at < good_.size(); ++at)
        for (int value = 0; value < 256; value += whole_ ? 1 : 17) {
            Bytes bytes = good_;
            bytes[at] = static_cast<uint8_t>(value);
            give(bytes, "byte " + std::to_string(at) + " is " + std::to_string(value));
            ASSERT_FALSE(HasFatalFailure());
        }
}

TEST_P(TortureReplies, EachLengthThatLies)
{
    for (const size_t at : lengths()) {
        const int right = good_[at] << 8 | good_[at + 1];
        for (const int lie : {0, 1, 5, 6, 7, right - 1, right + 1, right + 6, 0x7f, 0x80, 0xff,
                              0x100, 0x7fff, 0x8000, 0xfff9, 0xfffa, 0xfffe, 0xffff}) {
            Bytes bytes = good_;
            bytes[at] = static_cast<uint8_t>(lie >> 8);
            bytes[at + 1] = static_cast<uint8_t>(lie);
            give(bytes, "length at " + std::to_string(at) + " is " + std::to_string(lie));
            ASSERT_FALSE(HasFatalFailure());
        }
    }
}

TEST_P(TortureReplies, EachCut)
{
    for (size_t size = 1; size < good_.size(); ++size) {
        give(Bytes(good_.begin(), good_.begin() + static_cast<ptrdiff_t>(size)),
             "cut to " + std::to_string(size));
        ASSERT_FALSE(HasFatalFailure());
    }
}

TEST_P(TortureReplies, EachElementDroppedDoubledSwappedOrRepeatedToTheBrim)
{
    for (size_t i = 0; i < reader_.elements.size(); ++i) {
        const std::string what = "element " + std::to_string(i);
        const auto at = static_cast<ptrdiff_t>(i);
        std::vector<Bytes> elements = reader_.elements;
        elements.erase(elements.begin() + at);
        give(elements, what + " dropped");

        elements = reader_.elements;
        elements.insert(elements.begin() + at, elements[i]);
        give(elements, what + " doubled");

        const size_t room = 1990 - good_.size();
        elements.insert(elements.begin() + at, room / elements[i].size(), reader_.elements[i]);
        give(elements, what + " repeated");
        for (size_t other = 0; other < i; ++other) {
            elements = reader_.elements;
            std::swap(elements[i], elements[other]);
            give(elements, what + " swapped");
        }
        ASSERT_FALSE(HasFatalFailure());
    }
}

INSTANTIATE_TEST_SUITE_P(All, TortureReplies, ::testing::Range<size_t>(0, readers().size()),
                         [](const auto &info) { return readers()[info.param].name; });

} // namespace oru::test

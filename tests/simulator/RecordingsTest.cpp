#include "Files.h"
#include "SimulatorTest.h"

#include "simulator/replay/Recording.h"

using namespace std::chrono_literals;

// The simulator beside recordings of real receivers: where the same exchange was recorded, the order, the lengths and
// the layout are the same.

namespace
{

std::vector<client::Item> recorded(const char* name)
{
    const std::string content = testsupport::slurp(testsupport::capturesDirectory() / name);
    return client::split(client::Bytes(content.begin(), content.end()));
}

const client::Item* find(const std::vector<client::Item>& items, std::uint16_t classId, std::size_t from = 0)
{
    for (std::size_t i = from; i < items.size(); ++i) {
        if (items[i].kind == client::Item::Kind::frame && items[i].classId == classId) {
            return &items[i];
        }
    }
    return nullptr;
}

/// The widths of the values in a CFG-VALGET reply, by the keys in it; empty when they don't fill the payload.
std::string layoutOf(const client::Bytes& reply)
{
    constexpr std::size_t kWidths[] = {0, 1, 1, 2, 4, 8, 0, 0};
    std::string widths;
    std::size_t at = 4;
    while (at + 4 < reply.size()) {
        const std::size_t width = kWidths[client::number(reply, at, 4) >> 28 & 7];
        widths += std::to_string(width);
        at += 4 + width;
    }
    return at == reply.size() ? widths : "";
}

class Recordings : public testing::Test
{
protected:
    Recordings()
    {
        if (!testsupport::haveCaptures()) {
            skip_ = true;
        }
    }
    void SetUp() override
    {
        if (skip_) {
            GTEST_SKIP() << "no recordings in " << testsupport::capturesDirectory();
        }
    }

private:
    bool skip_ = false;
};

} // namespace

TEST_F(Recordings, OfAVersionPollHaveTheLayoutOfTheSimulators)
{
    const auto items = recorded("lea-m8f-mon-ver.log");
    const client::Item* real = find(items, 0x0A04);
    ASSERT_NE(real, nullptr);
    ubxsim::ReceiverSimulator receiver;
    client::Client host(receiver.devicePath());

    const auto simulated = host.poll("0A 04");

    ASSERT_TRUE(simulated.has_value());
    // 30 and 10 bytes, then extensions of 30; each text ends with a zero byte within its field.
    for (const client::Bytes* payload : {&real->payload, &*simulated}) {
        ASSERT_EQ((payload->size() - 40) % 30, 0U);
        EXPECT_EQ((*payload)[29], 0);
        EXPECT_EQ(std::string(payload->begin() + 30, payload->begin() + 38), "00080000");
        for (std::size_t end = 69; end < payload->size(); end += 30) {
            EXPECT_EQ((*payload)[end], 0) << end;
        }
    }
}

TEST_F(Recordings, OfAPortPollHaveTheOrderAndLengthOfTheSimulators)
{
    const auto items = recorded("lea-m8f-mon-ver.log");
    std::string exchange;
    for (std::size_t i = 0; i + 1 < items.size() && exchange.empty(); ++i) {
        if (items[i].classId == 0x0600) {
            exchange = client::outline({items[i], items[i + 1]});
        }
    }
    ubxsim::SimulatorOptions options;
    options.nmea = false;
    options.port = ubxsim::Port::usb;
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());

    host.send("06 00");
    const auto answer = host.collect();

    EXPECT_EQ(client::outline(answer), exchange);
    EXPECT_EQ(answer.at(0).payload, find(items, 0x0600)->payload) << "the USB port as delivered";
    EXPECT_EQ(answer.at(1).payload, find(items, 0x0501)->payload);
}

TEST_F(Recordings, OfATimeModePollHaveTheOrderLengthAndLayoutOfTheSimulators)
{
    const auto items = recorded("neo-m8t-tmode2.log");
    const client::Item* real = find(items, 0x063D);
    ASSERT_NE(real, nullptr);
    ubxsim::SimulatorOptions options;
    options.nmea = false;
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());

    // Set to what the real one was set to, it answers the same bytes, and then acknowledges.
    ASSERT_EQ(host.set("06 3D", testsupport::hex(real->payload)), true);
    host.send("06 3D");
    const auto answer = host.collect();

    EXPECT_EQ(client::outline(answer), "063D:28 0501:2");
    EXPECT_EQ(testsupport::hex(answer.at(0).payload), testsupport::hex(real->payload));
    EXPECT_EQ(answer.at(1).payload, find(items, 0x0501)->payload);
}

TEST_F(Recordings, OfKeyReadsHaveTheOrderAndLayoutOfTheSimulators)
{
    const auto items = recorded("zed-f9p-config-session.log");
    ubxsim::SimulatorOptions options;
    options.model = ubxsim::Model::zedF9t;
    options.nmea = false;
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());
    int pages = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const bool request = items[i].classId == 0x068B && !items[i].payload.empty() && items[i].payload[0] == 0;
        if (!request) {
            continue;
        }
        // In the recording stand: the acknowledgement of the page before, this request, its reply.
        const client::Item* real = find(items, 0x068B, i + 1);
        ASSERT_NE(real, nullptr);
        EXPECT_NE(layoutOf(real->payload), "") << "page " << pages;
        host.send("06 8B", testsupport::hex(items[i].payload));
        const auto answer = host.collect();
        const std::string position = testsupport::hex(client::Bytes{items[i].payload[2], items[i].payload[3]});
        if (answer.size() == 1) { // this receiver has fewer keys than that one: past its end
            EXPECT_EQ(client::outline(answer), "0500:2") << position;
        } else {
            ASSERT_EQ(answer.size(), 2U) << position;
            EXPECT_EQ(answer[0].classId, 0x068B);
            EXPECT_EQ(answer[1].classId, 0x0501);
            EXPECT_EQ(testsupport::hex(client::Bytes{answer[0].payload[2], answer[0].payload[3]}),
                      testsupport::hex(client::Bytes{real->payload[2], real->payload[3]}));
            EXPECT_NE(layoutOf(answer[0].payload), "") << position;
        }
        ++pages;
    }
    EXPECT_GE(pages, 20);
}

TEST_F(Recordings, OfTheFirstPageOfAllKeysHaveTheLengthOfTheSimulators)
{
    const auto items = recorded("zed-f9p-config-session.log");
    const client::Item* real = find(items, 0x068B, 3);
    ASSERT_NE(real, nullptr);
    ubxsim::SimulatorOptions options;
    options.model = ubxsim::Model::zedF9t;
    options.nmea = false;
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());

    const auto simulated = host.poll("06 8B", "00 00 00 00 00 00 FF 0F");

    EXPECT_EQ(simulated->size(), real->payload.size());
    EXPECT_EQ(layoutOf(*simulated), layoutOf(real->payload));
}

TEST_F(Recordings, OfRefusedMessageRatesAreAnsweredLikeTheSimulators)
{
    const auto items = recorded("zed-f9p-config-session.log");
    ubxsim::SimulatorOptions options;
    options.model = ubxsim::Model::zedF9t;
    options.nmea = false;
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());

    // Message rates for messages that the firmware lacks are refused with the class and id of CFG-MSG itself.
    const client::Item* refusal = find(items, 0x0500);
    ASSERT_NE(refusal, nullptr);
    host.send("06 01", "0C 49 01");
    const auto answer = host.collect();

    ASSERT_EQ(client::outline(answer), "0500:2");
    EXPECT_EQ(answer[0].raw, refusal->raw);
}

TEST_F(Recordings, OfNavigationMessagesHaveTheLengthsOfTheSimulators)
{
    const auto f9t = recorded("zed-f9t-tim-2.25.log");
    const auto m8t = recorded("neo-m8t-timing.log");
    ubxsim::SimulatorOptions options;
    options.model = ubxsim::Model::zedF9t;
    options.nmea = false;
    ubxsim::ReceiverSimulator newer(options);
    client::Client newerHost(newer.devicePath());
    ubxsim::SimulatorOptions olderOptions;
    olderOptions.nmea = false;
    ubxsim::ReceiverSimulator older(olderOptions);
    client::Client olderHost(older.devicePath());

    const std::pair<std::uint16_t, const char*> onF9t[] = {{0x0107, "01 07"}, {0x0101, "01 01"}, {0x0111, "01 11"},
                                                           {0x0104, "01 04"}, {0x0120, "01 20"}, {0x0122, "01 22"},
                                                           {0x0161, "01 61"}, {0x0A38, "0A 38"}};
    for (const auto& [classId, poll] : onF9t) {
        ASSERT_NE(find(f9t, classId), nullptr) << poll;
        EXPECT_EQ(newerHost.poll(poll)->size(), find(f9t, classId)->payload.size()) << poll;
    }
    const std::pair<std::uint16_t, const char*> onM8t[] = {{0x0D01, "0D 01"}, {0x0103, "01 03"}, {0x0101, "01 01"},
                                                           {0x0102, "01 02"}, {0x0104, "01 04"}, {0x0120, "01 20"},
                                                           {0x0121, "01 21"}, {0x0126, "01 26"}, {0x0D04, "0D 04"}};
    for (const auto& [classId, poll] : onM8t) {
        ASSERT_NE(find(m8t, classId), nullptr) << poll;
        EXPECT_EQ(olderHost.poll(poll)->size(), find(m8t, classId)->payload.size()) << poll;
    }
    // Satellites: a head of 8 bytes, 12 bytes for each one.
    for (const client::Bytes& payload : {find(f9t, 0x0135)->payload, *newerHost.poll("01 35")}) {
        EXPECT_EQ(payload[4], 1);
        EXPECT_EQ(payload.size(), 8 + 12 * client::number(payload, 5, 1));
    }
    for (const client::Bytes& payload : {find(f9t, 0x0143)->payload, *newerHost.poll("01 43")}) {
        EXPECT_EQ(payload.size(), 8 + 16 * client::number(payload, 5, 1));
    }
}

TEST_F(Recordings, AreCutIntoTheirEpochs)
{
    using ubxsim::Recording;
    const auto directory = testsupport::capturesDirectory();

    EXPECT_EQ(Recording::fromFile(directory / "neo-m8t-timing.log").chunks().size(), 151U);
    EXPECT_EQ(Recording::fromFile(directory / "neo-m8t-timing.log").frameCount(), 1511U);
    EXPECT_EQ(Recording::fromFile(directory / "zed-f9t-tim-2.25.log").chunks().size(), 9U);
    EXPECT_EQ(Recording::fromFile(directory / "zed-f9t-tim-2.25.log").frameCount(), 83U);
    EXPECT_EQ(Recording::fromFile(directory / "lea-m8f-mon-ver.log").frameCount(), 193U);
}

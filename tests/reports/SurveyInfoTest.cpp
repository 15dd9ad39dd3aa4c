#include "NeoM8tTest.h"

namespace
{

using testsupport::Bytes;
using testsupport::bytes;
using testsupport::kPollPosition;
using testsupport::kPollTimeMode;
using testsupport::Lines;
using testsupport::payload;

constexpr std::uint16_t kNavPosllh = 0x0102;
constexpr std::uint16_t kCfgTmode2 = 0x063D;

struct Survey
{
    unsigned char mode = 99;
    double latitude = 98;
    double longitude = 97;
    double height = 96;
    double accuracy = 95;
    unsigned duration = 94;
    float limit = 93;
};

class SurveyInfo : public testsupport::NeoM8tTest
{
protected:
    int ask()
    {
        return controller.getSurveyInfo(survey.mode, survey.latitude, survey.longitude, survey.height, survey.accuracy,
                                        survey.duration, survey.limit);
    }

    void answer(const std::string& timeMode, const std::string& position)
    {
        receiver().clearFaults();
        receiver().answerWith(kCfgTmode2, bytes(timeMode));
        receiver().answerWith(kNavPosllh, bytes(position));
    }

    void expectSettingsLeftAlone() const
    {
        EXPECT_EQ(survey.mode, 99);
        EXPECT_EQ(survey.accuracy, 95);
        EXPECT_EQ(survey.duration, 94U);
        EXPECT_EQ(survey.limit, 93.0F);
    }

    void expectPositionLeftAlone() const
    {
        EXPECT_EQ(survey.latitude, 98);
        EXPECT_EQ(survey.longitude, 97);
        EXPECT_EQ(survey.height, 96);
    }

    Survey survey;
};

TEST_F(SurveyInfo, OfASurveyInWithADurationOf10800AndALimitOf1000Millimetres)
{
    answer("01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 DC 05 00 00 30 2A 00 00 E8 03 00 00",
           "10 20 30 40 C4 5B 17 05 28 24 3D 1C D3 F1 06 00 FF FF FF FF FF FF FF FF FF FF FF FF");

    EXPECT_EQ(ask(), 0);

    EXPECT_EQ(survey.mode, 1);
    EXPECT_EQ(survey.duration, 10800U);
    EXPECT_EQ(survey.limit, 1.0F);
    EXPECT_EQ(survey.accuracy, 1.5);
    EXPECT_DOUBLE_EQ(survey.latitude, 47.3769);
    EXPECT_DOUBLE_EQ(survey.longitude, 8.54169);
    EXPECT_DOUBLE_EQ(survey.height, 455.123);
    expectFrames({kPollTimeMode, kPollPosition});
    EXPECT_EQ(errors(), Lines{});
}

TEST_F(SurveyInfo, SouthWestAndBelowTheEllipsoidIsNegative)
{
    answer(payload(28, {{0, "02"}}), payload(28, {{4, "07 43 F4 D5"}, {8, "1C 2D D0 EB"}, {12, "6E C4 FF FF"}}));

    EXPECT_EQ(ask(), 0);

    EXPECT_EQ(survey.mode, 2);
    EXPECT_DOUBLE_EQ(survey.latitude, -33.86785);
    EXPECT_DOUBLE_EQ(survey.longitude, -70.5412345);
    EXPECT_DOUBLE_EQ(survey.height, -15.25);
}

TEST_F(SurveyInfo, LengthsAndTheDurationAreUnsigned)
{
    answer(payload(28, {{0, "FF"}, {16, "FF FF FF FF FF FF FF FF FF FF FF FF"}}), payload(28, {}));

    EXPECT_EQ(ask(), 0);

    EXPECT_EQ(survey.mode, 255);
    EXPECT_DOUBLE_EQ(survey.accuracy, 4294967.295);
    EXPECT_EQ(survey.duration, 4294967295U);
    EXPECT_EQ(survey.limit, 4294967.5F);
}

TEST_F(SurveyInfo, LimitIsComputedInSinglePrecision)
{
    answer(payload(28, {{24, "30 3E 61 CE"}}), payload(28, {})); // 3462479408; in double precision it would be ...79.5

    EXPECT_EQ(ask(), 0);

    EXPECT_EQ(survey.limit, 3462479.25F);
}

TEST_F(SurveyInfo, OfASilentReceiverMakesNoSecondPollAndLeavesAllAsItWas)
{
    EXPECT_EQ(whenSilent([&] { return ask(); }), 4);

    expectFrames({kPollTimeMode});
    expectSettingsLeftAlone();
    expectPositionLeftAlone();
    EXPECT_EQ(errors(), Lines{"Did not receive : 06 3D: Time Mode Settings 2"});
}

TEST_F(SurveyInfo, IsWaitedForFiveSecondsInEachPoll)
{
    int status = 0;

    expectWait(std::chrono::seconds(5), kCfgTmode2, [&] { status = ask(); });
    EXPECT_EQ(status, 4);

    expectWait(std::chrono::seconds(5), kNavPosllh, [&] { status = ask(); });
    EXPECT_EQ(status, 4);
}

TEST_F(SurveyInfo, WithoutADeviceLeavesAllAsItWas)
{
    takeDeviceAway();

    EXPECT_EQ(ask(), 8);

    expectSettingsLeftAlone();
    expectPositionLeftAlone();
    EXPECT_EQ(errors(), Lines{"Could not send : 06 3D: Time Mode Settings 2"});
}

TEST_F(SurveyInfo, WithoutAPositionKeepsTheSettingsThatItHas)
{
    receiver().answerWith(kCfgTmode2, bytes(payload(28, {{0, "01"}, {16, "D0 07"}, {20, "3C"}, {24, "F4 01"}})));
    receiver().ignore(kNavPosllh);

    EXPECT_EQ(withFastClock([&] { return ask(); }), 4);

    EXPECT_EQ(survey.mode, 1);
    EXPECT_EQ(survey.accuracy, 2.0);
    EXPECT_EQ(survey.duration, 60U);
    EXPECT_EQ(survey.limit, 0.5F);
    expectPositionLeftAlone();
    expectFrames({kPollTimeMode, kPollPosition});
    EXPECT_EQ(errors(), Lines{"Did not receive : 01 02: Geodetic Position Solution"});
}

TEST_F(SurveyInfo, OfAShortTimeModeHas0ForWhatIsNotThere)
{
    const struct
    {
        std::size_t length;
        unsigned mode;
        double accuracy;
        unsigned duration;
        float limit;
    } cases[] = {{0, 0, 0, 0, 0},          {1, 1, 0, 0, 0},        {16, 1, 0, 0, 0},
                 {17, 1, 0.22, 0, 0},      {18, 1, 1.5, 0, 0},     {20, 1, 1.5, 0, 0},
                 {21, 1, 1.5, 0x30, 0},    {24, 1, 1.5, 10800, 0}, {25, 1, 1.5, 10800, 0.232F},
                 {28, 1, 1.5, 10800, 1.0F}};
    const Bytes whole = bytes("01 FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF DC 05 00 00 30 2A 00 00 E8 03 00 00");
    for (const auto& each : cases) {
        SCOPED_TRACE(each.length);
        answer(testsupport::hex({whole.begin(), whole.begin() + static_cast<long>(each.length)}), payload(28, {}));

        EXPECT_EQ(ask(), 0);

        EXPECT_EQ(survey.mode, each.mode);
        EXPECT_DOUBLE_EQ(survey.accuracy, each.accuracy);
        EXPECT_EQ(survey.duration, each.duration);
        EXPECT_FLOAT_EQ(survey.limit, each.limit);
    }
}

TEST_F(SurveyInfo, IsMadeOfRepliesOfEveryLength)
{
    const Bytes whole(30, 0xFF);
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::string reply = testsupport::hex({whole.begin(), whole.begin() + static_cast<long>(length)});
        answer(reply, reply);

        EXPECT_EQ(ask(), 0);

        EXPECT_EQ(survey.mode, length == 0 ? 0 : 255) << length;
        EXPECT_EQ(survey.longitude == 0, length <= 4) << length;
        EXPECT_EQ(survey.latitude == 0, length <= 8) << length;
        EXPECT_EQ(survey.height == 0, length <= 12) << length;
        EXPECT_EQ(survey.accuracy == 0, length <= 16) << length;
        EXPECT_EQ(survey.duration == 0, length <= 20) << length;
        EXPECT_EQ(survey.limit == 0, length <= 24) << length;
    }
}

TEST_F(SurveyInfo, OfAShortPositionHas0ForWhatIsNotThere)
{
    const struct
    {
        std::size_t length;
        double longitude;
        double latitude;
        double height;
    } cases[] = {{0, 0, 0, 0},
                 {4, 0, 0, 0},
                 {5, 0.0000196, 0, 0},
                 {8, 8.54169, 0, 0},
                 {9, 8.54169, 0.000004, 0},
                 {12, 8.54169, 47.3769, 0},
                 {13, 8.54169, 47.3769, 0.211},
                 {16, 8.54169, 47.3769, 455.123}};
    const Bytes whole = bytes("FF FF FF FF C4 5B 17 05 28 24 3D 1C D3 F1 06 00");
    for (const auto& each : cases) {
        SCOPED_TRACE(each.length);
        answer(payload(28, {}), testsupport::hex({whole.begin(), whole.begin() + static_cast<long>(each.length)}));

        EXPECT_EQ(ask(), 0);

        EXPECT_DOUBLE_EQ(survey.longitude, each.longitude);
        EXPECT_DOUBLE_EQ(survey.latitude, each.latitude);
        EXPECT_DOUBLE_EQ(survey.height, each.height);
    }
}

} // namespace

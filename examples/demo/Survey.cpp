#include "Survey.h"

#include <chrono>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>

#include <UBXMessage.h>
#include <ubxIO.h>

namespace demo
{

namespace
{

constexpr unsigned short kTimSvin = 0x0D04;
constexpr unsigned long kTimSvinLength = 28;
constexpr int kTimeLimit = 5; // seconds
constexpr int kSent = 0;
constexpr int kNoReply = 4;
constexpr int kNotSent = 8;

constexpr unsigned kDuration = 10800; // seconds
constexpr float kAccuracy = 1.0F;     // metres

/// TIM-SVIN, for which the library has no operation of its own.
struct Progress
{
    std::uint32_t duration = 0; // seconds
    std::uint32_t observations = 0;
    double accuracy = 0; // metres
    bool valid = false;
    bool active = false;
};

std::uint32_t fourBytes(const UBXMessage& message, unsigned long offset)
{
    std::uint32_t value = 0;
    for (unsigned long i = 4; i > 0; --i)
        value = value << 8 | message.getByte(offset + i - 1);
    return value;
}

int readProgress(Progress& progress)
{
    ubxIO port;
    UBXMessage poll(kTimSvin, 0, nullptr);
    if (port.SendMessage(&poll) != kSent) return kNotSent;
    const std::unique_ptr<UBXMessage> report(port.ReceiveMessage(kTimSvin, kTimeLimit));
    if (report == nullptr || report->getPayloadLength() < kTimSvinLength) return kNoReply;
    // The accuracy is a variance, in square millimetres.
    progress = {fourBytes(*report, 0), fourBytes(*report, 20), std::sqrt(fourBytes(*report, 16)) / 1000,
                report->getByte(24) != 0, report->getByte(25) != 0};
    return 0;
}

std::string described(const Progress& progress)
{
    return std::to_string(progress.duration) + " s, " + std::to_string(progress.observations) + " observations, " +
           measured(progress.accuracy, 3, "m") + (progress.valid ? ", valid" : ", not valid") +
           (progress.active ? ", active" : ", ended");
}

} // namespace

bool watchSurvey(UBXControlInterface& receiver, Transcript& transcript)
{
    using std::chrono::steady_clock;
    constexpr std::chrono::seconds kPatience{30};

    transcript.heading("Survey-in of " + std::to_string(kDuration) + " s, " + measured(kAccuracy, 1, "m"));
    const int started = receiver.setSurveyAuto(kDuration, kAccuracy);
    transcript.operation("setSurveyAuto", "", started);
    if (started != 0) return false;

    Progress progress;
    int status = 0;
    for (steady_clock::time_point last = steady_clock::now(); steady_clock::now() - last < kPatience;) {
        const std::uint32_t before = progress.duration;
        status = readProgress(progress);
        if (status != 0) break;
        transcript.fact("survey", described(progress));
        if (progress.valid && !progress.active) break;
        if (progress.duration != before) last = steady_clock::now();
        std::this_thread::sleep_for(std::chrono::seconds(1));
    }
    transcript.operation("TIM-SVIN", status == 0 ? described(progress) : "", status);

    std::string fix;
    status = receiver.getNavsolution("FIX", fix);
    transcript.operation("getNavsolution", fix, status);
    const bool ended = progress.valid && !progress.active && fix == "TIME-ONLY";
    transcript.note(ended ? "The survey has ended with a time-only fix."
                          : "The survey has not ended with a time-only fix.");
    return ended;
}

} // namespace demo

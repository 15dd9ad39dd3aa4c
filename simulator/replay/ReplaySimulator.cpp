#include "simulator/replay/ReplaySimulator.h"

#include "simulator/settings/Configuration.h"
#include "simulator/wire/LineRunner.h"

#include <stdexcept>

namespace ubxsim
{

namespace
{

constexpr std::uint8_t kConfigurationClass = 0x06;

bool isPoll(const Frame& request)
{
    return request.classId >> 8 == kConfigurationClass ? Configuration::isPoll(request) : request.payload.empty();
}

} // namespace

class ReplaySimulator::Player final : public LineClient
{
public:
    Player(Recording recording, ReplayOptions options)
        : recording_(std::move(recording)), options_(std::move(options)), runner_(*this)
    {
        if (recording_.chunks().empty() || options_.epoch <= std::chrono::microseconds::zero()) {
            throw std::invalid_argument("a replay needs a recording with content and an epoch above 0");
        }
        runner_.start();
    }
    ~Player() { runner_.stop(); }

    void onBytes(const std::uint8_t* data, std::size_t size, WallTime now) override
    {
        scanner_.feed(data, size);
        while (const auto request = scanner_.next()) {
            frames_.push_back(frame(request->classId, request->payload));
            arrived_.notify_all();
            const auto answer = isPoll(*request) ? recording_.nextFrame(request->classId) : std::nullopt;
            if (answer) {
                send(frame(answer->classId, answer->payload), now);
                send(options_.trailer, now);
            }
        }
    }

    WallTime onTime(WallTime now) override
    {
        while (timeOfNext() <= now) {
            send(recording_.chunks()[next_].bytes, now);
            if (++next_ == recording_.chunks().size()) {
                next_ = 0;
                roundStart_ += wall(recording_.duration());
            }
        }
        return timeOfNext();
    }

    LineRunner& runner() { return runner_; }
    const std::vector<Bytes>& frames() const { return frames_; }
    std::condition_variable& arrived() { return arrived_; }

private:
    WallClock::duration wall(std::chrono::microseconds recorded) const
    {
        const double scale = static_cast<double>(options_.epoch.count()) / 1e6;
        const std::chrono::duration<double, std::micro> time(static_cast<double>(recorded.count()) * scale);
        return std::chrono::duration_cast<WallClock::duration>(time);
    }

    WallTime timeOfNext() const { return roundStart_ + wall(recording_.chunks()[next_].time); }

    void send(const Bytes& bytes, WallTime now)
    {
        Transmission transmission;
        transmission.bytes = bytes;
        runner_.output().enqueue(std::move(transmission), now);
    }

    Recording recording_;
    const ReplayOptions options_;
    FrameScanner scanner_;
    std::vector<Bytes> frames_;
    std::condition_variable arrived_;
    std::size_t next_ = 0;
    WallTime roundStart_ = WallClock::now();
    LineRunner runner_;
};

ReplaySimulator::ReplaySimulator(Recording recording, ReplayOptions options)
    : player_(std::make_unique<Player>(std::move(recording), std::move(options)))
{}

ReplaySimulator::~ReplaySimulator() = default;

std::string ReplaySimulator::devicePath() const
{
    const std::lock_guard<std::mutex> lock(player_->runner().mutex());
    return player_->runner().devicePath();
}

void ReplaySimulator::linkAt(const std::string& path)
{
    const std::lock_guard<std::mutex> lock(player_->runner().mutex());
    player_->runner().linkAt(path);
}

std::vector<Bytes> ReplaySimulator::receivedFrames() const
{
    const std::lock_guard<std::mutex> lock(player_->runner().mutex());
    return player_->frames();
}

bool ReplaySimulator::waitForFrames(std::size_t atLeast, std::chrono::milliseconds limit) const
{
    std::unique_lock<std::mutex> lock(player_->runner().mutex());
    return player_->arrived().wait_for(lock, limit, [&] { return player_->frames().size() >= atLeast; });
}

} // namespace ubxsim

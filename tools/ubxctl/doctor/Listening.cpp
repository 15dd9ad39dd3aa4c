#include "doctor/Listening.h"

#include <array>
#include <thread>

#include <ubxIO.h>

#include "trace/Trace.h"
#include "wire/Stream.h"

namespace ubxctl
{

Heard listen(std::chrono::milliseconds limit)
{
    constexpr auto kPause = std::chrono::milliseconds(10);
    constexpr std::size_t kEnough = 5;
    Heard heard;
    ubxIO port;
    Stream stream;
    std::array<unsigned char, 4096> buffer;
    const auto start = std::chrono::steady_clock::now();
    while (heard.duration < limit && heard.sentences < kEnough && heard.frames < kEnough) {
        const long count = port.ReadFromUART(buffer.data(), static_cast<long>(buffer.size()));
        if (count == 0) std::this_thread::sleep_for(kPause);
        stream.add(buffer.data(), static_cast<std::size_t>(count));
        heard.bytes += static_cast<std::size_t>(count);
        while (const auto piece = stream.next()) {
            if (piece->kind == Piece::Kind::ubx) {
                ++heard.frames;
            } else if (piece->kind == Piece::Kind::nmea && hasGoodChecksum(piece->bytes)) {
                ++heard.sentences;
            } else {
                heard.noise += piece->bytes.size();
            }
        }
        heard.duration =
            std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
    }
    return heard;
}

} // namespace ubxctl

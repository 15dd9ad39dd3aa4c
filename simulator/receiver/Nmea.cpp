#include "simulator/receiver/Nmea.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdio>

namespace ubxsim
{

namespace
{

constexpr double kGeoidSeparation = -31.0;
constexpr std::size_t kSatellitesPerGsv = 4;
constexpr std::size_t kSatellitesPerGsa = 12;

/// How a constellation appears in NMEA.
struct System
{
    std::uint8_t gnssId;
    const char* talker;
    std::uint8_t systemId;
    int oldOffset; // added to the UBX number, NMEA 4.0 with extended numbers
    int newOffset; // NMEA 4.10 and later
};

// SBAS and QZSS go with GPS.
constexpr System kSystems[] = {{0, "GP", 1, 0, 0},   {6, "GL", 2, 64, 64},   {2, "GA", 3, 300, 0},
                               {3, "GB", 4, 400, 0}, {1, "GP", 1, -87, -87}, {5, "GP", 1, 192, 192}};

const System* systemOf(std::uint8_t gnssId)
{
    const auto* found = std::find_if(std::begin(kSystems), std::end(kSystems),
                                     [gnssId](const System& system) { return system.gnssId == gnssId; });
    return found != std::end(kSystems) ? found : nullptr;
}

__attribute__((format(printf, 1, 2))) std::string format(const char* pattern, ...)
{
    char text[160];
    va_list arguments;
    va_start(arguments, pattern);
    std::vsnprintf(text, sizeof text, pattern, arguments);
    va_end(arguments);
    return text;
}

Bytes sentence(const std::string& body)
{
    unsigned checksum = 0;
    for (const char character : body) {
        checksum ^= static_cast<unsigned char>(character);
    }
    const std::string whole = "$" + body + format("*%02X\r\n", checksum & 0xFF);
    return {whole.begin(), whole.end()};
}

std::string timeText(const Epoch& epoch)
{
    if (!epoch.timeKnown) {
        return "";
    }
    return format("%02d%02d%02d.%02d", epoch.utc.hour, epoch.utc.minute, epoch.utc.second, epoch.utc.millisecond / 10);
}

// Degrees and minutes, as "4404.13124,N".
std::string angleText(double angle, int degreeDigits, char positive, char negative)
{
    const auto units = static_cast<long long>(std::llround(std::fabs(angle) * 60.0 * 1e5)); // 1e-5 minute
    const long long degrees = units / 6000000;
    const long long minutes = units % 6000000;
    return format("%0*lld%02lld.%05lld,%c", degreeDigits, degrees, minutes / 100000, minutes % 100000,
                  angle < 0 ? negative : positive);
}

std::string positionText(const Epoch& epoch)
{
    if (!epoch.hasPosition()) {
        return ",,,";
    }
    return angleText(epoch.position.latitude, 2, 'N', 'S') + "," + angleText(epoch.position.longitude, 3, 'E', 'W');
}

char modeIndicator(const Epoch& epoch)
{
    return epoch.hasPosition() ? 'A' : 'N';
}

char statusOf(const Epoch& epoch)
{
    return epoch.hasPosition() ? 'A' : 'V';
}

double dopOf(const Epoch& epoch, double factor)
{
    if (epoch.fix != FixType::threeD && epoch.fix != FixType::twoD) {
        return 99.99;
    }
    return factor * (0.6 + 8.0 / std::max<double>(1.0, epoch.used));
}

int numberOf(const Report& report, const Satellite& satellite)
{
    const System* system = systemOf(satellite.gnssId);
    const bool recent = report.profile.nmeaSignalIds;
    return satellite.svId + (system == nullptr ? 0 : recent ? system->newOffset : system->oldOffset);
}

std::vector<Bytes> rmc(const Report& report)
{
    const Epoch& epoch = report.epoch;
    const std::string date =
        epoch.timeKnown ? format("%02d%02d%02d", epoch.utc.day, epoch.utc.month, epoch.utc.year % 100) : "";
    return {sentence("GNRMC," + timeText(epoch) + "," + statusOf(epoch) + "," + positionText(epoch) + "," +
                     (epoch.hasPosition() ? "0.004" : "") + ",," + date + ",,," + modeIndicator(epoch) +
                     (report.profile.nmeaSignalIds ? ",V" : ""))};
}

std::vector<Bytes> vtg(const Report& report)
{
    const Epoch& epoch = report.epoch;
    const std::string speed = epoch.hasPosition() ? ",T,,M,0.004,N,0.007,K," : ",,,,,,,";
    return {sentence("GNVTG," + speed + modeIndicator(epoch))};
}

std::vector<Bytes> gga(const Report& report)
{
    const Epoch& epoch = report.epoch;
    std::string body = "GNGGA," + timeText(epoch) + "," + positionText(epoch) + ",";
    if (epoch.hasPosition()) {
        body += format("1,%02d,%.2f,%.1f,M,%.1f,M,,", std::min<int>(epoch.used, kSatellitesPerGsa), dopOf(epoch, 0.55),
                       epoch.position.height - kGeoidSeparation, kGeoidSeparation);
    } else {
        body += "0,00,99.99,,,,,,";
    }
    return {sentence(body)};
}

std::vector<Bytes> gll(const Report& report)
{
    const Epoch& epoch = report.epoch;
    return {sentence("GNGLL," + positionText(epoch) + "," + timeText(epoch) + "," + statusOf(epoch) + "," +
                     modeIndicator(epoch))};
}

std::vector<Bytes> gsa(const Report& report)
{
    const Epoch& epoch = report.epoch;
    const char fix = !epoch.hasPosition() ? '1' : epoch.fix == FixType::twoD ? '2' : '3';
    const std::uint8_t systems = report.profile.nmeaSignalIds ? 4 : 2;
    std::vector<Bytes> sentences;
    for (std::uint8_t systemId = 1; systemId <= systems; ++systemId) {
        std::string numbers;
        std::size_t count = 0;
        for (const Satellite& satellite : epoch.satellites) {
            const System* system = systemOf(satellite.gnssId);
            if (satellite.used && system != nullptr && system->systemId == systemId && count < kSatellitesPerGsa) {
                numbers += format(",%02d", numberOf(report, satellite));
                ++count;
            }
        }
        numbers.append(kSatellitesPerGsa - count, ',');
        std::string body = format("GNGSA,A,%c%s,%.2f,%.2f,%.2f", fix, numbers.c_str(), dopOf(epoch, 1.0),
                                  dopOf(epoch, 0.55), dopOf(epoch, 0.85));
        if (report.profile.nmeaSignalIds) {
            body += format(",%d", systemId);
        }
        sentences.push_back(sentence(body));
    }
    return sentences;
}

struct InView
{
    const Satellite* satellite;
    std::uint8_t cno;
};

void appendGsv(std::vector<Bytes>& sentences, const Report& report, const char* talker,
               const std::vector<InView>& inView, int signalId)
{
    const std::size_t total = std::max<std::size_t>(1, (inView.size() + kSatellitesPerGsv - 1) / kSatellitesPerGsv);
    for (std::size_t number = 0; number < total; ++number) {
        std::string body = format("%sGSV,%zu,%zu,%02zu", talker, total, number + 1, inView.size());
        const std::size_t end = std::min(inView.size(), (number + 1) * kSatellitesPerGsv);
        for (std::size_t i = number * kSatellitesPerGsv; i < end; ++i) {
            const Satellite& satellite = *inView[i].satellite;
            body += format(",%02d,%02d,%03d,", numberOf(report, satellite), satellite.elevation, satellite.azimuth);
            body += inView[i].cno != 0 ? format("%02d", inView[i].cno) : "";
        }
        if (report.profile.nmeaSignalIds) {
            body += format(",%X", static_cast<unsigned>(signalId));
        }
        sentences.push_back(sentence(body));
    }
}

std::vector<InView> inViewOf(const Report& report, const std::string& talker, int signalId)
{
    std::vector<InView> inView;
    for (const Satellite& satellite : report.epoch.satellites) {
        const System* system = systemOf(satellite.gnssId);
        if (system == nullptr || talker != system->talker) {
            continue;
        }
        if (!report.profile.nmeaSignalIds) {
            inView.push_back({&satellite, satellite.cno});
            continue;
        }
        for (const Signal& signal : satellite.signals) {
            if (signal.nmeaId == signalId) {
                inView.push_back({&satellite, signal.cno});
            }
        }
    }
    return inView;
}

// One group of sentences per constellation, and per signal where the receiver tells signals apart.
std::vector<Bytes> gsv(const Report& report)
{
    constexpr int kHighestSignal = 11;
    std::vector<Bytes> sentences;
    for (const char* talker : {"GP", "GL", "GA", "GB"}) {
        if (!report.profile.nmeaSignalIds) {
            const auto inView = inViewOf(report, talker, 0);
            const bool always = talker[1] == 'P' || talker[1] == 'L'; // an empty one says that nothing is in view
            if (always || !inView.empty()) {
                appendGsv(sentences, report, talker, inView, 0);
            }
            continue;
        }
        for (int signalId = 1; signalId <= kHighestSignal; ++signalId) {
            const auto inView = inViewOf(report, talker, signalId);
            if (!inView.empty()) {
                appendGsv(sentences, report, talker, inView, signalId);
            }
        }
    }
    return sentences;
}

std::vector<Bytes> zda(const Report& report)
{
    const Epoch& epoch = report.epoch;
    const std::string date =
        epoch.timeKnown ? format("%02d,%02d,%04d", epoch.utc.day, epoch.utc.month, epoch.utc.year) : ",,";
    return {sentence("GNZDA," + timeText(epoch) + "," + date + ",00,00")};
}

std::vector<Bytes> gst(const Report& report)
{
    const Epoch& epoch = report.epoch;
    const std::string accuracy =
        epoch.hasPosition() ? format("%.0f,,,,%.2f,%.2f,%.2f", epoch.horizontalAccuracy * 10, epoch.horizontalAccuracy,
                                     epoch.horizontalAccuracy, epoch.verticalAccuracy)
                            : ",,,,,,";
    return {sentence("GNGST," + timeText(epoch) + "," + accuracy)};
}

struct SentenceRow
{
    std::uint16_t classId;
    std::vector<Bytes> (*build)(const Report&);
};

constexpr SentenceRow kSentences[] = {{0xF000, gga}, {0xF001, gll}, {0xF002, gsa}, {0xF003, gsv},
                                      {0xF004, rmc}, {0xF005, vtg}, {0xF007, gst}, {0xF008, zda}};

} // namespace

std::vector<Bytes> nmeaSentences(std::uint16_t classId, const Report& report)
{
    for (const SentenceRow& row : kSentences) {
        if (row.classId == classId) {
            return row.build(report);
        }
    }
    return {};
}

Bytes nmeaText(TextKind kind, const std::string& text)
{
    return sentence(format("GNTXT,01,01,%02d,", static_cast<int>(kind)) + text);
}

} // namespace ubxsim

#include "report/ReportCsv.h"

#include "core/Cycles.h"
#include "report/DaySeries.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>
#include <vector>

namespace quor {

namespace {

/// The texts of values that come again after a period. Making a text takes much longer than
/// copying it, so each is kept until another value comes to its place.
class PeriodicTexts {
  public:
    explicit PeriodicTexts(std::int32_t period)
        : m_slots(static_cast<std::size_t>(period))
        , m_next(m_slots.begin()) {}

    /// The text of the next day's value. @return its end
    char* write(char* to, double value) {
        Slot& slot = *m_next;
        if (slot.value != value) {
            slot.value = value;
            slot.length =
                static_cast<std::size_t>(writeNumber(slot.text.data(), value) - slot.text.data());
        }
        if (++m_next == m_slots.end()) {
            m_next = m_slots.begin();
        }
        // All of it: a copy of constant length takes three instructions.
        std::memcpy(to, slot.text.data(), slot.text.size());
        return to + slot.length;
    }

  private:
    struct Slot {
        double value = std::numeric_limits<double>::quiet_NaN();
        std::size_t length = 0;
        std::array<char, longestNumber> text{};
    };
    std::vector<Slot> m_slots;
    std::vector<Slot>::iterator m_next;
};

} // namespace

void writeCsv(const ReportSubject& subject, std::int32_t days, ReportStream& stream) {
    constexpr std::size_t longestRow = 160; // a date, a count, four values, what parts them
    stream.write(subject.isSystem ? "data,tra_giorni,fisico,emotivo,intellettivo,media\r\n"
                                  : "data,giorni,fisico,emotivo,intellettivo,media\r\n");
    const std::vector<std::int32_t> dayCounts = subject.dayCounts();
    const std::int32_t firstCount = subject.isSystem ? 0 : dayCounts.front();
    DaySeries series(dayCounts);
    std::array texts{PeriodicTexts(quor::days(Period::physical)),
                     PeriodicTexts(quor::days(Period::emotional)),
                     PeriodicTexts(quor::days(Period::intellectual)), PeriodicTexts(meanPeriod)};
    constexpr auto blockLength = static_cast<std::int32_t>(DaySeries::blockLength);
    for (std::int32_t begin = 0; begin < days && !stream.hasFailed(); begin += blockLength) {
        const std::int32_t length = std::min(blockLength, days - begin);
        const DaySeries::Block& values = series.values(begin, static_cast<std::size_t>(length));
        for (std::int32_t i = 0; i < length; ++i) {
            const std::int32_t day = begin + i;
            char* to = writeIsoDate(stream.room(longestRow), subject.firstDay + day);
            *to++ = ',';
            to = std::to_chars(to, to + 11, firstCount + day).ptr;
            for (std::size_t column = 0; column < texts.size(); ++column) {
                *to++ = ',';
                to = texts[column].write(to, values[column][static_cast<std::size_t>(i)]);
            }
            *to++ = '\r';
            *to++ = '\n';
            stream.wrote(to);
        }
    }
}

} // namespace quor

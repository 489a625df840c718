#include "report/ReportStream.h"

#include "storage/LineNotation.h"

#include <QIODevice>

#include <algorithm>
#include <charconv>
#include <chrono>

namespace quor {

namespace {

using namespace std::chrono;

constexpr sys_days origin = 1899y / December / 30;

char* writeDigits(char* to, unsigned number, int digits) {
    for (char* place = to + digits; place != to; number /= 10) {
        *--place = static_cast<char>('0' + number % 10);
    }
    return to + digits;
}

} // namespace

char* writeNumber(char* to, double value) {
    constexpr int significantDigits = 17;
    return std::to_chars(to, to + longestNumber, value, std::chars_format::general,
                         significantDigits)
        .ptr;
}

char* writeIsoDate(char* to, std::int32_t dayNumber) {
    const year_month_day date(origin + std::chrono::days(dayNumber));
    to = writeDigits(to, static_cast<unsigned>(static_cast<int>(date.year())), 4);
    *to++ = '-';
    to = writeDigits(to, static_cast<unsigned>(date.month()), 2);
    *to++ = '-';
    return writeDigits(to, static_cast<unsigned>(date.day()), 2);
}

std::int32_t lastIsoDay() {
    constexpr sys_days last = 9999y / December / 31;
    return static_cast<std::int32_t>((last - origin).count());
}

ReportStream::ReportStream(QIODevice& device)
    : m_device(&device) {}

void ReportStream::write(QByteArrayView bytes) {
    while (!bytes.isEmpty() && !m_failed) {
        if (m_used == m_bytes.size()) {
            flush();
        }
        const auto part = std::min(bytes.size(), static_cast<qsizetype>(m_bytes.size() - m_used));
        std::copy_n(bytes.begin(), part, m_bytes.data() + m_used);
        m_used += static_cast<std::size_t>(part);
        bytes = bytes.sliced(part);
    }
}

void ReportStream::writeNumber(double value) {
    wrote(quor::writeNumber(room(longestNumber), value));
}

void ReportStream::writeInteger(std::int64_t value) {
    constexpr std::size_t longest = 20;
    char* const to = room(longest);
    wrote(std::to_chars(to, to + longest, value).ptr);
}

void ReportStream::writeIsoDate(std::int32_t dayNumber) {
    constexpr std::size_t length = 10;
    wrote(quor::writeIsoDate(room(length), dayNumber));
}

bool ReportStream::flush() {
    const QByteArrayView bytes(m_bytes.data(), static_cast<qsizetype>(m_used));
    m_used = 0;
    m_failed = m_failed || !writeAll(*m_device, bytes);
    return !m_failed;
}

} // namespace quor

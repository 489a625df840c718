#pragma once

#include "core/Dates.h"

#include <QByteArrayView>

#include <array>
#include <cstddef>
#include <cstdint>

class QIODevice;

namespace quor {

/// Characters that a number needs at most, 17 significant digits with sign, point and exponent.
inline constexpr std::size_t longestNumber = 24;

/// Writes a number with 17 significant digits, from which the same double is read back, with a
/// decimal point under every locale; as many of the digits as it takes, no zeros behind them.
/// @return the end of what was written, `longestNumber` characters on at most
[[nodiscard]] char* writeNumber(char* to, double value);

/// Writes "1981-12-25"; the year is within 0..9999. @return the end of what was written
[[nodiscard]] char* writeIsoDate(char* to, std::int32_t dayNumber);

/// The last day that such a date can name, 9999-12-31, as a day number.
[[nodiscard]] std::int32_t lastIsoDay();

/// Bytes on their way to a device, in large pieces, so that a report of any length takes the same
/// memory. After a failure nothing more is written.
class ReportStream {
  public:
    /// @param device open for writing; it stays the caller's
    explicit ReportStream(QIODevice& device);

    void write(QByteArrayView bytes);
    void write(char byte) { write(QByteArrayView(&byte, 1)); }
    void writeNumber(double value);
    void writeInteger(std::int64_t value);
    void writeIsoDate(std::int32_t dayNumber);

    /// Room for so many characters, at most `longestLine`; `wrote` says where they end.
    [[nodiscard]] char* room(std::size_t length) {
        if (m_bytes.size() - m_used < length) {
            flush();
        }
        return m_bytes.data() + m_used;
    }
    void wrote(const char* end) { m_used = static_cast<std::size_t>(end - m_bytes.data()); }
    static constexpr std::size_t longestLine = 1024;

    /// Hands everything over. @return false when this or an earlier piece could not be written
    bool flush();
    [[nodiscard]] bool hasFailed() const { return m_failed; }

  private:
    QIODevice* m_device;
    std::array<char, 64UL * 1024> m_bytes{};
    std::size_t m_used = 0;
    bool m_failed = false;
};

} // namespace quor

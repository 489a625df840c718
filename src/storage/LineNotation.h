#pragma once

#include "core/Dates.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QIODevice>
#include <QString>

#include <cstdint>
#include <optional>
#include <type_traits>
#include <utility>

/// The notation of the .bio and .brs files: text in code page 1252, one value a line, lines ended
/// by CR LF. A string stands between double quotes, a date between number signs
/// (#year-month-day#), an integer in decimal.
///
/// Files never depend on the locale.
namespace quor {

/// Appends values to a text in memory.
class LineWriter {
  public:
    /// The notation cannot carry a double quote or a line end inside a string: the quote becomes an
    /// apostrophe and a line end a blank, so that what is written can be read back.
    void writeString(const QString& value);
    void writeDate(DateValue value);
    void writeInteger(std::int32_t value);

    [[nodiscard]] const QByteArray& bytes() const { return m_bytes; }

  private:
    QByteArray m_bytes;
};

/// The value of a line, its line end already gone. Blanks around it do not matter. Nothing when the
/// line holds no value of the type, or one out of its range.
[[nodiscard]] std::optional<QString> parseString(QByteArrayView line);
/// Years 100 to 9999; a time of day after the date is accepted and dropped.
[[nodiscard]] std::optional<DateValue> parseDate(QByteArrayView line);
[[nodiscard]] std::optional<std::int64_t> parseInteger(QByteArrayView line);

/// Reads value after value from a device, a line each.
///
/// A value that is missing or not of the type asked for leaves the variable as it is, and reading
/// goes on with the next line. Lines end with CR LF or LF; the last one needs no end. Time and
/// memory are bounded: a line of more than `maximumLine` bytes is no value of any type, after
/// `maximumSkipped` bytes of such lines every later one counts as missing, and so does what comes
/// after `maximumRead` bytes of any lines (4 KiB for each member of the largest system).
class LineReader {
  public:
    static constexpr qint64 maximumLine = 64LL * 1024;
    static constexpr qint64 maximumSkipped = 16LL * 1024 * 1024;
    static constexpr qint64 maximumRead = 128LL * 1024 * 1024;

    /// The device stays the caller's and is read ahead. One that is not open has no lines.
    explicit LineReader(QIODevice& device);

    /// @return whether the line holds such a value
    bool read(QString& value);
    bool read(DateValue& value);

    template<typename Integer>
    requires std::is_integral_v<Integer>
    bool read(Integer& value) {
        const auto number = parseInteger(nextLine());
        if (!number || !std::in_range<Integer>(*number)) {
            return false;
        }
        value = static_cast<Integer>(*number);
        return true;
    }

  private:
    /// The next line without its end; empty when there is none or it is too long. It is part of the
    /// block, until the next call.
    QByteArrayView nextLine();
    /// Drops the rest of a line that is too long.
    void skipLine();
    /// Makes room by dropping what was read, and takes more from the device; false when there is no
    /// more.
    bool fill();

    [[nodiscard]] QByteArrayView unread() const {
        return QByteArrayView(m_block).sliced(m_begin, m_end - m_begin);
    }

    QIODevice* m_device;
    QByteArray m_block; ///< room for the longest line that counts, and for half as much again
    qsizetype m_begin = 0;
    qsizetype m_end = 0;
    qint64 m_read = 0;
    qint64 m_skipped = 0;
};

} // namespace quor

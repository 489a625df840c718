#include "storage/LineNotation.h"

#include "storage/Cp1252.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <string_view>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// A string cannot carry what would end its line or the whole text; a blank stands in its place,
/// when writing and for what another program wrote.
constexpr bool endsText(char16_t character) {
    return character == u'\r' || character == u'\n' || character == u'\0';
}

/// The date, where there is one, as a day of the proleptic Gregorian calendar.
std::optional<DateValue> dateOf(int year, int month, int day) {
    using namespace std::chrono;
    const year_month_day date(std::chrono::year{year},
                              std::chrono::month{static_cast<unsigned>(month)},
                              std::chrono::day{static_cast<unsigned>(day)});
    if (!date.ok() || year < firstYear || year > lastYear) {
        return std::nullopt;
    }
    return static_cast<DateValue>((sys_days(date) - dateOrigin).count());
}

/// A line while it is put together, one without a string.
class ShortLine {
  public:
    void put(char character) { *m_end++ = character; }

    /// With zeros ahead of it up to the width.
    void put(std::int32_t number, std::ptrdiff_t width = 0) {
        std::array<char, 11> digits{}; // the longest: -2147483648
        const char* end = std::to_chars(digits.begin(), digits.end(), number).ptr;
        m_end =
            std::fill_n(m_end, std::max<std::ptrdiff_t>(width - (end - digits.begin()), 0), '0');
        m_end = std::copy(digits.cbegin(), end, m_end);
    }

    [[nodiscard]] QByteArrayView ended() {
        put('\r');
        put('\n');
        return {m_bytes.begin(), m_end};
    }

  private:
    std::array<char, 48> m_bytes{}; // three numbers and the signs around them, or less
    char* m_end = m_bytes.begin();
};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Where the character first stands from a position on, or -1.
qsizetype find(QByteArrayView text, char wanted, qsizetype from = 0) {
    // Lines are short and many: the search is inlined, the toolkit's is not.
    const auto found = std::string_view(text.data(), static_cast<std::size_t>(text.size()))
                           .find(wanted, static_cast<std::size_t>(from));
    return found == std::string_view::npos ? -1 : static_cast<qsizetype>(found);
}

QByteArrayView withoutBlanksAround(QByteArrayView text) {
    const bool certainlyNone = !text.isEmpty() && text.front() > ' ' && text.back() > ' ';
    return certainlyNone ? text : text.trimmed();
}

/// Takes a number of exactly two digits from the front of the text.
std::optional<int> takeTwoDigits(QByteArrayView& text) {
    if (text.size() < 2 || !isDigit(text[0]) || !isDigit(text[1])) {
        return std::nullopt;
    }
    const int number = 10 * (text[0] - '0') + (text[1] - '0');
    text = text.sliced(2);
    return number;
}

/// Takes "1981-12-25" from the front of the text.
std::optional<DateValue> takeDate(QByteArrayView& text) {
    constexpr qsizetype length = 10;
    if (text.size() < length || text[4] != '-' || text[7] != '-') {
        return std::nullopt;
    }
    bool digitsOnly = true;
    const auto digit = [&](qsizetype i) {
        digitsOnly &= isDigit(text[i]);
        return text[i] - '0';
    };
    const int year = 1000 * digit(0) + 100 * digit(1) + 10 * digit(2) + digit(3);
    const int month = 10 * digit(5) + digit(6);
    const int day = 10 * digit(8) + digit(9);
    if (!digitsOnly) {
        return std::nullopt;
    }
    text = text.sliced(length);
    return dateOf(year, month, day);
}

bool take(QByteArrayView& text, char wanted) {
    if (text.isEmpty() || text.front() != wanted) {
        return false;
    }
    text = text.sliced(1);
    return true;
}

/// " 10:30:00" or " 10:30", as may follow a date.
bool isTimeOfDay(QByteArrayView text) {
    if (!take(text, ' ')) {
        return false;
    }
    text = text.trimmed();
    const auto hours = takeTwoDigits(text);
    const bool colon = take(text, ':');
    const auto minutes = takeTwoDigits(text);
    std::optional<int> seconds = 0;
    if (take(text, ':')) {
        seconds = takeTwoDigits(text);
    }
    return text.isEmpty() && colon && hours && minutes && seconds &&
           QTime(*hours, *minutes, *seconds).isValid();
}

} // namespace

void LineWriter::writeString(const QString& value) {
    QByteArray bytes = toCp1252(value);
    std::replace(bytes.begin(), bytes.end(), '"', '\'');
    std::replace_if(
        bytes.begin(), bytes.end(), [](char c) { return endsText(static_cast<uchar>(c)); }, ' ');
    m_bytes.append('"').append(bytes).append("\"\r\n");
}

void LineWriter::writeDate(DateValue value) {
    int year = 0;
    int month = 0;
    int day = 0;
    toQDate(value).getDate(&year, &month, &day);
    ShortLine line;
    line.put('#');
    line.put(year, 4);
    line.put('-');
    line.put(month, 2);
    line.put('-');
    line.put(day, 2);
    line.put('#');
    m_bytes.append(line.ended());
}

void LineWriter::writeInteger(std::int32_t value) {
    ShortLine line;
    line.put(value);
    m_bytes.append(line.ended());
}

std::optional<QString> parseString(QByteArrayView line) {
    QByteArrayView text = withoutBlanksAround(line);
    if (!take(text, '"')) {
        return std::nullopt;
    }
    const qsizetype end = find(text, '"');
    if (end < 0) {
        return std::nullopt;
    }
    QString value = fromCp1252(text.first(end));
    std::replace_if(
        value.begin(), value.end(), [](QChar c) { return endsText(c.unicode()); }, u' ');
    return value;
}

std::optional<DateValue> parseDate(QByteArrayView line) {
    QByteArrayView text = withoutBlanksAround(line);
    if (text.size() < 2 || text.front() != '#' || text.back() != '#') {
        return std::nullopt;
    }
    text = withoutBlanksAround(text.sliced(1, text.size() - 2));
    const auto date = takeDate(text);
    if (!text.isEmpty() && !isTimeOfDay(text)) {
        return std::nullopt;
    }
    return date;
}

std::optional<std::int64_t> parseInteger(QByteArrayView line) {
    QByteArrayView text = withoutBlanksAround(line);
    if (text.size() > 1 && text.front() == '+' && isDigit(text[1])) {
        text = text.sliced(1);
    }
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.begin(), text.end(), number);
    if (error != std::errc{} || end != text.end()) {
        return std::nullopt;
    }
    return number;
}

LineReader::LineReader(QIODevice& device)
    : m_device(&device)
    , m_block(maximumLine + maximumLine / 2, Qt::Uninitialized) {}

bool LineReader::read(QString& value) {
    auto text = parseString(nextLine());
    if (!text) {
        return false;
    }
    value = *std::move(text);
    return true;
}

bool LineReader::read(DateValue& value) {
    const auto date = parseDate(nextLine());
    value = date.value_or(value);
    return date.has_value();
}

QByteArrayView LineReader::nextLine() {
    if (m_skipped > maximumSkipped) {
        return {};
    }
    qsizetype lookedAt = 0; // where no line end is
    qsizetype end = -1;
    while ((end = find(unread(), '\n', lookedAt)) < 0) {
        lookedAt = m_end - m_begin;
        if (lookedAt > maximumLine) {
            skipLine();
            return {};
        }
        if (!fill()) {
            break;
        }
    }
    const bool hasEnd = end >= 0;
    QByteArrayView line = hasEnd ? unread().first(end) : unread();
    m_begin += line.size() + (hasEnd ? 1 : 0);
    if (line.size() + (hasEnd ? 1 : 0) > maximumLine) {
        m_skipped += line.size();
        return {};
    }
    while (line.endsWith('\r')) {
        line.chop(1);
    }
    return line;
}

void LineReader::skipLine() {
    qsizetype end = -1;
    do {
        end = find(unread(), '\n');
        const qsizetype dropped = end < 0 ? m_end - m_begin : end + 1;
        m_begin += dropped;
        m_skipped += dropped;
    } while (end < 0 && m_skipped <= maximumSkipped && fill());
}

bool LineReader::fill() {
    char* block = m_block.data();
    std::copy(block + m_begin, block + m_end, block);
    m_end -= m_begin;
    m_begin = 0;
    if (m_read >= maximumRead) {
        m_end = 0; // the beginning of a line is no line
        return false;
    }
    const qint64 added =
        m_device->isReadable() ? m_device->read(block + m_end, m_block.size() - m_end) : 0;
    if (added <= 0) {
        return false;
    }
    m_end += added;
    m_read += added;
    return true;
}

} // namespace quor

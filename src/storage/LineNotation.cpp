#include "storage/LineNotation.h"

#include "storage/Cp1252.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <charconv>

namespace quor {

namespace {

constexpr int firstYear = 100;
constexpr int lastYear = 9999;

/// A string cannot carry what would end its line or the whole text; a blank stands in its place,
/// when writing and for what another program wrote.
void blankOutLineEnds(QByteArray& text) {
    text.replace('\r', ' ').replace('\n', ' ').replace('\0', ' ');
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Takes a number of exactly `digits` digits from the front of the text.
std::optional<int> takeNumber(QByteArrayView& text, qsizetype digits) {
    if (text.size() < digits) {
        return std::nullopt;
    }
    int number = 0;
    for (const char c : text.first(digits)) {
        if (!isDigit(c)) {
            return std::nullopt;
        }
        number = number * 10 + (c - '0');
    }
    text = text.sliced(digits);
    return number;
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
    const auto hours = takeNumber(text, 2);
    const bool colon = take(text, ':');
    const auto minutes = takeNumber(text, 2);
    std::optional<int> seconds = 0;
    if (take(text, ':')) {
        seconds = takeNumber(text, 2);
    }
    return text.isEmpty() && colon && hours && minutes && seconds &&
           QTime(*hours, *minutes, *seconds).isValid();
}

} // namespace

void LineWriter::writeLine(QByteArrayView line) {
    m_bytes.append(line);
    m_bytes.append("\r\n");
}

void LineWriter::writeString(const QString& value) {
    QByteArray bytes = toCp1252(value);
    bytes.replace('"', '\'');
    blankOutLineEnds(bytes);
    writeLine('"' + bytes + '"');
}

void LineWriter::writeDate(DateValue value) {
    const QDate day = toQDate(value);
    const auto number = [](int n, int width) {
        return QByteArray::number(n).rightJustified(width, '0');
    };
    writeLine('#' + number(day.year(), 4) + '-' + number(day.month(), 2) + '-' +
              number(day.day(), 2) + '#');
}

void LineWriter::writeInteger(std::int32_t value) {
    writeLine(QByteArray::number(value));
}

std::optional<QString> parseString(QByteArrayView line) {
    QByteArrayView text = line.trimmed();
    if (!take(text, '"')) {
        return std::nullopt;
    }
    const auto end = text.indexOf('"');
    if (end < 0) {
        return std::nullopt;
    }
    QByteArray value = text.first(end).toByteArray();
    blankOutLineEnds(value);
    return fromCp1252(value);
}

std::optional<DateValue> parseDate(QByteArrayView line) {
    QByteArrayView text = line.trimmed();
    if (text.size() < 2 || text.front() != '#' || text.back() != '#') {
        return std::nullopt;
    }
    text = text.sliced(1, text.size() - 2).trimmed();
    const auto year = takeNumber(text, 4);
    const bool firstHyphen = take(text, '-');
    const auto month = takeNumber(text, 2);
    const bool secondHyphen = take(text, '-');
    const auto day = takeNumber(text, 2);
    if (!year || !firstHyphen || !month || !secondHyphen || !day) {
        return std::nullopt;
    }
    if (!text.isEmpty() && !isTimeOfDay(text)) {
        return std::nullopt;
    }
    const QDate date(*year, *month, *day);
    if (!date.isValid() || *year < firstYear || *year > lastYear) {
        return std::nullopt;
    }
    return toDateValue(date);
}

std::optional<std::int64_t> parseInteger(QByteArrayView line) {
    QByteArrayView text = line.trimmed();
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
    : m_device(&device) {}

void LineReader::read(QString& value) {
    if (auto text = parseString(nextLine())) {
        value = *std::move(text);
    }
}

void LineReader::read(DateValue& value) {
    if (const auto date = parseDate(nextLine())) {
        value = *date;
    }
}

QByteArray LineReader::nextLine() {
    if (!m_device->isOpen() || m_skipped > maximumSkipped) {
        return {};
    }
    QByteArray line = m_device->readLine(maximumLine);
    bool tooLong = false;
    QByteArray rest = line;
    while (!rest.isEmpty() && !rest.endsWith('\n') && !m_device->atEnd() &&
           m_skipped <= maximumSkipped) {
        tooLong = true;
        rest = m_device->readLine(maximumLine);
        m_skipped += rest.size();
    }
    if (tooLong) {
        return {};
    }
    while (line.endsWith('\n') || line.endsWith('\r')) {
        line.chop(1);
    }
    return line;
}

std::optional<QString> writeWholeFile(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    // Flushing is asked for by name: a commit that flushes a small file itself does not notice a
    // disk that is full, and would put the cut file in the old one's place.
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() &&
                         file.flush() && file.commit();
    if (written) {
        return std::nullopt;
    }
    return file.errorString();
}

bool openForReading(QFile& file) {
    return QFileInfo(file.fileName()).isFile() && file.open(QIODevice::ReadOnly);
}

} // namespace quor

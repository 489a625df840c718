#pragma once

#include "Check.h"
#include "core/Dates.h"

#include <QBuffer>
#include <QByteArray>
#include <QDate>

#include <cstddef>
#include <cstdint>

/// What the targets that read the contents of files share.
namespace quor::fuzz {

inline QByteArray bytesOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)};
}

/// Hands the bytes to a reader as an open file would.
template<typename Reader> void readFrom(const QByteArray& bytes, Reader read) {
    QBuffer device;
    device.setData(bytes);
    check(device.open(QIODevice::ReadOnly), "bytes can be read");
    read(device);
}

inline bool isStorableDate(DateValue date) {
    const QDate day = toQDate(date);
    return date == toDateValue(day) && day.year() >= 100 && day.year() <= 9999;
}

} // namespace quor::fuzz

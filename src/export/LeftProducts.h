#pragma once

#include "core/Biorhythm.h"
#include "export/ExportNames.h"
#include "export/SummaryPage.h"

#include <QLocale>
#include <QString>

#include <cstdint>

namespace quor {

/// What an earlier export has left of a person's page and pictures.
enum class LeftProducts : std::uint8_t {
    missing,  ///< one of them, or more
    outdated, ///< one of them says something else than an export would say now
    current
};

/// Compares the page with these sections, and the pictures in them, with the record: the page but
/// for the day on which it was made, the pictures pixel by pixel at the size that they have. The
/// files may be anything; what cannot be read is outdated.
/// @param prefix of the files, with their folder
[[nodiscard]] LeftProducts leftProducts(const Biorhythm& biorhythm, const SummarySections& sections,
                                        const QString& prefix, PageVariant variant,
                                        const QLocale& locale = QLocale());

} // namespace quor

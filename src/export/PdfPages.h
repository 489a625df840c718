#pragma once

#include "toolkit/Dialogs.h"

#include <QByteArray>

#include <optional>
#include <span>

namespace quor {

/// What a document's measures count in.
inline constexpr double pointsPerInch = 72;

/// The same document with only these pages, in this order, as often as they are named; what they
/// hold stays as it is, text stays text. Nothing when the document is not of the plain kind that
/// the engine writes, or when no page is left.
/// @param spans empty for all pages; what lies outside the document does not count
[[nodiscard]] std::optional<QByteArray> selectPages(const QByteArray& pdf,
                                                    std::span<const PageSpan> spans);

} // namespace quor

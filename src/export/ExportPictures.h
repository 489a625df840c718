#pragma once

#include "core/Biorhythm.h"
#include "export/ExportNames.h"
#include "toolkit/Drawing.h"
#include "views/graph/WeekState.h"

#include <QFont>
#include <QLocale>
#include <QSize>

/// The pictures of an export: the sheets of the graph and of the weekly state at a size of their
/// own.
///
/// They do not depend on the desktop: lengths are in twips, and the font is always the same one, as
/// large as the picture has room for.
namespace quor {

/// An extent in twips, see `toolkit/Twips.h`.
struct Twips {
    double width = 0;
    double height = 0;
};

/// An extent in pixels, of which the desktop has 96 to the inch.
[[nodiscard]] Twips fromPixels(QSize pixels);

/// What stands in where there is no screen (1920 by 1080 pixels), and where there is no printer
/// (A4, upright).
[[nodiscard]] Twips defaultScreen();
[[nodiscard]] Twips defaultPaper();

/// The size of an export, which is that of the graph's picture: for the screen 80% of the screen's
/// width less 200 twips by 60% of its height less 200, for print 80% of the page's width by 40% of
/// its height.
/// @param surface the screen or the page, as the variant asks
/// @return pixels; nothing of a picture is left of a surface that is too small
[[nodiscard]] QSize pictureSize(PageVariant variant, const Twips& surface);

/// The size of a weekly picture. The page lays them out, beneath the graph's picture, with the
/// three cycles beside each other and the mean below them: so does this, with all borders, padding
/// and spacing of the page inside the width of the graph's picture and the mean as wide as the
/// three.
/// @param exportSize see `pictureSize`
/// @return pixels; nothing where the width does not hold three
[[nodiscard]] QSize weekPictureSize(WeekRow row, QSize exportSize);

/// A drawing with the font that it is made for.
struct ExportPicture {
    Drawing drawing;
    QFont font;
    QSize size;
};

/// The record's graph with its colours, span, day numbers and shown elements.
[[nodiscard]] ExportPicture graphPicture(const Biorhythm& biorhythm, QSize size,
                                         const QLocale& locale = QLocale());

/// One row of the record's weekly state. In a narrow picture the label stands below the names of
/// the weekdays instead of between them, and in a very narrow one the names are letters.
[[nodiscard]] ExportPicture weekPicture(const Biorhythm& biorhythm, WeekRow row, QSize size,
                                        const QLocale& locale = QLocale());

} // namespace quor

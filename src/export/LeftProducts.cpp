#include "export/LeftProducts.h"

#include "export/ExportPictures.h"
#include "export/ExportPng.h"
#include "storage/WholeFile.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// A picture's file, and what belongs into it at a given size.
struct Picture {
    QString path;
    std::function<ExportPicture(QSize)> make;
};

/// A page without the line that says when it was made, which is the last one with a date.
QByteArray withoutDay(const QByteArray& page) {
    const qsizetype line = page.lastIndexOf("<P align=\"right\">");
    const qsizetype end = page.indexOf("\r\n", line);
    return line < 0 || end < 0 ? page : page.first(line) + page.sliced(end);
}

bool isCurrent(const QString& path, const QByteArray& page) {
    QFile file(path);
    // No date is longer than this; of a larger file there is nothing more to be known.
    constexpr qsizetype longestDate = 1000;
    return openForReading(file) &&
           withoutDay(file.read(page.size() + longestDate)) == withoutDay(page);
}

bool isCurrent(const Picture& picture) {
    QFile file(picture.path);
    if (!openForReading(file)) {
        return false;
    }
    QImageReader reader(&file, "png");
    reader.setAutoDetectImageFormat(false);
    const QImage found = reader.read();
    if (found.isNull()) {
        return false;
    }
    const ExportPicture wanted = picture.make(found.size());
    QImage image;
    return paintPicture(wanted.drawing, wanted.font, wanted.size, image) == pngWritten &&
           image == found.convertToFormat(image.format());
}

} // namespace

LeftProducts leftProducts(const Biorhythm& biorhythm, const SummarySections& sections,
                          const QString& prefix, PageVariant variant, const QLocale& locale) {
    std::vector<Picture> pictures;
    if (sections.graph) {
        pictures.push_back(
            {graphFile(prefix), [&](QSize size) { return graphPicture(biorhythm, size, locale); }});
    }
    if (sections.weekly) {
        for (const WeekRow row :
             {WeekRow::mean, WeekRow::physical, WeekRow::emotional, WeekRow::intellectual}) {
            pictures.push_back({weekFile(prefix, row), [&, row](QSize size) {
                                    return weekPicture(biorhythm, row, size, locale);
                                }});
        }
    }
    if (!QFileInfo::exists(summaryFile(prefix)) ||
        !std::ranges::all_of(pictures,
                             [](const Picture& one) { return QFileInfo::exists(one.path); })) {
        return LeftProducts::missing;
    }
    const QByteArray page =
        summaryPage(biorhythm, sections, QFileInfo(prefix).fileName(), variant, locale);
    return isCurrent(summaryFile(prefix), page) &&
                   std::ranges::all_of(pictures, [](const Picture& one) { return isCurrent(one); })
               ? LeftProducts::current
               : LeftProducts::outdated;
}

} // namespace quor

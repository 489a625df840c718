#pragma once

#include <QString>
#include <QUrl>

/// Where the help lies and how its pages are addressed.
namespace quor {

/// A help path in its parts: "<folder>/Quor.chm" and, after "::/", the page.
struct HelpAddress {
    QString folder;
    QString page; ///< "1nuovo.html"; empty for the help as a whole

    friend bool operator==(const HelpAddress&, const HelpAddress&) = default;
};

[[nodiscard]] HelpAddress parseHelpPath(const QString& helpPath);

/// The help collection of a program: beside it, else in "share/quor" of the prefix it is installed
/// in ("/usr" for "/usr/bin"). Empty when there is none.
[[nodiscard]] QString findHelpCollection(const QString& programFolder);

/// The page's address inside the collection; the start page's for an empty name.
[[nodiscard]] QUrl helpPageUrl(const QString& page);

} // namespace quor

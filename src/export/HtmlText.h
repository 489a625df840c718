#pragma once

#include <QByteArray>
#include <QString>

/// Texts and addresses as a page of pure ASCII holds them, which reads alike in every character
/// set.
namespace quor {

/// A text between tags: `&`, `<`, `>` and every character beyond ASCII as an entity, named where
/// HTML 4 names it, else by number. What no page can hold (half of a surrogate pair, U+0080 to
/// U+009F) is U+FFFD. All else stays as it is.
[[nodiscard]] QByteArray htmlText(const QString& text);

/// A file beside the page as the address of a picture: the name as it stands, with these
/// exceptions. Every character beyond ASCII, and what would end or change an address (`%`, `#`,
/// `?`, `"`, `<`,
/// `>`, a blank in front), is percent-encoded in UTF-8; an ampersand is an entity.
[[nodiscard]] QByteArray htmlAddress(const QString& fileName);

} // namespace quor

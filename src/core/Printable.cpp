#include "core/Printable.h"

#include <algorithm>

namespace quor {

QString printable(const QString& text) {
    QString result = text;
    const auto isCommand = [](QChar c) {
        const auto category = c.category();
        return category == QChar::Other_Control || category == QChar::Other_Format ||
               category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
    };
    std::ranges::replace_if(result, isCommand, u'?');
    return result;
}

} // namespace quor

#include "export/HtmlText.h"

#include <QList>

#include <algorithm>
#include <array>

namespace quor {

namespace {

constexpr char32_t lastAscii = 0x7F;
constexpr char32_t firstLatin1 = 0xA0;
/// What stands for a character that no page can hold.
constexpr char32_t replacement = 0xFFFD;

/// The names of HTML 4 for U+00A0 to U+00FF.
constexpr std::array latin1Names{
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",
    "copy",   "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn",
    "sup2",   "sup3",   "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",
    "raquo",  "frac14", "frac12", "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde",
    "Auml",   "Aring",  "AElig",  "Ccedil", "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave",
    "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde", "Ograve", "Oacute", "Ocirc",  "Otilde",
    "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",  "Uuml",   "Yacute", "THORN",
    "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",  "aelig",  "ccedil",
    "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",   "eth",
    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};

struct Entity {
    char32_t code;
    const char* name;
};

/// Those for all other characters beyond ASCII, in the order of the characters. U+2329 and U+232A
/// are left to their numbers: later standards gave their names to other brackets.
constexpr std::array otherNames{
    Entity{0x0152, "OElig"},    Entity{0x0153, "oelig"},   Entity{0x0160, "Scaron"},
    Entity{0x0161, "scaron"},   Entity{0x0178, "Yuml"},    Entity{0x0192, "fnof"},
    Entity{0x02C6, "circ"},     Entity{0x02DC, "tilde"},   Entity{0x0391, "Alpha"},
    Entity{0x0392, "Beta"},     Entity{0x0393, "Gamma"},   Entity{0x0394, "Delta"},
    Entity{0x0395, "Epsilon"},  Entity{0x0396, "Zeta"},    Entity{0x0397, "Eta"},
    Entity{0x0398, "Theta"},    Entity{0x0399, "Iota"},    Entity{0x039A, "Kappa"},
    Entity{0x039B, "Lambda"},   Entity{0x039C, "Mu"},      Entity{0x039D, "Nu"},
    Entity{0x039E, "Xi"},       Entity{0x039F, "Omicron"}, Entity{0x03A0, "Pi"},
    Entity{0x03A1, "Rho"},      Entity{0x03A3, "Sigma"},   Entity{0x03A4, "Tau"},
    Entity{0x03A5, "Upsilon"},  Entity{0x03A6, "Phi"},     Entity{0x03A7, "Chi"},
    Entity{0x03A8, "Psi"},      Entity{0x03A9, "Omega"},   Entity{0x03B1, "alpha"},
    Entity{0x03B2, "beta"},     Entity{0x03B3, "gamma"},   Entity{0x03B4, "delta"},
    Entity{0x03B5, "epsilon"},  Entity{0x03B6, "zeta"},    Entity{0x03B7, "eta"},
    Entity{0x03B8, "theta"},    Entity{0x03B9, "iota"},    Entity{0x03BA, "kappa"},
    Entity{0x03BB, "lambda"},   Entity{0x03BC, "mu"},      Entity{0x03BD, "nu"},
    Entity{0x03BE, "xi"},       Entity{0x03BF, "omicron"}, Entity{0x03C0, "pi"},
    Entity{0x03C1, "rho"},      Entity{0x03C2, "sigmaf"},  Entity{0x03C3, "sigma"},
    Entity{0x03C4, "tau"},      Entity{0x03C5, "upsilon"}, Entity{0x03C6, "phi"},
    Entity{0x03C7, "chi"},      Entity{0x03C8, "psi"},     Entity{0x03C9, "omega"},
    Entity{0x03D1, "thetasym"}, Entity{0x03D2, "upsih"},   Entity{0x03D6, "piv"},
    Entity{0x2002, "ensp"},     Entity{0x2003, "emsp"},    Entity{0x2009, "thinsp"},
    Entity{0x200C, "zwnj"},     Entity{0x200D, "zwj"},     Entity{0x200E, "lrm"},
    Entity{0x200F, "rlm"},      Entity{0x2013, "ndash"},   Entity{0x2014, "mdash"},
    Entity{0x2018, "lsquo"},    Entity{0x2019, "rsquo"},   Entity{0x201A, "sbquo"},
    Entity{0x201C, "ldquo"},    Entity{0x201D, "rdquo"},   Entity{0x201E, "bdquo"},
    Entity{0x2020, "dagger"},   Entity{0x2021, "Dagger"},  Entity{0x2022, "bull"},
    Entity{0x2026, "hellip"},   Entity{0x2030, "permil"},  Entity{0x2032, "prime"},
    Entity{0x2033, "Prime"},    Entity{0x2039, "lsaquo"},  Entity{0x203A, "rsaquo"},
    Entity{0x203E, "oline"},    Entity{0x2044, "frasl"},   Entity{0x20AC, "euro"},
    Entity{0x2111, "image"},    Entity{0x2118, "weierp"},  Entity{0x211C, "real"},
    Entity{0x2122, "trade"},    Entity{0x2135, "alefsym"}, Entity{0x2190, "larr"},
    Entity{0x2191, "uarr"},     Entity{0x2192, "rarr"},    Entity{0x2193, "darr"},
    Entity{0x2194, "harr"},     Entity{0x21B5, "crarr"},   Entity{0x21D0, "lArr"},
    Entity{0x21D1, "uArr"},     Entity{0x21D2, "rArr"},    Entity{0x21D3, "dArr"},
    Entity{0x21D4, "hArr"},     Entity{0x2200, "forall"},  Entity{0x2202, "part"},
    Entity{0x2203, "exist"},    Entity{0x2205, "empty"},   Entity{0x2207, "nabla"},
    Entity{0x2208, "isin"},     Entity{0x2209, "notin"},   Entity{0x220B, "ni"},
    Entity{0x220F, "prod"},     Entity{0x2211, "sum"},     Entity{0x2212, "minus"},
    Entity{0x2217, "lowast"},   Entity{0x221A, "radic"},   Entity{0x221D, "prop"},
    Entity{0x221E, "infin"},    Entity{0x2220, "ang"},     Entity{0x2227, "and"},
    Entity{0x2228, "or"},       Entity{0x2229, "cap"},     Entity{0x222A, "cup"},
    Entity{0x222B, "int"},      Entity{0x2234, "there4"},  Entity{0x223C, "sim"},
    Entity{0x2245, "cong"},     Entity{0x2248, "asymp"},   Entity{0x2260, "ne"},
    Entity{0x2261, "equiv"},    Entity{0x2264, "le"},      Entity{0x2265, "ge"},
    Entity{0x2282, "sub"},      Entity{0x2283, "sup"},     Entity{0x2284, "nsub"},
    Entity{0x2286, "sube"},     Entity{0x2287, "supe"},    Entity{0x2295, "oplus"},
    Entity{0x2297, "otimes"},   Entity{0x22A5, "perp"},    Entity{0x22C5, "sdot"},
    Entity{0x2308, "lceil"},    Entity{0x2309, "rceil"},   Entity{0x230A, "lfloor"},
    Entity{0x230B, "rfloor"},   Entity{0x25CA, "loz"},     Entity{0x2660, "spades"},
    Entity{0x2663, "clubs"},    Entity{0x2665, "hearts"},  Entity{0x2666, "diams"}};

/// The name of HTML 4, without its frame; null where there is none.
const char* entityName(char32_t code) {
    if (code >= firstLatin1 && code < firstLatin1 + latin1Names.size()) {
        return latin1Names.at(code - firstLatin1);
    }
    const auto* const found = std::lower_bound(
        otherNames.begin(), otherNames.end(), code,
        [](const Entity& entity, char32_t wanted) { return entity.code < wanted; });
    return found != otherNames.end() && found->code == code ? found->name : nullptr;
}

/// A character beyond ASCII. A number from 0x80 to 0x9F would be read as one of code page 1252, and
/// a surrogate is no character.
QByteArray entity(char32_t code) {
    if (code < firstLatin1 || QChar::isSurrogate(code)) {
        code = replacement;
    }
    const char* name = entityName(code);
    return '&' + (name != nullptr ? QByteArray(name) : '#' + QByteArray::number(code)) + ';';
}

} // namespace

QByteArray htmlText(const QString& text) {
    QByteArray html;
    for (const char32_t code : text.toUcs4()) {
        switch (code) {
        case U'&':
            html += "&amp;";
            break;
        case U'<':
            html += "&lt;";
            break;
        case U'>':
            html += "&gt;";
            break;
        default:
            html += code > lastAscii ? entity(code) : QByteArray(1, static_cast<char>(code));
        }
    }
    return html;
}

QByteArray htmlAddress(const QString& fileName) {
    // A blank in front would be cut off; within a name it stays.
    const qsizetype blank = fileName.startsWith(u' ') ? 1 : 0;
    const QByteArray address =
        fileName.sliced(blank).toUtf8().toPercentEncoding(" !$&'()*+,/:;=@[\\]^`{|}");
    return (blank > 0 ? QByteArray("%20") : QByteArray()) +
           QByteArray(address).replace('&', "&amp;");
}

} // namespace quor

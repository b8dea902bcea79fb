// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "languages_p.h"

#include <algorithm>
#include <iterator>

namespace zokit {

namespace {

/// One language, as files and people abbreviate it: ISO 639-1, and both forms of ISO 639-2.
struct Language {
    const char* two;
    const char* bibliographic;
    const char* three;
};

// clang-format off
constexpr Language languages[] = {
    {"sq", "alb", "sqi"}, {"hy", "arm", "hye"}, {"eu", "baq", "eus"}, {"my", "bur", "mya"},
    {"zh", "chi", "zho"}, {"cs", "cze", "ces"}, {"nl", "dut", "nld"}, {"fr", "fre", "fra"},
    {"ka", "geo", "kat"}, {"de", "ger", "deu"}, {"el", "gre", "ell"}, {"is", "ice", "isl"},
    {"mk", "mac", "mkd"}, {"ms", "may", "msa"}, {"mi", "mao", "mri"}, {"fa", "per", "fas"},
    {"ro", "rum", "ron"}, {"sk", "slo", "slk"}, {"bo", "tib", "bod"}, {"cy", "wel", "cym"},
    {"ar", "ara", "ara"}, {"bg", "bul", "bul"}, {"bn", "ben", "ben"}, {"bs", "bos", "bos"},
    {"ca", "cat", "cat"}, {"da", "dan", "dan"}, {"en", "eng", "eng"}, {"es", "spa", "spa"},
    {"et", "est", "est"}, {"fi", "fin", "fin"}, {"ga", "gle", "gle"}, {"gl", "glg", "glg"},
    {"he", "heb", "heb"}, {"hi", "hin", "hin"}, {"hr", "hrv", "hrv"}, {"hu", "hun", "hun"},
    {"id", "ind", "ind"}, {"it", "ita", "ita"}, {"ja", "jpn", "jpn"}, {"ko", "kor", "kor"},
    {"lt", "lit", "lit"}, {"lv", "lav", "lav"}, {"nb", "nob", "nob"}, {"nn", "nno", "nno"},
    {"no", "nor", "nor"}, {"pl", "pol", "pol"}, {"pt", "por", "por"}, {"ru", "rus", "rus"},
    {"sl", "slv", "slv"}, {"sr", "srp", "srp"}, {"sv", "swe", "swe"}, {"ta", "tam", "tam"},
    {"te", "tel", "tel"}, {"th", "tha", "tha"}, {"tr", "tur", "tur"}, {"uk", "ukr", "ukr"},
    {"ur", "urd", "urd"}, {"vi", "vie", "vie"},
};
// clang-format on

QString inOneForm(const QString& code)
{
    const QString word = code.trimmed().toLower();
    const auto* found = std::find_if(std::begin(languages), std::end(languages), [&](const Language& language) {
        return word == QLatin1String(language.two) || word == QLatin1String(language.bibliographic);
    });
    return found == std::end(languages) ? word : QString::fromLatin1(found->three);
}

} // namespace

bool sameLanguage(const QString& a, const QString& b)
{
    return inOneForm(a) == inOneForm(b);
}

} // namespace zokit

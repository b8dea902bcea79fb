// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#include "languages_p.h"

#include <zokit/languages.h>

#include <algorithm>
#include <iterator>

namespace zokit {

namespace {

/// One language, as files and people abbreviate it: ISO 639-1, and both forms of ISO 639-2; and as it calls itself.
struct Language {
    const char* two;
    const char* bibliographic;
    const char* three;
    const char* name;
};

// clang-format off
constexpr Language languages[] = {
    {"sq", "alb", "sqi", "shqip"},
    {"hy", "arm", "hye", "հայերեն"},
    {"eu", "baq", "eus", "euskara"},
    {"my", "bur", "mya", "မြန်မာ"},
    {"zh", "chi", "zho", "中文"},
    {"cs", "cze", "ces", "čeština"},
    {"nl", "dut", "nld", "Nederlands"},
    {"fr", "fre", "fra", "français"},
    {"ka", "geo", "kat", "ქართული"},
    {"de", "ger", "deu", "Deutsch"},
    {"el", "gre", "ell", "Ελληνικά"},
    {"is", "ice", "isl", "íslenska"},
    {"mk", "mac", "mkd", "македонски"},
    {"ms", "may", "msa", "Melayu"},
    {"mi", "mao", "mri", "Māori"},
    {"fa", "per", "fas", "فارسی"},
    {"ro", "rum", "ron", "română"},
    {"sk", "slo", "slk", "slovenčina"},
    {"bo", "tib", "bod", "བོད་སྐད་"},
    {"cy", "wel", "cym", "Cymraeg"},
    {"ar", "ara", "ara", "العربية"},
    {"bg", "bul", "bul", "български"},
    {"bn", "ben", "ben", "বাংলা"},
    {"bs", "bos", "bos", "bosanski"},
    {"ca", "cat", "cat", "català"},
    {"da", "dan", "dan", "dansk"},
    {"en", "eng", "eng", "English"},
    {"es", "spa", "spa", "español"},
    {"et", "est", "est", "eesti"},
    {"fi", "fin", "fin", "suomi"},
    {"ga", "gle", "gle", "Gaeilge"},
    {"gl", "glg", "glg", "galego"},
    {"he", "heb", "heb", "עברית"},
    {"hi", "hin", "hin", "हिन्दी"},
    {"hr", "hrv", "hrv", "hrvatski"},
    {"hu", "hun", "hun", "magyar"},
    {"id", "ind", "ind", "Indonesia"},
    {"it", "ita", "ita", "italiano"},
    {"ja", "jpn", "jpn", "日本語"},
    {"ko", "kor", "kor", "한국어"},
    {"lt", "lit", "lit", "lietuvių"},
    {"lv", "lav", "lav", "latviešu"},
    {"nb", "nob", "nob", "norsk bokmål"},
    {"nn", "nno", "nno", "norsk nynorsk"},
    {"no", "nor", "nor", "norsk"},
    {"pl", "pol", "pol", "polski"},
    {"pt", "por", "por", "português"},
    {"ru", "rus", "rus", "русский"},
    {"sl", "slv", "slv", "slovenščina"},
    {"sr", "srp", "srp", "српски"},
    {"sv", "swe", "swe", "svenska"},
    {"ta", "tam", "tam", "தமிழ்"},
    {"te", "tel", "tel", "తెలుగు"},
    {"th", "tha", "tha", "ไทย"},
    {"tr", "tur", "tur", "Türkçe"},
    {"uk", "ukr", "ukr", "українська"},
    {"ur", "urd", "urd", "اردو"},
    {"vi", "vie", "vie", "Tiếng Việt"},
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

QStringList languageCodes()
{
    QStringList codes;
    for (const Language& language : languages)
        codes.append(QString::fromLatin1(language.three));
    return codes;
}

QString languageName(const QString& code)
{
    const QString form = inOneForm(code);
    for (const Language& language : languages) {
        if (form == QLatin1String(language.three))
            return QString::fromUtf8(language.name);
    }
    return code;
}

} // namespace zokit

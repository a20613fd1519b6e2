#include "Services/ContentSamples.h"

namespace jotwell {

namespace {

// What the rules look for.
const std::vector<QString> marks{
    u"["_qs,     u"]"_qs,       u"[["_qs,     u"]]"_qs,  u"|"_qs,    u"("_qs,      u")"_qs,
    u"]("_qs,    u"!"_qs,       u"!["_qs,     u"![["_qs, u"`"_qs,    u"``"_qs,     u"```"_qs,
    u"```\n"_qs, u"```js\n"_qs, u"^"_qs,      u"-"_qs,   u"---"_qs,  u"*"_qs,      u"**"_qs,
    u"_"_qs,     u"__"_qs,      u"~"_qs,      u"~~"_qs,  u"#"_qs,    u"##"_qs,     u"######"_qs,
    u"# "_qs,    u"- "_qs,      u"+"_qs,      u"+ "_qs,  u"* "_qs,   u">"_qs,      u"> "_qs,
    u"."_qs,     u". "_qs,      u"1. "_qs,    u"/"_qs,   u"[a]"_qs,  u"[a](b)"_qs, u"![a](b)"_qs,
    u"[[a]]"_qs, u"[[a|b]]"_qs, u"![[a]]"_qs, u"`a`"_qs, u"#tag"_qs, u"\n# "_qs,   u"\n---\n"_qs,
    u"\n- "_qs,  u"\n1. "_qs,   u"\n> "_qs,
};

// What the front matter's rules look for.
const std::vector<QString> keys{
    u"---\n"_qs,     u"\n---\n"_qs, u"\ntags:"_qs, u"\ntag:"_qs, u"tags: "_qs, u"tag:"_qs,
    u"\ntags: ["_qs, u"]\n"_qs,     u","_qs,       u", "_qs,     u"  - "_qs,   u"\n  - "_qs,
    u"Tags:"_qs,     u"ta"_qs,      u"gs:"_qs,     u" "_qs,      u"\n"_qs,     u"["_qs,
};

// Line ends, spaces, digits, letters and marks of all kinds, beyond the basic plane too.
const std::vector<QString> characters{
    u" "_qs,      u"  "_qs,     u"\t"_qs,         u"\n"_qs,         u"\n\n\n"_qs,     u"\r\n"_qs,
    u"\r"_qs,     u"\v"_qs,     u"\f"_qs,         u"\u0085"_qs,     u"\u2028"_qs,     u"\u2029"_qs,
    u"\u00A0"_qs, u"\u1680"_qs, u"\u2003"_qs,     u"\u202F"_qs,     u"\u205F"_qs,     u"\u3000"_qs,
    u"\u200B"_qs, u"\u180E"_qs, u"\uFEFF"_qs,     u"\u001C"_qs,     QString(QChar()), u"\u200C"_qs,
    u"\u200D"_qs, u"\u0301"_qs, u"\u20DD"_qs,     u"\u203F"_qs,     u"\u00B2"_qs,     u"\u2160"_qs,
    u"\u0663"_qs, u"\u0967"_qs, u"\U0001D7D9"_qs, u"\U0001F600"_qs, u"\U00020000"_qs, u"a"_qs,
    u"Z"_qs,      u"b1"_qs,     u"7"_qs,          u"word"_qs,       u"\u00E9"_qs,     u"\u0130"_qs,
    u"\u03A3"_qs, u"\u00DF"_qs, u"\u65E5"_qs,     u"\u3042"_qs,     u"\u201C"_qs,     u"\u2014"_qs,
    u"\u00C0"_qs, u"\u1E9E"_qs, u","_qs,          u":"_qs,          u"\""_qs,
};

} // namespace

QString ContentSamples::next()
{
    constexpr qsizetype mostPieces = 24;
    QString text;
    for (qsizetype count = below(mostPieces); count >= 0; --count)
        text += piece();
    return text;
}

qsizetype ContentSamples::below(qsizetype limit)
{
    return static_cast<qsizetype>(m_random() % static_cast<quint64>(limit));
}

QString ContentSamples::piece()
{
    const qsizetype choice = below(10);
    const std::vector<QString>& pieces = choice < 5 ? marks : choice < 6 ? keys : characters;
    return pieces[static_cast<std::size_t>(below(static_cast<qsizetype>(pieces.size())))];
}

const std::vector<QString>& endlessPieces()
{
    static const std::vector<QString> pieces{
        u"["_qs,          u"[["_qs,        u"[[a"_qs,
        u"[[a|"_qs,       u"[[a]"_qs,      u"[[|]"_qs,
        u"]"_qs,          u"[a]"_qs,       u"[a]("_qs,
        u"[a](b"_qs,      u"[]("_qs,       u"!["_qs,
        u"![["_qs,        u"![]("_qs,      u"![a](b"_qs,
        u"!"_qs,          u"`"_qs,         u"``"_qs,
        u"``` "_qs,       u"```a"_qs,      u"```\n"_qs,
        u"```a\n"_qs,     u"`a"_qs,        u"^"_qs,
        u"^-"_qs,         u"^ "_qs,        u"#"_qs,
        u"# "_qs,         u"#a"_qs,        u"#a "_qs,
        u"##a\n"_qs,      u"-"_qs,         u"- "_qs,
        u"-\n"_qs,        u"---\n"_qs,     u"*"_qs,
        u"_"_qs,          u"~"_qs,         u"~*"_qs,
        u"~a"_qs,         u" "_qs,         u"\t"_qs,
        u"\n"_qs,         u"\r\n"_qs,      u"\u00A0"_qs,
        u"\u2028"_qs,     u"\u3000"_qs,    u"1"_qs,
        u"1. "_qs,        u"\u0663"_qs,    u">"_qs,
        u"> "_qs,         u"a"_qs,         u"a "_qs,
        u"\u65E5"_qs,     u"\u0301"_qs,    u"[[a|b]]"_qs,
        u"[a](b)"_qs,     u"![[a]"_qs,     u"[[a|b]"_qs,
        u"tags:"_qs,      u"ta"_qs,        u"  - "_qs,
        u"---\ntags:"_qs, u"---\n  - "_qs, u"---\ntags: [a,b]\n"_qs,
        u",a"_qs,
    };
    return pieces;
}

} // namespace jotwell

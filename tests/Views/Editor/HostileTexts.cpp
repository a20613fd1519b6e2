#include "Views/Editor/HostileTexts.h"

#include <QStringList>

#include <algorithm>

namespace jotwell {

namespace {

const QString& marks()
{
    static const QString marks = QStringLiteral("#*_`~[]()-+/$");
    return marks;
}

const QStringList& characters()
{
    static const QStringList all = [] {
        QStringList characters = QStringLiteral("a|Z|0|.|n| |\t|\n|\r\n|\r|\v|\f").split(u'|');
        for (const char16_t unit : u"\u0085\u00a0\u2028\u2029\u3000\u00e9\u0301\u20e3\u200c\u200d"
                                   u"\u203f\u0660\ufe0e\ufe0f\u2764\u00a9")
            characters.append(QChar(unit));
        for (const char32_t code : {U'\U0001F600', U'\U0001D49C', U'\U0001F1E9', U'\U0001F44D',
                                    U'\U0001F3FD', U'\U0001F3F4', U'\U000E0067', U'\U000E007F'})
            characters.append(QString::fromUcs4(&code, 1));
        characters.append({QChar(u'\xD83D'), QChar(u'\xDE00')});
        characters.append({QStringLiteral("/new_note"), QStringLiteral("/recent")});
        return characters;
    }();
    return all;
}

QString repeated(QStringView piece)
{
    constexpr qsizetype length = 100'000;
    return piece.toString().repeated(length / piece.size() + 1).first(length);
}

} // namespace

void forEachText(QStringView letters, qsizetype longest,
                 const std::function<void(const QString&)>& use)
{
    QString text;
    const std::function<void()> extend = [&] {
        use(text);
        if (text.size() == longest)
            return;
        for (const QChar letter : letters) {
            text.append(letter);
            extend();
            text.chop(1);
        }
    };
    extend();
}

QString HostileTexts::next(std::size_t longest)
{
    QStringList palette;
    for (qsizetype kinds = 1 + upTo(4); kinds > 0; --kinds)
        palette.append(character());
    QString text;
    for (qsizetype left = upTo(static_cast<qsizetype>(longest)); left > 0; --left)
        text += upTo(9) == 0 ? character() : palette[upTo(palette.size() - 1)];
    return text;
}

// std::uniform_int_distribution differs from one standard library to the next.
qsizetype HostileTexts::upTo(qsizetype highest)
{
    return static_cast<qsizetype>(m_random() % static_cast<std::uint32_t>(highest + 1));
}

QString HostileTexts::character()
{
    if (upTo(1) == 0)
        return marks()[upTo(marks().size() - 1)];
    return characters()[upTo(characters().size() - 1)];
}

std::vector<QString> endlessTexts()
{
    const QStringView pieces[] = {
        u"a",      u" ",        u"\n",     u"\r\n",   u"[",     u"]",    u"(",        u"[]",
        u"[a]",    u"[a](",     u"[a](b",  u"[[a](",  u"*",     u"**",   u"*a",       u"**a",
        u"**a\n",  u"__a **b ", u"_",      u"_a*",    u"`",     u"`a",   u"```a",     u"~",
        u"~~",     u"~~a",      u"~~a\n",  u"~~~~",   u"#",     u"#a",   u"# ",       u"#\n",
        u"# a\n",  u"-",        u"- ",     u"-\n",    u"- a\n", u" -",   u"\n -",     u"/",
        u"/a",     u" /a",      u" #a",    u"$",      u"$T",    u"$Tem", u"$Project", u"\u2500",
        u"\u4e2d", u"\ufe0f",   u"\u200d", u"1\ufe0f"};
    std::vector<QString> texts;
    for (const QStringView piece : pieces) {
        texts.push_back(repeated(piece));
        texts.push_back(u"/new_note /recent"_qs + repeated(piece));
    }
    for (const char32_t* const piece : {U"\U0001F600", U"\U0001F1E9", U"\U0001F468\u200d",
                                        U"\U0001F3F4\U000E0067", U"\U000E0067"})
        texts.push_back(repeated(QString::fromUcs4(piece)));
    return texts;
}

} // namespace jotwell

#include "Services/Input/InputSamples.h"

namespace jotwell {

namespace {

QString unit(char16_t code)
{
    return QString(QChar(code));
}

const QStringList& signs()
{
    static const QStringList all{u" "_qs,
                                 u"  "_qs,
                                 u"\t"_qs,
                                 u"\n"_qs,
                                 u"\r\n"_qs,
                                 u"\r"_qs,
                                 u"\u0085"_qs,
                                 u"\u2028"_qs,
                                 u"\u2029"_qs,
                                 u"\v"_qs,
                                 u"\f"_qs,
                                 u"\u00a0"_qs,
                                 u"\u3000"_qs,
                                 u"\u200b"_qs,
                                 u"-"_qs,
                                 u"_"_qs,
                                 u"a"_qs,
                                 u"N"_qs,
                                 u"9"_qs,
                                 u"\u0660"_qs,
                                 u"\u00e9"_qs,
                                 u"e\u0301"_qs,
                                 u"\u0308"_qs,
                                 u"\u200d"_qs,
                                 u"\u200c"_qs,
                                 u"\ufe0f"_qs,
                                 u"\u65e5"_qs,
                                 u"\u0600"_qs,
                                 u"\U0001d49c"_qs,
                                 u"\U0001f600"_qs,
                                 u","_qs,
                                 u"."_qs,
                                 u"!"_qs,
                                 u"?"_qs,
                                 u":"_qs,
                                 u"("_qs,
                                 u"\\"_qs,
                                 u"\u1100"_qs,
                                 u"\u1161"_qs,
                                 u"\U0001f1e9\U0001f1ea"_qs,
                                 unit(0xd83d),
                                 unit(0xde00),
                                 unit(0xd835),
                                 unit(0),
                                 u"\U0001f1e9"_qs,
                                 u"\u0130"_qs,
                                 u"\U0001f468\u200d\U0001f469"_qs};
    return all;
}

const QStringList& tokens()
{
    static const QStringList all{u"$"_qs,
                                 u"#"_qs,
                                 u"/"_qs,
                                 u"/x"_qs,
                                 u"/new_note"_qs,
                                 u"/recent"_qs,
                                 u"/search_notes"_qs,
                                 u" #tag"_qs,
                                 u" $"_qs,
                                 u"  $"_qs,
                                 u"/re"_qs,
                                 u"/new"_qs,
                                 u"word"_qs};
    return all;
}

} // namespace

const QStringList& InputSamples::names()
{
    static const QStringList all{u"Daily Note"_qs, u"daily note"_qs,
                                 u"Daily"_qs,      QString(),
                                 u"a.*b"_qs,       u"("_qs,
                                 u"[a-z]+\\d$"_qs, u"\\Q\\E"_qs,
                                 u"a b $ c"_qs,    u"$"_qs,
                                 u" "_qs,          u"a\nb"_qs,
                                 u"\U0001f600"_qs, u"N\U0001d49c x"_qs,
                                 unit(0xd83d),     unit(0xde00),
                                 u"e\u0301"_qs,    u"-"_qs,
                                 u"\r\n"_qs,       u"All Folders"_qs,
                                 u"#tag"_qs,       u"/new_note"_qs,
                                 u"\u0308x"_qs,    u"trailing "_qs};
    return all;
}

QString InputSamples::text(int pieces)
{
    QString text;
    for (int count = below(pieces + 1); count > 0; --count) {
        switch (below(4)) {
        case 0:
            text += anyOf(tokens());
            break;
        case 1:
            text += anyOf({u"  "_qs, u" "_qs, QString()}) + u'$' + anyOf(names());
            break;
        default:
            text += anyOf(signs());
        }
    }
    return text;
}

} // namespace jotwell

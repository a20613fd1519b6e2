#include "Platform/qt/Updates/Appcast.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace jotwell {

namespace {

const QString sparkle = QStringLiteral("http://www.andymatuschak.org/xml-namespaces/sparkle");

// It is shown in a menu and in a toast.
constexpr qsizetype longestVersion = 40;

/// What stands in an item, whoever it is for; of what stands there twice, the first.
struct RawItem {
    QString version;
    QString shortVersionString;
    QString system;
    QString channel;
    QString link;
    QString releaseNotesLink;
};

void setFirst(QString& field, QStringView text)
{
    if (field.isEmpty())
        field = text.trimmed().toString();
}

void readEnclosure(QXmlStreamReader& xml, RawItem& item)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    setFirst(item.version, attributes.value(sparkle, QStringLiteral("version")));
    setFirst(item.shortVersionString,
             attributes.value(sparkle, QStringLiteral("shortVersionString")));
    setFirst(item.system, attributes.value(sparkle, QStringLiteral("os")));
    xml.skipCurrentElement();
}

QString* fieldOf(RawItem& item, QStringView space, QStringView name)
{
    if (space.isEmpty())
        return name == u"link" ? &item.link : nullptr;
    if (space != sparkle)
        return nullptr;
    return name == u"version"              ? &item.version
           : name == u"shortVersionString" ? &item.shortVersionString
           : name == u"os"                 ? &item.system
           : name == u"channel"            ? &item.channel
           : name == u"releaseNotesLink"   ? &item.releaseNotesLink
                                           : nullptr;
}

RawItem readItem(QXmlStreamReader& xml)
{
    RawItem item;
    while (xml.readNextStartElement()) {
        if (xml.namespaceUri().isEmpty() && xml.name() == u"enclosure")
            readEnclosure(xml, item);
        else if (QString* field = fieldOf(item, xml.namespaceUri(), xml.name()))
            setFirst(*field, xml.readElementText());
        else
            xml.skipCurrentElement();
    }
    return item;
}

bool canBeShown(const QString& version)
{
    return !version.isEmpty() && version.size() <= longestVersion &&
           std::all_of(version.begin(), version.end(), [](QChar c) { return c.isPrint(); });
}

std::optional<AppcastVersion> versionOf(const RawItem& raw, const QString& system)
{
    const bool isOurs = raw.channel.isEmpty() && (raw.system.isEmpty() || raw.system == system);
    const QVersionNumber version =
        versionNumber(raw.version.isEmpty() ? raw.shortVersionString : raw.version);
    if (!isOurs || version.isNull())
        return std::nullopt;
    AppcastItem item;
    item.displayVersionString =
        canBeShown(raw.shortVersionString) ? raw.shortVersionString : version.toString();
    const QString& page = raw.link.isEmpty() ? raw.releaseNotesLink : raw.link;
    if (!page.isEmpty())
        item.infoUrl = page;
    return AppcastVersion{version, item};
}

void readChannel(QXmlStreamReader& xml, const QString& system, Appcast& appcast)
{
    while (xml.readNextStartElement()) {
        if (!xml.namespaceUri().isEmpty() || xml.name() != u"item") {
            xml.skipCurrentElement();
            continue;
        }
        if (++appcast.itemCount > Appcast::mostItems) {
            xml.raiseError(QStringLiteral("more than %1 items").arg(Appcast::mostItems));
            return;
        }
        if (auto version = versionOf(readItem(xml), system))
            appcast.versions.push_back(std::move(*version));
    }
}

void readFeed(QXmlStreamReader& xml, const QString& system, Appcast& appcast)
{
    if (xml.readNext() != QXmlStreamReader::StartDocument)
        return;
    // What a declaration of types brings along, such as entities, no feed needs.
    while (!xml.isStartElement() && !xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::DTD)
            xml.raiseError(QStringLiteral("a document type"));
    }
    if (!xml.isStartElement())
        return;
    if (xml.name() != u"rss")
        xml.raiseError(QStringLiteral("another root than rss"));
    while (xml.readNextStartElement()) {
        if (xml.namespaceUri().isEmpty() && xml.name() == u"channel")
            readChannel(xml, system, appcast);
        else
            xml.skipCurrentElement();
    }
    while (!xml.atEnd())
        xml.readNext();
}

bool isBelow(const AppcastVersion& left, const AppcastVersion& right)
{
    return left.version < right.version;
}

bool hasTwins(std::vector<AppcastVersion>& versions)
{
    std::sort(versions.begin(), versions.end(), isBelow);
    const auto twin = std::adjacent_find(
        versions.begin(), versions.end(),
        [](const auto& left, const auto& right) { return left.version == right.version; });
    return twin != versions.end();
}

} // namespace

Result<Appcast, QString> parseAppcast(const QByteArray& feed, const QString& system)
{
    Appcast appcast;
    QXmlStreamReader xml(feed);
    readFeed(xml, system, appcast);
    if (xml.hasError())
        return QStringLiteral("it is no feed: ") + xml.errorString();
    if (appcast.itemCount == 0)
        return QStringLiteral("it holds no items");
    if (hasTwins(appcast.versions))
        return QStringLiteral("it holds a version twice");
    return appcast;
}

QVersionNumber versionNumber(const QString& text)
{
    const auto isPlain = [](QChar c) { return c == u'.' || (c >= u'0' && c <= u'9'); };
    qsizetype end = 0;
    const QVersionNumber number = QVersionNumber::fromString(text, &end);
    if (text.size() > longestVersion || end != text.size() ||
        !std::all_of(text.begin(), text.end(), isPlain))
        return {};
    // Nothing but zeros would be normalised to nothing at all.
    const QVersionNumber normalised = number.normalized();
    return normalised.isNull() && !number.isNull() ? QVersionNumber(0) : normalised;
}

std::optional<AppcastItem> newestUpdate(const Appcast& appcast, const QVersionNumber& running)
{
    const auto newest = std::max_element(appcast.versions.begin(), appcast.versions.end(), isBelow);
    if (newest == appcast.versions.end() || newest->version <= running)
        return std::nullopt;
    return newest->item;
}

} // namespace jotwell

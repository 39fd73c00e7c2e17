#include "Platform/Sparkle/SUAppcast.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace mintaro {

namespace {

const QLatin1String kSparkle("http://www.andymatuschak.org/xml-namespaces/sparkle");

URL safeAddress(const QString &text)
{
    const URL url = URL::fromString(text.trimmed()).value_or(URL());
    return isSafeAddress(url) ? url : URL();
}

/// An item as it stands, before what is missing is filled in.
struct ItemReader
{
    QXmlStreamReader &xml;
    SUAppcastItem item;
    URL download;
    bool hasDownloads = false;
    bool isForThisSystem = false;

    QString text() { return xml.readElementText(QXmlStreamReader::IncludeChildElements).simplified(); }

    void readEnclosure()
    {
        const QXmlStreamAttributes attributes = xml.attributes();
        const auto attribute = [&](const char *name) { return attributes.value(kSparkle, QLatin1String(name)); };
        xml.skipCurrentElement();
        hasDownloads = true;
        const auto system = attribute("os");
        if (isForThisSystem || !(system.isEmpty() || system == QLatin1String("linux")))
            return;
        isForThisSystem = true;
        download = safeAddress(attributes.value(QLatin1String("url")).toString());
        if (item.versionString.isEmpty())
            item.versionString = attribute("version").toString().simplified();
        if (item.displayVersionString.isEmpty())
            item.displayVersionString = attribute("shortVersionString").toString().simplified();
    }

    void readElement()
    {
        const bool isSparkles = xml.namespaceUri() == kSparkle;
        const QString name = xml.name().toString();
        if (isSparkles && name == QLatin1String("version"))
            item.versionString = text();
        else if (isSparkles && name == QLatin1String("shortVersionString"))
            item.displayVersionString = text();
        else if (isSparkles && name == QLatin1String("channel"))
            item.channel = text();
        else if (isSparkles || !xml.namespaceUri().isEmpty())
            xml.skipCurrentElement();
        else if (name == QLatin1String("title"))
            item.title = text();
        else if (name == QLatin1String("link"))
            item.link = safeAddress(text());
        else if (name == QLatin1String("enclosure"))
            readEnclosure();
        else
            xml.skipCurrentElement();
    }

    std::optional<SUAppcastItem> read()
    {
        while (xml.readNextStartElement())
            readElement();
        if (item.link == URL())
            item.link = download;
        if (item.displayVersionString.isEmpty())
            item.displayVersionString = item.versionString;
        const bool isUsable = !item.versionString.isEmpty() && item.link != URL() && (isForThisSystem || !hasDownloads);
        return isUsable ? std::optional(item) : std::nullopt;
    }
};

} // namespace

std::optional<std::vector<SUAppcastItem>> appcastItems(const QByteArray &xml)
{
    QXmlStreamReader reader(xml);
    std::vector<SUAppcastItem> items;
    const auto skipTo = [&reader](const char *name) {
        while (reader.readNextStartElement()) {
            if (reader.name() == QLatin1String(name) && reader.namespaceUri().isEmpty())
                return true;
            reader.skipCurrentElement();
        }
        return false;
    };
    // Entities need a document type, which no feed has.
    if (reader.readNext() == QXmlStreamReader::StartDocument)
        reader.readNext();
    while (reader.isComment() || reader.isProcessingInstruction() || reader.isWhitespace())
        reader.readNext();
    if (!reader.isStartElement() || reader.name() != QLatin1String("rss") || !skipTo("channel"))
        return std::nullopt;
    while (skipTo("item")) {
        if (const auto item = ItemReader { reader, {}, {} }.read())
            items.push_back(*item);
    }
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? std::nullopt : std::optional(std::move(items));
}

bool isSafeAddress(const URL &url)
{
    const QUrl address = url.toQUrl();
    const QString host = address.host();
    if (address.scheme() == QLatin1String("https"))
        return !host.isEmpty();
    return address.scheme() == QLatin1String("http")
        && (host == QLatin1String("localhost") || host == QLatin1String("127.0.0.1") || host == QLatin1String("::1"));
}

} // namespace mintaro

#include "Views/SymbolImageProvider.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>
#include <QUrl>

namespace jotwell {

namespace {

QImage drawn(const QString& file, const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (!QFile::exists(file))
        return image;
    QSvgRenderer renderer(file);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    return image;
}

} // namespace

QImage symbolImage(const QString& name, const QColor& color, const QSize& size)
{
    QImage image = drawn(QStringLiteral(":/symbols/%1.svg").arg(name), size);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

QIcon symbolIcon(const QString& name, const QColor& color)
{
    QIcon icon;
    for (const int edge : {16, 22, 24, 32, 48, 64})
        icon.addPixmap(QPixmap::fromImage(symbolImage(name, color, {edge, edge})));
    return icon;
}

QIcon applicationIcon()
{
    const auto file = QStringLiteral(":/icons/com.jotwell.Jotwell.svg");
    QIcon icon;
    for (const int edge : {16, 24, 32, 48, 64, 128})
        icon.addPixmap(QPixmap::fromImage(drawn(file, {edge, edge})));
    return icon;
}

SymbolImageProvider::SymbolImageProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage SymbolImageProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize)
{
    const QString decoded = QUrl::fromPercentEncoding(id.toUtf8());
    const QString name = decoded.section(QLatin1Char('/'), 0, 0);
    const QColor color(decoded.section(QLatin1Char('/'), 1, 1));
    const QSize wanted =
        requestedSize.isValid() && !requestedSize.isEmpty() ? requestedSize : QSize(24, 24);
    if (size)
        *size = wanted;
    return symbolImage(name, color, wanted);
}

} // namespace jotwell

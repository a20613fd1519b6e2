#include "Views/SymbolImageProvider.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>
#include <QUrl>

namespace jotwell {

QImage symbolImage(const QString& name, const QColor& color, const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QString file = QStringLiteral(":/symbols/%1.svg").arg(name);
    if (!QFile::exists(file))
        return image;
    QSvgRenderer renderer(file);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
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

#pragma once

#include <QColor>
#include <QIcon>
#include <QQuickImageProvider>

namespace jotwell {

/// A symbol by its name, drawn in one colour and fitted into `size` pixels; transparent if there is
/// no such symbol. Any thread.
[[nodiscard]] QImage symbolImage(const QString& name, const QColor& color, const QSize& size);

/// A symbol in the usual sizes of an icon.
[[nodiscard]] QIcon symbolIcon(const QString& name, const QColor& color);

/// The program's own icon, the one that is installed for desktops.
[[nodiscard]] QIcon applicationIcon();

/// Gives the views their symbols: image://symbol/<name>/<colour>.
class SymbolImageProvider : public QQuickImageProvider {
public:
    SymbolImageProvider();

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace jotwell

#pragma once

#include "Views/Results/SnippetLayout.h"

#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace jotwell {

/// A found text with its hits marked, as wide as it is told and as high as it needs: two lines at
/// most. Main thread.
class HighlightedSnippetView : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString snippet MEMBER m_snippet WRITE setSnippet NOTIFY changed)
    Q_PROPERTY(QFont font MEMBER m_font WRITE setFont NOTIFY changed)
    Q_PROPERTY(QColor color MEMBER m_color WRITE setColor NOTIFY changed)
    Q_PROPERTY(QColor highlightColor MEMBER m_highlightColor WRITE setHighlightColor NOTIFY changed)

public:
    explicit HighlightedSnippetView(QQuickItem* parent = nullptr);

    /// With the tags that mark the hits.
    void setSnippet(const QString& snippet);
    void setFont(const QFont& font);
    void setColor(const QColor& color);
    void setHighlightColor(const QColor& color);

    void paint(QPainter* painter) override;

signals:
    void changed();

protected:
    void componentComplete() override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

private:
    template <typename T>
    void set(T& member, const T& value);
    void layOut();

    QString m_snippet;
    QFont m_font;
    QColor m_color;
    QColor m_highlightColor;
    std::unique_ptr<SnippetLayout> m_layout;
};

} // namespace jotwell

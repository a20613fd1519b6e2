#pragma once

#include "Services/TagIndexService.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

class Scheduler;

/// How far a build of the index is. The service may publish far more often than a screen is drawn:
/// this tells of its last values sixty times a second at most. Main thread; the service and the
/// scheduler outlive it.
class IndexStatusView : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(IndexStatusState)
    QML_UNCREATABLE("shows an index")

    Q_PROPERTY(bool isIndexing READ isIndexing NOTIFY isIndexingChanged)
    Q_PROPERTY(double indexingProgress READ indexingProgress NOTIFY indexingProgressChanged)
    Q_PROPERTY(QString fileCountText READ fileCountText NOTIFY fileCountTextChanged)

public:
    IndexStatusView(TagIndexService& tagIndex, Scheduler& scheduler, QObject* parent = nullptr);

    /// "3 of 10 files".
    [[nodiscard]] static QString fileCountText(qsizetype indexed, qsizetype total);

    [[nodiscard]] bool isIndexing() const { return m_isIndexing; }
    /// 0 to 1.
    [[nodiscard]] double indexingProgress() const { return m_indexingProgress; }
    [[nodiscard]] const QString& fileCountText() const { return m_fileCountText; }

signals:
    void isIndexingChanged();
    void indexingProgressChanged();
    void fileCountTextChanged();

private:
    void refreshSoon();
    void refresh();

    TagIndexService& m_tagIndex;
    Scheduler& m_scheduler;
    bool m_isIndexing = false;
    double m_indexingProgress = 0;
    QString m_fileCountText;
    bool m_isOutdated = false;
};

} // namespace jotwell

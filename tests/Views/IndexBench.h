#pragma once

#include "Fakes/FakePlatform.h"
#include "Services/TagIndexService.h"
#include "Views/IndexStatusBadge.h"
#include "Views/IndexStatusView.h"

#include <QObject>
#include <QSemaphore>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <vector>

namespace jotwell {

/// The index views over a real service, whose builds go on only step by step.
class IndexBench : public QObject {
    Q_OBJECT
    Q_PROPERTY(QObject* indexStatus READ indexStatus CONSTANT)
    Q_PROPERTY(QObject* badge READ badge CONSTANT)

public:
    /// As many notes as are read before `read` returns.
    static constexpr int readAtOnce = 650;

    explicit IndexBench(QObject* parent = nullptr);
    ~IndexBench() override;

    FakePlatform fake;
    QTemporaryDir vault;
    TagIndexService index{fake.platform};
    IndexStatusView indexStatusView{index, fake.scheduler};
    IndexStatusBadge indexStatusBadge{index, fake.clock};

    [[nodiscard]] QObject* indexStatus() { return &indexStatusView; }
    [[nodiscard]] QObject* badge() { return &indexStatusBadge; }

    /// Begins a build of a vault with that many notes; nothing is listed yet.
    Q_INVOKABLE void startBuild(int noteCount);
    /// The vault is listed; no note is read yet.
    Q_INVOKABLE void list();
    /// The first notes are read; the build isn't over even if that is all of them.
    Q_INVOKABLE void read();
    Q_INVOKABLE void finish();
    /// Fails as soon as it has begun.
    Q_INVOKABLE void buildMissingVault();
    Q_INVOKABLE void advance(int milliseconds);

private:
    void hold(QThreadPool& pool);
    void buildOf(const QString& vaultPath);
    static void waitUntil(const std::function<bool()>& isSo);

    std::vector<std::shared_ptr<QSemaphore>> m_gates; ///< in the order of their making
    bool m_isBuilding = false;
};

} // namespace jotwell

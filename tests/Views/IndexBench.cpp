#include "Views/IndexBench.h"

#include <QCoroTask>

#include <QCoreApplication>
#include <QFile>

#include <algorithm>

namespace jotwell {

IndexBench::IndexBench(QObject* parent) : QObject(parent)
{
    fake.bulk.setMaxThreadCount(1);
}

IndexBench::~IndexBench()
{
    finish();
    fake.bulk.waitForDone();
    fake.database.waitForDone();
}

void IndexBench::startBuild(int noteCount)
{
    for (int note = 0; note < noteCount; ++note) {
        QFile file(vault.filePath(QStringLiteral("%1.md").arg(note)));
        file.open(QIODevice::WriteOnly);
    }
    hold(fake.database);
    hold(fake.bulk);
    buildOf(vault.path());
    hold(fake.bulk);
}

void IndexBench::list()
{
    m_gates.at(1)->release();
    waitUntil([this] { return index.totalFileCount() > 0; });
    hold(fake.bulk);
}

void IndexBench::read()
{
    m_gates.at(2)->release();
    const qsizetype expected = std::min<qsizetype>(index.totalFileCount(), readAtOnce);
    waitUntil([&] { return index.indexedFileCount() == expected; });
}

void IndexBench::finish()
{
    for (const auto& gate : m_gates)
        gate->release();
    waitUntil([this] { return !m_isBuilding; });
    m_gates.clear();
}

void IndexBench::buildMissingVault()
{
    buildOf(vault.filePath(QStringLiteral("missing")));
    finish();
}

void IndexBench::advance(int milliseconds)
{
    fake.scheduler.advance(std::chrono::milliseconds(milliseconds));
}

// All threads of the pools are one: what is started behind a gate waits for it.
void IndexBench::hold(QThreadPool& pool)
{
    const auto gate = std::make_shared<QSemaphore>();
    m_gates.push_back(gate);
    pool.start([gate] { gate->acquire(); });
}

void IndexBench::buildOf(const QString& vaultPath)
{
    m_isBuilding = true;
    QCoro::connect(index.buildIndex(vaultPath), this, [this] { m_isBuilding = false; });
}

void IndexBench::waitUntil(const std::function<bool()>& isSo)
{
    while (!isSo())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

} // namespace jotwell

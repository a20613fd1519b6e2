#include "Index/IndexUnderTest.h"

#include "Platform/FolderWatch.h"

#include <QThreadPool>

#include <cstdio>
#include <cstdlib>

namespace jotwell::bench {

namespace {

Platform withWatcher(const Platform& platform, FolderWatcher& folders)
{
    return {platform.clock,
            platform.steadyClock,
            platform.scheduler,
            platform.defaults,
            platform.files,
            platform.fileSystems,
            folders,
            platform.workspace,
            platform.hotkeys,
            platform.loginItem,
            platform.updater,
            platform.background,
            platform.bulk,
            platform.database,
            platform.applicationSupport};
}

} // namespace

IndexUnderTest::IndexUnderTest(const QString& dataFolder)
    : m_native(dataFolder + QStringLiteral("/Jotwell.ini"), dataFolder),
      m_platform(withWatcher(m_native.platform(), m_noWatches)),
      m_service(std::make_unique<TagIndexService>(m_platform))
{
    QObject::connect(m_service.get(), &TagIndexService::indexingProgressChanged, &m_loop, [this] {
        if (m_service->indexingProgress() < 1)
            return;
        m_filledAt = Samples::Clock::now();
        m_loop.quit();
    });
}

IndexUnderTest::~IndexUnderTest()
{
    m_service->stop();
    m_service.reset();
    m_platform.bulk.waitForDone();
    m_platform.database.waitForDone();
}

Samples::Clock::duration IndexUnderTest::fill(const QString& vault)
{
    m_endedAt.reset();
    const auto begin = Samples::Clock::now();
    auto build = m_service->buildIndex(vault);
    QCoro::connect(std::move(build), &m_loop, [this] {
        m_endedAt = Samples::Clock::now();
        m_loop.quit();
    });
    m_loop.exec();
    if (m_endedAt) {
        std::fputs("The build ended before the maps were full\n", stderr);
        std::exit(EXIT_FAILURE);
    }
    return m_filledAt - begin;
}

Samples::Clock::duration IndexUnderTest::store()
{
    if (!m_endedAt)
        m_loop.exec();
    return *m_endedAt - m_filledAt;
}

} // namespace jotwell::bench

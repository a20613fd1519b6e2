#pragma once

#include "Samples.h"

#include "Platform/FolderWatch.h"
#include "Platform/NativePlatform.h"
#include "Platform/Platform.h"
#include "Services/TagIndexService.h"

#include <QEventLoop>
#include <QObject>

#include <optional>

namespace jotwell::bench {

/// The index as the program has it, but that it watches nothing: scans come only when asked for.
/// Main thread.
class IndexUnderTest {
public:
    /// Keeps its database in `dataFolder`.
    explicit IndexUnderTest(const QString& dataFolder);
    /// Comes back once what runs has ended.
    ~IndexUnderTest();

    [[nodiscard]] TagIndexService& service() { return *m_service; }
    [[nodiscard]] const NoteMap& notes() const { return m_service->index().notes(); }

    /// Starts a build and gives the time until all notes are in the maps.
    Samples::Clock::duration fill(const QString& vault);
    /// The time from then until the build is over, which is when all notes are in the database.
    Samples::Clock::duration store();

private:
    class NoWatches : public FolderWatcher {
    public:
        bool canOpen(const QString&) override { return false; }
        std::unique_ptr<FolderWatch> watch(const QString&, std::function<void()>) override
        {
            return nullptr;
        }
    };

    NoWatches m_noWatches;
    NativePlatform m_native;
    Platform m_platform;
    std::unique_ptr<TagIndexService> m_service;

    QEventLoop m_loop;
    Samples::Clock::time_point m_filledAt;
    std::optional<Samples::Clock::time_point> m_endedAt;
};

} // namespace jotwell::bench

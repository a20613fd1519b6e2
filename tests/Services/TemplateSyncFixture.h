#pragma once

#include "Fakes/FakePlatform.h"
#include "QtPrinters.h"
#include "Services/ScratchFolder.h"
#include "Services/SettingsService.h"
#include "Services/TemplateSyncService.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <memory>

namespace jotwell {

/// The templates service over a fresh folder.
class TemplateSyncServiceTest : public testing::Test {
protected:
    TemplateSyncServiceTest() { m_settings.setTemplatesFolderPath(m_folder.path()); }

    TemplateSyncService& start()
    {
        m_service = std::make_unique<TemplateSyncService>(m_edge.platform, m_settings);
        return *m_service;
    }

    [[nodiscard]] QStringList names() const
    {
        QStringList names;
        for (const ObsidianTemplate& each : m_service->syncedTemplates())
            names.append(each.name);
        return names;
    }

    /// The template of that name; a nameless one if there is none.
    [[nodiscard]] ObsidianTemplate named(const QString& name) const
    {
        for (const ObsidianTemplate& each : m_service->syncedTemplates()) {
            if (each.name == name)
                return each;
        }
        return {};
    }

    /// Lets readings end that are under way, and those that they start in turn.
    void settle()
    {
        for (int reading = 0; reading < 4; ++reading) {
            m_edge.background.waitForDone();
            QCoreApplication::processEvents();
        }
    }

    /// Raises the event of a change in the folder.
    void touch() { m_edge.folders.touch(m_folder.path()); }

    ScratchFolder m_folder;
    FakePlatform m_edge;
    SettingsService m_settings{m_edge.defaults, [] { return ObsidianTemplates(); }};
    std::unique_ptr<TemplateSyncService> m_service;
};

/// The same with two templates, loaded and under watch.
class WatchedTemplates : public TemplateSyncServiceTest {
protected:
    WatchedTemplates()
    {
        m_folder.put(u"a.md"_qs, "a");
        m_folder.put(u"b.md"_qs, "b");
        start();
    }
};

} // namespace jotwell

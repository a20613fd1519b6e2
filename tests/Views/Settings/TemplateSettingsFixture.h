#pragma once

#include "Fakes/FakeFolderPanel.h"
#include "Fakes/FakePlatform.h"
#include "Services/SettingsService.h"
#include "Services/TemplateSyncService.h"
#include "Views/Settings/SimpleObsidianSettingsView.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace jotwell {

/// The templates' screen over three templates of the user's, "a" to "c", and a folder of others.
class TemplateSettingsTest : public testing::Test {
protected:
    TemplateSettingsTest() { settings.setObsidianTemplates(stored); }

    static ObsidianTemplate regular(const QString& name)
    {
        return {QUuid::createUuid(), name, u"text of "_qs + name, true, TemplateType::regular()};
    }

    /// The screen comes on show.
    SimpleObsidianSettingsView& appear()
    {
        view = std::make_unique<SimpleObsidianSettingsView>(
            TemplateSettingsServices{settings, templates, folders});
        view->appear();
        settle();
        return *view;
    }

    void put(const QString& name, const QByteArray& text)
    {
        QFile file(pathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    [[nodiscard]] QString pathOf(const QString& name) const
    {
        return QDir(folder.path()).filePath(name + u".md"_qs);
    }
    /// Nothing if there is no such file.
    [[nodiscard]] std::optional<QByteArray> inFile(const QString& name) const
    {
        QFile file(pathOf(name));
        return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
    }
    void useFolder()
    {
        settings.setTemplatesFolderPath(folder.path());
        templates.startMonitoring();
    }
    /// Another program has done something in the folder, which is told of.
    void touch()
    {
        fake.folders.touch(folder.path());
        settle();
    }

    /// Lets all end that is under way.
    void settle()
    {
        for (int turn = 0; turn < 5; ++turn) {
            fake.background.waitForDone();
            QCoreApplication::processEvents();
            if (view)
                view->waitUntilStored();
        }
    }

    void select(const QString& name)
    {
        for (const TabItem& each : view->tabs()->items()) {
            if (each.title == name)
                view->selectTab(each.idText());
        }
        ASSERT_EQ(view->editingTemplateName(), name);
    }
    [[nodiscard]] QStringList tabs() const
    {
        QStringList titles;
        for (const TabItem& each : view->tabs()->items())
            titles.append(each.title);
        return titles;
    }
    [[nodiscard]] QStringList storedNames() const
    {
        QStringList names;
        for (const ObsidianTemplate& each : settings.obsidianTemplates())
            names.append(each.name);
        return names;
    }

    FakePlatform fake;
    FakeFolderPanel folders;
    QTemporaryDir folder;
    SettingsService settings{fake.defaults, [] { return ObsidianTemplates(); }};
    TemplateSyncService templates{fake.platform, settings};
    const ObsidianTemplates stored{regular(u"a"_qs), regular(u"b"_qs), regular(u"c"_qs)};
    std::unique_ptr<SimpleObsidianSettingsView> view;
};

} // namespace jotwell

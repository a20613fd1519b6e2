#pragma once

#include "Fakes/FakePlatform.h"
#include "Fakes/TaskRunner.h"
#include "QtPrinters.h"
#include "Services/LogCapture.h"
#include "Services/ScratchFolder.h"
#include "Services/TagIndexService.h"

#include <QMap>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

/// The index service over a fresh vault and the real file system, threads and database.
class TagIndexServiceTest : public testing::Test {
protected:
    TagIndexServiceTest() { record(); }
    ~TagIndexServiceTest() override
    {
        index.reset();
        edge.bulk.waitForDone();
        edge.database.waitForDone();
    }

    void build() { finished(index->buildIndex(vault.path())); }
    void scan(bool checkContent = true)
    {
        finished(index->scanForChanges(vault.path(), checkContent));
    }
    void restart()
    {
        index.reset();
        index = std::make_unique<TagIndexService>(edge.platform);
        record();
    }

    [[nodiscard]] const FileMetadata* metadata(const QString& name) const
    {
        return index->index().notes().find(vault.pathOf(name).toUtf8());
    }
    /// Names of all notes, relative to the vault, sorted.
    [[nodiscard]] QStringList notes() const
    {
        QStringList names;
        index->index().notes().forEach([&](const FileMetadataPtr& each) {
            names.append(QString::fromUtf8(each->path.sliced(vault.path().toUtf8().size() + 1)));
        });
        names.sort();
        return names;
    }
    /// Names of the notes of each tag.
    [[nodiscard]] QMap<QString, QStringList> tags() const
    {
        QMap<QString, QStringList> found;
        const auto& tagToFiles = index->index().tagToFiles();
        for (auto each = tagToFiles.begin(); each != tagToFiles.end(); ++each) {
            for (const FileMetadata* note : *each)
                found[each.key()].append(QString::fromUtf8(note->fileName()));
            found[each.key()].sort();
        }
        return found;
    }

    /// What was published since the last call, as "property value".
    QStringList takePublications() { return std::exchange(m_publications, {}); }

    ScratchFolder vault;
    FakePlatform edge;
    LogCapture log;
    std::unique_ptr<TagIndexService> index = std::make_unique<TagIndexService>(edge.platform);

private:
    void record();

    QStringList m_publications;
};

} // namespace jotwell

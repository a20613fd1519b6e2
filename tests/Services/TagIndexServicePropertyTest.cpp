#include "Services/IndexFixture.h"

#include <random>

namespace jotwell {

namespace {

const QStringList names{u"a.md"_qs,     u"b.md"_qs,     u"c d.md"_qs,
                        u"sub/a.md"_qs, u"sub/e.md"_qs, u"ü/😀.md"_qs};

/// Changes the vault and runs builds, scans and searches beside one another, by chance.
class TagIndexServicePropertyTest : public TagIndexServiceTest {
protected:
    int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(m_random); }

    QString anyName() { return names[below(static_cast<int>(names.size()))]; }
    QByteArray anyText()
    {
        QByteArray text = "note " + QByteArray::number(below(1000));
        for (int tags = below(4); tags > 0; --tags)
            text += " #t" + QByteArray::number(below(5));
        return below(20) == 0 ? text + "\xff" : text;
    }

    void changeAFile()
    {
        const QString name = anyName();
        if (below(3) > 0)
            vault.put(name, anyText());
        else if (QFile::exists(vault.pathOf(name)))
            vault.remove(name);
    }
    // One of them keeps the record of what could be read last.
    void removeUnreadable()
    {
        for (const QString& name : names) {
            if (QFile::exists(vault.pathOf(name)) && !vault.bytesOf(name).isValidUtf8())
                vault.remove(name);
        }
    }
    QCoro::Task<void> anyOperation()
    {
        switch (below(6)) {
        case 0:
            return index->buildIndex(vault.path());
        case 1:
            return index->updateFile(vault.pathOf(anyName()));
        case 2:
            return searched(index->searchContent(u"note 1"_qs, vault.path()));
        case 3:
            return searched(index->searchNotes(u"#t1 a"_qs, vault.path()));
        default:
            return index->scanForChanges(vault.path(), true);
        }
    }

    void expectConsistentMaps() const
    {
        QHash<QString, QSet<const FileMetadata*>> expected;
        qsizetype count = 0;
        index->index().notes().forEach([&](const FileMetadataPtr& note) {
            ++count;
            EXPECT_EQ(index->index().notes().find(note->path), note.get());
            for (const QString& tag : note->allTags())
                expected[tag].insert(note.get());
        });
        EXPECT_EQ(index->index().notes().size(), count);
        EXPECT_EQ(index->index().tagToFiles(), expected);
    }

    /// The texts of all notes by their paths.
    [[nodiscard]] QMap<QByteArray, QByteArray> textsOnDisk() const
    {
        QMap<QByteArray, QByteArray> texts;
        for (const QString& name : names) {
            if (QFile::exists(vault.pathOf(name)))
                texts[vault.pathOf(name).toUtf8()] = vault.bytesOf(name);
        }
        return texts;
    }
    [[nodiscard]] QMap<QByteArray, QByteArray> textsInIndex() const
    {
        QMap<QByteArray, QByteArray> texts;
        index->index().notes().forEach(
            [&](const FileMetadataPtr& note) { texts[note->path] = note->fullContent; });
        return texts;
    }

    std::mt19937 m_random;

private:
    static QCoro::Task<void> searched(QCoro::Task<SearchAnswer> search)
    {
        co_await std::move(search);
    }
};

TEST_F(TagIndexServicePropertyTest, TheMapsAgreeWhateverRunsBesideWhat)
{
    for (unsigned seed = 0; seed < 12; ++seed) {
        SCOPED_TRACE(seed);
        m_random.seed(seed);
        build();
        for (int round = 0; round < 12; ++round) {
            std::vector<QCoro::Task<void>> running;
            for (int steps = 1 + below(5); steps > 0; --steps) {
                changeAFile();
                running.push_back(anyOperation());
                if (below(2) == 0)
                    QCoreApplication::processEvents();
                expectConsistentMaps();
            }
            for (QCoro::Task<void>& each : running)
                finished(std::move(each));
            expectConsistentMaps();
        }
        removeUnreadable();
        scan();
        expectConsistentMaps();
        EXPECT_EQ(textsInIndex(), textsOnDisk());
    }
}

} // namespace

} // namespace jotwell

#include "Services/Index/Database/IndexSchema.h"

#include "QtPrinters.h"
#include "Support/Database.h"

#include <gtest/gtest.h>

#include <string>

namespace jotwell {

namespace {

// What SQLite keeps of a statement begins with its CREATE, has no "IF NOT EXISTS" and ends before
// the semicolon; what is between is kept to the last blank.
std::string textOf(const char* name)
{
    Database database;
    database.open(QStringLiteral(":memory:"), SQLITE_OPEN_READWRITE, nullptr);
    EXPECT_EQ(database.execute(basicTablesScript), SQLITE_OK);
    EXPECT_EQ(database.execute(contentTablesScript), SQLITE_OK);
    Statement query(database.handle(), "SELECT sql FROM sqlite_schema WHERE name = ?");
    query.bindText(1, name);
    return query.step() == SQLITE_ROW ? query.text(0).toByteArray().toStdString() : "(none)";
}

struct Part {
    const char* name;
    const char* text;
};

void PrintTo(const Part& part, std::ostream* out)
{
    *out << part.name;
}

class IndexSchemaTest : public testing::TestWithParam<Part> {};

const Part parts[] = {
    {"files", R"(CREATE TABLE files (
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        path TEXT UNIQUE NOT NULL,
        title TEXT NOT NULL,
        modification_date INTEGER NOT NULL,
        file_size INTEGER NOT NULL,
        indexed_date INTEGER NOT NULL
    ))"},
    {"tags", R"(CREATE TABLE tags (
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        name TEXT UNIQUE NOT NULL
    ))"},
    {"file_tags", R"(CREATE TABLE file_tags (
        file_id INTEGER NOT NULL,
        tag_id INTEGER NOT NULL,
        source TEXT NOT NULL CHECK(source IN ('frontmatter', 'content')),
        PRIMARY KEY (file_id, tag_id, source),
        FOREIGN KEY (file_id) REFERENCES files(id) ON DELETE CASCADE,
        FOREIGN KEY (tag_id) REFERENCES tags(id) ON DELETE CASCADE
    ))"},
    {"idx_tag_name", "CREATE INDEX idx_tag_name ON tags(name)"},
    {"idx_file_path", "CREATE INDEX idx_file_path ON files(path)"},
    {"idx_file_mod_date", "CREATE INDEX idx_file_mod_date ON files(modification_date)"},
    {"content_index", R"(CREATE TABLE content_index (
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        path TEXT UNIQUE NOT NULL,
        title TEXT NOT NULL,
        content TEXT NOT NULL,
        content_cleaned TEXT NOT NULL,
        tags_json TEXT,
        modification_date INTEGER NOT NULL,
        file_size INTEGER NOT NULL,
        content_hash TEXT NOT NULL,
        word_count INTEGER NOT NULL,
        indexed_date INTEGER NOT NULL
    ))"},
    {"content_fts", R"(CREATE VIRTUAL TABLE content_fts USING fts5(
        path UNINDEXED,
        title,
        content,
        tags,
        tokenize = 'porter unicode61',
        content='content_index',
        content_rowid='id'
    ))"},
    {"content_fts_insert",
     "CREATE TRIGGER content_fts_insert \n"
     "    AFTER INSERT ON content_index BEGIN\n"
     "        INSERT INTO content_fts(rowid, path, title, content, tags) \n"
     "        VALUES (new.id, new.path, new.title, new.content_cleaned, new.tags_json);\n"
     "    END"},
    {"content_fts_update", "CREATE TRIGGER content_fts_update \n"
                           "    AFTER UPDATE ON content_index BEGIN\n"
                           "        UPDATE content_fts \n"
                           "        SET path = new.path, title = new.title, \n"
                           "            content = new.content_cleaned, tags = new.tags_json\n"
                           "        WHERE rowid = new.id;\n"
                           "    END"},
    {"content_fts_delete", "CREATE TRIGGER content_fts_delete \n"
                           "    AFTER DELETE ON content_index BEGIN\n"
                           "        DELETE FROM content_fts WHERE rowid = old.id;\n"
                           "    END"},
    {"search_history", R"(CREATE TABLE search_history (
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        query TEXT NOT NULL,
        result_count INTEGER,
        execution_time_ms REAL,
        timestamp INTEGER NOT NULL
    ))"},
    {"idx_content_path", "CREATE INDEX idx_content_path ON content_index(path)"},
    {"idx_content_hash", "CREATE INDEX idx_content_hash ON content_index(content_hash)"},
    {"idx_content_mod_date",
     "CREATE INDEX idx_content_mod_date ON content_index(modification_date)"},
};

} // namespace

TEST_P(IndexSchemaTest, StandsWordForWord)
{
    EXPECT_EQ(textOf(GetParam().name), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Parts, IndexSchemaTest, testing::ValuesIn(parts),
                         [](const testing::TestParamInfo<Part>& each) { return each.param.name; });

} // namespace jotwell

#include "Services/Index/Database/IndexSchema.h"

// The triggers have blanks at the ends of lines, which an editor would take off a raw string.

namespace jotwell {

const char* const basicTablesScript = R"sql(    CREATE TABLE IF NOT EXISTS files (
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        path TEXT UNIQUE NOT NULL,
        title TEXT NOT NULL,
        modification_date INTEGER NOT NULL,
        file_size INTEGER NOT NULL,
        indexed_date INTEGER NOT NULL
    );
    CREATE TABLE IF NOT EXISTS tags (
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        name TEXT UNIQUE NOT NULL
    );
    CREATE TABLE IF NOT EXISTS file_tags (
        file_id INTEGER NOT NULL,
        tag_id INTEGER NOT NULL,
        source TEXT NOT NULL CHECK(source IN ('frontmatter', 'content')),
        PRIMARY KEY (file_id, tag_id, source),
        FOREIGN KEY (file_id) REFERENCES files(id) ON DELETE CASCADE,
        FOREIGN KEY (tag_id) REFERENCES tags(id) ON DELETE CASCADE
    );
    CREATE INDEX IF NOT EXISTS idx_tag_name ON tags(name);
    CREATE INDEX IF NOT EXISTS idx_file_path ON files(path);
    CREATE INDEX IF NOT EXISTS idx_file_mod_date ON files(modification_date);
)sql";

const char* const contentTablesScript =
    R"sql(    -- Main content table
    CREATE TABLE IF NOT EXISTS content_index (
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
    );
    -- FTS5 virtual table for full-text search
    CREATE VIRTUAL TABLE IF NOT EXISTS content_fts USING fts5(
        path UNINDEXED,
        title,
        content,
        tags,
        tokenize = 'porter unicode61',
        content='content_index',
        content_rowid='id'
    );
)sql"
    "    -- Triggers to keep FTS5 synchronized\n"
    "    CREATE TRIGGER IF NOT EXISTS content_fts_insert \n"
    "    AFTER INSERT ON content_index BEGIN\n"
    "        INSERT INTO content_fts(rowid, path, title, content, tags) \n"
    "        VALUES (new.id, new.path, new.title, new.content_cleaned, new.tags_json);\n"
    "    END;\n"
    "    CREATE TRIGGER IF NOT EXISTS content_fts_update \n"
    "    AFTER UPDATE ON content_index BEGIN\n"
    "        UPDATE content_fts \n"
    "        SET path = new.path, title = new.title, \n"
    "            content = new.content_cleaned, tags = new.tags_json\n"
    "        WHERE rowid = new.id;\n"
    "    END;\n"
    "    CREATE TRIGGER IF NOT EXISTS content_fts_delete \n"
    "    AFTER DELETE ON content_index BEGIN\n"
    "        DELETE FROM content_fts WHERE rowid = old.id;\n"
    "    END;\n"
    R"sql(    -- Search history for analytics
    CREATE TABLE IF NOT EXISTS search_history (
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        query TEXT NOT NULL,
        result_count INTEGER,
        execution_time_ms REAL,
        timestamp INTEGER NOT NULL
    );
    -- Indices for performance
    CREATE INDEX IF NOT EXISTS idx_content_path ON content_index(path);
    CREATE INDEX IF NOT EXISTS idx_content_hash ON content_index(content_hash);
    CREATE INDEX IF NOT EXISTS idx_content_mod_date ON content_index(modification_date);
)sql";

} // namespace jotwell

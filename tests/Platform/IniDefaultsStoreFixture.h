#pragma once

#include "Fakes/FailingFileCalls.h"
#include "Platform/qt/IniDefaultsStore.h"
#include "Support/FileText.h"
#include "Support/Logging.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace jotwell {

/// A store in a folder of its own, over a disk that fails and waits on demand.
class IniDefaultsStoreTest : public testing::Test {
protected:
    void SetUp() override
    {
        setLogSink([this](const LogRecord& record) { m_log.append(record.message); });
    }
    void TearDown() override { setLogSink({}); }

    [[nodiscard]] QString path() const
    {
        return m_folder.filePath(QStringLiteral("com.jotwell/Jotwell.ini"));
    }

    void put(const QByteArray& bytes) const
    {
        QDir(m_folder.path()).mkdir(QStringLiteral("com.jotwell"));
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    /// What is in the file now.
    [[nodiscard]] QByteArray bytes() const
    {
        const auto read = readFile(path());
        return read ? *read : QByteArray("(nothing)");
    }

    /// Another program's view of what has been set.
    [[nodiscard]] IniDefaultsStore otherProgram()
    {
        m_store.synchronize();
        return IniDefaultsStore(path(), m_calls);
    }

    const QString key = QStringLiteral("Key");
    QTemporaryDir m_folder;
    FailingFileCalls m_calls;
    QStringList m_log;
    IniDefaultsStore m_store{path(), m_calls};
};

} // namespace jotwell
